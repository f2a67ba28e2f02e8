#include "help/links.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

struct LinkRow {
    const char *name, *page, *link;
    LinkKind kind;
    const char *file, *fragment;
};

const LinkRow LinkRows[] = {
    {"beside the page", "rules/start.htm", "dice.htm", LinkKind::Page, "rules/dice.htm", ""},
    {"of the root", "rules/start.htm", "/dice.htm", LinkKind::Page, "dice.htm", ""},
    {"above", "rules/a/start.htm", "../dice.htm", LinkKind::Page, "rules/dice.htm", ""},
    {"above the root", "start.htm", "../../etc/passwd", LinkKind::Page, "etc/passwd", ""},
    {"dots and doubled slashes", "", "./a/.//b/../dice.htm", LinkKind::Page, "a/dice.htm", ""},
    {"backslashes", "", "rules\\dice.htm", LinkKind::Page, "rules/dice.htm", ""},
    {"percents", "", "my%20dice%2ehtm#the%20six", LinkKind::Page, "my dice.htm", "the six"},
    {"a lone percent", "", "100%.htm", LinkKind::Page, "100%.htm", ""},
    {"blanks around", "", " dice.htm\r\n", LinkKind::Page, "dice.htm", ""},
    {"place on the page itself", "rules/start.htm", "#six", LinkKind::Page, "rules/start.htm", "six"},
    {"nothing", "rules/start.htm", "", LinkKind::Page, "rules/start.htm", ""},
    {"query", "", "dice.htm?size=6#six", LinkKind::Page, "dice.htm", "six"},
    {"a viewer's own address", "x", "help:/rules/dice.htm#six", LinkKind::Page, "rules/dice.htm", "six"},
    {"archive address", "x/y", "ms-its:C:\\Games\\My.chm::/dice.htm#six", LinkKind::Page, "dice.htm", "six"},
    {"older archive address", "", "mk:@MSITStore:My.chm::/dice.htm", LinkKind::Page, "dice.htm", ""},
    {"file and page", "x/y", "My.chm::/dice.htm", LinkKind::Page, "dice.htm", ""},
    {"archive without page", "", "ms-its:Other.chm", LinkKind::OtherHelp, "", ""},
    {"web", "", "https://makers.example/a#b", LinkKind::Web, "", ""},
    {"web in capitals", "", "HTTP://makers.example", LinkKind::Web, "", ""},
    {"mail", "", "mailto:a@makers.example", LinkKind::Web, "", ""},
    {"script", "", "javascript:alert(1)", LinkKind::Unknown, "", ""},
    {"file of the machine", "", "file:///etc/passwd", LinkKind::Unknown, "", ""},
    {"drive", "", "c:\\windows\\x.htm", LinkKind::Unknown, "", ""},
};

TEST(HelpLinkTest, LeadsWhereItsKindSays) {
    for (const LinkRow& row : LinkRows) {
        const HelpLink link = ResolveLink(row.page, row.link);
        EXPECT_EQ(link.Kind, row.kind) << row.name;
        EXPECT_EQ(link.File, row.file) << row.name;
        EXPECT_EQ(link.Fragment, row.fragment) << row.name;
    }
}

TEST(HelpLinkTest, AWebAddressStaysAsItIs) {
    EXPECT_EQ(ResolveLink("a/b", " https://makers.example/x?y=%20z#q ").Address,
              "https://makers.example/x?y=%20z#q");
}

}  // namespace
}  // namespace tabulon
