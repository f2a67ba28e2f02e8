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

TEST_F(RichTexts, AlignsIndentsAndMarksEachParagraphAlone) {
    form.rtfText.Paragraphs = std::vector<TextParagraph>(6, Paragraph("x"));
    constexpr std::pair<TextAlignment, Qt::Alignment> rows[] = {{TextAlignment::Left, Qt::AlignLeft},
                                                                {TextAlignment::Centre, Qt::AlignHCenter},
                                                                {TextAlignment::Right, Qt::AlignRight},
                                                                {TextAlignment::Justified, Qt::AlignJustify}};
    for (std::size_t i = 0; i < 4; ++i) form.rtfText.Paragraphs[i].Alignment = rows[i].first;
    form.rtfText.Paragraphs[4].Indent = 36;
    form.rtfText.Paragraphs[5].Bullet = true;
    Show(form);
    ASSERT_EQ(Edit().document()->blockCount(), 6);
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(Block(i).blockFormat().alignment(), i < 4 ? rows[i].second : Qt::AlignLeft);
        EXPECT_EQ(Block(i).blockFormat().leftMargin(), i == 4 ? Edit().logicalDpiY() / 2.0 : 0);
        EXPECT_EQ(Block(i).textList() != nullptr, i == 5);
    }
    EXPECT_EQ(Block(5).textList()->format().style(), QTextListFormat::ListDisc);
}

TEST_F(RichTexts, ShowsPlainTextOnceTheParagraphsAreGone) {
    form.rtfText.Paragraphs = {Paragraph("rich")};
    Show(form);
    form.rtfText.Paragraphs.clear();
    form.rtfText.Content = "plain <b>as it is</b>";
    screen.PumpEvents();
    EXPECT_EQ(Edit().toPlainText(), "plain <b>as it is</b>");
}

TEST_F(RichTexts, TellsOfAClickInTheTextAndCannotBeWrittenIn) {
    int clicks = 0;
    form.rtfText.Click = [&] { ++clicks; };
    form.rtfText.Content = "Once upon a time";
    Show(form);
    QTest::mouseClick(Edit().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::keyClicks(&Edit(), "xyz");
    screen.PumpEvents();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(Edit().toPlainText(), "Once upon a time");
}

}  // namespace
}  // namespace tabulon
