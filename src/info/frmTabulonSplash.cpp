#include "info/frmTabulonSplash.h"

#include "content/required.h"
#include "platform/modSingleInstance.h"
#include "presentation/modRepositioner.h"

namespace tabulon {

namespace {

constexpr int SplashMilliseconds = 3000;

std::string Copyright(const ApplicationInfo& application) {
    return "  © 2026 " + application.CompanyName + "   ·   Version " + std::to_string(application.Major) +
           "." + std::to_string(application.Minor) + "." + std::to_string(application.Revision);
}

}  // namespace

FrmTabulonSplash::FrmTabulonSplash(Globals& g, MainForm& frmMain, FrmSplash& frmSplash,
                                   FrmGameMusic& frmGameMusic, DlgLoadGame& dlgLoadGame)
    : Form(g.TheScreen, "frmTabulonSplash"),
      m_g(g),
      m_frmMain(frmMain),
      m_frmSplash(frmSplash),
      m_frmGameMusic(frmGameMusic),
      m_dlgLoadGame(dlgLoadGame) {
    Frame = WindowFrame::None;
}

void FrmTabulonSplash::Design() {
    Caption = m_g.Application.Title;
    Background = Picture::Product("product/splash");
    lblCopyright.Caption = Copyright(m_g.Application);
    lblCopyright.Font.Size = m_g.SmallFonts ? 11 : 9;
}

void FrmTabulonSplash::Form_Load() {
    Procedure(m_g.gErrHandler, "frmTabulonSplash:Form_Load", [&] {
        if (m_g.Shell.PreviousInstance()) ActivateEarlierInstance(m_g.Shell);
        PositionForm(m_g, *this, 800, 600, 0);
        lblCopyright.Move(0, 0, Width, Height);
    });
}

bool FrmTabulonSplash::FormInitOK() {
    bool ok = false;
    Procedure(m_g.gErrHandler, "frmTabulonSplash:FormInitOK", [&] {
        m_games.ReDim(1);
        m_gameNames.ReDim(1);
        m_descriptions.ReDim(1);
        m_g.MusicPath = ToText(
            m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, std::string(ProductKey), "MusicPath"));
        ok = true;
    });
    return ok;
}

void FrmTabulonSplash::Display(const std::string& Genre) {
    Procedure(m_g.gErrHandler, "frmTabulonSplash:Display", [&] {
        if (!FormInitOK()) {
            Abort();
            return;
        }
        Show();
        m_frmGameMusic.PlayGameMusic(Genre, "new_load_game", true);
        std::int32_t count = 0;
        bool newGame = false;
        bool chosen = false;
        m_dlgLoadGame.GetData(m_games, m_gameNames, m_descriptions, count, this, newGame, chosen);
        if (!chosen) {
            Abort();
            Unload();
            return;
        }
        Hide();
        m_frmSplash.SetUp(Required(m_frmMain.Game));
        m_g.TheScreen.PumpEvents();
        m_g.TheScreen.Sleep(SplashMilliseconds);
    });
}

void FrmTabulonSplash::Form_QueryUnload(bool& /*Cancel*/) {
    Procedure(m_g.gErrHandler, "frmTabulonSplash:Form_QueryUnload", [&] { m_frmGameMusic.StopGameMusic(); });
}

}  // namespace tabulon
