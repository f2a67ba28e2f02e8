#include "qt/text.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace tabulon {

namespace {

constexpr int AnyHeight = 1 << 20;
constexpr double SmallFontsDensity = 96;
constexpr double LargeFontsDensity = 120;
constexpr int LegiblePoints = 6;
constexpr int LongestToolTipLine = 60;  // characters

/// Sizes are chosen for two densities. At any other, letters get as many pixels as with large fonts.
double DensityFactor() {
    const double density = QGuiApplication::primaryScreen()->logicalDotsPerInchX();
    return density == SmallFontsDensity ? 1 : LargeFontsDensity / density;
}

}  // namespace

QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string FromQt(const QString& text) { return text.toStdString(); }

QFont ToQt(const Font& font) {
    QFont result(ToQt(font.Name));
    result.setPointSizeF(std::max(1, font.Size) * DensityFactor());
    result.setBold(font.Bold);
    return result;
}

QColor ToQt(Colour colour) { return {colour.Red, colour.Green, colour.Blue}; }

QString PlainCaption(std::string_view caption) {
    const QString text = ToQt(caption);
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain;
}

QChar AccessKey(std::string_view caption) {
    const QString text = ToQt(caption);
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[++i] != u'&') return text[i].toUpper();
    }
    return {};
}

QString ToolTip(std::string_view text) {
    const QString plain = ToQt(text);
    const bool wraps = plain.size() > LongestToolTipLine || Qt::mightBeRichText(plain);
    return wraps ? Qt::convertFromPlainText(plain, Qt::WhiteSpaceNormal) : plain;
}

TextExtent WrappedTextExtent(const Font& font, std::string_view text, int width) {
    if (text.empty()) return {};
    const QRect room(0, 0, std::max(1, width), AnyHeight);
    const QRect taken = QFontMetrics(ToQt(font)).boundingRect(room, LabelTextFlags, ToQt(text));
    return {taken.width(), taken.height()};
}

bool FitsRoom(const QFont& font, const QString& text, QSize room) {
    const QRect page(0, 0, room.width(), AnyHeight);
    const QSize needed = QFontMetrics(font).boundingRect(page, LabelTextFlags, text).size();
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
