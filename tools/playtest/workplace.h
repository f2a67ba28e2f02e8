#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "headless/headless_screen.h"
#include "headless/no_shell.h"
#include "robot/play_user.h"

namespace tabulon::playtest {

/// Removes the folders of runs that were killed; those in use stay.
void RemoveAbandonedFolders();

/// A folder of its own that goes with the object. A process that is killed leaves it behind, and unlocked.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

  private:
    bool Make();

    std::filesystem::path m_path;
    int m_lock = -1;  // the folder, open
};

/// A machine without a window, with one package installed in a store of its own, and a Player on it.
class Workplace {
  public:
    struct Settings {
        std::filesystem::path Package;
        bool SmallFonts = true;
        LocalTime Start{};
    };

    /// Fails with Unusable when the package cannot be installed as a game.
    Workplace(const Settings& settings, PlayUser& user, Random& random);

    Program& ThePlayer() { return *m_program; }
    const HeadlessScreen& Screen() const { return m_screen; }

  private:
    void Install(const std::filesystem::path& package);

    TemporaryFolder m_folder;
    HeadlessScreen m_screen;
    VirtualClock m_clock;
    NoShell m_shell;
    SilentOggPlayer m_player;
    SettingsStore m_store{":memory:"};
    std::unique_ptr<Program> m_program;
};

}  // namespace tabulon::playtest
