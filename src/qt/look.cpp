#include "qt/look.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QWidget>
#include <algorithm>

namespace tabulon {

namespace {

constexpr int BodyPoints = 11;
constexpr int TickBoxSize = 20;

/// Boxes to tick are as large as the letters beside them.
class LookStyle final : public QProxyStyle {
  public:
    LookStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        const bool isBox = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
        return isBox ? TickBoxSize : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

QPalette PaletteOfTheLook() {
    QPalette palette(Look::Plate, Look::Teal);
    palette.setColor(QPalette::WindowText, Look::Cream);
    palette.setColor(QPalette::Base, Look::Cream);
    palette.setColor(QPalette::AlternateBase, Look::Mint);
    palette.setColor(QPalette::Text, Look::Ink);
    palette.setColor(QPalette::ButtonText, Look::Ink);
    palette.setColor(QPalette::PlaceholderText, Look::Teal);
    palette.setColor(QPalette::Highlight, Look::Yellow);
    palette.setColor(QPalette::HighlightedText, Look::Ink);
    palette.setColor(QPalette::ToolTipBase, Look::Cream);
    palette.setColor(QPalette::ToolTipText, Look::Ink);
    palette.setColor(QPalette::Disabled, QPalette::Base, Look::Mint);
    palette.setColor(QPalette::Disabled, QPalette::Button, Look::Teal);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, Look::Cream);
    return palette;
}

/// The arrow of a tool button is drawn in the colour of a window's text, but stands on a plate.
QPalette PaletteOfArrows() {
    QPalette palette = PaletteOfTheLook();
    palette.setColor(QPalette::WindowText, Look::Ink);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Look::Cream);
    return palette;
}

/// Ink, cream, yellow, navy, the plates under the mouse and pressed: %1 to %6.
QString StyleSheet() {
    return QString(
               "QPushButton { background: %2; color: %1; border: 2px solid %1; border-radius: 8px;"
               " padding: 1px 8px; }"
               "QPushButton:hover { background: %5; }"
               "QPushButton:pressed { background: %6; }"
               "QPushButton:focus { border: 3px solid %3; padding: 0px 7px; }"
               "QPushButton:disabled { background: transparent; color: %2; border: 1px solid %2; }"
               "QLineEdit, QPlainTextEdit, QTextEdit, QListWidget { background: %2; color: %1;"
               " border: 2px solid %1; border-radius: 4px; }"
               "QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus, QListWidget:focus { border-color: "
               "%3; }"
               "QLineEdit:disabled, QPlainTextEdit:disabled, QTextEdit:disabled, QListWidget:disabled {"
               " background: transparent; color: %2; border: 1px solid %2; }"
               "QLineEdit[marked=true] { background: #FFE1DA; color: #8E1B1B; border-color: #D2342B; }"
               "QLineEdit[marked=true]:focus { border-color: %3; }"
               "QComboBox { combobox-popup: 0; }"
               "QComboBox QAbstractItemView { background: %2; color: %1; border: 2px solid %1; }"
               "QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }"
               "QMessageBox QLabel, QMessageBox QPushButton { font: 16px 'Comic Neue'; }"
               "QListWidget::item:selected { background: %3; color: %1; }"
               "QToolTip { background: %2; color: %1; border: 1px solid %4; }")
        .arg(Look::Ink.name(), Look::Cream.name(), Look::Yellow.name(), Look::Navy.name(),
             Look::PlateHover.name(), Look::PlatePressed.name());
}

}  // namespace

QFont Look::NumberFont(int pixelSize) {
    QFont font;
    font.setFamilies({"Comic Neue", "Quicksand", "DejaVu Sans"});
    font.setBold(true);
    font.setPixelSize(std::max(1, pixelSize));
    return font;
}

void Look::ApplyTo(QApplication& application) {
    application.setStyle(new LookStyle);
    application.setFont(QFont("DejaVu Sans", BodyPoints));
    application.setPalette(PaletteOfTheLook());
    application.setPalette(PaletteOfArrows(), "QToolButton");
    application.setStyleSheet(StyleSheet());
}

void Look::Mark(QWidget& input, bool marked) {
    input.setProperty("marked", marked);
    input.style()->unpolish(&input);  // the style sheet looks at properties only when a widget is polished
    input.style()->polish(&input);
}

/// Yellow shows on the dark ground of a window, the ink inside it on a light button.
void Look::DrawFocusRing(QPainter& painter, const QRectF& around) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Yellow, 3));
    painter.drawRoundedRect(around.adjusted(1.5, 1.5, -1.5, -1.5), 8, 8);
    painter.setPen(QPen(Ink, 1));
    painter.drawRoundedRect(around.adjusted(3.5, 3.5, -3.5, -3.5), 6, 6);
}

}  // namespace tabulon
