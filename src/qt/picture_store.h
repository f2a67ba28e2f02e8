#pragma once

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <filesystem>

#include "forms/picture.h"

namespace tabulon {

/// Draws pictures at the size that a widget needs, and keeps a bounded number of them.
class PictureStore {
  public:
    /// `folder` holds the SVG files of the program's own pictures.
    explicit PictureStore(std::filesystem::path folder);

    /// The picture stretched to `size` logical pixels on a screen of that pixel ratio, or fitted into it with
    /// Qt::KeepAspectRatio. A null pixmap for no picture.
    QPixmap Get(const Picture& picture, QSize size, qreal ratio,
                Qt::AspectRatioMode mode = Qt::IgnoreAspectRatio);
    bool HasFile(const Picture& picture) const;

  private:
    struct Entry {
        QPixmap pixmap;
        std::shared_ptr<const FilePicture> file;  // keeps its address from being used again
    };

    std::filesystem::path FileOf(const Picture& picture) const;
    QPixmap Draw(const Picture& picture, QSize pixels, Qt::AspectRatioMode mode) const;
    QPixmap DrawSvg(const Picture& picture, QSize pixels, Qt::AspectRatioMode mode) const;

    std::filesystem::path m_folder;
    QCache<QString, Entry> m_entries;
};

}  // namespace tabulon
