#include "qt/rich_text_view.h"

#include <QTextBlock>
#include <QTextList>

#include "qt/text.h"

namespace tabulon {

namespace {

constexpr double PointsPerInch = 72;

Qt::Alignment AlignmentOf(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::Centre:
            return Qt::AlignHCenter;
        case TextAlignment::Right:
            return Qt::AlignRight;
        case TextAlignment::Justified:
            return Qt::AlignJustify;
        case TextAlignment::Left:
            break;
    }
    return Qt::AlignLeft;
}

QTextCharFormat FormatOf(const TextRun& run) {
    QTextCharFormat format;
    format.setFont(ToQt(run.Font));
    format.setFontItalic(run.Italic);
    format.setFontUnderline(run.Underline);
    format.setForeground(ToQt(run.ForeColor));
    return format;
}

QTextBlockFormat FormatOf(const TextParagraph& paragraph, double pixelsPerPoint) {
    QTextBlockFormat format;
    format.setAlignment(AlignmentOf(paragraph.Alignment));
    format.setLeftMargin(paragraph.Indent * pixelsPerPoint);
    return format;
}

/// A list of one item for each bullet: its indent is the paragraph's own.
void MakeBullet(QTextCursor& cursor) {
    QTextListFormat list;
    list.setStyle(QTextListFormat::ListDisc);
    cursor.createList(list);
}

void Write(QTextCursor& cursor, const TextParagraph& paragraph) {
    for (const TextRun& run : paragraph.Runs)
        cursor.insertText(ToQt(run.Text).replace(u'\n', QChar::LineSeparator), FormatOf(run));
}

}  // namespace

RichTextView::RichTextView(RichText& text, ViewHost& host, QWidget* parent)
    : ViewOf(text, host, new QTextEdit(parent)),
      m_edit(static_cast<QTextEdit&>(Widget())),
      m_viewport(m_edit.viewport()) {
    m_edit.setReadOnly(true);
    m_edit.setTabChangesFocus(true);
    m_edit.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_edit.viewport()->installEventFilter(this);
}

bool RichTextView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_viewport && event->type() == QEvent::MouseButtonRelease) DeliverClick();
    return watched == &m_edit && ViewOf::eventFilter(watched, event);
}

void RichTextView::SyncOwn() {
    const RichText& text = TheData();
    const bool newFont = m_font.Take(text.Font);
    const bool newContent = m_content.Take(text.Content);
    if (newFont) m_edit.setFont(ToQt(text.Font));
    if (m_paragraphs.Take(text.Paragraphs) || newContent) ShowText();
}

void RichTextView::ShowText() {
    const RichText& text = TheData();
    m_edit.setPlainText(text.Paragraphs.empty() ? ToQt(text.Content) : QString());
    QTextCursor cursor(m_edit.document());
    cursor.beginEditBlock();
    for (const TextParagraph& paragraph : text.Paragraphs) {
        if (&paragraph != &text.Paragraphs.front()) cursor.insertBlock();
        cursor.setBlockFormat(FormatOf(paragraph, m_edit.logicalDpiY() / PointsPerInch));
        if (paragraph.Bullet) MakeBullet(cursor);
        Write(cursor, paragraph);
    }
    cursor.endEditBlock();
    m_edit.moveCursor(QTextCursor::Start);
}

}  // namespace tabulon
