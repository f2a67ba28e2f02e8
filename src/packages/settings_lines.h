#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/modRegistry.h"

namespace tabulon {

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

}  // namespace tabulon
