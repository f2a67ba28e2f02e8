#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/modRegistry.h"

namespace tabulon {

namespace limits {
/// Of a .dat file. A larger one fails.
inline constexpr std::size_t SettingsBytes = 1U << 20;
}  // namespace limits

/// What a line of a game's .dat file sets: the line's exact beginning, and the value in the game's key.
struct SettingsLine {
    std::string_view Beginning;
    std::string_view ValueName;
    std::uint32_t ValueType;

    /// All of the line behind the beginning, nothing trimmed.
    std::string ValueOf(std::string_view line) const { return std::string(line.substr(Beginning.size())); }
    /// The name as an author knows it, without the equals sign.
    std::string_view Name() const { return Beginning.substr(0, Beginning.size() - 1); }
};

std::span<const SettingsLine> AllSettingsLines();

/// Null for a line that sets nothing.
const SettingsLine* FindSettingsLine(std::string_view line);

struct Setting {
    const SettingsLine* Line;
    std::string Value;
};

/// What the lines of a file set, in their order, without what a later line sets anew: a file may have
/// thousands of lines, and each setting is written by itself. A number that is none takes no other's place,
/// and stays for the user to be told.
std::vector<Setting> EffectiveSettings(const std::vector<std::string>& lines);

}  // namespace tabulon
