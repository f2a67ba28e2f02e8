#include "headless/picture_size.h"

#include <cstdint>
#include <cstdlib>

#include "forms/picture.h"
#include "platform/failure.h"

namespace tabulon {

namespace {

[[noreturn]] void NoPicture() { throw Failure(FailureNumber::InvalidPicture); }

std::uint32_t Byte(std::string_view bytes, std::size_t at) {
    if (at >= bytes.size()) NoPicture();
    return static_cast<unsigned char>(bytes[at]);
}

std::uint32_t Little16(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at) | Byte(bytes, at + 1) << 8;
}

std::uint32_t Little32(std::string_view bytes, std::size_t at) {
    return Little16(bytes, at) | Little16(bytes, at + 2) << 16;
}

std::uint32_t Big16(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at) << 8 | Byte(bytes, at + 1);
}

std::uint32_t Big32(std::string_view bytes, std::size_t at) {
    return Big16(bytes, at) << 16 | Big16(bytes, at + 2);
}

PictureSize Checked(std::int64_t width, std::int64_t height) {
    height = std::abs(height);  // a bitmap's height is negative when its first row is the upper one
    if (width < 1 || height < 1 || width > PictureLimits::Side || height > PictureLimits::Side) NoPicture();
    if (width * height > PictureLimits::Pixels) NoPicture();
    return {static_cast<int>(width), static_cast<int>(height)};
}

PictureSize SizeOfBitmap(std::string_view bytes) {
    constexpr std::uint32_t CoreHeader = 12;
    if (Little32(bytes, 14) == CoreHeader) return Checked(Little16(bytes, 18), Little16(bytes, 20));
    return Checked(static_cast<std::int32_t>(Little32(bytes, 18)),
                   static_cast<std::int32_t>(Little32(bytes, 22)));
}

/// Walks the segments to the frame header (ITU T.81, B.2.2).
PictureSize SizeOfJpeg(std::string_view bytes) {
    std::size_t at = 2;
    while (true) {
        if (Byte(bytes, at) != 0xFF) NoPicture();
        const std::uint32_t marker = Byte(bytes, at + 1);
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame) return Checked(Big16(bytes, at + 7), Big16(bytes, at + 5));
        at += marker == 0xFF ? 1 : 2 + Big16(bytes, at + 2);
    }
}

}  // namespace

PictureSize SizeOfPicture(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("BM"sv)) return SizeOfBitmap(bytes);
    if (bytes.starts_with("GIF8"sv)) return Checked(Little16(bytes, 6), Little16(bytes, 8));
    if (bytes.starts_with("\x89PNG\r\n\x1a\n"sv)) return Checked(Big32(bytes, 16), Big32(bytes, 20));
    if (bytes.starts_with("\xff\xd8"sv)) return SizeOfJpeg(bytes);
    NoPicture();
}

}  // namespace tabulon
