#include "qt/picture_store.h"

#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include "qt/look.h"
#include "qt/picture_reader.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int CacheKilobytes = 96 * 1024;
constexpr int PiecesPerGroup = 12;
constexpr qreal ReelNumberRoom = 0.62;
constexpr std::array<QColor, 4> ReelColours{Look::Yellow, QColor{242, 112, 91}, Look::Mint,
                                            QColor{155, 216, 107}};
constexpr std::array<const char*, 4> PieceGroups{"aliens", "animals", "objects", "professions"};

std::string PieceFile(int number) {
    const int index = number - 1;
    const auto group = static_cast<std::size_t>(index / PiecesPerGroup) % PieceGroups.size();
    return std::string("pieces/") + PieceGroups[group] + "-" + std::to_string(index % PiecesPerGroup + 1);
}

QString KeyOf(const Picture& picture, QSize size, qreal ratio, Qt::AspectRatioMode mode) {
    return QString("%1|%2|%3|%4|%5x%6|%7|%8")
        .arg(static_cast<int>(picture.Set))
        .arg(picture.Number)
        .arg(ToQt(picture.Name))
        .arg(reinterpret_cast<quintptr>(picture.File.get()))
        .arg(size.width())
        .arg(size.height())
        .arg(ratio)
        .arg(mode);
}

QPixmap Empty(QSize pixels) {
    QPixmap pixmap(pixels);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

/// The number as an outline, as large as the room allows.
QPainterPath NumberPath(int number, QSizeF room) {
    QPainterPath path;
    path.addText(0, 0, Look::NumberFont(200), QString::number(number));
    const QRectF bounds = path.boundingRect();
    const qreal scale = std::min(room.width() / bounds.width(), room.height() / bounds.height());
    path.translate(-bounds.center());
    return QTransform::fromScale(scale, scale).map(path);
}

/// A number of a reel: neighbours differ in colour too.
QPixmap DrawReel(int number, QSize pixels) {
    QPixmap pixmap(pixels);
    pixmap.fill(Look::Cream);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(pixels.width(), pixels.height());
    painter.translate(QRectF(pixmap.rect()).center());
    const QPainterPath path = NumberPath(number, QSizeF(pixels) * ReelNumberRoom);
    painter.strokePath(path, QPen(Look::Ink, side / 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, ReelColours[static_cast<std::size_t>(std::abs(number)) % ReelColours.size()]);
    return pixmap;
}

/// A card with a number: what stands for a picture that is missing.
QPixmap DrawNumber(int number, QSize pixels) {
    QPixmap pixmap = Empty(pixels);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(pixels.width(), pixels.height());
    const QRectF card = QRectF(pixmap.rect()).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(Look::Ink, std::max(1.0, side / 40)));
    painter.setBrush(Look::Cream);
    painter.drawRoundedRect(card, side / 10, side / 10);
    if (number <= 0) return pixmap;
    painter.setFont(Look::NumberFont(static_cast<int>(side * 0.62)));
    painter.setPen(Look::Ink);
    painter.drawText(card, Qt::AlignCenter, QString::number(number));
    return pixmap;
}

QPixmap DrawFile(const FilePicture& file, QSize pixels, Qt::AspectRatioMode mode) {
    const QImage image = DecodePicture(file.Bytes);
    if (image.isNull()) return DrawNumber(0, pixels);
    return QPixmap::fromImage(image.scaled(pixels, mode, Qt::SmoothTransformation));
}

int KilobytesOf(const QPixmap& pixmap) {
    return static_cast<int>(qint64{pixmap.width()} * pixmap.height() * 4 / 1024) + 1;
}

}  // namespace

PictureStore::PictureStore(std::filesystem::path folder)
    : m_folder(std::move(folder)), m_entries(CacheKilobytes) {}

QPixmap PictureStore::Get(const Picture& picture, QSize size, qreal ratio, Qt::AspectRatioMode mode) {
    const bool isNone = picture.Set == PictureSet::None || (picture.Set == PictureSet::File && !picture.File);
    if (isNone || size.isEmpty()) return {};
    const QString key = KeyOf(picture, size, ratio, mode);
    if (const Entry* known = m_entries.object(key)) return known->pixmap;
    QPixmap pixmap = Draw(picture, (QSizeF(size) * ratio).toSize(), mode);
    pixmap.setDevicePixelRatio(ratio);
    m_entries.insert(key, new Entry{pixmap, picture.File}, KilobytesOf(pixmap));
    return pixmap;
}

bool PictureStore::HasFile(const Picture& picture) const {
    std::error_code ignored;
    return std::filesystem::is_regular_file(FileOf(picture), ignored);
}

std::filesystem::path PictureStore::FileOf(const Picture& picture) const {
    switch (picture.Set) {
        case PictureSet::Piece:
            return m_folder / (PieceFile(picture.Number) + ".svg");
        case PictureSet::Die:
            return m_folder / ("dice/frame-" + std::to_string(picture.Number) + ".svg");
        case PictureSet::Product:
            return m_folder / (std::string(picture.Name) + ".svg");
        default:
            return {};
    }
}

QPixmap PictureStore::Draw(const Picture& picture, QSize pixels, Qt::AspectRatioMode mode) const {
    if (picture.File) return DrawFile(*picture.File, pixels, mode);
    if (picture.Set == PictureSet::Reel) return DrawReel(picture.Number, pixels);
    return HasFile(picture) ? DrawSvg(picture, pixels, mode) : DrawNumber(picture.Number, pixels);
}

QPixmap PictureStore::DrawSvg(const Picture& picture, QSize pixels, Qt::AspectRatioMode mode) const {
    QSvgRenderer renderer(ToQt(FileOf(picture).native()));
    if (!renderer.isValid()) return DrawNumber(picture.Number, pixels);
    renderer.setAspectRatioMode(mode);
    QPixmap pixmap = Empty(pixels);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(pixmap.rect()));
    return pixmap;
}

}  // namespace tabulon
