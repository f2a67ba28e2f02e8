#include "app/frmMain.h"

#include <algorithm>

#include "board/board_reader.h"
#include "content/game_words.h"
#include "content/required.h"
#include "diagnostics/product_settings.h"
#include "platform/modBrowser.h"
#include "presentation/text_fitting.h"

namespace tabulon {

FrmMain::FrmMain(Globals& g, const MainFormParts& parts)
    : MainForm(g),
      m_parts(parts),
      m_board(g, *this, parts.control.packages),
      m_pieces(g, *this, parts.control.dlgPlayers),
      m_devices(g, *this, parts.control.frmGameMusic, parts.frmSlots),
      m_transfers(g, *this),
      m_movement(g, *this, m_board, m_pieces, parts.control.frmGameMusic, parts.control.dlgMsgOk),
      m_cards(g, *this, m_movement, m_transfers, parts.dlgDrawCard),
      m_actions(g, *this, m_movement, m_transfers, m_cards, parts.control.frmGameMusic,
                parts.control.dlgMsgOk),
      m_turns(g, *this, m_board, m_pieces, m_devices, m_movement, m_actions, m_transfers,
              parts.control.frmGameMusic),
      m_control(g, *this, parts.control, m_board, m_pieces, m_devices, m_transfers) {
    WireButtons();
    WireTwins();
    timerOverviewSpace.Tick = [this] { m_board.timerOverviewSpace_Timer(); };
    Resize = [this] { FollowScreen(); };
    KeyDown = [this](int code, int shift) {
        const bool isF6 = code == Key::F6 && shift == 0;
        if (isF6) GoToBoardOrBack(*this);
        return isF6;
    };
}

void FrmMain::WireButtons() {
    cmdRoll.Click = [this] { m_turns.cmdRoll_Click(); };
    cmdSpin.Click = [this] { m_turns.cmdSpin_Click(); };
    cmdPass.Click = [this] { m_turns.InitiateTurnDevice(); };
    cmdNew.Click = [this] { m_control.cmdNew_Click(); };
    cmdLoadGame.Click = [this] { m_control.cmdLoadGame_Click(); };
    cmdSaveGame.Click = [this] { m_control.cmdSaveGame_Click(); };
    cmdQuit.Click = [this] { cmdQuit_Click(); };
    cmdMinimizeWindow.Click = [this] { cmdMinimizeWindow_Click(); };
    cmdSoundOff.Click = [this] { cmdSoundOff_Click(); };
    cmdSoundOn.Click = [this] { cmdSoundOn_Click(); };
    cmdHelp.Click = [this] { m_parts.dlgHelp.SetUp(Game); };
    cmdTabulon.Click = [this] { cmdTabulon_Click(); };
}

// The twins carry the access keys, and are never disabled with the buttons that they stand for.
void FrmMain::WireTwins() {
    cmdFakeRoll.Click = [this] { m_turns.InitiateTurnDevice(); };
    cmdFakeNew.Click = [this] { m_control.cmdNew_Click(); };
    cmdFakeLoadGame.Click = [this] { m_control.cmdLoadGame_Click(); };
    cmdFakeSaveGame.Click = [this] { m_control.cmdSaveGame_Click(); };
    cmdFakeHelp.Click = [this] { m_parts.dlgHelp.SetUp(Game); };
    cmdFakeQuit.Click = [this] { cmdQuit_Click(); };
}

void FrmMain::LoadGame(const std::string& directory, const std::string& name) {
    m_control.LoadGame(directory, name);
}

void FrmMain::LoadSavedGame(const std::string& SavedGameName) { m_control.LoadSavedGame(SavedGameName); }

void FrmMain::Abort() {
    m_parts.frmTabulonSplash.Unload();
    m_aborted = true;
}

void FrmMain::Form_Load() {
    Procedure(m_g.gErrHandler, "frmMain:Form_Load", [&] {
        bool ok = false;
        FormInitOK(ok);
        if (!ok) {
            Unload();
            return;
        }
        Show();
        m_parts.frmTabulonSplash.Unload();
        m_parts.control.frmSplash.Unload();
        bool shown = false;
        m_parts.dlgTipOfTheDay.TipOfTheDay(shown);
        if (State.SavedGameLoaded) {
            m_control.StartLoadedGame();
        } else {
            m_control.StartNewGame(true);
        }
    });
}

void FrmMain::FormInitOK(bool& Ok) {
    Procedure(m_g.gErrHandler, "frmMain:FormInitOK", [&] {
        RepositionElements();
        Caption = "Tab Player v" + std::to_string(m_g.Application.Major) + "." +
                  std::to_string(m_g.Application.Minor) + "." + std::to_string(m_g.Application.Revision);
        State.Round = 0;
        State.CurrentSpace = 1;
        GameName.clear();
        m_g.SoundOn = true;
        m_parts.frmTabulonSplash.Display("random");
        if (m_aborted) throw ProgramEnd{};
        if (GameName.empty()) m_g.TheScreen.WaitForEver("a game without a name");
        m_control.ShowPlayingCaption();
        ResizeObjects();
        PrepareGame();
        Ok = true;
    });
}

void FrmMain::PrepareGame() {
    const CGame& game = Required(Game);
    SetFormObjectFonts(m_g, *this, game.Font, game.FontSize);
    m_board.LoadGameBoard();
    if (game.TurnDevice == Device::Dice || game.TurnDevice == Device::Slots)
        m_devices.SetTurnDeviceButton(game.TurnDevice);
    m_board.HidePlayers();
    m_board.HideSpaces();
    shpSpaceOverview.Visible = false;
    State.GameStart = true;
    State.GamePlayed = false;
    m_parts.control.packages.CleanupGameDir();
}

void FrmMain::FollowScreen() {
    ResizeObjects();
    if (!m_board.Rescale()) return;
    m_devices.PlaceDice();
    if (std::ranges::any_of(imgPlayingPiece, [](const Image& piece) { return piece.Visible; }))
        m_pieces.Draw();
}

bool FrmMain::MayQuit() {
    if (!State.GameInProgress) return true;
    bool yes = false;
    m_parts.control.dlgMsgYesNo.ShowMessage(Required(Game), "Quit this game?", 0, yes);
    return yes;
}

void FrmMain::PutAway() {
    m_parts.control.frmGameMusic.StopGameMusic();
    State.GameInProgress = false;
    Hide();
    m_g.TheScreen.PumpEvents();
}

void FrmMain::cmdQuit_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdQuit_Click", [&] {
        if (!MayQuit()) return;
        PutAway();
        Unload();
    });
}

