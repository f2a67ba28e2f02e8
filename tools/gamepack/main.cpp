#include <iostream>

#include "gamepack/commands.h"

int main(int argc, char** argv) {
    return tabulon::gamepack::Run({argv + 1, argv + argc}, std::cout, std::cerr);
}
