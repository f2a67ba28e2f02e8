#pragma once

#include <QImage>
#include <filesystem>
#include <memory>
#include <string>

#include "forms/picture.h"

namespace tabulon {

/// What a picture of a package may measure: far above any real board, far below what ends the memory.
struct PictureLimits {
    static constexpr qint64 FileBytes = qint64{64} * 1024 * 1024;
    static constexpr int Side = 16384;
    static constexpr qint64 Pixels = 100'000'000;
};

/// Reads a BMP, GIF, JPEG or PNG picture, known by its content. Fails with FileNotFound, or with
/// InvalidPicture for what is none, is damaged or breaks a limit.
std::shared_ptr<const FilePicture> ReadPictureFile(const std::filesystem::path& file);

/// Decodes the bytes of a picture of at most that many pixels; a null image when that cannot be done.
QImage DecodePicture(const std::string& bytes, qint64 pixels = PictureLimits::Pixels);

}  // namespace tabulon
