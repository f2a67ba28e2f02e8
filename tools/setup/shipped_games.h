#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "packages/modInstallUninstall.h"

namespace tabulon {

/// The file among the program's own that names the games of the installation: one key a line.
inline constexpr char ShippedGamesFile[] = "games.txt";

/// Installs the games that came along, each only once: what the user has removed or installed since stays as
/// it is. Packages that came from elsewhere are the user's to install. Calls `installed` with each game's
/// name.
void InstallShippedGames(Globals& g, modInstallUninstall& packages,
                         const std::function<void(const std::string& name)>& installed);

}  // namespace tabulon
