#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/picture.h"
#include "playtest/simulation.h"

namespace tabulon::playtest {

/// What a report needs to know of the game itself.
struct GameFacts {
    struct Space {
        int Number = 0;
        int Left = 0, Top = 0, Width = 0, Height = 0;  // in the board's pixels
        int Action = 0;
        std::string Message;
    };
    struct Card {
        int Deck = 0;
        int Number = 0;
        std::string DeckName;
        std::string Question;
    };

    std::string Name;
    std::vector<Space> Spaces;
    std::vector<Card> Cards;
    std::shared_ptr<const FilePicture> Board;  // null when there is none
};

struct Statistics {
    StatisticsSettings Settings;
    GameFacts Game;
    Figures Counted;
    double Seconds = 0;

    std::int64_t Unfinished() const { return Counted.Games() - Counted.Finished(); }
    double TurnsPerSecond() const;
};

/// Hears now and then how many games are done.
using Progress = std::function<void(std::int64_t done)>;

/// Plays the games on as many threads as the settings say; the figures do not hang on how many. Fails with
/// Unusable.
Statistics PlayStatistics(const StatisticsSettings& settings, const Progress& progress);

}  // namespace tabulon::playtest
