#include "help/help_text.h"

#include <algorithm>

#include "platform/code_pages.h"
#include "platform/text.h"

namespace tabulon {

namespace {

/// Languages whose letters the western code page lacks; the lower ten bits of a language tell them apart.
struct LanguageRow {
    int Primary;
    int CodePage;
};
constexpr int PrimaryBits = 0x3FF;
constexpr LanguageRow Languages[] = {
    {0x01, 1256}, {0x02, 1251}, {0x05, 1250}, {0x08, 1253}, {0x0D, 1255}, {0x0E, 1250},
    {0x11, 932},  {0x12, 949},  {0x15, 1250}, {0x18, 1250}, {0x19, 1251}, {0x1A, 1250},
    {0x1B, 1250}, {0x1C, 1250}, {0x1E, 874},  {0x1F, 1254}, {0x22, 1251}, {0x23, 1251},
    {0x24, 1250}, {0x25, 1257}, {0x26, 1257}, {0x27, 1257}, {0x2A, 1258}, {0x2F, 1251},
};
constexpr int SimplifiedChinese = 0x0804;
constexpr int TraditionalChinese = 0x0404;

constexpr std::size_t HeadBytes = 4096;
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
}

std::string Small(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return small;
}

/// What stands behind "charset=" near the beginning of the page.
std::string CharsetOf(std::string_view bytes) {
    constexpr std::string_view Mark = "charset=";
    const std::string head = Small(bytes.substr(0, HeadBytes));
    const std::size_t found = head.find(Mark);
    if (found == head.npos) return {};
    const auto first = std::find_if(head.begin() + static_cast<std::ptrdiff_t>(found + Mark.size()),
                                    head.end(), [](char c) { return c != '"' && c != '\'' && c != ' '; });
    return {first, std::find_if_not(first, head.end(), IsNameCharacter)};
}

bool IsUtf8(std::string_view bytes) { return ToUtf8(bytes) == bytes; }

}  // namespace

int CodePageOf(int language) {
    if (language == SimplifiedChinese) return 936;
    if (language == TraditionalChinese) return 950;
    for (const LanguageRow& row : Languages)
        if (row.Primary == (language & PrimaryBits)) return row.CodePage;
    return 0;
}

std::string PageAsUtf8(std::string_view bytes, int codePage) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return CodePages().ToUtf8(bytes, std::string("UTF-16"));
    if (bytes.starts_with(Utf8Mark) || IsUtf8(bytes)) return ToUtf8(bytes);
    const std::string charset = CharsetOf(bytes);
    if (!charset.empty()) return CodePages().ToUtf8(bytes, charset);
    return codePage != 0 ? CodePages().ToUtf8(bytes, codePage) : ToUtf8(bytes);
}

}  // namespace tabulon
