#include "playtest/script.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

#include "board/piece_pictures.h"
#include "playtest/unusable.h"

namespace tabulon::playtest {

namespace {

using nlohmann::json;

constexpr const char* Clickable[] = {"cmdRoll",     "cmdSpin",     "cmdPass",     "cmdFakeRoll", "cmdNew",
                                     "cmdSaveGame", "cmdLoadGame", "cmdSoundOff", "cmdSoundOn",  "cmdQuit"};
constexpr const char* CardAnswers[] = {"A", "B", "C", "D", "Escape"};

template <class Texts>
std::string OneOf(const Texts& texts, const std::string& text, const char* what) {
    for (const char* known : texts) {
        if (text == known) return text;
    }
    throw Unusable("unknown " + std::string(what) + " \"" + text + "\"");
}

template <class Item, class Convert>
std::vector<Item> ToList(const json& list, const char* what, Convert convert) {
    // The library would walk any other value too, as a list of one.
    if (!list.is_array())
        throw Unusable("\"" + std::string(what) + "\" is no list, but " + std::string(list.type_name()));
    std::vector<Item> items;
    for (const json& item : list) items.push_back(convert(item));
    return items;
}

/// What stands under a key, if it is there.
template <class Item, class Convert>
std::vector<Item> ListAt(const json& owner, const char* key, Convert convert) {
    if (!owner.contains(key)) return {};
    return ToList<Item>(owner.at(key), key, convert);
}

bool IsPiece(const std::string& piece) {
    for (int index = 1; index <= PieceCount; ++index) {
        if (PieceKey(index) == piece) return true;
    }
    return false;
}

PlayerEntry ToPlayer(const json& player) {
    PlayerEntry entry{player.at("name").get<std::string>(), player.value("computer", false),
                      player.at("piece").get<std::string>()};
    if (entry.Name.empty()) throw Unusable("a player has no name");
    if (!IsPiece(entry.Piece)) throw Unusable("unknown piece \"" + entry.Piece + "\"");
    return entry;
}

/// What is given for one showing of the players dialog: null is Cancel.
Players ToPlayers(const json& players) {
    if (players.is_null()) return {};
    return ToList<PlayerEntry>(players, "players", ToPlayer);
}

int ToRow(const json& row) {
    if (!row.is_number_integer()) throw Unusable("a saved game is a whole number, not " + row.dump());
    return static_cast<int>(
        std::clamp<std::int64_t>(row.get<std::int64_t>(), -1, std::numeric_limits<int>::max()));
}

std::optional<GameChoice> ToChoice(const json& choice) {
    if (choice.is_null()) return {};
    if (choice.contains("saved")) return GameChoice{false, ToRow(choice.at("saved"))};
    if (!choice.at("new").get<bool>()) throw Unusable("a choice is neither a new nor a saved game");
    return GameChoice{true, -1};
}

Step ToStep(const json& step) {
    Step made;
    made.Click = OneOf(Clickable, step.at("click").get<std::string>(), "control");
    made.Cards = ListAt<std::string>(step, "cards", [](const json& card) {
        return OneOf(CardAnswers, card.get<std::string>(), "card answer");
    });
    made.Yes = ListAt<bool>(step, "yes", [](const json& yes) { return yes.get<bool>(); });
    made.PlayerLists = ListAt<Players>(step, "players", ToPlayers);
    made.Choices = ListAt<std::optional<GameChoice>>(step, "choose", ToChoice);
    return made;
}

LocalTime ToTime(const std::string& text) {
    std::tm time{};
    std::istringstream stream(text);
    stream >> std::get_time(&time, "%Y-%m-%dT%H:%M:%S");
    if (!stream || stream.peek() != std::istringstream::traits_type::eof())
        throw Unusable("\"" + text + "\" is no date and time like 2026-01-05T14:30:00");
    using namespace std::chrono;
    const year_month_day date = year{time.tm_year + 1900} / month{static_cast<unsigned>(time.tm_mon + 1)} /
                                day{static_cast<unsigned>(time.tm_mday)};
    if (!date.ok()) throw Unusable("there is no such day as in \"" + text + "\"");
    return local_days{date} + hours{time.tm_hour} + minutes{time.tm_min} + seconds{time.tm_sec};
}

float ToRandomNumber(const json& number) {
    if (!number.is_number()) throw Unusable("a random number is no number: " + number.dump());
    const float value = number.get<float>();
    if (!(value >= 0 && value < 1)) throw Unusable("a random number is not in [0, 1): " + number.dump());
    return value;
}

/// The library begins its messages with the name of the exception, in brackets.
std::string WithoutName(const std::string& message) {
    const std::size_t end = message.find("] ");
    return message.starts_with('[') && end != message.npos ? message.substr(end + 2) : message;
}

std::vector<Step> ToSteps(const json& document) {
    int number = 0;
    return ListAt<Step>(document, "steps", [&number](const json& step) {
        ++number;
        try {
            return ToStep(step);
        } catch (const std::exception& failure) {
            throw Unusable("step " + std::to_string(number) + ": " + WithoutName(failure.what()));
        }
    });
}

Script ToScript(const json& document, const std::filesystem::path& folder) {
    if (!document.is_object()) throw Unusable("it is no object, but " + std::string(document.type_name()));
    Script script;
    const auto package = document.at("package").get<std::string>();
    if (package.empty()) throw Unusable("it names no package");
    script.Package = folder / package;
    script.SmallFonts = document.value("small_fonts", true);
    script.Clock = ToTime(document.at("clock").get<std::string>());
    script.FirstPlayers = ToList<PlayerEntry>(document.at("players"), "players", ToPlayer);
    script.Random = ListAt<float>(document, "random", ToRandomNumber);
    script.Steps = ToSteps(document);
    return script;
}

}  // namespace

Script ReadScript(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw Unusable(file.string() + ": cannot be read");
    try {
        return ToScript(json::parse(stream), file.parent_path());
    } catch (const json::exception& failure) {
        throw Unusable(file.string() + ": " + WithoutName(failure.what()));
    } catch (const std::exception& failure) {
        throw Unusable(file.string() + ": " + failure.what());
    }
}

}  // namespace tabulon::playtest
