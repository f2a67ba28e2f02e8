#include "platform/mail_text.h"

#include <algorithm>

#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::size_t LongestAddress = 254;
constexpr std::size_t LongestLocalPart = 64;
constexpr std::size_t LongestLabel = 63;
constexpr std::size_t LongestHeaderText = 200;
constexpr std::size_t EncodedWordBytes = 45;  // in base64, with what stands around, below the limit of 75

bool IsAsciiLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool IsLocalCharacter(char c) {
    return IsAsciiLetterOrDigit(c) ||
           std::string_view("!#$%&'*+-/=?^_`{|}~").find(c) != std::string_view::npos;
}

bool IsLabelCharacter(char c) { return IsAsciiLetterOrDigit(c) || c == '-'; }

/// Parts between dots, none of them empty or longer than `longest`.
template <class IsAllowed>
bool IsDotted(std::string_view text, std::size_t longest, IsAllowed isAllowed) {
    while (true) {
        const std::string_view part = text.substr(0, text.find('.'));
        if (part.empty() || part.size() > longest || !std::ranges::all_of(part, isAllowed)) return false;
        if (part.size() == text.size()) return true;
        text.remove_prefix(part.size() + 1);
    }
}

bool IsHost(std::string_view text) {
    return text.size() <= LongestAddress && IsDotted(text, LongestLabel, IsLabelCharacter) &&
           text.front() != '-';
}

bool IsPort(std::string_view text) {
    return !text.empty() && text.size() <= 5 &&
           std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string Base64(std::string_view bytes) {
    constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        for (std::size_t j = i; j < i + 3; ++j)
            group = group << 8 | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0u);
        for (std::size_t j = 0; j < 4; ++j)
            text += i + j <= bytes.size() ? digits[group >> (18 - 6 * j) & 63] : '=';
    }
    return text;
}

/// How much of a text makes one encoded word: no character is cut in two.
std::size_t WordLength(std::string_view text) {
    if (text.size() <= EncodedWordBytes) return text.size();
    std::size_t length = EncodedWordBytes;
    while (length > 1 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
    return length;
}

}  // namespace

bool IsMailAddress(std::string_view text) {
    const std::size_t at = text.find('@');
    if (at == text.npos || text.size() > LongestAddress) return false;
    const std::string_view local = text.substr(0, at);
    return local.size() <= LongestLocalPart && IsDotted(local, LongestLocalPart, IsLocalCharacter) &&
           IsHost(text.substr(at + 1));
}

bool IsServerName(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (!IsHost(text.substr(0, colon))) return false;
    return colon == text.npos || IsPort(text.substr(colon + 1));
}

bool IsHeaderText(std::string_view text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; };
    return text.size() <= LongestHeaderText && std::ranges::none_of(text, isControl) && ToUtf8(text) == text;
}

std::string EncodedHeaderText(std::string_view text) {
    if (IsAscii(text) && text.find("=?") == text.npos) return std::string(text);
    std::string encoded;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, WordLength(text));
        encoded += (encoded.empty() ? "=?UTF-8?B?" : " =?UTF-8?B?") + Base64(word) + "?=";
        text.remove_prefix(word.size());
    }
    return encoded;
}

std::string EncodedMailbox(std::string_view name, std::string_view address) {
    const std::string bracketed = "<" + std::string(address) + ">";
    if (name.empty()) return std::string(address);
    const std::string encoded = EncodedHeaderText(name);
    if (encoded != name) return encoded + " " + bracketed;
    return "\"" + ReplaceAll(ReplaceAll(name, "\\", "\\\\"), "\"", "\\\"") + "\" " + bracketed;
}

std::string WithCrLf(std::string_view text) {
    return ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\n", "\r\n");
}

}  // namespace tabulon
