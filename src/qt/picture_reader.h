#pragma once

#include <QImage>
#include <filesystem>
#include <memory>
#include <string>

#include "forms/picture.h"

namespace tabulon {

/// Reads a BMP, GIF, JPEG or PNG picture, known by its content. Fails with FileNotFound, or with
/// InvalidPicture for what is none, is damaged or breaks a limit.
std::shared_ptr<const FilePicture> ReadPictureFile(const std::filesystem::path& file);

/// Decodes the bytes of a picture of at most that many pixels; a null image when that cannot be done.
QImage DecodePicture(const std::string& bytes, qint64 pixels = PictureLimits::Pixels);

}  // namespace tabulon
