#include "platform/seeded_random.h"

#include <chrono>

namespace tabulon {

namespace {

std::uint64_t Now() {
    return static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
}

}  // namespace

void SeededRandom::Seed(std::uint64_t seed) {
    // One round of splitmix64, so that neighbouring seeds give unlike courses; the state must not be 0.
    std::uint64_t z = seed + 0x9E3779B97F4A7C15ULL;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    m_state = (z ^ (z >> 31)) | 1;
}

ClockSeededRandom::ClockSeededRandom() : SeededRandom(Now()) {}

void ClockSeededRandom::Randomize() { Seed(Now()); }

}  // namespace tabulon
