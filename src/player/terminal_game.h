#pragma once

#include "diagnostics/globals.h"

namespace tabulon {

/// Plays one whole game between computers in the terminal: where there is no display to open a window on. The
/// first game of the library is played. Returns the exit status: 1 when there is none, or it does not come to
/// an end.
int PlayInTerminal(const ApplicationInfo& application, const std::filesystem::path& dataDirectory,
                   SettingsStore& store);

}  // namespace tabulon
