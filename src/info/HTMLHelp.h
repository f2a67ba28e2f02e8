#pragma once

#include <filesystem>
#include <string>

#include "diagnostics/globals.h"

namespace tabulon {

/// Opens compiled help files (.chm) in the program's own viewer. It tells of its failures itself, in message
/// boxes.
class HTMLHelp {
  public:
    explicit HTMLHelp(Globals& g) : m_g(g) {}

    /// Opens CHMFile at its index, in a window of its own, and returns at once.
    void HHDisplayIndex();
    /// True when the file is there; otherwise the user is told. A bare name is looked for among the program's
    /// own files.
    bool EnsureFileExists(const std::string& File);

    /// A bare name or a path.
    std::string CHMFile;

  private:
    void Open();
    std::filesystem::path Find(const std::string& File) const;
    void ShowMessage(const std::string& text);

    Globals& m_g;
};

}  // namespace tabulon
