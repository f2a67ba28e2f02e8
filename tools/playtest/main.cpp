#include <iostream>
#include <string_view>

#include "playtest/script.h"
#include "playtest/session.h"
#include "playtest/unusable.h"

namespace {

enum ExitStatus { Done = 0, CannotBeUsed = 1, WrongArguments = 2, SessionStuck = 3 };

}  // namespace

int main(int argc, char** argv) {
    using namespace tabulon::playtest;
    std::ios::sync_with_stdio(false);
    if (argc != 3 || std::string_view(argv[1]) != "--script") {
        std::cerr << "usage: tabulon-playtest --script SCRIPT.json\n";
        return WrongArguments;
    }
    try {
        const Script script = ReadScript(argv[2]);
        return PlaySession(script, std::cout) == SessionEnd::Stuck ? SessionStuck : Done;
    } catch (const Unusable& failure) {
        std::cerr << failure.what() << '\n';
        return CannotBeUsed;
    }
}
