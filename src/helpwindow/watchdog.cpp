#include "helpwindow/watchdog.h"

#include <algorithm>
#include <sys/resource.h>

namespace tabulon {

namespace {

constexpr int BeatMilliseconds = 1000;
constexpr rlim_t SecondsWithoutEvents = 20;
[[maybe_unused]] constexpr rlim_t Memory = rlim_t{3} << 30;

void BoundSoftly(__rlimit_resource resource, rlim_t most) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) return;
    limit.rlim_cur = std::min(limit.rlim_max, most);
    setrlimit(resource, &limit);
}

void GiveTime() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto seconds = static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec);
    BoundSoftly(RLIMIT_CPU, seconds + SecondsWithoutEvents);
}

}  // namespace

Watchdog::Watchdog() {
#ifndef __SANITIZE_ADDRESS__  // whose shadow needs an address space without bounds
    BoundSoftly(RLIMIT_AS, Memory);
#endif
    BoundSoftly(RLIMIT_CORE, 0);
    GiveTime();
    QObject::connect(&m_beat, &QTimer::timeout, &m_beat, [] { GiveTime(); });
    m_beat.start(BeatMilliseconds);
}

}  // namespace tabulon
