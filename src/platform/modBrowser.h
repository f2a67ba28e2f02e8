#pragma once

#include <string>

#include "platform/procedure.h"
#include "platform/shell.h"

namespace tabulon {

/// Hands the file or address to the desktop. A target that cannot be opened is passed over in silence.
void RunShellExecute(Shell& shell, ProcedureStack& stack, const std::string& File);

/// Target is a web address or the path of a document.
void OpenInBrowser(Shell& shell, ProcedureStack& stack, const std::string& Target);

}  // namespace tabulon
