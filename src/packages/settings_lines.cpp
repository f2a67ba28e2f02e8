#include "packages/settings_lines.h"

#include <algorithm>
#include <ranges>
#include <set>

#include "platform/failure.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

constexpr SettingsLine Table[] = {
    {"Author=", "Author", REG_SZ},
    {"Author Birtday=", "Author Birthday", REG_SZ},  // so written by the authors' program
    {"Author City=", "Author City", REG_SZ},
    {"Author State=", "Author State", REG_SZ},
    {"Author Country=", "Author Country", REG_SZ},
    {"Category=", "Category", REG_SZ},
    {"Board Image=", "Board Image", REG_SZ},
    {"Character Category=", "CharacterCategory", REG_SZ},
    {"Description=", "Description", REG_SZ},
    {"Dice Used=", "DiceUsed", REG_DWORD},
    {"Finish Condition=", "Finish Condition", REG_DWORD},
    {"Font=", "Font", REG_SZ},
    {"Font Size=", "Font Size", REG_DWORD},
    {"Game Name=", "Game Name", REG_SZ},
    {"Goal Type=", "Goal Type", REG_DWORD},
    {"Help File=", "Help File", REG_SZ},
    {"Loop Board=", "Loop Board", REG_DWORD},
    {"Lower Age Range=", "Lower Age Range", REG_DWORD},
    {"Max Slot Value=", "MaxSlotValue", REG_DWORD},
    {"Preferred Resolution=", "Preferred Resolution", REG_SZ},
    {"Splash=", "Splash Image", REG_SZ},
    {"Tries=", "Card Answer Tries", REG_DWORD},
    {"Turn Device=", "TurnDevice", REG_DWORD},
    {"Upper Age Range=", "Upper Age Range", REG_DWORD},
    {"Music Genre=", "Music Genre", REG_SZ},
};

bool Converts(const SettingsLine& setting, const std::string& value) {
    if (setting.ValueType != REG_DWORD) return true;
    try {
        ToLong(std::string_view(value));
        return true;
    } catch (const Failure&) {
        return false;
    }
}

}  // namespace

std::span<const SettingsLine> AllSettingsLines() { return Table; }

const SettingsLine* FindSettingsLine(std::string_view line) {
    const auto found = std::ranges::find_if(
        Table, [&](const SettingsLine& setting) { return line.starts_with(setting.Beginning); });
    return found == std::end(Table) ? nullptr : found;
}

std::vector<Setting> EffectiveSettings(const std::vector<std::string>& lines) {
    std::vector<Setting> settings;
    std::set<const SettingsLine*> settled;
    for (const std::string& line : lines | std::views::reverse) {
        const SettingsLine* known = FindSettingsLine(line);
        if (!known) continue;
        const std::string value = known->ValueOf(line);
        if (!Converts(*known, value) || settled.insert(known).second) settings.push_back({known, value});
    }
    std::ranges::reverse(settings);
    return settings;
}

}  // namespace tabulon
