#pragma once

#include "gamepack/findings.h"
#include "gamepack/package_files.h"

namespace tabulon::gamepack {

/// Everything that can be told of a game without playing it.
Findings CheckGame(const PackageFiles& files);

}  // namespace tabulon::gamepack
