#pragma once

#include "sound/tone.h"

namespace tabulon::test {

/// How loud a sound is, in LUFS; its peak in decibels below full scale, between the samples too.
struct Loudness {
    double Whole, Above200Hertz, Peak;
};

Loudness Measure(const Samples& samples);

}  // namespace tabulon::test
