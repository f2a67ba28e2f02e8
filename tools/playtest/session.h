#pragma once

#include <functional>
#include <iosfwd>

#include "playtest/script.h"

namespace tabulon::playtest {

enum class SessionEnd { Done, Stuck, Stopped };

/// Plays a script from the program's start and writes its trace; stops before the next step when `isToStop`.
/// Fails with Unusable for a package that cannot be played.
SessionEnd PlaySession(
    const Script& script, std::ostream& out, const std::function<bool()>& isToStop = [] { return false; });

}  // namespace tabulon::playtest
