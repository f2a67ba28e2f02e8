#include "qt/picture_reader.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include "platform/failure.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int AllocationMegabytes = static_cast<int>(PictureLimits::Pixels * 4 / (1024 * 1024)) + 1;

bool IsKnownFormat(const QByteArray& format) {
    return format == "bmp" || format == "gif" || format == "jpeg" || format == "jpg" || format == "png";
}

bool IsWithinLimits(QSize size, qint64 pixels) {
    return !size.isEmpty() && size.width() <= PictureLimits::Side && size.height() <= PictureLimits::Side &&
           qint64{size.width()} * size.height() <= pixels;
}

std::string ReadBytes(const std::filesystem::path& path) {
    QFile file(ToQt(path.native()));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        throw Failure(FailureNumber::FileNotFound);
    if (file.size() > PictureLimits::FileBytes) throw Failure(FailureNumber::InvalidPicture);
    return file.readAll().toStdString();
}

}  // namespace

std::shared_ptr<const FilePicture> ReadPictureFile(const std::filesystem::path& file) {
    auto picture = std::make_shared<FilePicture>();
    picture->Bytes = ReadBytes(file);
    const QImage image = DecodePicture(picture->Bytes);
    if (image.isNull()) throw Failure(FailureNumber::InvalidPicture);
    picture->Width = image.width();
    picture->Height = image.height();
    return picture;
}

QImage DecodePicture(const std::string& bytes, qint64 pixels) {
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&view);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    QImageReader::setAllocationLimit(AllocationMegabytes);
    if (!IsKnownFormat(reader.format()) || !IsWithinLimits(reader.size(), pixels)) return {};
    return reader.read();
}

}  // namespace tabulon
