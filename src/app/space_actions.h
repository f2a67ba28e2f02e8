#pragma once

#include <string>

#include "app/card_draw.h"
#include "app/movement.h"
#include "app/transfers.h"

namespace tabulon {

/// What the space under a piece orders once the piece has moved.
class SpaceActions {
  public:
    SpaceActions(Globals& g, MainForm& form, Movement& movement, Transfers& transfers, CardDraw& cards,
                 FrmGameMusic& music, DlgMsgOk& dlgMsgOk)
        : m_g(g),
          m_form(form),
          m_movement(movement),
          m_transfers(transfers),
          m_cards(cards),
          m_music(music),
          m_dlgMsgOk(dlgMsgOk) {}

    /// Shows the space's message and carries out its action. ReturnToPrevious becomes True when the mover
    /// goes back to where the turn began.
    void Act(Integer Sequence, bool& ReturnToPrevious, Integer& PreviousSpace);

  private:
    void DisplaySpaceActionMessage(const std::string& Message);
    void CarryOut(const CSpace& space, bool& ReturnToPrevious, Integer& PreviousSpace);
    void Move(const CSpace& space, bool& ReturnToPrevious);
    void SetCounter(const CSpace& space);

    Globals& m_g;
    MainForm& m_form;
    Movement& m_movement;
    Transfers& m_transfers;
    CardDraw& m_cards;
    FrmGameMusic& m_music;
    DlgMsgOk& m_dlgMsgOk;
};

}  // namespace tabulon
