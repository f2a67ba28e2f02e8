#include "playtest/figures_output.h"

#include <cmath>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

namespace tabulon::playtest {

namespace {

using nlohmann::ordered_json;

constexpr double Tail = 0.05;

/// All numbers that a landing can be told of: the board's, and those that some piece came to.
std::set<int> SpaceNumbers(const Statistics& statistics) {
    std::set<int> numbers;
    for (const GameFacts::Space& space : statistics.Game.Spaces) numbers.insert(space.Number);
    for (const int number : statistics.Counted.Landed()) numbers.insert(number);
    return numbers;
}

ordered_json WinsOf(const Statistics& statistics) {
    ordered_json wins = ordered_json::array();
    for (int seat = 1; seat <= statistics.Settings.Seats; ++seat)
        wins.push_back(statistics.Counted.Wins(seat));
    return wins;
}

ordered_json LandingsOf(const Statistics& statistics) {
    ordered_json landings = ordered_json::object();
    for (const int number : SpaceNumbers(statistics))
        landings[std::to_string(number)] = statistics.Counted.Landings(number);
    return landings;
}

ordered_json ActionsOf(const Figures& figures) {
    ordered_json actions = ordered_json::object();
    for (int code = 0; code < ActionCount; ++code)
        actions[ActionNames[static_cast<std::size_t>(code)]] = figures.Actions(code);
    return actions;
}

ordered_json FailuresOf(const Figures& figures) {
    ordered_json failures = ordered_json::object();
    for (const auto& [procedure, trouble] : figures.Failures()) failures[procedure] = trouble.Count;
    return failures;
}

/// A whole number stays one.
ordered_json Number(double value) {
    if (value == std::floor(value)) return static_cast<std::int64_t>(value);
    return value;
}

void PrintRow(std::ostream& out, const std::string& name, std::int64_t count, const std::string& more = "") {
    out << "  " << std::left << std::setw(22) << name << std::right << std::setw(12) << count;
    if (!more.empty()) out << "  " << more;
    out << '\n';
}

void PrintWins(const Statistics& statistics, std::ostream& out) {
    out << "Wins\n";
    for (int seat = 1; seat <= statistics.Settings.Seats; ++seat) {
        const std::int64_t wins = statistics.Counted.Wins(seat);
        PrintRow(out, "seat " + std::to_string(seat), wins, Percent(wins, statistics.Counted.Finished()));
    }
}

void PrintCounts(const Statistics& statistics, std::ostream& out) {
    const Figures& figures = statistics.Counted;
    out << "Landings\n";
    for (const int number : SpaceNumbers(statistics))
        PrintRow(out, "space " + std::to_string(number), figures.Landings(number));
    out << "Actions\n";
    for (int code = 0; code < ActionCount; ++code) {
        if (figures.Actions(code) > 0)
            PrintRow(out, ActionNames[static_cast<std::size_t>(code)], figures.Actions(code));
    }
    out << "Failures\n";
    for (const auto& [procedure, trouble] : figures.Failures())
        PrintRow(out, procedure, trouble.Count, trouble.Words);
    if (figures.Failures().empty()) out << "  none\n";
}

std::string Games(std::int64_t count, std::int64_t whole) {
    return std::to_string(count) + " of " + CountOf(whole, "game");
}

}  // namespace

std::string ShortNumber(double value) {
    std::string text = std::to_string(std::round(value * 10) / 10);
    text.resize(text.find('.') + 2);
    if (text.ends_with(".0")) text.resize(text.size() - 2);
    return text;
}

std::string CountOf(std::int64_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string Percent(std::int64_t part, std::int64_t whole) {
    if (whole == 0) return "0 %";
    return ShortNumber(100 * static_cast<double>(part) / static_cast<double>(whole)) + " %";
}

std::vector<std::string> TroublesInWords(const Statistics& statistics) {
    const Figures& figures = statistics.Counted;
    std::vector<std::string> sentences;
    std::int64_t stopped = 0;
    for (const auto& [words, trouble] : figures.Loops()) {
        stopped += trouble.Count;
        sentences.push_back(Games(trouble.Count, figures.Games()) + " could not go on: " + words +
                            " (first in game " + std::to_string(trouble.FirstGame + 1) + ").");
    }
    const std::int64_t tooLong = statistics.Unfinished() - stopped;
    if (tooLong > 0)
        sentences.push_back(Games(tooLong, figures.Games()) + " did not end within " +
                            CountOf(statistics.Settings.MaxTurns, "turn") + ".");
    for (const auto& [procedure, trouble] : figures.Failures())
        sentences.push_back(procedure + " failed " + CountOf(trouble.Count, "time") + ": " + trouble.Words +
                            ".");
    return sentences;
}

void PrintReport(const Statistics& statistics, std::ostream& out) {
    const Figures& figures = statistics.Counted;
    out << statistics.Game.Name << ", " << CountOf(statistics.Settings.Seats, "computer") << ", seed "
        << statistics.Settings.Seed << '\n';
    const std::vector<std::string> troubles = TroublesInWords(statistics);
    for (const std::string& sentence : troubles) out << "  " << sentence << '\n';
    if (troubles.empty()) out << "  All games ended, and nothing failed.\n";
    PrintRow(out, "games", figures.Games());
    PrintRow(out, "finished", figures.Finished(), Percent(figures.Finished(), figures.Games()));
    PrintRow(out, "unfinished", statistics.Unfinished());
    PrintRow(out, "turns", figures.Turns(),
             std::to_string(std::llround(statistics.TurnsPerSecond())) + " a second");
    out << "Turns a game\n  mean " << ShortNumber(figures.MeanLength()) << ", median "
        << ShortNumber(figures.MedianLength()) << ", 5th percentile " << figures.LengthBelow(Tail)
        << ", 95th percentile " << figures.LengthBelow(1 - Tail) << '\n';
    PrintWins(statistics, out);
    PrintCounts(statistics, out);
}

void PrintJson(const Statistics& statistics, std::ostream& out) {
    const Figures& figures = statistics.Counted;
    const ordered_json object = {{"games", figures.Games()},
                                 {"finished", figures.Finished()},
                                 {"unfinished", statistics.Unfinished()},
                                 {"turns", figures.Turns()},
                                 {"seconds", statistics.Seconds},
                                 {"turns_per_second", std::llround(statistics.TurnsPerSecond())},
                                 {"turns_per_game",
                                  {{"mean", figures.MeanLength()},
                                   {"median", Number(figures.MedianLength())},
                                   {"p5", figures.LengthBelow(Tail)},
                                   {"p95", figures.LengthBelow(1 - Tail)}}},
                                 {"wins", WinsOf(statistics)},
                                 {"landings", LandingsOf(statistics)},
                                 {"actions", ActionsOf(figures)},
                                 {"failures", FailuresOf(figures)}};
    out << object.dump(-1, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace tabulon::playtest
