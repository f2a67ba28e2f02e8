#include "help/help_book.h"

#include <gmock/gmock.h>

#include "help/help_text.h"
#include "help/limits.h"
#include "help/page_text.h"
#include "platform/failure_of.h"
#include "platform/seeded_random.h"

namespace tabulon {
namespace {

using namespace testing;

std::string Record(int code, const std::string& data) {
    const auto size = static_cast<char>(data.size());
    return std::string{static_cast<char>(code), '\0', size, '\0'} + data;
}

std::string Text(const char* text) { return std::string(text) + '\0'; }

std::string System(const std::string& records) { return std::string("\3\0\0\0", 4) + records; }

HelpBook BookOf(const std::map<std::string, std::string>& contents) {
    HelpFiles files;
    for (const auto& [name, bytes] : contents) files.Add(name, bytes);
    return HelpBook(std::move(files));
}

TEST(HelpBookTest, OpensAtThePageThatItNames) {
    const std::string topics =
        "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"A\">"
        "<param name=\"Local\" value=\"third.htm#x\"></OBJECT></UL>";
    const struct {
        const char* name;
        std::map<std::string, std::string> files;
        const char* home;
    } rows[] = {
        {"named",
         {{"#SYSTEM", System(Record(2, Text("Second.htm")))}, {"first.htm", ""}, {"second.htm", ""}},
         "Second.htm"},
        {"named page is missing",
         {{"#SYSTEM", System(Record(2, Text("no.htm")))}, {"first.htm", ""}},
         "first.htm"},
        {"first of the contents", {{"x.hhc", topics}, {"first.htm", ""}, {"third.htm", ""}}, "third.htm"},
        {"usual name", {{"about.htm", ""}, {"index.htm", ""}, {"rules.htm", ""}}, "index.htm"},
        {"any page", {{"#SYSTEM", "ab"}, {"dice.png", ""}, {"rules.html", ""}}, "rules.html"},
        {"plain text", {{"rules.txt", "Throw"}}, "rules.txt"},
    };
    for (const auto& row : rows) EXPECT_EQ(BookOf(row.files).Home(), row.home) << row.name;
}

TEST(HelpBookTest, AFileWithoutPagesIsNone) {
    for (const auto& files : {std::map<std::string, std::string>{}, {{"dice.png", "x"}}, {{"x.hhc", "<UL>"}}})
        EXPECT_EQ(test::FailureOf([&] { BookOf(files); }), static_cast<int>(FailureNumber::FileIoError));
}

TEST(HelpBookTest, TitleAndListsComeFromTheNamedFiles) {
    const std::string list = "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"";
    const HelpBook book = BookOf(
        {{"#SYSTEM", System(Record(0, Text("b.hhc")) + Record(1, Text("b.hhk")) + Record(3, Text("Rules")))},
         {"a.hhc", list + "wrong\"></OBJECT>"},
         {"b.hhc", list + "Contents\"></OBJECT>"},
         {"b.hhk", list + "Index\"></OBJECT>"},
         {"start.htm", "<title>Start</title>"}});
    EXPECT_EQ(book.Title(), "Rules");
    EXPECT_EQ(book.Contents().at(0).Title, "Contents");
    EXPECT_EQ(book.Index().at(0).Title, "Index");
    EXPECT_THAT(book.Pages(), ElementsAre("start.htm"));
    EXPECT_EQ(BookOf({{"start.htm", "<title>Start</title>"}}).Title(), "Start");
}

TEST(HelpBookTest, OddSystemRecordsDoNoHarm) {
    SeededRandom chance(5);
    for (int n = 0; n < 3000; ++n) {
        std::string system;
        for (int size = chance.Draw(40, 0); size > 0; --size)
            system += static_cast<char>(chance.Draw(chance.Draw(2, 0) == 0 ? 6 : 256, 0));
        EXPECT_EQ(BookOf({{"#SYSTEM", system}, {"start.htm", ""}}).Home(), "start.htm");
    }
}

TEST(HelpBookTest, LettersAreThoseOfThePageOrOfTheLanguage) {
    const struct {
        const char* name;
        std::string page;
        int language;
        const char* text;
    } rows[] = {
        {"valid UTF-8", "W\u00FCrfel", 1049, "W\u00FCrfel"},
        {"UTF-8 with a mark", "\xEF\xBB\xBFW\u00FCrfel", 0, "W\u00FCrfel"},
        {"western", "W\xFCrfel", 0, "W\u00FCrfel"},
        {"Russian by the language", "\xCA\xF3\xE1", 1049, "\u041A\u0443\u0431"},
        {"Polish by the language", "gra\xB3", 1045, "gra\u0142"},
        {"named", "<meta content='text/html; CHARSET=\"Windows-1253\"'>\xE6", 1049,
         "<meta content='text/html; CHARSET=\"Windows-1253\"'>\u03B6"},
        {"unknown name", "<meta charset=klingon>\xFC", 0, "<meta charset=klingon>\u00FC"},
        {"name with a switch", "<meta charset=utf-7//translit>\xFC", 0,
         "<meta charset=utf-7//translit>\uFFFD"},
        {"broken UTF-8", "<meta charset=utf-8>W\u00FC\xFF", 0, "<meta charset=utf-8>W\u00FC\uFFFD"},
        {"UTF-16", std::string("\xFF\xFE", 2) + std::string("W\0\xFC\0", 4), 0, "W\u00FC"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PageAsUtf8(row.page, CodePageOf(row.language)), row.text) << row.name;
}

TEST(HelpBookTest, LongPagesAreCut) {
    const HelpBook book = BookOf({{"a.htm", std::string(help_limits::PageBytes + 100, 'x')}});
    EXPECT_EQ(book.TextOf("a.htm").size(), help_limits::PageBytes);
    EXPECT_EQ(book.TextOf("missing.htm"), "");
}

TEST(PageTextTest, IsWhatCanBeRead) {
    const struct {
        const char *name, *html, *title, *text;
    } rows[] = {
        {"blocks are lines",
         "<title>Dice &amp; co</title><h1>Dice</h1><p>Roll  <b>two</b>\n dice.<p>Then move.", "Dice & co",
         "Dice\nRoll two dice.\nThen move."},
        {"letters of one word", "d<i>i</i><font color=red>c</font>e", "", "dice"},
        {"breaks and rows", "a<br>b<table><tr><td>c<td>d</table>e", "", "a\nb\nc\nd\ne"},
        {"no scripts and styles", "<script>alert('x<p>y')</script><style>p{}</style>a<!-- b -->c", "", "ac"},
        {"not closed", "<p>a <b>b <a href='x", "", "a b"},
        {"spaces that do not break", "a&nbsp;&nbsp; b&#160;c", "", "a b c"},
    };
    for (const auto& row : rows) {
        const PageText page = ReadPageText(row.html);
        EXPECT_EQ(page.Title, row.title) << row.name;
        EXPECT_EQ(page.Text.substr(0, page.Text.find_last_not_of('\n') + 1), row.text) << row.name;
        EXPECT_TRUE(page.IsSimple);
    }
}

TEST(PageTextTest, DeeplyNestedPagesAreKnown) {
    const struct {
        const char* element;
        int count;
        bool simple;
    } rows[] = {{"<table><tr><td>", help_limits::NestedTables, true},
                {"<table><tr><td>", help_limits::NestedTables + 1, false},
                {"<div>", help_limits::Nesting - 10, true},
                {"<div>", help_limits::Nesting + 1, false},
                {"<blockquote>", 100000, false}};
    for (const auto& row : rows) {
        std::string html;
        for (int n = 0; n < row.count; ++n) html += row.element;
        EXPECT_EQ(ReadPageText(html + "x").IsSimple, row.simple) << row.element << row.count;
    }
}

TEST(PageTextTest, AnyBytesAreRead) {
    SeededRandom chance(6);
    const std::string_view alphabet = "<>/=\"'&;!-ab ptable#x0";
    for (int n = 0; n < 5000; ++n) {
        std::string html;
        for (int size = chance.Draw(80, 0); size > 0; --size)
            html += alphabet[static_cast<std::size_t>(chance.Draw(static_cast<int>(alphabet.size()), 0))];
        EXPECT_LE(ReadPageText(html).Text.size(), html.size() * 4);
    }
}

}  // namespace
}  // namespace tabulon
