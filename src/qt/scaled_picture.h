#pragma once

#include <QPixmap>

#include "qt/picture_store.h"

class QWidget;

namespace tabulon {

/// The picture of one widget at the widget's size. It is scaled when the picture, the size or the density of
/// the screen changes, not when it is painted.
class ScaledPicture {
  public:
    explicit ScaledPicture(PictureStore& store) : m_store(store) {}

    void Show(const Picture& picture);
    bool IsEmpty() const { return m_picture.Set == PictureSet::None; }
    const QPixmap& For(const QWidget& widget) { return For(widget, WholeOf(widget)); }
    const QPixmap& For(const QWidget& widget, QSize size, Qt::AspectRatioMode mode = Qt::IgnoreAspectRatio);

  private:
    static QSize WholeOf(const QWidget& widget);

    PictureStore& m_store;
    Picture m_picture;
    QPixmap m_pixmap;
    QSize m_size;
    qreal m_ratio = 0;  // 0: not scaled yet
};

}  // namespace tabulon
