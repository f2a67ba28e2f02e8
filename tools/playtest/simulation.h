#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>

#include "platform/seeded_random.h"
#include "playtest/figures.h"
#include "playtest/workplace.h"

namespace tabulon::playtest {

struct StatisticsSettings {
    std::filesystem::path Package = {};
    std::int64_t Games = 1000;
    int Seats = 4;
    std::uint64_t Seed = 1;
    int Jobs = 1;
    std::int64_t MaxTurns = 10000;
    std::stop_token Stop = {};  // ends the run in the middle; what was counted is of no use then
};

/// A generator with a course of its own for each game.
class CourseRandom final : public SeededRandom {
  public:
    explicit CourseRandom(std::uint64_t seed) : SeededRandom(seed), m_seed(seed) {}

    void Begin(std::int64_t game) {
        constexpr std::uint64_t Spread = 0xD1342543DE82EF95ULL;
        Seed(m_seed * Spread + static_cast<std::uint64_t>(game));
    }

  private:
    std::uint64_t m_seed;
};

/// One Player on which computers play game after game. How a game goes depends on the settings and the game's
/// number alone, and not on the games before it.
class Simulation {
  public:
    /// Fails with Unusable when no game of the package can be started.
    explicit Simulation(const StatisticsSettings& settings);
    ~Simulation();

    void Play(std::int64_t game);

    const Figures& Counted() const { return m_figures; }
    /// What failed while the package was loaded.
    const Figures& Loading() const { return m_loading; }
    Program& ThePlayer() { return m_workplace->ThePlayer(); }

  private:
    class Seats;
    /// The turn button before the first turn: no start of a game sets it.
    struct TurnButton {
        bool Roll = false;
        bool Spin = false;
        bool Pass = false;
        std::string Twin;
    };

    void Start();
    void Follow(FrmMain& form);
    void PutBack();
    void PlayTurns();
    void ClickTurnButton();
    void CountEnd();

    const StatisticsSettings m_settings;
    CourseRandom m_random;
    std::unique_ptr<Seats> m_user;
    std::unique_ptr<Workplace> m_workplace;
    TurnButton m_turnButton;
    Figures m_loading;
    Figures m_figures;
    Figures* m_counting = nullptr;
    std::int64_t m_game = 0;
    std::int64_t m_turns = 0;
    Integer m_seat;  // that the last turn began with
};

}  // namespace tabulon::playtest
