#include "help/help_search.h"

#include <algorithm>
#include <locale.h>
#include <wctype.h>

#include "help/limits.h"
#include "help/page_text.h"
#include "platform/code_pages.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr int TitleScore = 100;
constexpr int LongestCount = 50;
constexpr std::size_t ExcerptBefore = 40;
constexpr std::size_t ExcerptLength = 140;
constexpr std::u32string_view Blanks = U" \n";
const std::string Ellipsis = "\u2026";
constexpr std::size_t LongestQuery = 400;

locale_t Utf8Letters() {
    static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return letters;
}

bool IsLetter(char32_t c) { return iswalnum_l(static_cast<wint_t>(c), Utf8Letters()) != 0; }

std::u32string Decoded(std::string_view utf8) {
    std::u32string text;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const int tail = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        char32_t c = tail == 0 ? lead : lead & (0x3Fu >> tail);
        for (++i; i < utf8.size() && (static_cast<unsigned char>(utf8[i]) & 0xC0) == 0x80 && lead >= 0xC0;
             ++i)
            c = c << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3Fu);
        text += c;
    }
    return text;
}

std::string Encoded(std::u32string_view text) {
    std::string utf8;
    for (const char32_t c : text) utf8 += Utf8Of(c == U'\n' ? U' ' : c);
    return utf8;
}

std::u32string Small(std::u32string text) {
    for (char32_t& c : text) c = static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), Utf8Letters()));
    return text;
}

std::vector<std::u32string> Words(std::string_view query) {
    std::vector<std::u32string> words;
    bool open = false;
    for (const char32_t c : Small(Decoded(ToUtf8(query.substr(0, LongestQuery))))) {
        if (IsLetter(c) && !open) words.emplace_back();
        open = IsLetter(c);
        if (open) words.back() += c;
    }
    return words;
}

/// Where the text has a word that begins so, from that place on.
std::size_t FindWord(std::u32string_view text, std::u32string_view word, std::size_t from) {
    for (std::size_t i = text.find(word, from); i != text.npos; i = text.find(word, i + 1))
        if (i == 0 || !IsLetter(text[i - 1])) return i;
    return text.npos;
}

int Count(std::u32string_view text, std::u32string_view word) {
    int count = 0;
    for (std::size_t i = FindWord(text, word, 0); i != text.npos && count < LongestCount;
         i = FindWord(text, word, i + word.size()))
        ++count;
    return count;
}

}  // namespace

HelpSearch::HelpSearch(const HelpBook& book) {
    std::size_t room = help_limits::SearchedCharacters;
    for (const std::string& file : book.Pages()) {
        const PageText page = ReadPageText(book.TextOf(file));
        // Most pages say their title once more.
        const bool repeats = !page.Title.empty() && page.Text.starts_with(page.Title + "\n");
        std::u32string text =
            Decoded(std::string_view(page.Text).substr(repeats ? page.Title.size() + 1 : 0));
        text.resize(std::min(text.size(), room));
        room -= text.size();
        std::u32string title = Decoded(page.Title.empty() ? file : page.Title);
        m_pages.push_back({file, title, text, Small(title), Small(text)});
    }
}

std::vector<HelpHit> HelpSearch::Find(std::string_view query) const {
    const std::vector<std::u32string> words = Words(query);
    std::vector<std::pair<int, const Page*>> found;
    for (const Page& page : m_pages)
        if (const int score = Score(page, words); score > 0) found.emplace_back(score, &page);
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    found.resize(std::min(found.size(), help_limits::Hits));
    std::vector<HelpHit> hits;
    for (const auto& [score, page] : found)
        hits.push_back({page->File, Encoded(page->Title), Excerpt(*page, words.front())});
    return hits;
}

std::vector<std::string> HelpSearch::WordsOf(std::string_view query) {
    std::vector<std::string> words;
    for (const std::u32string& word : Words(query)) words.push_back(Encoded(word));
    return words;
}

/// 0 when one of the words is missing.
int HelpSearch::Score(const Page& page, const std::vector<std::u32string>& words) {
    int score = 0;
    for (const std::u32string& word : words) {
        const int inTitle = FindWord(page.SmallTitle, word, 0) != std::u32string::npos ? TitleScore : 0;
        const int inText = Count(page.SmallText, word);
        if (inTitle + inText == 0) return 0;
        score += inTitle + inText;
    }
    return score;
}

std::string HelpSearch::Excerpt(const Page& page, const std::u32string& word) {
    const std::u32string_view text = page.Text;
    const std::size_t found = FindWord(page.SmallText, word, 0);
    const std::size_t before = found == text.npos || found < ExcerptBefore ? 0 : found - ExcerptBefore;
    const std::size_t begin = before == 0 ? 0 : text.find_first_of(Blanks, before) + 1;
    std::u32string_view excerpt = text.substr(std::min(begin, text.size()), ExcerptLength);
    const bool cut = begin + excerpt.size() < text.size();
    if (cut) excerpt = excerpt.substr(0, excerpt.find_last_of(Blanks));
    excerpt = excerpt.substr(0, excerpt.find_last_not_of(Blanks) + 1);
    return (begin > 0 ? Ellipsis : "") + Encoded(excerpt) + (cut ? Ellipsis : "");
}

}  // namespace tabulon
