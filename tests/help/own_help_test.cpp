#include <gmock/gmock.h>
#include <set>

#include "help/compiled_help.h"
#include "help/help_book.h"
#include "help/html_reader.h"
#include "help/links.h"
#include "help/page_text.h"

namespace tabulon {
namespace {

using testing::IsEmpty;

/// What a page refers to, and the places on it that can be referred to.
struct PageLinks final : HtmlVisitor {
    void Start(std::string_view element, const HtmlAttributes& attributes) override {
        const bool picture = element == "img";
        const std::string_view link = ValueOf(attributes, picture ? "src" : "href");
        if (!link.empty()) Links.emplace_back(link);
        for (const char* name : {"name", "id"}) Anchors.emplace(ValueOf(attributes, name));
        if (picture && ValueOf(attributes, "alt").data() == nullptr) ++PicturesWithoutText;
    }
    std::vector<std::string> Links;
    std::set<std::string> Anchors;
    int PicturesWithoutText = 0;
};

PageLinks LinksOf(const HelpBook& book, const std::string& page) {
    PageLinks links;
    ReadHtml(book.TextOf(page), links);
    return links;
}

class OwnHelpTest : public testing::Test {
  protected:
    /// What is wrong with a link; empty when it leads to something.
    std::string Trouble(const std::string& page, const std::string& given) const {
        const HelpLink link = ResolveLink(page, given);
        const std::string where = page + " -> " + given;
        if (link.Kind != LinkKind::Page) return where + " leads out of the help";
        if (!book.Find(link.File)) return where + " is missing";
        if (link.Fragment.empty() || LinksOf(book, link.File).Anchors.contains(link.Fragment)) return {};
        return where + " has no such place";
    }
    void Check(const std::vector<HelpTopic>& topics, const char* list) {
        for (const HelpTopic& topic : topics) {
            for (const HelpTarget& target : topic.Targets) {
                if (std::string trouble = Trouble({}, target.Link); !trouble.empty())
                    Troubles.push_back(trouble);
                Reached.insert(ResolveLink({}, target.Link).File);
            }
            if (topic.Targets.empty() && topic.Children.empty())
                Troubles.push_back(std::string(list) + ": " + topic.Title + " leads nowhere");
            Check(topic.Children, list);
        }
    }

    HelpBook book{UnpackCompiledHelp(TABULON_OWN_HELP)};
    std::vector<std::string> Troubles;
    std::set<std::string> Reached;
};

TEST_F(OwnHelpTest, OpensAtItsWelcome) {
    EXPECT_EQ(book.Title(), "Tabulon Player Help");
    EXPECT_EQ(book.Home(), "index.html");
    EXPECT_GE(book.Pages().size(), 20u);
}

TEST_F(OwnHelpTest, ContentsAndIndexLeadToPages) {
    ASSERT_FALSE(book.Contents().empty());
    Check(book.Contents(), "contents");
    const std::set<std::string> inContents = Reached;
    ASSERT_GE(book.Index().size(), 50u);
    Check(book.Index(), "index");
    EXPECT_THAT(Troubles, IsEmpty());
    for (const std::string& page : book.Pages()) EXPECT_TRUE(inContents.contains(page)) << page;
}

TEST_F(OwnHelpTest, TheIndexIsInAlphabeticalOrder) {
    for (std::size_t i = 1; i < book.Index().size(); ++i)
        EXPECT_LT(book.Index()[i - 1].Title, book.Index()[i].Title);
}

TEST_F(OwnHelpTest, EachLinkAndPictureIsThere) {
    for (const std::string& page : book.Pages()) {
        const PageLinks links = LinksOf(book, page);
        EXPECT_EQ(links.PicturesWithoutText, 0) << page;
        for (const std::string& link : links.Links)
            if (std::string trouble = Trouble(page, link); !trouble.empty()) Troubles.push_back(trouble);
    }
    EXPECT_THAT(Troubles, IsEmpty());
}

TEST_F(OwnHelpTest, EachPageHasATitleAndCanBeShownAsItIs) {
    for (const std::string& name : book.Pages()) {
        const PageText page = ReadPageText(book.TextOf(name));
        EXPECT_FALSE(page.Title.empty()) << name;
        EXPECT_TRUE(page.IsSimple) << name;
        EXPECT_TRUE(page.Text.starts_with(page.Title)) << name << " has another heading than its title";
    }
}

}  // namespace
}  // namespace tabulon
