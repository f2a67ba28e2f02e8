#include "playtest/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <sstream>
#include <thread>

namespace tabulon::playtest {

namespace {

constexpr std::uint64_t MostGames = 1'000'000'000;
constexpr std::uint64_t MostJobs = 1024;

constexpr const char* ExitStatusText =
    "Exit status: 0 done, 1 the package or script cannot be used, 2 wrong arguments, 3 a scripted session\n"
    "could not go on.";

/// In decimal digits: the library itself would read "010" as 8.
CLI::Validator WholeNumber(std::uint64_t least, std::uint64_t most) {
    const auto check = [=](std::string& text) {
        std::uint64_t number = 0;
        const char* end = text.data() + text.size();
        const auto read = std::from_chars(text.data(), end, number);
        if (read.ec != std::errc() || read.ptr != end || number < least || number > most)
            return "takes a whole number from " + std::to_string(least) + " to " + std::to_string(most) +
                   ", not \"" + text + "\"";
        text = std::to_string(number);
        return std::string();
    };
    return {check, ""};
}

CLI::Validator FileName() {
    return {[](std::string& text) { return std::string(text.empty() ? "needs the name of a file" : ""); },
            ""};
}

void AddNumbers(CLI::App& app, StatisticsSettings& settings) {
    const auto add = [&app](const char* name, auto& number, const char* value, std::uint64_t least,
                            std::uint64_t most, const char* meaning) {
        app.add_option(name, number, meaning)->type_name(value)->transform(WholeNumber(least, most));
    };
    add("--games", settings.Games, "N", 1, MostGames, "how many games (1000)");
    add("--seats", settings.Seats, "K", 1, MaxSeats, "computer players, 1 to 6 (4)");
    add("--seed", settings.Seed, "S", 0, std::numeric_limits<std::uint64_t>::max(),
        "the same seed gives the same games (1)");
    add("--jobs", settings.Jobs, "J", 1, MostJobs, "threads (as many as there are cores)");
    add("--max-turns", settings.MaxTurns, "T", 1, MostGames,
        "a game that is not over by then is given up (10000)");
}

void AddOptions(CLI::App& app, Arguments& read) {
    app.option_defaults()->take_last();
    app.set_help_flag("--help", "print this");
    app.set_version_flag("--version", "tabulon-playtest " TABULON_VERSION)->description("print the version");
    app.add_option("PACKAGE.gam", read.Statistics.Package,
                   "computers play it many times; shows what came of that")
        ->type_name("")
        ->check(FileName());
    AddNumbers(app, read.Statistics);
    app.add_flag("--json", read.Json, "print one JSON object");
    app.add_option("--report", read.Report, "write a page with charts too")
        ->type_name("FILE.html")
        ->check(FileName());
    app.add_option("--script", read.Script, "instead of all that: play a written session, print its trace")
        ->type_name("SCRIPT.json")
        ->check(FileName());
    app.footer(ExitStatusText);
}

Arguments::Task TaskOf(const CLI::App& app, const Arguments& read) {
    if (!read.Script.empty()) {
        if (app.parse_order().size() > 1) throw WrongArguments("--script stands alone with its script");
        return Arguments::Task::Script;
    }
    if (read.Statistics.Package.empty()) throw WrongArguments("no package is named");
    return Arguments::Task::Statistics;
}

std::string WhatIsWrong(const CLI::ParseError& error, const CLI::App& app) {
    const std::string text = error.what();
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return text.substr(0, text.find(':')) + " needs a value";
    if (!dynamic_cast<const CLI::ExtrasError*>(&error)) return text;
    const std::string first = app.remaining().front();
    return first.starts_with('-') ? "unknown argument \"" + first + "\"" : "more than one package is named";
}

}  // namespace

Arguments ParseArguments(std::span<const std::string> arguments) {
    Arguments read;
    read.Statistics.Jobs = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    CLI::App app("Plays a package of the Tabulon Player without a window.", "tabulon-playtest");
    AddOptions(app, read);
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        read.What = TaskOf(app, read);
    } catch (const CLI::Success& asked) {
        if (arguments.size() > 1) throw WrongArguments("--help and --version stand alone");
        std::ostringstream text;
        app.exit(asked, text);
        read.Text = text.str();
    } catch (const CLI::ParseError& error) {
        throw WrongArguments(WhatIsWrong(error, app));
    }
    return read;
}

}  // namespace tabulon::playtest
