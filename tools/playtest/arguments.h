#pragma once

#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>

#include "playtest/statistics.h"

namespace tabulon::playtest {

/// Arguments that the tool does not take; the text says which.
class WrongArguments : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Arguments {
    enum class Task { Tell, Script, Statistics };

    Task What = Task::Tell;
    std::string Text;  // to tell: the help or the version
    std::filesystem::path Script;
    StatisticsSettings Statistics;
    bool Json = false;
    std::filesystem::path Report;  // empty for none
};

/// The arguments behind the program's name. Fails with WrongArguments.
Arguments ParseArguments(std::span<const std::string> arguments);

}  // namespace tabulon::playtest
