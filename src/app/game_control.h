#pragma once

#include "app/transfers.h"
#include "board/board_view.h"
#include "board/dlgPlayers.h"
#include "board/message_dialogs.h"
#include "board/pieces.h"
#include "board/turn_devices.h"
#include "info/frmSplash.h"
#include "library/dlgLoadGame.h"
#include "library/modSavedGames.h"

namespace tabulon {

/// The forms and modules that beginning, replacing and saving a game needs.
struct GameControlParts {
    modInstallUninstall& packages;
    modSavedGames& savedGames;
    FrmGameMusic& frmGameMusic;
    DlgMsgOk& dlgMsgOk;
    DlgMsgYesNo& dlgMsgYesNo;
    DlgPlayers& dlgPlayers;
    DlgLoadGame& dlgLoadGame;
    FrmSplash& frmSplash;
};

/// Begins, replaces and saves the game in play.
class GameControl {
  public:
    GameControl(Globals& g, MainForm& form, const GameControlParts& parts, BoardView& board, Pieces& pieces,
                TurnDevices& devices, Transfers& transfers)
        : m_g(g),
          m_form(form),
          m_parts(parts),
          m_board(board),
          m_pieces(pieces),
          m_devices(devices),
          m_transfers(transfers) {}

    /// With AskPlayers the players are asked for first, and the start can be cancelled; otherwise the same
    /// play again.
    void StartNewGame(bool AskPlayers);
    /// Goes on with what LoadSavedGame restored.
    void StartLoadedGame();
    void LoadGame(const std::string& GameDirectory, const std::string& GameName);
    void LoadSavedGame(const std::string& SavedGameName);

    void cmdNew_Click();
    void cmdLoadGame_Click();
    void cmdSaveGame_Click();

    /// The title page of the game that was chosen, for three seconds.
    void ShowSplash();
    /// What the window says is being played.
    void ShowPlayingCaption();

  private:
    bool Ask(const std::string& question);
    void LayOutPlate(int index);
    void ClearStateForNewGame();
    void LayOutPlates();
    void BeginNewGame();
    void ClearStateForLoadedGame();
    void FillLoadedPlate(Integer seat);
    void BeginLoadedGame();

    Globals& m_g;
    MainForm& m_form;
    GameControlParts m_parts;
    BoardView& m_board;
    Pieces& m_pieces;
    TurnDevices& m_devices;
    Transfers& m_transfers;
};

}  // namespace tabulon
