#pragma once

#include "app/game_control.h"
#include "app/turn_cycle.h"
#include "info/dlgHelp.h"
#include "info/frmTabulonSplash.h"
#include "library/game_host.h"

namespace tabulon {

/// The other forms that the main form uses.
struct MainFormParts {
    GameControlParts control;
    FrmTabulonSplash& frmTabulonSplash;
    FrmSlots& frmSlots;
    DlgDrawCard& dlgDrawCard;
    DlgHelp& dlgHelp;
    DlgTipOfTheDay& dlgTipOfTheDay;
};

/// The main form: brings the program up and down, and joins its controls with the procedures of play.
class FrmMain : public MainForm, public GameHost {
  public:
    FrmMain(Globals& g, const MainFormParts& parts);

    void LoadGame(const std::string& GameDirectory, const std::string& GameName) override;
    void LoadSavedGame(const std::string& SavedGameName) override;
    /// Ends the start of the program before a game is chosen.
    void Abort();

    TurnCycle& Turns() { return m_turns; }
    GameControl& Control() { return m_control; }

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Unload() override;

  private:
    void WireButtons();
    void WireTwins();
    void FormInitOK(bool& Ok);
    void PrepareGame();
    void cmdQuit_Click();
    void cmdMinimizeWindow_Click();
    void cmdSoundOff_Click();
    void cmdSoundOn_Click();
    void cmdTabulon_Click();
    void FollowScreen();
    bool MayQuit();
    void PutAway();

    MainFormParts m_parts;
    bool m_aborted = false;
    BoardView m_board;
    Pieces m_pieces;
    TurnDevices m_devices;
    Transfers m_transfers;
    Movement m_movement;
    CardDraw m_cards;
    SpaceActions m_actions;
    TurnCycle m_turns;
    GameControl m_control;
};

}  // namespace tabulon
