#include "app/program.h"

#include <unistd.h>

#include "presentation/modRepositioner.h"
#include "presentation/text_fitting.h"

namespace tabulon {

Program::Program(const Machine& machine)
    : globals(machine),
      dlgError(globals, machine.Mail ? *machine.Mail : noMail, dlgErrorCause),
      frmMain(globals, {{packages, savedGames, frmGameMusic, dlgMsgOk, dlgMsgYesNo, dlgPlayers, dlgLoadGame,
                         frmSplash},
                        frmTabulonSplash,
                        frmSlots,
                        dlgDrawCard,
                        dlgHelp,
                        dlgTipOfTheDay}),
      dlgHelp(globals, frmMain, packages, dlgRTF, dlgTipOfTheDay),
      dlgPlayers(globals, frmGameMusic, frmMain),
      dlgInstallGames(globals, packages),
      dlgLoadGame(globals, {frmGameMusic, packages, savedGames, dlgInstallGames, frmMain, frmMain}),
      frmTabulonSplash(globals, frmMain, frmSplash, frmGameMusic, dlgLoadGame),
      m_dataDirectory(machine.DataDirectory),
      m_store(machine.Store) {
    globals.gErrHandler.ShowDetails = [this](const std::string& details) { dlgError.SetData(details); };
    dlgError.GameDirectory = [this] { return IsFormLoaded(globals, "frmMain") ? frmMain.GameDirectory : ""; };
    frmTabulonSplash.Abort = [this] { frmMain.Abort(); };
}

void Program::Main() {
    Procedure(globals.gErrHandler, "modMain:Main", [&] {
        globals.AppDir = m_dataDirectory;
        globals.SmallFonts = IsSmallFonts(globals.TheScreen);
        frmGameMusic.Load();
        frmTabulonSplash.Show();
        WarnOfDataDirectory();
        frmMain.Load();
    });
}

void Program::WarnOfDataDirectory() {
    std::string trouble = m_store.Trouble();
    if (trouble.empty() && access(m_dataDirectory.c_str(), W_OK) != 0)
        trouble = "The folder " + m_dataDirectory.string() + " cannot be written.";
    if (trouble.empty()) return;
    globals.TheScreen.MsgBox(
        trouble +
            "\r\n\r\nGames may not start, and nothing can be saved or installed, until this is "
            "put right. Ask whoever looks after this computer.",
        BoxIcon::Exclamation, BoxButtons::Ok, globals.Application.Title);
}

}  // namespace tabulon
