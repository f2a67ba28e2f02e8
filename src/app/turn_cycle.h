#pragma once

#include "app/space_actions.h"
#include "board/turn_devices.h"

namespace tabulon {

/// One turn from the roll to the choice of the next player, inside the click on the turn button.
class TurnCycle {
  public:
    TurnCycle(Globals& g, MainForm& form, BoardView& board, Pieces& pieces, TurnDevices& devices,
              Movement& movement, SpaceActions& actions, Transfers& transfers, FrmGameMusic& music)
        : m_g(g),
          m_form(form),
          m_board(board),
          m_pieces(pieces),
          m_devices(devices),
          m_movement(movement),
          m_actions(actions),
          m_transfers(transfers),
          m_music(music) {}

    void InitiateTurnDevice();
    /// A turn, and one more when the seat after it is a computer's.
    void cmdRoll_Click();
    void cmdSpin_Click();

  private:
    void RunDevice();
    /// True when the seat moved, and the space under it acts.
    bool MoveByCondition();
    void ActOnSpace();
    void TestWinByPoints();
    void ChooseNextSeat();
    void ShowButtonOfSeat();
    void Redraw();
    void TurnWithFollowUp(std::string_view procedure);

    Globals& m_g;
    MainForm& m_form;
    BoardView& m_board;
    Pieces& m_pieces;
    TurnDevices& m_devices;
    Movement& m_movement;
    SpaceActions& m_actions;
    Transfers& m_transfers;
    FrmGameMusic& m_music;
};

}  // namespace tabulon
