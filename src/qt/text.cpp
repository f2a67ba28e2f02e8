#include "qt/text.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "qt/wrapped_text.h"

namespace tabulon {

namespace {

constexpr int SmallFontsDensity = 96;
constexpr int LargeFontsDensity = 120;
constexpr int LegiblePoints = 6;
constexpr int LongestToolTipLine = 60;  // characters

/// Points are what they are at the two densities alone; at any other, letters get the pixels of large fonts.
double PointFactor() { return LayoutDensity() / QGuiApplication::primaryScreen()->logicalDotsPerInchX(); }

bool IsIdeograph(char32_t character) {
    const QChar::Script script = QChar::script(character);
    return script == QChar::Script_Han || script == QChar::Script_Hiragana ||
           script == QChar::Script_Katakana || script == QChar::Script_Hangul;
}

/// A word is what stands between blanks: a name of ideographs is not wrapped inside as long as it has room.
QString JoinIdeographs(const QString& text) {
    constexpr char32_t WordJoiner = 0x2060;
    QList<char32_t> joined;
    for (const char32_t character : text.toUcs4()) {
        if (!joined.isEmpty() && IsIdeograph(joined.last()) && IsIdeograph(character))
            joined.append(WordJoiner);
        joined.append(character);
    }
    return QString::fromUcs4(joined.constData(), joined.size());
}

}  // namespace

int LayoutDensity() {
    const double density = QGuiApplication::primaryScreen()->logicalDotsPerInchX();
    return density == SmallFontsDensity ? SmallFontsDensity : LargeFontsDensity;
}

QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string FromQt(const QString& text) { return text.toStdString(); }

QFont ToQt(const Font& font) {
    QFont result(ToQt(font.Name));
    result.setPointSizeF(std::max(1, font.Size) * PointFactor());
    result.setBold(font.Bold);
    return result;
}

QColor ToQt(Colour colour) { return {colour.Red, colour.Green, colour.Blue}; }

MarkedText ReadMarks(const QString& caption) {
    MarkedText marked;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const bool isMark = caption[i] == u'&' && i + 1 < caption.size();
        if (isMark && caption[++i] != u'&') marked.Keys.append(marked.Text.size());
        marked.Text += caption[i];
    }
    return marked;
}

QString PlainCaption(std::string_view caption) { return ReadMarks(ToQt(caption)).Text; }

QChar AccessKey(std::string_view caption) {
    const MarkedText marked = ReadMarks(ToQt(caption));
    return marked.Keys.isEmpty() ? QChar() : marked.Text[marked.Keys.first()].toUpper();
}

QString ToolTip(std::string_view text) {
    const QString plain = ToQt(text);
    const bool wraps = plain.size() > LongestToolTipLine || Qt::mightBeRichText(plain);
    return wraps ? Qt::convertFromPlainText(plain, Qt::WhiteSpaceNormal) : plain;
}

TextExtent WrappedTextExtent(const Font& font, std::string_view text, int width) {
    if (text.empty()) return {};
    const QSize taken = WrappedText(JoinIdeographs(ToQt(text)), ToQt(font), std::max(1, width)).Size();
    return {taken.width(), taken.height()};
}

bool FitsRoom(const QFont& font, const QString& text, QSize room) {
    const QSize needed = WrappedText(text, font, room.width()).Size();
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QFont FittingFont(QFont font, const QString& text, QSize room) {
    while (font.pointSizeF() > LegiblePoints && !FitsRoom(font, text, room))
        font.setPointSizeF(font.pointSizeF() - 1);
    return font;
}

QString CutText(const QString& text, const QFont& font, QSize room) {
    const QFontMetrics metrics(font);
    const int fullLines = std::max(1, room.height() / metrics.lineSpacing()) - 1;
    QTextLayout layout(QString(text).replace('\n', QChar::LineSeparator), font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QString cut;
    qsizetype rest = 0;
    for (int i = 0; i < fullLines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(room.width());
        cut += text.sliced(line.textStart(), line.textLength()).trimmed() + '\n';
        rest = line.textStart() + line.textLength();
    }
    layout.endLayout();
    return cut + metrics.elidedText(text.sliced(rest).simplified(), Qt::ElideRight, room.width());
}

int ToPixels(float units, float unitsPerPixel) {
    return static_cast<int>(std::lround(units / unitsPerPixel));
}

QRect ToPixels(const Control& control, float twipsPerPixel) {
    const float scale = control.Container ? 1 : twipsPerPixel;
    return {ToPixels(control.Left, scale), ToPixels(control.Top, scale), ToPixels(control.Width, scale),
            ToPixels(control.Height, scale)};
}

}  // namespace tabulon
