#pragma once

#include <string>

namespace tabulon {

/// What opens the games that the chooser offers.
class GameHost {
  public:
    virtual ~GameHost() = default;
    virtual void LoadGame(const std::string& GameDirectory, const std::string& GameName) = 0;
    /// A saved game of the game that was loaded last.
    virtual void LoadSavedGame(const std::string& SavedGameName) = 0;
};

}  // namespace tabulon
