#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "robot/play_user.h"

namespace tabulon::playtest {

using Players = std::optional<std::vector<PlayerEntry>>;

/// One click on the main form, and the answers that its dialogs need.
struct Step {
    std::string Click;
    std::vector<std::string> Cards;
    std::vector<bool> Yes;
    std::vector<Players> PlayerLists;
    std::vector<std::optional<GameChoice>> Choices;
};

struct Script {
    std::filesystem::path Package;
    bool SmallFonts = true;
    std::vector<float> Random;
    LocalTime Clock{};
    std::vector<PlayerEntry> FirstPlayers;
    std::vector<Step> Steps;
};

/// Fails with Unusable for a file that is no such script. Keys that it does not know are left alone.
Script ReadScript(const std::filesystem::path& file);

}  // namespace tabulon::playtest
