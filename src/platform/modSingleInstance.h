#pragma once

#include "platform/shell.h"

namespace tabulon {

/// To be called when an earlier copy of the program runs: brings it to the foreground and throws ProgramEnd.
/// Returns when it does not answer; then this process goes on as the only copy.
void ActivateEarlierInstance(Shell& shell);

}  // namespace tabulon
