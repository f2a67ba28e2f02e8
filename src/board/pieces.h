#pragma once

#include "board/board_view.h"
#include "board/dlgPlayers.h"

namespace tabulon {

/// The players on the screen: the plates of the side panel and the pieces on the board. Pieces on one space
/// share its width side by side, in the players' order.
class Pieces {
  public:
    Pieces(Globals& g, MainForm& form, DlgPlayers& dlgPlayers)
        : m_g(g), m_form(form), m_dlgPlayers(dlgPlayers) {}

    /// Asks for the players and fills the plates. Result is False when the dialog was cancelled: names stay,
    /// pieces and computer flags are gone, and nothing can be rolled or saved.
    void SetPlayerNames(bool& Result);
    void DrawPlayers();
    void DrawPlayersForLoadGame();
    /// The one of the two that the game in play needs.
    void Draw();

  private:
    void FillPlate(int index);
    void PlacePiece(int index, const CSpace& space, int count, int slot, const std::string& name);
    int PlayerPosInSpace(const CSpace& space, int player) const;

    Globals& m_g;
    MainForm& m_form;
    DlgPlayers& m_dlgPlayers;
};

}  // namespace tabulon
