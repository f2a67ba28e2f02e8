#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tabulon {

/// Turns text in the code pages of older systems into UTF-8.
class CodePages {
  public:
    static constexpr int Western = 1252;
    static constexpr int Macintosh = 10000;

    /// Bytes that mean nothing in the page become replacement characters; a page that is not known is taken
    /// as the western one.
    std::string ToUtf8(std::string_view bytes, int page);
    /// The same for a character set by its name, such as "windows-1251".
    std::string ToUtf8(std::string_view bytes, const std::string& charset);

  private:
    class Converter;
    struct Deleter {
        void operator()(Converter* converter) const;
    };

    std::map<std::string, std::unique_ptr<Converter, Deleter>> m_converters;
};

/// A character as UTF-8; the replacement character for what is none.
std::string Utf8Of(char32_t character);

}  // namespace tabulon
