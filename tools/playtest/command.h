#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tabulon::playtest {

enum ExitStatus { Done = 0, CannotBeUsed = 1, WrongUse = 2, SessionStuck = 3 };

struct Console {
    std::ostream& Out;
    std::ostream& Err;
    bool IsTerminal = false;  // a person looks on, and may be told how far it is
};

/// Does what the arguments behind the program's name ask for.
ExitStatus Run(const std::vector<std::string>& arguments, const Console& console);

}  // namespace tabulon::playtest