void FrmMain::Form_QueryUnload(bool& Cancel) {
    Procedure(m_g.gErrHandler, "frmMain:Form_QueryUnload", [&] {
        if (!State.GameInProgress) {
            m_parts.control.frmGameMusic.StopGameMusic();
        } else if (MayQuit()) {
            PutAway();
        } else {
            Cancel = true;
        }
    });
}

void FrmMain::Form_Unload() {
    Procedure(m_g.gErrHandler, "frmMain:Form_Unload", [&] {
        Game.reset();
        m_parts.control.packages.CleanupGameDir();
        m_parts.control.frmGameMusic.Unload();
        const std::vector<Form*> loaded = m_g.TheScreen.LoadedForms();
        for (Form* form : loaded) {
            if (form != this) form->Unload();
        }
    });
}

void FrmMain::cmdMinimizeWindow_Click() {
    m_parts.control.frmGameMusic.StopGameMusic();
    WindowState = WindowState::Minimised;
}

void FrmMain::cmdSoundOff_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdSoundOff_Click", [&] {
        m_parts.control.frmGameMusic.StopGameMusic();
        m_g.SoundOn = false;
        cmdSoundOn.Visible = true;
        cmdSoundOff.Visible = false;
        FocusTurnButton();
    });
}

void FrmMain::cmdSoundOn_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdSoundOn_Click", [&] {
        m_g.SoundOn = true;
        cmdSoundOff.Visible = true;
        cmdSoundOn.Visible = false;
        FocusTurnButton();
    });
}

void FrmMain::cmdTabulon_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdTabulon_Click", [&] {
        const std::string builder = ToText(
            m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, std::string(ProductKey), "BuilderPath"));
        if (builder.empty()) {
            OpenInBrowser(m_g.Shell, m_g.gErrHandler,
                          ProductSetting(m_g, "WebSite", m_g.Application.WebSite) + "/index.html");
        } else {
            m_g.Shell.Start(std::filesystem::path(builder) / "Tabulon.exe");
        }
    });
}

}  // namespace tabulon
