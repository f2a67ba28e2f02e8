#include <array>
#include <benchmark/benchmark.h>
#include <fstream>
#include <memory>

#include "playtest/simulation.h"

// The race with four computers through the whole program, and beside it the least that such a game needs: the
// same draws, and the space looked up in a table. The ratio of the two says how far the program is from the
// machine's limit.

namespace {

using namespace tabulon;
using namespace tabulon::playtest;

constexpr int Dice = 2;
constexpr int Rounds = 6;
constexpr int Spaces = 48;
constexpr int Seats = 4;

StatisticsSettings RaceSettings() {
    StatisticsSettings settings;
    settings.Package = RACE_GAME;
    settings.Seats = Seats;
    return settings;
}

double ResidentKilobytes() {
    std::ifstream statistics("/proc/self/statm");
    double size = 0, resident = 0;
    statistics >> size >> resident;
    return resident * 4;
}

void Turns(benchmark::State& state) {
    Simulation simulation(RaceSettings());
    std::int64_t game = state.thread_index();
    const double before = ResidentKilobytes();
    for (auto _ : state) {
        simulation.Play(game);
        game += state.threads();
    }
    state.SetItemsProcessed(simulation.Counted().Turns());
    state.counters["memory_growth_kB"] =
        benchmark::Counter(ResidentKilobytes() - before, benchmark::Counter::kAvgThreads);
}
BENCHMARK(Turns);  // by the time of its own processor, whatever else the machine does
BENCHMARK(Turns)->UseRealTime()->Threads(1)->Threads(2);

/// A frame of a die, drawn until it is one.
int DrawFrame(Random& random) {
    int frame = 0;
    while (frame < 1) frame = random.Draw(24, -1);
    return frame;
}

int DrawRoll(Random& random, const std::array<int, 25>& faces) {
    benchmark::DoNotOptimize(random.Draw(8, -1));
    std::array<int, Dice> values{};
    for (int round = 0; round < Rounds; ++round)
        for (int& value : values) value = faces[static_cast<std::size_t>(DrawFrame(random))];
    return values[0] + values[1];
}

void BareLoop(benchmark::State& state) {
    std::array<int, 25> faces{};
    for (int frame = 1; frame <= 24; ++frame)
        faces[static_cast<std::size_t>(frame)] = frame > 20 ? 6 : (frame - 1) / 4 + 1;
    std::array<int, Spaces + 1> next{};
    for (int space = 0; space <= Spaces; ++space) next[static_cast<std::size_t>(space)] = space;
    std::array<int, Seats> positions{};
    CourseRandom random(1);
    std::int64_t turns = 0;
    for (auto _ : state) {
        random.Begin(turns);
        positions.fill(1);
        for (bool over = false; !over; ++turns) {
            int& position = positions[static_cast<std::size_t>(turns % Seats)];
            const int target = std::min(position + DrawRoll(random, faces), Spaces);
            position = next[static_cast<std::size_t>(target)];
            over = position == Spaces;
        }
        benchmark::DoNotOptimize(positions);
    }
    state.SetItemsProcessed(turns);
}
BENCHMARK(BareLoop)->UseRealTime();

}  // namespace
