#include "help/help_search.h"

#include <gmock/gmock.h>

#include "help/limits.h"

namespace tabulon {
namespace {

using namespace testing;

HelpBook BookOf(const std::map<std::string, std::string>& contents) {
    HelpFiles files;
    for (const auto& [name, bytes] : contents) files.Add(name, bytes);
    return HelpBook(std::move(files));
}

class HelpSearchTest : public testing::Test {
  protected:
    std::vector<std::string> Files(const char* query) const {
        std::vector<std::string> files;
        for (const HelpHit& hit : search.Find(query)) files.push_back(hit.File);
        return files;
    }

    HelpBook book =
        BookOf({{"a.htm", "<title>Cards</title><p>A card and a card. Dice cost nothing."},
                {"b.htm", "<title>Dice</title><h1>Dice</h1><p>Roll them."},
                {"c.htm", "<title>Money</title><p>Die W\u00DCRFEL, discard nothing. Dice, dice, dice!"},
                {"d.txt", "plain dice"}});
    HelpSearch search{book};
};

TEST_F(HelpSearchTest, PagesHaveAllTheWordsAndTheBestComeFirst) {
    const struct {
        const char* query;
        std::vector<std::string> files;
    } rows[] = {{"dice", {"b.htm", "c.htm", "a.htm", "d.txt"}},
                {"DICE, nothing!", {"c.htm", "a.htm"}},
                {"card", {"a.htm"}},  // not "discard"
                {"car", {"a.htm"}},
                {"w\u00FCrfel", {"c.htm"}},
                {"dice elephant", {}},
                {"", {}},
                {" -,- ", {}}};
    for (const auto& row : rows) EXPECT_EQ(Files(row.query), row.files) << row.query;
}

TEST_F(HelpSearchTest, HitsTellTheirTitleAndWhatStandsAround) {
    const std::vector<HelpHit> hits = search.Find("roll");
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].Title, "Dice");
    EXPECT_EQ(hits[0].Excerpt, "Roll them.");
    EXPECT_EQ(search.Find("plain").at(0).Title, "d.txt");
}

TEST_F(HelpSearchTest, LongExcerptsAreCutBetweenWords) {
    std::string words;
    for (int n = 100; n < 200; ++n) words += "w" + std::to_string(n) + " ";
    const HelpBook longer = BookOf({{"a.htm", "<p>" + words + "penguin " + words}});
    const std::string excerpt = HelpSearch(longer).Find("penguin").at(0).Excerpt;
    EXPECT_THAT(excerpt, testing::StartsWith("\u2026w193 "));
    EXPECT_THAT(excerpt, testing::HasSubstr(" w199 penguin w100 "));
    EXPECT_THAT(excerpt, testing::EndsWith(" w118\u2026"));
}

TEST_F(HelpSearchTest, WordsOfAQuery) {
    EXPECT_THAT(HelpSearch::WordsOf("Roll the  \u00C4pfel-Dice 2"),
                ElementsAre("roll", "the", "\u00E4pfel", "dice", "2"));
    EXPECT_THAT(HelpSearch::WordsOf("\xFF\xFE"), testing::SizeIs(testing::Le(1)));
}

TEST(HelpSearchLimitTest, HitsAndTextHaveTheirBounds) {
    std::map<std::string, std::string> pages;
    for (std::size_t n = 0; n < help_limits::Hits + 10; ++n) pages["p" + std::to_string(n) + ".htm"] = "dice";
    EXPECT_EQ(HelpSearch(BookOf(pages)).Find("dice").size(), help_limits::Hits);
    const std::string longPage(help_limits::PageBytes - 10, 'x');
    std::map<std::string, std::string> longPages;
    for (std::size_t n = 0; n < help_limits::SearchedCharacters / longPage.size() + 1; ++n)
        longPages["l" + std::to_string(n) + ".htm"] = longPage;
    longPages["z.htm"] = "dice";
    EXPECT_THAT(HelpSearch(BookOf(longPages)).Find("dice"), IsEmpty());
}

}  // namespace
}  // namespace tabulon
