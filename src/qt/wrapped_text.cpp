#include "qt/wrapped_text.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/text.h"

namespace tabulon {

WrappedText::WrappedText(const QString& caption, const QFont& font, int width, Qt::Alignment horizontal) {
    const MarkedText marked = ReadMarks(caption);
    QList<QTextLayout::FormatRange> underlined;
    for (const qsizetype key : marked.Keys) {
        QTextCharFormat line;
        line.setFontUnderline(true);
        underlined.append({static_cast<int>(key), 1, line});
    }
    QTextOption option(horizontal);
    option.setWrapMode(QTextOption::WordWrap);
    m_layout.setText(QString(marked.Text).remove('\r').replace('\n', QChar::LineSeparator));
    m_layout.setFont(font);
    m_layout.setTextOption(option);
    m_layout.setFormats(underlined);
    LayOut(width);
}

QSize WrappedText::Size() const { return {m_width, m_height}; }

void WrappedText::Draw(QPainter& painter, QPoint topLeft) const { m_layout.draw(&painter, topLeft); }

void WrappedText::LayOut(int width) {
    const QFontMetrics metrics(m_layout.font());
    qreal widest = 0;
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        const int top = line.lineNumber() * metrics.lineSpacing();
        line.setPosition({0, top + metrics.ascent() - line.ascent()});
        widest = std::max(widest, line.naturalTextWidth());
        m_height = top + metrics.height();
    }
    m_layout.endLayout();
    m_width = static_cast<int>(std::ceil(widest));
}

}  // namespace tabulon
