#pragma once

#include <iosfwd>

#include "playtest/script.h"

namespace tabulon::playtest {

enum class SessionEnd { Done, Stuck };

/// Plays a script from the program's start and writes its trace. Fails with Unusable for a package that
/// cannot be played.
SessionEnd PlaySession(const Script& script, std::ostream& out);

}  // namespace tabulon::playtest
