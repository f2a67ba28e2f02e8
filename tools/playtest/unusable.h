#pragma once

#include <stdexcept>

namespace tabulon::playtest {

/// A package or script that cannot be used: the text names the file and says why.
class Unusable : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace tabulon::playtest
