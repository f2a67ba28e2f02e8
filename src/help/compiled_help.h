#pragma once

#include <filesystem>

#include "help/help_files.h"

namespace tabulon {

/// What is in a compiled help file (.chm). Fails with FileNotFound, with InternalError when a limit is
/// broken, with FileIoError for what is no such file, and when not all that it names can be unpacked. The
/// library that reads it is no match for a hostile file: call this in a process that may die.
HelpFiles UnpackCompiledHelp(const std::filesystem::path& file);

/// Bounds the memory and the working time of the process, and lets it write no file. There is no way back.
void BoundUnpackingProcess(unsigned seconds);

}  // namespace tabulon
