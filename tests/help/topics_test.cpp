#include "help/topics.h"

#include <gmock/gmock.h>

#include "help/limits.h"

namespace tabulon {
namespace {

std::string Entry(const std::string& name, const std::string& link) {
    return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name + "\">" +
           (link.empty() ? "" : "<param name=\"Local\" value=\"" + link + "\">") + "</OBJECT>\n";
}

/// "title>link(children)" of each topic.
std::string Outline(const std::vector<HelpTopic>& topics) {
    std::string outline;
    for (const HelpTopic& topic : topics) {
        outline += outline.empty() ? topic.Title : " " + topic.Title;
        for (const HelpTarget& target : topic.Targets) outline += ">" + target.Link;
        if (!topic.Children.empty()) outline += "(" + Outline(topic.Children) + ")";
    }
    return outline;
}

TEST(HelpTopicsTest, AreReadHoweverTheyAreWritten) {
    const std::string a = Entry("A", "a.htm"), b = Entry("B", ""), c = Entry("C", "c.htm");
    const struct {
        const char* name;
        std::string html;
        const char* outline;
    } rows[] = {
        {"list in a list", "<UL>" + a + b + "<UL>" + c + "</UL></UL>", "A>a.htm B(C>c.htm)"},
        {"list in an entry", "<ul><li>" + b.substr(4) + "<ul>" + c + "</ul></li>" + a + "</ul>",
         "B(C>c.htm) A>a.htm"},
        {"lists without an end", "<UL>" + a + "<UL>" + c, "A>a.htm(C>c.htm)"},
        {"too many ends", "</UL></UL><UL>" + a + "</UL></UL></UL><UL>" + c, "A>a.htm C>c.htm"},
        {"no list at all", a + c, "A>a.htm C>c.htm"},
        {"a level left out", "<UL><UL><UL>" + a + "</UL></UL>" + c, "A>a.htm C>c.htm"},
        {"properties of the whole are no entry",
         "<OBJECT type=\"text/site properties\"><param name=\"Name\" value=\"x\"></OBJECT><UL>" + a,
         "A>a.htm"},
        {"signs", "<UL>" + Entry("Caf&eacute; &amp; &lt;dice&gt; &#8364;", ""), "Caf\u00E9 & <dice> \u20AC"},
        {"entry without a name", "<UL>" + Entry("", "a.htm") + c, "C>c.htm"},
        {"an end that is missing",
         "<UL><LI><OBJECT type=text/sitemap><param name=Name value=A><param name=Local value=a.htm>" + c,
         "C>c.htm"},
        {"nothing", "", ""},
        {"no markup", "just words", ""},
        {"itself as its own part",
         "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"A\">"
         "<param name=\"Merge\" value=\"own.chm::/own.hhc\"></OBJECT></UL>",
         "A"},
    };
    for (const auto& row : rows) EXPECT_EQ(Outline(ReadTopics(row.html)), row.outline) << row.name;
}

TEST(HelpTopicsTest, AKeywordMayLeadToSeveralPlaces) {
    const auto topics = ReadTopics(
        "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"dice\">"
        "<param name=\"Name\" value=\"Rolling\"><param name=\"Local\" value=\"roll.htm\">"
        "<param name=\"Name\" value=\"The six\"><param name=\"Local\" value=\"six.htm\"></OBJECT></UL>");
    ASSERT_EQ(topics.size(), 1u);
    EXPECT_EQ(topics[0].Title, "dice");
    ASSERT_EQ(topics[0].Targets.size(), 2u);
    EXPECT_EQ(topics[0].Targets[1].Title, "The six");
    EXPECT_EQ(topics[0].Targets[1].Link, "six.htm");
}

int DepthOf(const std::vector<HelpTopic>& topics) {
    return topics.empty() ? 0 : 1 + DepthOf(topics.back().Children);
}

TEST(HelpTopicsTest, DepthHasItsBound) {
    std::string html;
    for (int depth = 0; depth < 5000; ++depth) html += "<UL>" + Entry("A", "a.htm");
    EXPECT_EQ(DepthOf(ReadTopics(html)), help_limits::TopicDepth);
}

TEST(HelpTopicsTest, CountsHaveTheirBounds) {
    std::string html = "<UL>";
    for (std::size_t n = 0; n < help_limits::Topics + 10; ++n) html += Entry("A", "a.htm");
    EXPECT_EQ(ReadTopics(html).size(), help_limits::Topics);
    std::string places = "<OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" +
                         std::string(help_limits::TitleBytes + 5, 'x') + "\">";
    for (std::size_t n = 0; n < help_limits::TargetsOfATopic + 10; ++n)
        places += "<param name=\"Local\" value=\"a.htm\">";
    const auto topics = ReadTopics(places + "</OBJECT>");
    ASSERT_EQ(topics.size(), 1u);
    EXPECT_EQ(topics[0].Targets.size(), help_limits::TargetsOfATopic);
    EXPECT_EQ(topics[0].Title.size(), help_limits::TitleBytes);
}

}  // namespace
}  // namespace tabulon
