#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace tabulon {

/// A caption laid out as labels show it: wrapped at words, access keys underlined. All lines are as high as
/// those of the font itself, also where another font has to stand in for some letters.
class WrappedText {
  public:
    WrappedText(const QString& caption, const QFont& font, int width,
                Qt::Alignment horizontal = Qt::AlignLeft);

    QSize Size() const;
    void Draw(QPainter& painter, QPoint topLeft) const;

  private:
    void LayOut(int width);

    QTextLayout m_layout;
    int m_width = 0;
    int m_height = 0;
};

}  // namespace tabulon
