#pragma once

#include <compare>
#include <cstdint>
#include <limits>

#include "platform/failure.h"

namespace tabulon {

/// A 16-bit signed counter of play. Arithmetic that leaves 16 bits fails with Overflow and changes nothing.
class Integer {
  public:
    constexpr Integer() = default;
    constexpr Integer(int value) : m_value(Narrow(value)) {}

    constexpr int Value() const { return m_value; }

    friend constexpr Integer operator+(Integer a, Integer b) { return a.m_value + b.m_value; }
    friend constexpr Integer operator-(Integer a, Integer b) { return a.m_value - b.m_value; }
    friend constexpr Integer operator*(Integer a, Integer b) { return a.m_value * b.m_value; }
    constexpr Integer operator-() const { return -m_value; }
    constexpr Integer& operator+=(Integer other) { return *this = *this + other; }
    constexpr Integer& operator-=(Integer other) { return *this = *this - other; }
    constexpr Integer& operator++() { return *this += 1; }

    friend constexpr bool operator==(Integer a, Integer b) { return a.m_value == b.m_value; }
    friend constexpr auto operator<=>(Integer a, Integer b) { return a.m_value <=> b.m_value; }

  private:
    static constexpr std::int16_t Narrow(int value) {
        if (value < std::numeric_limits<std::int16_t>::min() ||
            value > std::numeric_limits<std::int16_t>::max())
            throw Failure(FailureNumber::Overflow);
        return static_cast<std::int16_t>(value);
    }

    std::int16_t m_value = 0;
};

}  // namespace tabulon
