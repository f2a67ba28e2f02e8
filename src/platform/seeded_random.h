#pragma once

#include <cstdint>

#include "platform/random.h"

namespace tabulon {

/// A small fast generator (xorshift64*) whose upper 24 bits make the single.
class SeededRandom : public Random {
  public:
    explicit SeededRandom(std::uint64_t seed) { Seed(seed); }

    float Rnd() override {
        m_state ^= m_state >> 12;
        m_state ^= m_state << 25;
        m_state ^= m_state >> 27;
        return static_cast<float>((m_state * 0x2545F4914F6CDD1DULL) >> 40) * 0x1p-24f;
    }
    void Randomize() override {}

  protected:
    void Seed(std::uint64_t seed);

  private:
    std::uint64_t m_state = 0;
};

/// The generator of a running Player: Randomize seeds it from the machine's clock.
class ClockSeededRandom final : public SeededRandom {
  public:
    ClockSeededRandom();
    void Randomize() override;
};

}  // namespace tabulon
