#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/globals.h"
#include "packages/archive.h"

namespace tabulon {

/// The key of a game that is never offered.
inline constexpr std::string_view HiddenGame = "{7C6EC008-7412-44C0-9490-CAC42FB1C864}";
/// The key of the game that cannot be uninstalled.
inline constexpr std::string_view PermanentGame = "{E9828766-ABAC-4526-881D-008053E8CE1E}";

/// True for the names of the program's own files beside what is unpacked (packages, sound archives, the
/// settings, the trace, the log of failures): no entry may take their place.
bool IsKeptName(const std::string& name);

/// Packages: what is got out of them, installed and cleaned up. Working files lie in the data directory.
class modInstallUninstall {
  public:
    explicit modInstallUninstall(Globals& g) : m_g(g) {}

    /// Unpacks the first entry whose name begins with FileName ("*" in it stands for any text) into DestDir,
    /// under the entry's own name. A missing package or entry is no failure. With CheckOnly nothing is
    /// unpacked, and the result tells whether there is such an entry. False after a failure, which
    /// "logs/log.xml" in the data directory explains.
    bool ExtractFile(const std::filesystem::path& GamFile, const std::filesystem::path& DestDir,
                     const std::string& FileName, bool CheckOnly);

    /// Needs the settings file that InstallableGames unpacks. False only for a failure of its own: settings
    /// that cannot be read do not count.
    bool InstallGame(const std::string& Name);
    /// Writes the lines of <Name>.dat into the game's key; after a failure those before it stay written.
    bool InstallGameSettings(const std::string& Name);
    /// Appends the packages that are none of Games to both lists, which stay parallel. Their settings files
    /// stay unpacked.
    void InstallableGames(const std::vector<std::string>& Games, std::vector<std::string>& Names,
                          std::vector<std::string>& Keys);
    static bool AlreadyInstalled(const std::vector<std::string>& Games, const std::string& Name);
    /// Empty when the file does not say, or cannot be read.
    std::string ExtractGameNameFromFile(const std::filesystem::path& DatFile);
    /// Removes the game's key with its saved games; the package stays.
    bool UninstallGame(const std::string& GameKey);

    /// Deletes all files of the kinds that are unpacked; the log of failures is none.
    void CleanupGameDir();
    /// Deletes the settings files.
    void CleanupGameFiles();

    /// The text before the first NUL. It then leaves its name on the error handler's stack.
    std::string TrimNull(const std::string& Text);

  private:
    void AppendGame(const std::string& Base, std::vector<std::string>& Names, std::vector<std::string>& Keys);
    void SaveXmlLog(const std::filesystem::path& GamFile, const std::string& FileName, const char* Why);

    Archive& Opened(const std::filesystem::path& GamFile);

    Globals& m_g;
    /// The package last asked: the files of a game come out of it in one pass.
    std::unique_ptr<Archive> m_archive;
};

}  // namespace tabulon
