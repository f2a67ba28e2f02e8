#include "platform/modSingleInstance.h"

#include "platform/failure.h"

namespace tabulon {

void ActivateEarlierInstance(Shell& shell) {
    if (shell.RaisePreviousInstance()) throw ProgramEnd{};
}

}  // namespace tabulon
