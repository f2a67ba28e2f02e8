#include "platform/code_pages.h"

#include <array>
#include <cerrno>
#include <iconv.h>
#include <new>

namespace tabulon {

namespace {

constexpr char Replacement[] = "\xEF\xBF\xBD";

iconv_t NoConversion() { return reinterpret_cast<iconv_t>(-1); }

// A name that comes with a document must not carry switches of iconv's, which stand behind a slash.
iconv_t Opened(const std::string& charset) {
    const bool plain = charset.find('/') == charset.npos;
    const iconv_t opened = plain ? iconv_open("UTF-8", charset.c_str()) : NoConversion();
    return opened != NoConversion() ? opened : iconv_open("UTF-8", "CP1252");
}

}  // namespace

class CodePages::Converter {
  public:
    explicit Converter(const std::string& charset) : m_conversion(Opened(charset)) {
        if (m_conversion == NoConversion()) throw std::bad_alloc();
    }
    ~Converter() { iconv_close(m_conversion); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    std::string Convert(std::string_view bytes) {
        iconv(m_conversion, nullptr, nullptr, nullptr, nullptr);
        std::string input(bytes);
        char* from = input.data();
        std::size_t left = input.size();
        std::string result;
        while (left > 0) {
            std::array<char, 256> buffer;
            char* to = buffer.data();
            std::size_t room = buffer.size();
            const bool done = iconv(m_conversion, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
            const bool lacksRoom = !done && errno == E2BIG;
            result.append(buffer.data(), buffer.size() - room);
            if (done || lacksRoom) continue;
            result += Replacement;
            ++from;
            --left;
        }
        return result;
    }

  private:
    iconv_t m_conversion;
};

void CodePages::Deleter::operator()(Converter* converter) const { delete converter; }

std::string CodePages::ToUtf8(std::string_view bytes, const std::string& charset) {
    auto& converter = m_converters[charset];
    if (!converter) converter.reset(new Converter(charset));
    return converter->Convert(bytes);
}

std::string CodePages::ToUtf8(std::string_view bytes, int page) {
    return ToUtf8(bytes, page == Macintosh ? "MACINTOSH" : "CP" + std::to_string(page));
}

std::string Utf8Of(char32_t character) {
    const auto tail = [character](int shift) {
        return static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) return {static_cast<char>(character)};
    if (character < 0x800) return {static_cast<char>(0xC0 | character >> 6), tail(0)};
    if ((character >= 0xD800 && character < 0xE000) || character > 0x10FFFF) return Replacement;
    if (character < 0x10000) return {static_cast<char>(0xE0 | character >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | character >> 18), tail(12), tail(6), tail(0)};
}

}  // namespace tabulon
