#include "playtest/arguments.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <thread>

namespace tabulon::playtest {

namespace {

constexpr std::uint64_t MostGames = 1'000'000'000;
constexpr std::uint64_t MostJobs = 1024;

std::uint64_t ToNumber(const std::string& option, const std::string& text, std::uint64_t least,
                       std::uint64_t most) {
    std::uint64_t number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end && number >= least && number <= most) return number;
    throw WrongArguments(option + " takes a whole number from " + std::to_string(least) + " to " +
                         std::to_string(most) + ", not \"" + text + "\"");
}

/// Walks the arguments of the statistics.
class Reader {
  public:
    explicit Reader(std::span<const std::string> arguments) : m_rest(arguments) {}

    Arguments Read() {
        m_read.What = Arguments::Task::Statistics;
        m_read.Statistics.Jobs = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
        while (!m_rest.empty()) ReadOne(Next());
        if (m_read.Statistics.Package.empty()) throw WrongArguments("no package is named");
        return m_read;
    }

  private:
    std::string Next() {
        const std::string next = m_rest.front();
        m_rest = m_rest.subspan(1);
        return next;
    }
    std::string ValueOf(const std::string& option) {
        if (m_rest.empty()) throw WrongArguments(option + " needs a value");
        return Next();
    }
    template <class Number>
    void Take(Number& number, const std::string& option, std::uint64_t least, std::uint64_t most) {
        number = static_cast<Number>(ToNumber(option, ValueOf(option), least, most));
    }

    void ReadOne(const std::string& argument) {
        StatisticsSettings& settings = m_read.Statistics;
        if (argument == "--games") {
            Take(settings.Games, argument, 1, MostGames);
        } else if (argument == "--seats") {
            Take(settings.Seats, argument, 1, MaxSeats);
        } else if (argument == "--seed") {
            Take(settings.Seed, argument, 0, std::numeric_limits<std::uint64_t>::max());
        } else if (argument == "--jobs") {
            Take(settings.Jobs, argument, 1, MostJobs);
        } else if (argument == "--max-turns") {
            Take(settings.MaxTurns, argument, 1, MostGames);
        } else if (argument == "--report") {
            m_read.Report = ValueOf(argument);
            if (m_read.Report.empty()) throw WrongArguments("--report needs the name of a file");
        } else if (argument == "--json") {
            m_read.Json = true;
        } else {
            ReadPackage(argument);
        }
    }

    void ReadPackage(const std::string& argument) {
        if (argument.empty() || argument.starts_with("-"))
            throw WrongArguments("unknown argument \"" + argument + "\"");
        if (!m_read.Statistics.Package.empty()) throw WrongArguments("more than one package is named");
        m_read.Statistics.Package = argument;
    }

    std::span<const std::string> m_rest;
    Arguments m_read;
};

}  // namespace

const char* const HelpText =
    "tabulon-playtest plays a package of the Tabulon Player without a window.\n"
    "\n"
    "  tabulon-playtest PACKAGE.gam [OPTIONS]   computers play many games; shows what came of them\n"
    "  tabulon-playtest --script SCRIPT.json    plays a written session and prints its trace\n"
    "  tabulon-playtest --help | --version\n"
    "\n"
    "  --games N            how many games (1000)\n"
    "  --seats K            computer players, 1 to 6 (4)\n"
    "  --seed S             the same seed gives the same games (1)\n"
    "  --jobs J             threads (as many as there are cores)\n"
    "  --max-turns T        a game that is not over by then is given up (10000)\n"
    "  --json               prints one JSON object\n"
    "  --report FILE.html   writes a page with charts too\n"
    "\n"
    "Exit status: 0 done, 1 the package or script cannot be used, 2 wrong arguments, 3 a scripted session\n"
    "could not go on.\n";

Arguments ParseArguments(std::span<const std::string> arguments) {
    Arguments read;
    const std::string first = arguments.empty() ? "" : arguments.front();
    if (first == "--help" || first == "--version") {
        if (arguments.size() > 1) throw WrongArguments(first + " stands alone");
        read.What = first == "--help" ? Arguments::Task::Help : Arguments::Task::Version;
        return read;
    }
    if (first != "--script") return Reader(arguments).Read();
    if (arguments.size() != 2 || arguments[1].empty()) throw WrongArguments("--script takes one script");
    read.What = Arguments::Task::Script;
    read.Script = arguments[1];
    return read;
}

}  // namespace tabulon::playtest
