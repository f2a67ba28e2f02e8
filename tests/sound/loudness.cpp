#include "sound/loudness.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tabulon::test {

namespace {

constexpr std::size_t Rate = 44100;
constexpr std::size_t StepFrames = Rate / 10;
constexpr std::size_t StepsInBlock = 4;

class Biquad {
  public:
    Biquad(double b0, double b1, double b2, double a1, double a2)
        : m_b0(b0), m_b1(b1), m_b2(b2), m_a1(a1), m_a2(a2) {}
    double Next(double in) {
        const double out = m_b0 * in + m_first;
        m_first = m_b1 * in - m_a1 * out + m_second;
        m_second = m_b2 * in - m_a2 * out;
        return out;
    }

  private:
    double m_b0, m_b1, m_b2, m_a1, m_a2, m_first = 0, m_second = 0;
};

/// The standard's weighting, its coefficients for this rate.
struct Weighting {
    Biquad Shelf{1.5308412300503478, -2.6509799951547297, 1.169079079921587, -1.6636551132560204,
                 0.7125954280732254};
    Biquad HighPass{1, -2, 1, -1.9891696736297957, 0.9891990357870394};
    double Next(double in) { return HighPass.Next(Shelf.Next(in)); }
};

/// The weighted power of each tenth of a second, of both channels together.
std::vector<double> Steps(const Samples& samples) {
    Weighting sides[2];
    std::vector<double> steps(samples.size() / 2 / StepFrames, 0.0);
    for (std::size_t frame = 0; frame < steps.size() * StepFrames; ++frame) {
        for (std::size_t side = 0; side < 2; ++side) {
            const double weighted = sides[side].Next(samples[2 * frame + side] / 32768.0);
            steps[frame / StepFrames] += weighted * weighted / StepFrames;
        }
    }
    return steps;
}

double Mean(const std::vector<double>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) /
           static_cast<double>(std::max<std::size_t>(values.size(), 1));
}

double Level(double power) { return -0.691 + 10 * std::log10(power); }

}  // namespace

double Loudness(const Samples& samples) {
    const std::vector<double> steps = Steps(samples);
    std::vector<double> blocks;
    for (std::size_t at = 0; at + StepsInBlock <= steps.size(); ++at)
        blocks.push_back(std::accumulate(&steps[at], &steps[at] + StepsInBlock, 0.0) / StepsInBlock);
    constexpr double absoluteGate = -70;
    constexpr double relativeGate = -10;
    std::erase_if(blocks, [](double power) { return Level(power) < absoluteGate; });
    const double gate = Level(Mean(blocks)) + relativeGate;
    std::erase_if(blocks, [gate](double power) { return Level(power) < gate; });
    return Level(Mean(blocks));
}

}  // namespace tabulon::test
