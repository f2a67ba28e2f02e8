#pragma once

#include <filesystem>
#include <locale>

#include "diagnostics/clsErrHandler.h"
#include "forms/screen.h"
#include "platform/application_info.h"
#include "platform/clock.h"
#include "platform/mail.h"
#include "platform/modRegistry.h"
#include "platform/ogg_player.h"
#include "platform/random.h"
#include "platform/shell.h"

namespace tabulon {

/// The machine that a Player runs on. The parts must outlive the Player.
struct Machine {
    Screen& TheScreen;
    tabulon::Clock& Clock;
    tabulon::Random& Random;
    tabulon::Shell& Shell;
    OggPlayer& Player;
    SettingsStore& Store;
    ApplicationInfo Application;
    /// Where packages and working files lie; no trailing separator.
    std::filesystem::path DataDirectory;
    /// The user's regional settings, for dates.
    std::locale Regional = std::locale::classic();
    /// Sends error logs; without it none go out.
    tabulon::Mail* Mail = nullptr;
};

/// The state that every module may reach: one object for each running Player.
class Globals {
  public:
    explicit Globals(const Machine& machine)
        : TheScreen(machine.TheScreen),
          Clock(machine.Clock),
          Random(machine.Random),
          Shell(machine.Shell),
          Player(machine.Player),
          Application(machine.Application),
          Regional(machine.Regional),
          gErrHandler(TheScreen, Clock, Application, AppDir),
          Registry(machine.Store, TheScreen) {
        gErrHandler.Regional = Regional;
    }
    Globals(const Globals&) = delete;
    Globals& operator=(const Globals&) = delete;

    Screen& TheScreen;
    tabulon::Clock& Clock;
    tabulon::Random& Random;
    tabulon::Shell& Shell;
    OggPlayer& Player;
    const ApplicationInfo Application;
    const std::locale Regional;

    /// The data directory; set by Main.
    std::filesystem::path AppDir;
    /// The folder of the sound archives.
    std::filesystem::path MusicPath;
    /// True at 96 dots per inch.
    bool SmallFonts = false;
    /// Each run begins with sound on.
    bool SoundOn = false;

    clsErrHandler gErrHandler;
    modRegistry Registry;
};

}  // namespace tabulon
