#include "qt/scaled_picture.h"

#include <QWidget>

namespace tabulon {

void ScaledPicture::Show(const Picture& picture) {
    m_picture = picture;
    m_ratio = 0;
}

const QPixmap& ScaledPicture::For(const QWidget& widget, QSize size, Qt::AspectRatioMode mode) {
    const qreal ratio = widget.devicePixelRatioF();
    if (m_size == size && m_ratio == ratio) return m_pixmap;
    m_size = size;
    m_ratio = ratio;
    m_pixmap = m_store.Get(m_picture, size, ratio, mode);
    return m_pixmap;
}

QSize ScaledPicture::WholeOf(const QWidget& widget) { return widget.size(); }

}  // namespace tabulon
