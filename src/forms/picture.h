#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tabulon {

struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    bool operator==(const Colour&) const = default;
};

/// What a picture of a package may measure: far above any real board, far below what ends the memory.
struct PictureLimits {
    static constexpr std::int64_t FileBytes = std::int64_t{64} << 20;
    static constexpr int Side = 16384;
    static constexpr std::int64_t Pixels = 100'000'000;
};

/// A picture that came from a file: its bytes as they were read, and its size in pixels.
struct FilePicture {
    std::string Bytes;
    int Width = 0;
    int Height = 0;
};

enum class PictureSet : std::uint8_t { None, Piece, Die, Reel, Product, File };

/// Which picture a control shows. What it looks like is the screen's affair.
struct Picture {
    PictureSet Set = PictureSet::None;
    /// Piece 1 to 48, die frame 1 to 24, or the number on a reel.
    int Number = 0;
    /// Of a product picture: its literal name below the pictures folder, "buttons/roll".
    std::string_view Name;
    std::shared_ptr<const FilePicture> File;

    static Picture Piece(int number) { return {PictureSet::Piece, number, {}, nullptr}; }
    static Picture Die(int frame) { return {PictureSet::Die, frame, {}, nullptr}; }
    static Picture Reel(int number) { return {PictureSet::Reel, number, {}, nullptr}; }
    static Picture Product(std::string_view name) { return {PictureSet::Product, 0, name, nullptr}; }

    bool operator==(const Picture&) const = default;
};

}  // namespace tabulon
