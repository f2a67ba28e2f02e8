#include "playtest/html_text.h"

#include <cstdint>

#include "platform/text.h"

namespace tabulon::playtest {

namespace {

std::string EscapedCharacter(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return std::string(1, static_cast<unsigned char>(c) < ' ' ? ' ' : c);
    }
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t j = i; j < i + 3; ++j)
            group = group << 8 | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0u);
        for (int shift = 18; shift >= 0; shift -= 6) text += digits[group >> shift & 63u];
    }
    const std::size_t missing = (3 - bytes.size() % 3) % 3;
    text.replace(text.size() - missing, missing, missing, '=');
    return text;
}

std::string_view MediaType(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("BM"sv)) return "image/bmp";
    if (bytes.starts_with("GIF8"sv)) return "image/gif";
    if (bytes.starts_with("\x89PNG"sv)) return "image/png";
    if (bytes.starts_with("\xff\xd8"sv)) return "image/jpeg";
    return {};
}

}  // namespace

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) escaped += EscapedCharacter(c);
    return escaped;
}

std::string DataAddress(const FilePicture& picture) {
    const std::string_view type = MediaType(picture.Bytes);
    if (type.empty()) return {};
    return "data:" + std::string(type) + ";base64," + Base64(picture.Bytes);
}

std::string Shortened(const std::string& text, std::size_t length) {
    const std::string beginning = Left(text, length);
    return beginning.size() == text.size() ? text : beginning + "\xE2\x80\xA6";
}

}  // namespace tabulon::playtest
