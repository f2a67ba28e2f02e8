#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/help_book.h"

namespace tabulon {

/// A page that has all the words.
struct HelpHit {
    std::string File;
    std::string Title;
    std::string Excerpt;  // what stands around the first of the words
};

/// Looks for words in all pages of a book, without regard to case. A word also finds longer ones that begin
/// with it.
class HelpSearch {
  public:
    /// Reads the pages, as far as the limit goes.
    explicit HelpSearch(const HelpBook& book);

    /// The best first: pages with the words in their titles, then those that have them most often. Nothing
    /// for a query without words.
    std::vector<HelpHit> Find(std::string_view query) const;
    /// The words of a query, in small letters.
    static std::vector<std::string> WordsOf(std::string_view query);

  private:
    struct Page {
        std::string File;
        std::u32string Title;
        std::u32string Text;
        std::u32string SmallTitle;
        std::u32string SmallText;
    };

    static int Score(const Page& page, const std::vector<std::u32string>& words);
    static std::string Excerpt(const Page& page, const std::u32string& word);

    std::vector<Page> m_pages;
};

}  // namespace tabulon
