#include "helpwindow/help_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QMenu>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <gmock/gmock.h>

#include "platform/files.h"
#include "platform/temporary_directory.h"
#include "qt/text.h"

namespace tabulon {
namespace {

using namespace testing;

std::string Png(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

std::string Entry(const char* name, const std::vector<const char*>& links) {
    std::string entry =
        std::string("<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"") + name + "\">";
    for (const char* link : links) {
        if (links.size() > 1) entry += std::string("<param name=\"Name\" value=\"at ") + link + "\">";
        entry += std::string("<param name=\"Local\" value=\"") + link + "\">";
    }
    return entry + "</OBJECT>";
}

std::map<std::string, std::string> Rules() {
    return {
        {"index.htm",
         "<title>Rules</title><p><a href='more/dice.htm#six'>dice</a> <a "
         "href='https://makers.example/?a=b'>web</a>"
         " <a href='ms-its:other.chm'>other</a> <a href='javascript:x()'>script</a> <a "
         "href='gone.htm'>gone</a>"
         "<p><img src='red.png'><img src='broken.png'><img src='/etc/hostname'>"},
        {"more/dice.htm",
         "<title>Dice</title><p>Roll the dice.<p><a name='six'></a>A six is rare. Sixty sixes."
         " <a href='../index.htm'>back</a>"},
        {"red.png", Png(30, 20)},
        {"broken.png", "no picture"},
        {"rules.hhc", "<UL>" + Entry("Rules", {"index.htm"}) + "<UL>" +
                          Entry("Dice & co", {"more/dice.htm"}) +
                          Entry("The web", {"https://makers.example/"}) + "</UL></UL>"},
        {"rules.hhk", "<UL>" + Entry("aim", {"index.htm"}) + Entry("dice", {"index.htm", "more/dice.htm"}) +
                          Entry("six", {"more/dice.htm#six"}) + "</UL>"},
    };
}

HelpBook BookOf(const std::map<std::string, std::string>& contents) {
    HelpFiles files;
    for (const auto& [name, bytes] : contents) files.Add(name, bytes);
    return HelpBook(std::move(files));
}

class HelpWindowTest : public Test {
  protected:
    HelpWindowTest() {
        window.OpenInBrowser = [this](const QString& address) { opened.push_back(FromQt(address)); };
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    std::string At() { return FromQt(window.Page().source().toString()); }
    std::string Text() { return FromQt(window.Page().toPlainText()); }
    /// As a click on a link of the page does it.
    void Click(const char* link) {
        emit window.Page().anchorClicked(window.Page().source().resolved(QUrl(link)));
    }
    void Key(QWidget* to, int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(to, static_cast<Qt::Key>(key), held);
    }
    QAction* Command(const char* text) {
        for (QAction* action : window.findChildren<QAction*>())
            if (action->text() == text) return action;
        return nullptr;
    }
    /// Presses that button of the message box that is open, and tells its text.
    std::string AnswerBox(QMessageBox::StandardButton button) {
        auto* box = window.findChild<QMessageBox*>();
        if (!box) return "no box";
        const std::string text = FromQt(box->text());
        box->button(button)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return text;
    }
    QImage PictureAt(const QString& source) {
        return window.Page().document()->resource(QTextDocument::ImageResource, QUrl(source)).value<QImage>();
    }

    std::vector<std::string> opened;
    HelpWindow window{BookOf(Rules()), TABULON_PICTURES};
};

TEST_F(HelpWindowTest, OpensAtTheIndexWithTheFirstPage) {
    EXPECT_EQ(At(), "help:/index.htm");
    EXPECT_EQ(window.Tabs().currentWidget(), &window.Index());
    EXPECT_EQ(window.windowTitle(), "Rules");
    EXPECT_EQ(window.Page().accessibleName(), "Rules");
    EXPECT_EQ(window.Contents().currentItem()->text(0), "Rules");
}

TEST_F(HelpWindowTest, WithoutAnIndexItOpensAtTheContents) {
    HelpWindow other(BookOf({{"a.htm", "Throw"}}), TABULON_PICTURES);
    EXPECT_EQ(other.Tabs().currentWidget(), &other.Contents());
    EXPECT_FALSE(other.Tabs().isTabVisible(other.Tabs().indexOf(&other.Index())));
    EXPECT_EQ(other.windowTitle(), "Help");
}

TEST_F(HelpWindowTest, LinksLeadToPagesAndBackAgain) {
    EXPECT_FALSE(Command("Back")->isEnabled());
    Click("more/dice.htm#six");
    EXPECT_EQ(At(), "help:/more/dice.htm#six");
    EXPECT_EQ(window.Contents().currentItem()->text(0), "Dice & co");
    Click("../index.htm");
    EXPECT_EQ(At(), "help:/index.htm");
    Command("Back")->trigger();
    EXPECT_EQ(At(), "help:/more/dice.htm#six");
    Command("Forward")->trigger();
    EXPECT_EQ(At(), "help:/index.htm");
    Click("more/dice.htm");
    Command("Home")->trigger();
    EXPECT_EQ(At(), "help:/index.htm");
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(HelpWindowTest, LinksAreFollowedFromTheKeyboard) {
    window.Page().setFocus();
    Key(&window.Page(), Qt::Key_Tab);
    Key(&window.Page(), Qt::Key_Return);
    EXPECT_EQ(At(), "help:/more/dice.htm#six");
}

TEST_F(HelpWindowTest, MissingPagesSaySo) {
    Click("gone.htm");
    EXPECT_THAT(Text(), HasSubstr("no page with the name gone.htm"));
    Click("%3Cscript%3E.htm");
    EXPECT_THAT(Text(), HasSubstr("the name <script>.htm"));
}

TEST_F(HelpWindowTest, LinksOutOfTheHelpAskFirst) {
    Click("https://makers.example/?a=b");
    EXPECT_THAT(AnswerBox(QMessageBox::No), HasSubstr("https://makers.example/?a=b"));
    EXPECT_THAT(opened, IsEmpty());
    Click("https://makers.example/?a=b");
    AnswerBox(QMessageBox::Yes);
    EXPECT_THAT(opened, ElementsAre("https://makers.example/?a=b"));
    EXPECT_EQ(At(), "help:/index.htm");
}

TEST_F(HelpWindowTest, OtherLinksAreToldAndNeverFollowed) {
    for (const char* link : {"ms-its:other.chm", "javascript:x()", "file:///etc/passwd"}) {
        Click(link);
        EXPECT_THAT(AnswerBox(QMessageBox::Ok), StartsWith("This link ")) << link;
        EXPECT_EQ(At(), "help:/index.htm");
    }
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(HelpWindowTest, ContentsLeadByKeyAndByMouse) {
    Key(&window, Qt::Key_C, Qt::AltModifier);
    TopicTree& tree = window.Contents();
    EXPECT_EQ(window.Tabs().currentWidget(), &tree);
    Key(&tree, Qt::Key_Down);
    EXPECT_EQ(At(), "help:/index.htm") << "walking through the tree leaves the page";
    Key(&tree, Qt::Key_Return);
    EXPECT_EQ(At(), "help:/more/dice.htm");
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                      tree.visualItemRect(tree.topLevelItem(0)).center());
    EXPECT_EQ(At(), "help:/index.htm");
    Key(&tree, Qt::Key_Down);
    Key(&tree, Qt::Key_Down);
    Key(&tree, Qt::Key_Return);
    EXPECT_THAT(AnswerBox(QMessageBox::No), HasSubstr("https://makers.example/"));
}

TEST_F(HelpWindowTest, TheIndexFindsWhatIsTyped) {
    Key(&window, Qt::Key_N, Qt::AltModifier);
    QLineEdit& input = window.Index().Input();
    QTest::keyClicks(&input, "SI");
    EXPECT_EQ(window.Index().List().currentItem()->text(), "six");
    Key(&input, Qt::Key_Return);
    EXPECT_EQ(At(), "help:/more/dice.htm#six");
    Key(&input, Qt::Key_Up);
    EXPECT_EQ(window.Index().List().currentItem()->text(), "dice") << "arrows walk while one types";
}

TEST_F(HelpWindowTest, AKeywordWithSeveralPlacesAsks) {
    QTest::keyClicks(&window.Index().Input(), "dice");
    Key(&window.Index().Input(), Qt::Key_Return);
    auto* menu = window.Index().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions()[1]->text(), "at more/dice.htm");
    menu->actions()[1]->trigger();
    EXPECT_EQ(At(), "help:/more/dice.htm");
    menu->close();
}

TEST_F(HelpWindowTest, SearchShowsPagesAndMarksTheWords) {
    Key(&window, Qt::Key_F, Qt::ControlModifier);
    SearchPane& search = window.Search();
    QTest::keyClicks(&search.Input(), "six");
    Key(&search.Input(), Qt::Key_Return);
    EXPECT_EQ(search.Summary(), "One page found:");
    EXPECT_EQ(search.List().item(0)->text().section('\n', 0, 0), "Dice");
    Key(&search.List(), Qt::Key_Return);
    EXPECT_EQ(At(), "help:/more/dice.htm");
    EXPECT_EQ(window.Page().extraSelections().size(), 3) << "six, Sixty, sixes";
    Command("Home")->trigger();
    EXPECT_THAT(window.Page().extraSelections(), IsEmpty());
}

TEST_F(HelpWindowTest, SearchTellsWhenItFindsNothing) {
    SearchPane& search = window.Search();
    const struct {
        const char *query, *summary;
    } rows[] = {{"elephant", "No page has all of these words."},
                {" ", "Type one word or more."},
                {"a", "One page found:"}};
    for (const auto& row : rows) {
        search.Input().setText(row.query);
        Key(&search.Input(), Qt::Key_Return);
        EXPECT_EQ(search.Summary(), QString(row.summary)) << row.query;
    }
}

TEST_F(HelpWindowTest, PicturesComeFromTheBookAlone) {
    EXPECT_EQ(PictureAt("red.png").size(), QSize(30, 20));
    const QSize placeholder(20, 20);
    for (const char* source : {"broken.png", "missing.png", "/etc/hostname", "https://makers.example/x.png"})
        EXPECT_EQ(PictureAt(source).size(), placeholder) << source;
    const test::TemporaryDirectory folder;
    WriteFile(folder / "outside.png", Png(40, 40));
    EXPECT_EQ(PictureAt("file://" + ToQt((folder / "outside.png").native())).size(), placeholder);
    EXPECT_EQ(PictureAt(ToQt((folder / "outside.png").native())).size(), placeholder);
}

TEST_F(HelpWindowTest, LettersChangeTheirSize) {
    const auto height = [this] { return window.Page().document()->size().height(); };
    const qreal before = height();
    Command("Larger")->trigger();
    Command("Larger")->trigger();
    EXPECT_GT(height(), before);
    Command("Smaller")->trigger();
    Command("Smaller")->trigger();
    EXPECT_EQ(height(), before);
}

TEST_F(HelpWindowTest, EscapeClosesTheWindow) {
    Key(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(HelpWindowTest, WidePicturesFitThePage) {
    HelpWindow other(BookOf({{"a.htm", "<img src='wide.png'>"}, {"wide.png", Png(3000, 30)}}),
                     TABULON_PICTURES);
    other.show();
    const auto picture =
        other.Page().document()->resource(QTextDocument::ImageResource, QUrl("wide.png")).value<QImage>();
    EXPECT_EQ(picture.width(), 3000);
    EXPECT_LT(picture.deviceIndependentSize().width(), other.Page().width());
}

TEST(HelpPageTest, PicturesOfAPageHaveABoundTogether) {
    const HelpBook book = BookOf({{"a.htm", "a"}, {"b.htm", "b"}, {"large.png", Png(5000, 4000)}});
    HelpPage page(book);
    page.ShowPage("a.htm");
    const auto width = [&page] {
        page.document()->clear();  // forgets the pictures that were read
        return page.document()
            ->resource(QTextDocument::ImageResource, QUrl("help:/large.png"))
            .value<QImage>()
            .width();
    };
    EXPECT_EQ(width(), 5000);
    EXPECT_EQ(width(), 5000);
    EXPECT_EQ(width(), 20);
    page.ShowPage("b.htm");
    EXPECT_EQ(width(), 5000);
}

TEST(HelpPageTest, OddPagesAreShownAsText) {
    std::string deep;
    for (int n = 0; n < 3000; ++n) deep += "<table><tr><td>";
    const HelpBook book =
        BookOf({{"deep.htm", deep + "Throw & roll"}, {"plain.txt", "a <b> c"}, {"red.png", Png(9, 9)}});
    HelpPage page(book);
    const struct {
        const char *file, *text;
    } rows[] = {{"deep.htm", "Throw & roll"}, {"plain.txt", "a <b> c"}, {"red.png", "\uFFFC"}};
    for (const auto& row : rows) {
        page.ShowPage(row.file);
        EXPECT_EQ(FromQt(page.toPlainText()), row.text) << row.file;
        EXPECT_TRUE(page.document()->findBlockByNumber(0).isValid());
    }
}

}  // namespace
}  // namespace tabulon
