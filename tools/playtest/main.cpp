#include <csignal>
#include <iostream>
#include <unistd.h>

#include "playtest/command.h"

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is an output that cannot be written
    std::ios::sync_with_stdio(false);
    const bool terminal = isatty(STDOUT_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
    return tabulon::playtest::Run({argv + 1, argv + argc}, {std::cout, std::cerr, terminal});
}
