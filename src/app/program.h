#pragma once

#include "app/frmMain.h"
#include "diagnostics/dlgError.h"
#include "library/dlgInstallGames.h"

namespace tabulon {

/// A running Player: the global state and the one instance of each form.
class Program {
  public:
    explicit Program(const Machine& machine);

    /// Brings the program up, until the first game has started. Throws ProgramEnd when it ends there.
    void Main();

    Globals globals;
    NoMail noMail;
    DlgErrorCause dlgErrorCause{globals};
    DlgError dlgError;
    modInstallUninstall packages{globals};
    modSavedGames savedGames{globals, packages};
    FrmGameMusic frmGameMusic{globals, packages};
    DlgMsgOk dlgMsgOk{globals, frmGameMusic};
    DlgMsgYesNo dlgMsgYesNo{globals};
    FrmSlots frmSlots{globals};
    DlgDrawCard dlgDrawCard{globals, frmGameMusic, dlgMsgOk};
    FrmSplash frmSplash{globals, packages};
    DlgRTF dlgRTF{globals, packages};
    DlgTipOfTheDay dlgTipOfTheDay{globals};
    FrmMain frmMain;
    DlgHelp dlgHelp;
    DlgPlayers dlgPlayers;
    DlgInstallGames dlgInstallGames;
    DlgLoadGame dlgLoadGame;
    FrmTabulonSplash frmTabulonSplash;

  private:
    void WarnOfDataDirectory();

    const std::filesystem::path m_dataDirectory;
    SettingsStore& m_store;
};

}  // namespace tabulon
