#include "help/links.h"

#include <algorithm>
#include <vector>

#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::string_view WebSchemes[] = {"http", "https", "mailto"};
constexpr std::string_view HelpSchemes[] = {"ms-its", "its", "mk", "help"};
constexpr std::string_view InsideMark = "::";

std::string_view Trimmed(std::string_view text) {
    constexpr char Blanks[] = " \t\r\n";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool IsSchemeCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' ||
           c == '-' || c == '.';
}

/// "http" of "http://host"; empty when the link has none.
std::string_view SchemeOf(std::string_view link) {
    const std::size_t end = static_cast<std::size_t>(
        std::find_if_not(link.begin(), link.end(), IsSchemeCharacter) - link.begin());
    const bool inside = link.substr(end).starts_with(InsideMark);
    return end < link.size() && link[end] == ':' && !inside ? link.substr(0, end) : std::string_view();
}

template <class Names>
bool IsOneOf(std::string_view name, const Names& names) {
    return std::any_of(std::begin(names), std::end(names),
                       [name](std::string_view other) { return EqualNoCase(name, other); });
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::string WithoutPercents(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool coded =
            text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
        result += coded ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2])) : text[i];
        if (coded) i += 2;
    }
    return result;
}

/// Without ".", ".." and doubled slashes; there is nothing above the root.
std::string Normalised(std::string_view path) {
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::string_view part = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(part.size() + 1, path.size()));
        if (part == ".." && !parts.empty()) parts.pop_back();
        if (!part.empty() && part != "." && part != "..") parts.push_back(part);
    }
    std::string result;
    for (const std::string_view part : parts) result.append(result.empty() ? "" : "/").append(part);
    return result;
}

/// The part that names a file, of a link without scheme.
std::string FileOf(std::string_view page, std::string_view path) {
    if (path.empty()) return std::string(page);
    std::string name = ReplaceAll(WithoutPercents(path), "\\", "/");
    const std::size_t folder = page.rfind('/');
    if (!name.starts_with('/') && folder != page.npos) name = std::string(page.substr(0, folder + 1)) + name;
    return Normalised(name);
}

HelpLink Inside(std::string_view page, std::string_view link) {
    const std::string_view beforeFragment = link.substr(0, link.find('#'));
    HelpLink result;
    result.Kind = LinkKind::Page;
    result.File = FileOf(page, beforeFragment.substr(0, beforeFragment.find('?')));
    if (beforeFragment.size() < link.size())
        result.Fragment = WithoutPercents(link.substr(beforeFragment.size() + 1));
    return result;
}

/// "ms-its:C:\\Help\\Other.chm::/page.htm" means the page, whatever the folder; a link without "::" means a
/// whole file.
HelpLink InsideOfNamedFile(std::string_view link) {
    const std::size_t mark = link.find(InsideMark);
    if (mark == link.npos) return {LinkKind::OtherHelp, {}, {}, std::string(link)};
    return Inside({}, link.substr(mark + InsideMark.size()));
}

}  // namespace

HelpLink ResolveLink(std::string_view page, std::string_view link) {
    const std::string_view given = Trimmed(link);
    const std::string_view scheme = SchemeOf(given);
    if (IsOneOf(scheme, WebSchemes)) return {LinkKind::Web, {}, {}, std::string(given)};
    if (scheme.empty() && given.find(InsideMark) == given.npos) return Inside(page, given);
    if (scheme.empty() || IsOneOf(scheme, HelpSchemes)) {
        const std::string_view rest = scheme.empty() ? given : given.substr(scheme.size() + 1);
        return EqualNoCase(scheme, "help") ? Inside({}, rest) : InsideOfNamedFile(rest);
    }
    return {LinkKind::Unknown, {}, {}, std::string(given)};
}

}  // namespace tabulon
