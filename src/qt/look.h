#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>

class QApplication;
class QPaintEvent;
class QWidget;

namespace tabulon {

/// The colours and letters that all windows share. Text stands at a contrast of 4.5 or more to what is
/// behind it.
struct Look {
    static constexpr QColor Ink{27, 42, 65};
    static constexpr QColor Teal{23, 97, 107};
    static constexpr QColor Navy{18, 63, 85};
    static constexpr QColor Cream{255, 246, 227};
    static constexpr QColor Yellow{255, 200, 61};
    static constexpr QColor Mint{143, 211, 200};

    /// The ground of a button that can be pressed, under the mouse and pressed. One that cannot has none.
    static constexpr QColor Plate = Cream;
    static constexpr QColor PlateHover{255, 226, 150};
    static constexpr QColor PlatePressed = Yellow;

    static QFont NumberFont(int pixelSize);

    /// Gives the application its style, palette and style sheet.
    static void ApplyTo(QApplication& application);
    /// Shows that the text of an input cannot be used as it is.
    static void Mark(QWidget& input, bool marked);
    static void DrawFocusRing(QPainter& painter, const QRectF& around);
};

/// A widget of the toolkit that shows its focus as all others do.
template <class Widget>
class Ringed : public Widget {
  public:
    using Widget::Widget;

  protected:
    void paintEvent(QPaintEvent* event) override {
        Widget::paintEvent(event);
        if (!this->hasFocus()) return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        Look::DrawFocusRing(painter, this->rect());
    }
};

}  // namespace tabulon
