#include "sound/loudness.h"

#include <algorithm>
#include <cmath>
#include <ebur128.h>
#include <memory>
#include <numbers>

namespace tabulon::test {

namespace {

constexpr unsigned Channels = 2;
constexpr unsigned long Rate = 44100;

/// A filter of the second order that cuts what is below a frequency.
class LowCut {
  public:
    LowCut(double hertz, double quality) {
        const double turn = 2 * std::numbers::pi * hertz / static_cast<double>(Rate);
        const double alpha = std::sin(turn) / (2 * quality);
        m_b = (1 + std::cos(turn)) / 2 / (1 + alpha);
        m_a1 = -2 * std::cos(turn) / (1 + alpha);
        m_a2 = (1 - alpha) / (1 + alpha);
    }
    double Next(double in) {
        const double out = m_b * in + m_z1;
        m_z1 = -2 * m_b * in - m_a1 * out + m_z2;
        m_z2 = m_b * in - m_a2 * out;
        return out;
    }

  private:
    double m_b, m_a1, m_a2, m_z1 = 0, m_z2 = 0;
};

/// What a laptop's speakers play: Butterworth's filter of the fourth order.
std::vector<float> Above200Hertz(const Samples& samples) {
    std::vector<float> high(samples.size());
    for (std::size_t side = 0; side < Channels; ++side) {
        LowCut first(200, 0.541), second(200, 1.307);
        for (std::size_t at = side; at < samples.size(); at += Channels)
            high[at] = static_cast<float>(second.Next(first.Next(samples[at] / 32768.0)));
    }
    return high;
}

struct Destroy {
    void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
};
using Meter = std::unique_ptr<ebur128_state, Destroy>;

Meter MakeMeter() { return Meter(ebur128_init(Channels, Rate, EBUR128_MODE_I | EBUR128_MODE_TRUE_PEAK)); }

double Loud(const Meter& meter) {
    double loudness = 0;
    ebur128_loudness_global(meter.get(), &loudness);
    return loudness;
}

double Peak(const Meter& meter) {
    double left = 0, right = 0;
    ebur128_true_peak(meter.get(), 0, &left);
    ebur128_true_peak(meter.get(), 1, &right);
    return 20 * std::log10(std::max(left, right));
}

}  // namespace

Loudness Measure(const Samples& samples) {
    const Meter whole = MakeMeter(), high = MakeMeter();
    const std::vector<float> above = Above200Hertz(samples);
    ebur128_add_frames_short(whole.get(), samples.data(), samples.size() / Channels);
    ebur128_add_frames_float(high.get(), above.data(), above.size() / Channels);
    return {Loud(whole), Loud(high), Peak(whole)};
}

}  // namespace tabulon::test
