#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "forms/screen.h"

namespace tabulon {

/// How text on buttons is painted: wrapped at words, "&" underlines the next character.
inline constexpr int LabelTextFlags = Qt::TextWordWrap | Qt::TextShowMnemonic;

/// Places and sizes are chosen for two densities, in dots per inch. At any but the lower one, the higher
/// serves.
int LayoutDensity();

QString ToQt(std::string_view utf8);
std::string FromQt(const QString& text);
QFont ToQt(const Font& font);
QColor ToQt(Colour colour);

/// What a caption says, and where in it the characters stand that are marked as access keys.
struct MarkedText {
    QString Text;
    QList<qsizetype> Keys;
};
/// Takes the marks out of a caption: "&&" is one ampersand.
MarkedText ReadMarks(const QString& caption);
/// The caption as it is read: access keys without their mark, "&&" as one ampersand.
QString PlainCaption(std::string_view caption);
/// The character after the single "&" as a capital; null when there is none.
QChar AccessKey(std::string_view caption);

/// A tool tip that shows the text as it stands, also where it looks like markup, and wraps a long one.
QString ToolTip(std::string_view text);

/// The room that a label's text takes when it is wrapped at `width` pixels.
TextExtent WrappedTextExtent(const Font& font, std::string_view text, int width);

/// Whether the text stands whole in the room, wrapped at words and with no word wider than the room.
bool FitsRoom(const QFont& font, const QString& text, QSize room);
/// The font, or a smaller one where the text would be cut off in the room. It stays legible, so a text may be
/// too long for it all the same.
QFont FittingFont(QFont font, const QString& text, QSize room);

/// As many lines of the text as the room holds, the last one with an ellipsis. A word without room is broken.
QString CutText(const QString& text, const QFont& font, QSize room);

/// Rounds twips to pixels; a control inside a picture box has pixels already (a scale of 1).
int ToPixels(float units, float unitsPerPixel);
QRect ToPixels(const Control& control, float twipsPerPixel);

}  // namespace tabulon
