#pragma once

#include "sound/tone.h"

namespace tabulon::test {

/// Integrated loudness of a stereo sound at 44100 Hz by ITU-R BS.1770, in LUFS.
double Loudness(const Samples& samples);

}  // namespace tabulon::test
