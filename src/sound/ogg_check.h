#pragma once

#include <cstddef>
#include <string_view>

namespace tabulon {

/// What the program takes as a sound: far above any real one.
namespace limits {

inline constexpr std::size_t SoundBytes = 16U << 20;
inline constexpr int SoundSeconds = 600;

}  // namespace limits

/// Whether a file can be given to the mixer: one Ogg Vorbis stream in mono or stereo at a usual rate, of a
/// length that a sound may have, and with something to hear in it. The mixer itself repeats a stream without
/// samples for ever on the device's thread, and believes any rate and loop point.
bool IsPlayable(std::string_view ogg);

}  // namespace tabulon
