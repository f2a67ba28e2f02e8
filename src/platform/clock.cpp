#include "platform/clock.h"

#include <ctime>

namespace tabulon {

LocalTime SystemClock::Now() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    using namespace std::chrono;
    const local_days day{year{local.tm_year + 1900} / month{static_cast<unsigned>(local.tm_mon + 1)} /
                         std::chrono::day{static_cast<unsigned>(local.tm_mday)}};
    return day + hours{local.tm_hour} + minutes{local.tm_min} + seconds{local.tm_sec};
}

}  // namespace tabulon
