#pragma once

#include "board/main_form.h"

namespace tabulon {

/// Points or money of the players, and the plates that show them. Amounts may fall below 0.
class Transfers {
  public:
    Transfers(Globals& g, MainForm& form) : m_g(g), m_form(form) {}

    /// Changes a seat's amount and its label; an overflow changes nothing.
    void AddPointsToPlayer(Integer Player, Integer Amount);
    /// Marks the seat on the plates; all others become white, a bankrupt's red too.
    void SelectPlayerPiece(Integer Player);
    /// Pays by the action codes 5 to 8; any other does nothing. Who cannot pay, or pays the last, goes
    /// bankrupt.
    void TransferPoints(Integer Player, Integer Amount, Integer TransferType);

  private:
    void PayEachPlayer(Integer player, Integer amount);
    void GoBankrupt(Integer player);
    void CollectFromEach(Integer player, Integer amount);
    void PayAll(Integer player, Integer receiver);

    Globals& m_g;
    MainForm& m_form;
};

}  // namespace tabulon
