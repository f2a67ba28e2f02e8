#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tabulon::test {

/// A tone as an Ogg Vorbis file, and what may be wrong with it.
struct Tone {
    double Hertz = 440;
    double Seconds = 0.5;
    int Channels = 2;
    int Rate = 44100;
    int StatedRate = 0;             // in place of the true one
    std::int64_t StatedLength = 0;  // in frames; in place of the true one
    const char* Comment = nullptr;  // NAME=value
};

std::string Encode(const Tone& tone);

/// With one byte turned round, and with checksums that are right nevertheless.
std::string Damage(std::string ogg, std::size_t at);

using Samples = std::vector<std::int16_t>;

/// All samples of a sound, left and right in turn.
Samples Decode(const std::string& ogg);

}  // namespace tabulon::test
