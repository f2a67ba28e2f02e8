#include "platform/modBrowser.h"

namespace tabulon {

void RunShellExecute(Shell& shell, ProcedureStack& stack, const std::string& File) {
    Procedure(stack, "modBrowser:RunShellExecute", [&] { shell.Open(File); });
}

void OpenInBrowser(Shell& shell, ProcedureStack& stack, const std::string& Target) {
    RunShellExecute(shell, stack, Target);
}

}  // namespace tabulon
