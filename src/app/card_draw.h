#pragma once

#include "app/movement.h"
#include "app/transfers.h"
#include "board/dlgDrawCard.h"

namespace tabulon {

/// Draws a card, has it asked try by try, and carries out what the answer earned.
class CardDraw {
  public:
    CardDraw(Globals& g, MainForm& form, Movement& movement, Transfers& transfers, DlgDrawCard& dlgDrawCard)
        : m_g(g), m_form(form), m_movement(movement), m_transfers(transfers), m_dlgDrawCard(dlgDrawCard) {}

    /// The card counts as drawn whatever the answer. PreviousSpace is not used.
    void DrawCard(Integer DeckIndex, bool& ReturnToPrevious, Integer& PreviousSpace);

  private:
    /// What the answer earned.
    struct Outcome {
        Integer CardAction;
        Integer CardData1;
        bool Correct = false;
    };

    Outcome Ask(CCard& card);
    void CarryOut(const CCard& card, const Outcome& outcome, bool& ReturnToPrevious);
    void Move(const Outcome& outcome, bool& ReturnToPrevious);
    void CorrectIncorrectMoveStatus(const CCard& Card, bool Correct, bool& Status);

    Globals& m_g;
    MainForm& m_form;
    Movement& m_movement;
    Transfers& m_transfers;
    DlgDrawCard& m_dlgDrawCard;
};

}  // namespace tabulon
