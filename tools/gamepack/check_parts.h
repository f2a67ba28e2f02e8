#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "content/game_words.h"
#include "gamepack/findings.h"
#include "gamepack/package_files.h"

namespace tabulon::gamepack {

/// The settings of a game by their names in the .dat file.
class Settings {
  public:
    struct Value {
        std::string Text;
        std::int32_t Number = 0;  // 0 for a text
        std::string Place;
    };

    void Set(std::string_view name, Value value) { m_values.insert_or_assign(std::string(name), value); }
    bool Has(std::string_view name) const { return m_values.contains(std::string(name)); }
    /// Of a setting that is missing: empty, 0, and the file.
    std::string Text(std::string_view name) const { return Get(name).Text; }
    std::int32_t Number(std::string_view name) const { return Get(name).Number; }
    std::string Place(std::string_view name) const { return Get(name).Place; }

    std::string File;

  private:
    Value Get(std::string_view name) const {
        const auto found = m_values.find(std::string(name));
        return found == m_values.end() ? Value{"", 0, File} : found->second;
    }

    std::map<std::string, Value> m_values;
};

/// What a space or one side of a card orders.
struct Order {
    std::string Place;
    int Action = 0;
    double Data1 = 0;
    int Space = 0;  // that orders it
    bool OfCard = false;
};

/// What the parts of a check need of one another.
struct Game {
    const PackageFiles& Files;
    tabulon::gamepack::Settings Settings;
    int Spaces = 0;
    std::vector<Order> Orders;
    std::vector<int> Decks;  // numbers of the decks that hold cards
    std::size_t Cards = 0;

    /// The first at the end of the board wins, or all have to get there.
    bool IsRace() const { return Settings.Number("Goal Type") == Goal::EndOfBoard; }
};

/// Reads the settings, and reports what is wrong with them and with the files that they name.
void CheckSettings(Game& game, Findings& findings);
/// Report what keeps the game's help from being shown.
void CheckHelpText(const PackedFile& file, Findings& findings);
void CheckCompiledHelp(const PackedFile& file, Findings& findings);
/// Adds to Spaces and Orders.
void CheckSpaces(Game& game, Findings& findings);
/// Adds to Decks and Orders.
void CheckDecks(Game& game, Findings& findings);
/// Whether what the spaces and cards order can be done.
void CheckOrders(const Game& game, Findings& findings);

}  // namespace tabulon::gamepack
