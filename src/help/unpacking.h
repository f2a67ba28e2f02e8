#pragma once

#include <filesystem>
#include <string>

#include "help/limits.h"

namespace tabulon {

/// How the process that unpacks ends; any other end means that the file is damaged.
enum class UnpackingEnd : int { Done = 0, Damaged = 2, TooLarge = 3, NotThere = 4 };

/// Bounds the process, unpacks the file and writes it to the standard output as a stream. All that is left to
/// do is to end. Working longer than the seconds kills it.
UnpackingEnd UnpackToOutput(const std::filesystem::path& file,
                            unsigned seconds = help_limits::UnpackingSeconds);

/// What the reader of the file is told when it cannot be shown.
std::string MessageFor(UnpackingEnd end, const std::filesystem::path& file);

}  // namespace tabulon
