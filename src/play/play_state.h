#pragma once

#include <string>

#include "platform/array.h"
#include "platform/integer.h"

namespace tabulon {

/// The record of the players, one array a field. A new game keeps seat s of Name, IsComputer, Position and
/// PieceName in slot s - 1, a resumed game keeps everything of seat s in slot s. Which slot a procedure uses
/// is said by the rules A, B and C below, also where they disagree for one field: the play of a game rests on
/// them.
struct PlayerState {
    Array<std::string> Name;
    Array<bool> IsComputer;
    Array<Integer> Position;  // the Sequence of a space
    Array<std::string> PieceName;
    Array<Integer> Points;
    Array<bool> Done;          // went bankrupt, is passed over
    Array<Integer> LoseTurns;  // turns still to lose
    Array<Integer> ExtraTurns;
    Array<bool> RollDouble;     // moves only after a double
    Array<Integer> RollNumber;  // above 0: moves only on exactly this total
};

/// The state of the game in play.
struct PlayState : PlayerState {
    Integer PlayerCount;
    Integer WhoseTurn;  // seat, from 1
    Integer CurrentSpace;
    Integer Round;
    bool GameStart = false;
    bool GameInProgress = false;
    bool GamePlayed = false;

    Integer GoalType;
    bool GameOver = false;
    bool LoadedGame = false;  // the game in play came from a saved one
    bool SavedGameLoaded = false;
    Integer LastRoll;
    Integer PreviousSpace;
    bool CardFinished = false;

    Integer RuleA(Integer seat) const { return LoadedGame ? seat : seat - 1; }
    static Integer RuleB(Integer seat) { return seat; }
    static Integer RuleC(Integer seat) { return seat - 1; }

    /// Empties the arrays that a new game begins with; fails for fewer than one player.
    void ReDimForNewGame();
    /// Empties all ten arrays, slots 0 to PlayerCount.
    void ReDimForLoadedGame();

    /// How many slots of Position, whatever its shape, hold the number.
    Integer PlayersInSpace(Integer sequence) const;
};

/// At most this many people and computers play.
inline constexpr int MaxSeats = 6;

}  // namespace tabulon
