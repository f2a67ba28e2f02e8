#include "presentation/modGameMusic.h"

#include "platform/files.h"

namespace tabulon {

void modGameMusic::GetOggFile(const std::string& Genre, const std::string& FileName) {
    Procedure(m_g.gErrHandler, "modGameMusic:GetOggFile", [&] {
        if (m_g.MusicPath.empty()) return;
        const std::filesystem::path archive = FindFile(m_g.MusicPath, Genre + ".snd");
        if (archive.empty()) return;
        m_filesMayBeThere = true;
        m_packages.ExtractFile(archive, m_g.AppDir, FileName + ".ogg", false);
    });
}

void modGameMusic::CleanUpOggFiles() {
    Procedure(m_g.gErrHandler, "modGameMusic:CleanUpOggFiles", [&] {
        if (!m_filesMayBeThere) return;
        DeleteMatching(m_g.AppDir, "*.ogg");
        m_filesMayBeThere = false;
    });
}

const std::filesystem::path& modGameMusic::PathOf(const std::string& FileName) {
    const auto [sound, isNew] = m_paths.try_emplace(FileName);
    if (isNew) sound->second = m_g.AppDir / (FileName + ".ogg");
    return sound->second;
}

}  // namespace tabulon
