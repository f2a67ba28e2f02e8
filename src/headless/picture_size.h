#pragma once

#include <string_view>

namespace tabulon {

struct PictureSize {
    int Width = 0;
    int Height = 0;
};

/// The size that the header of a BMP, GIF, JPEG or PNG file tells, in pixels. Fails with InvalidPicture for
/// anything else, and for a side that is 0 or above 16384.
PictureSize SizeOfPicture(std::string_view bytes);

}  // namespace tabulon
