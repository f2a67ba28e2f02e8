#pragma once

#include <locale.h>

namespace tabulon {

/// Sets the thread's character set to UTF-8 while it lives. libarchive gives and takes entry names in UTF-8
/// only then.
class Utf8Locale {
  public:
    Utf8Locale() : m_before(uselocale(Utf8())) {}
    ~Utf8Locale() { uselocale(m_before); }
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

  private:
    static locale_t Utf8() {
        static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return utf8;
    }

    locale_t m_before;
};

}  // namespace tabulon
