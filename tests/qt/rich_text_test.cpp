#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>

#include "qt/screen_test.h"

namespace tabulon {
namespace {

class RichTexts : public ScreenTest {
  protected:
    QTextEdit& Edit() { return Find<QTextEdit>(form.rtfText); }
    QTextBlock Block(int number) { return Edit().document()->findBlockByNumber(number); }
    static TextRun Run(const std::string& text) {
        TextRun run;
        run.Text = text;
        return run;
    }
    static TextParagraph Paragraph(const std::string& text) { return {.Runs = {Run(text)}}; }
};

TEST_F(RichTexts, ShowsEachRunInItsLook) {
    TextRun loud = Run("loud");
    loud.Font = {"DejaVu Sans", 18, true};
    loud.Italic = loud.Underline = true;
    loud.ForeColor = {200, 10, 20};
    form.rtfText.Paragraphs = {{.Runs = {Run("soft\tand\n"), loud}}};
    Show(form);
    EXPECT_EQ(Edit().document()->blockCount(), 1);
    EXPECT_EQ(Block(0).text(), QString("soft\tand") + QChar(QChar::LineSeparator) + "loud");
    QTextCursor cursor(Block(0));
    cursor.movePosition(QTextCursor::EndOfBlock);
    const QTextCharFormat format = cursor.charFormat();
    EXPECT_EQ(format.font().family(), "DejaVu Sans");
    EXPECT_EQ(format.fontPointSize(), 18);
    EXPECT_EQ(format.fontWeight(), QFont::Bold);
    EXPECT_TRUE(format.fontItalic());
    EXPECT_TRUE(format.fontUnderline());
    EXPECT_EQ(format.foreground().color(), QColor(200, 10, 20));
    cursor.setPosition(2);
    EXPECT_FALSE(cursor.charFormat().fontItalic());
}

TEST_F(RichTexts, AlignsEachParagraph) {
    const struct {
        TextAlignment alignment;
        Qt::Alignment shown;
    } cases[] = {{TextAlignment::Left, Qt::AlignLeft},
                 {TextAlignment::Centre, Qt::AlignHCenter},
                 {TextAlignment::Right, Qt::AlignRight},
                 {TextAlignment::Justified, Qt::AlignJustify}};
    for (const auto& row : cases)
        form.rtfText.Paragraphs.push_back({.Alignment = row.alignment, .Runs = {Run("x")}});
    Show(form);
    ASSERT_EQ(Edit().document()->blockCount(), 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Block(i).blockFormat().alignment(), cases[i].shown) << i;
}

TEST_F(RichTexts, MarksBulletsAlone) {
    TextParagraph bullet = Paragraph("dice");
    bullet.Bullet = true;
    form.rtfText.Paragraphs = {Paragraph("You need"), bullet, Paragraph("and luck.")};
    Show(form);
    EXPECT_EQ(Block(0).textList(), nullptr);
    ASSERT_NE(Block(1).textList(), nullptr);
    EXPECT_EQ(Block(1).textList()->format().style(), QTextListFormat::ListDisc);
    EXPECT_EQ(Block(2).textList(), nullptr);
}

TEST_F(RichTexts, IndentsByPoints) {
    TextParagraph indented = Paragraph("inside");
    indented.Indent = 36;
    form.rtfText.Paragraphs = {indented, Paragraph("outside")};
    Show(form);
    EXPECT_EQ(Block(0).blockFormat().leftMargin(), Edit().logicalDpiY() / 2.0);
    EXPECT_EQ(Block(1).blockFormat().leftMargin(), 0);
}

TEST_F(RichTexts, ShowsPlainTextOnceTheParagraphsAreGone) {
    form.rtfText.Paragraphs = {Paragraph("rich")};
    Show(form);
    form.rtfText.Paragraphs.clear();
    form.rtfText.Content = "plain <b>as it is</b>";
    screen.PumpEvents();
    EXPECT_EQ(Edit().toPlainText(), "plain <b>as it is</b>");
}

TEST_F(RichTexts, TellsOfAClickInTheText) {
    int clicks = 0;
    form.rtfText.Click = [&] { ++clicks; };
    form.rtfText.Content = "Once upon a time";
    Show(form);
    QTest::mouseClick(Edit().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    screen.PumpEvents();
    EXPECT_EQ(clicks, 1);
}

TEST_F(RichTexts, CannotBeWrittenIn) {
    form.rtfText.Content = "fixed";
    Show(form);
    QTest::keyClicks(&Edit(), "xyz");
    screen.PumpEvents();
    EXPECT_EQ(Edit().toPlainText(), "fixed");
}

}  // namespace
}  // namespace tabulon
