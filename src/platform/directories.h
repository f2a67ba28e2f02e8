#pragma once

#include <filesystem>

namespace tabulon {

/// The running program's own file; empty when the system does not tell.
std::filesystem::path ExecutablePath();

/// Where all users' games, working files and settings are, for a program in the `bin` of its prefix:
/// /var/games/tabulon for the prefix /usr, <prefix>/var/games/tabulon for any other. It is not made here.
std::filesystem::path DataDirectory(const std::filesystem::path& executable);

/// The settings store's file in the data directory.
inline constexpr char SettingsFile[] = "settings.db";

/// The program's own unchanging files.
std::filesystem::path ShareDirectory(const std::filesystem::path& executable);

}  // namespace tabulon
