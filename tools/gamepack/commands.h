#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tabulon::gamepack {

/// Carries out one command line, the program's name left out. The result is the exit status: 0 done, 1 a file
/// or game cannot be used, 2 wrong arguments.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace tabulon::gamepack
