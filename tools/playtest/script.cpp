#include "playtest/script.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

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

PlayerEntry ToPlayer(const json& player) {
    PlayerEntry entry{player.at("name").get<std::string>(), player.value("computer", false),
                      player.at("piece").get<std::string>()};
    if (!entry.Piece.starts_with('(') || entry.Piece.find(") ") == std::string::npos)
        throw Unusable("unknown piece \"" + entry.Piece + "\"");
    return entry;
}

std::vector<PlayerEntry> ToPlayers(const json& players) {
    std::vector<PlayerEntry> entries;
    for (const json& player : players) entries.push_back(ToPlayer(player));
    return entries;
}

std::optional<GameChoice> ToChoice(const json& choice) {
    if (choice.is_null()) return {};
    if (choice.contains("saved")) return GameChoice{false, choice.at("saved").get<int>()};
    return GameChoice{choice.at("new").get<bool>(), -1};
}

template <class Item, class Convert>
std::vector<Item> ToList(const json& step, const char* key, Convert convert) {
    std::vector<Item> items;
    if (!step.contains(key)) return items;
    for (const json& item : step.at(key)) items.push_back(convert(item));
    return items;
}

Step ToStep(const json& step) {
    Step made;
    made.Click = OneOf(Clickable, step.at("click").get<std::string>(), "control");
    made.Cards = ToList<std::string>(step, "cards", [](const json& card) {
        return OneOf(CardAnswers, card.get<std::string>(), "card answer");
    });
    made.Yes = ToList<bool>(step, "yes", [](const json& yes) { return yes.get<bool>(); });
    made.PlayerLists = ToList<Players>(step, "players", [](const json& players) {
        return players.is_null() ? Players{} : Players{ToPlayers(players)};
    });
    made.Choices = ToList<std::optional<GameChoice>>(step, "choose", ToChoice);
    return made;
}

LocalTime ToTime(const std::string& text) {
    std::tm time{};
    std::istringstream stream(text);
    stream >> std::get_time(&time, "%Y-%m-%dT%H:%M:%S");
    if (!stream) throw Unusable("\"" + text + "\" is no date and time like 2026-01-05T14:30:00");
    using namespace std::chrono;
    const year_month_day date = year{time.tm_year + 1900} / month{static_cast<unsigned>(time.tm_mon + 1)} /
                                day{static_cast<unsigned>(time.tm_mday)};
    if (!date.ok()) throw Unusable("there is no such day as in \"" + text + "\"");
    return local_days{date} + hours{time.tm_hour} + minutes{time.tm_min} + seconds{time.tm_sec};
}

float ToRandomNumber(const json& number) {
    const float value = number.get<float>();
    if (!(value >= 0 && value < 1)) throw Unusable("a random number is not in [0, 1): " + number.dump());
    return value;
}

Script ToScript(const json& document, const std::filesystem::path& folder) {
    Script script;
    const auto package = document.at("package").get<std::string>();
    if (package.empty()) throw Unusable("it names no package");
    script.Package = folder / package;
    script.SmallFonts = document.value("small_fonts", true);
    script.Clock = ToTime(document.at("clock").get<std::string>());
    script.FirstPlayers = ToPlayers(document.at("players"));
    script.Random = ToList<float>(document, "random", ToRandomNumber);
    script.Steps = ToList<Step>(document, "steps", ToStep);
    return script;
}

/// The library begins its messages with the name of the exception, in brackets.
std::string WithoutName(const std::string& message) {
    const std::size_t end = message.find("] ");
    return message.starts_with('[') && end != message.npos ? message.substr(end + 2) : message;
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
