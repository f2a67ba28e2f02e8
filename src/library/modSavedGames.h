#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/main_form.h"
#include "packages/modInstallUninstall.h"
#include "platform/array.h"
#include "play/play_state.h"

namespace tabulon {

/// What there is to play: the installed games, and the saved games of each. Neither is kept as a list: both
/// are worked out from the keys of the settings store.
class modSavedGames {
  public:
    modSavedGames(Globals& g, modInstallUninstall& packages) : m_g(g), m_packages(packages) {}

    /// Fills three parallel arrays with the games whose package is there and holds spaces. Count is the
    /// number of installed keys, whatever became of them. Without any the arrays are what the passes leave of
    /// the former ones.
    void GetAvailableGames(Array<std::string>& Games, Array<std::string>& GameNames,
                           Array<std::string>& Descriptions, std::int32_t& Count);
    /// Closes the gap in each array by itself. The last element of an array cannot be removed.
    void RemoveGameArrayElement(Array<std::string>& Games, Array<std::string>& GameNames,
                                Array<std::string>& Descriptions, std::int32_t Index);

    /// Saves under the present date and time to the minute; a save of the same minute is written over. After
    /// a failure the values so far stay.
    bool SaveGame(const std::string& GameKey, const PlayState& state);
    /// Player N goes to slot N of all arrays. Also sets the tool tips of the players' pieces and plates.
    bool LoadGame(const std::string& GameKey, Integer GoalType, const std::string& SavedGameName,
                  PlayState& state, MainForm& form);
    /// In the order of the store.
    std::vector<std::string> GetSavedGames(const std::string& GameKey);

  private:
    bool IsPlayable(const std::string& gameKey);
    void DescribeGame(Array<std::string>& GameNames, Array<std::string>& Descriptions, int index,
                      const std::string& gameKey);

    Globals& m_g;
    modInstallUninstall& m_packages;
};

}  // namespace tabulon
