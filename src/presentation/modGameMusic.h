#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "diagnostics/globals.h"
#include "packages/modInstallUninstall.h"

namespace tabulon {

/// Unpacks and removes the sounds that are played from the data directory.
class modGameMusic {
  public:
    modGameMusic(Globals& g, modInstallUninstall& packages) : m_g(g), m_packages(packages) {}

    /// Unpacks `FileName`.ogg of the genre's archive; a missing archive or sound is no failure.
    void GetOggFile(const std::string& Genre, const std::string& FileName);
    void CleanUpOggFiles();
    /// Where a sound lies once it is unpacked.
    const std::filesystem::path& PathOf(const std::string& FileName);

  private:
    Globals& m_g;
    modInstallUninstall& m_packages;
    /// A former run may have left files behind; afterwards only what was unpacked here can be there.
    bool m_filesMayBeThere = true;
    std::map<std::string, std::filesystem::path> m_paths;  // of the sounds so far, which are few
};

}  // namespace tabulon
