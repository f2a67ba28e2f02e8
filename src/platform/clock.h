#pragma once

#include <chrono>

namespace tabulon {

/// Local date and time, to the second and without a time zone.
using LocalTime = std::chrono::local_seconds;

/// What time it is.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual LocalTime Now() const = 0;
};

/// The machine's clock in the user's time zone.
class SystemClock final : public Clock {
  public:
    LocalTime Now() const override;
};

}  // namespace tabulon
