#pragma once

#include <optional>
#include <string>

#include "board/board_view.h"
#include "board/message_dialogs.h"
#include "board/pieces.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// Moves the pieces: by the number of a turn device, and by the order of a space or card. A piece jumps.
class Movement {
  public:
    Movement(Globals& g, MainForm& form, BoardView& board, Pieces& pieces, FrmGameMusic& music,
             DlgMsgOk& dlgMsgOk)
        : m_g(g), m_form(form), m_board(board), m_pieces(pieces), m_music(music), m_dlgMsgOk(dlgMsgOk) {}

    /// Moves a seat by what its turn device gave, and ends a game whose aim is the end of the board.
    void MovePlayerToNewSpace(Integer Player, Integer Amount);
    /// Carries out the action codes 1 to 4 for a seat; any other does nothing. An illegal move is told and
    /// dropped. It wraps round on every kind of board, never ends a game, and the space that it reaches does
    /// not act.
    void MovePlayerAction(Integer Player, Integer Amount, Integer MoveType, bool& ReturnToPrevious,
                          std::optional<Integer> StartValue = {});
    /// Celebrates and tells the end of the game. `drawPieces` brings the pieces back onto the board, and
    /// `text` is asked after it.
    template <class Text, class DrawPieces>
    void EndGame(Text text, DrawPieces drawPieces);

  private:
    Integer Wrapped(Integer position);
    void TestEndOfBoard(Integer position, Integer slot);
    bool IsLegal(Integer position, Integer amount, Integer moveType);
    Integer Forward(Integer position, Integer amount, Integer start);
    Integer Backward(Integer position, Integer amount, std::optional<Integer> start, bool& ReturnToPrevious);

    Globals& m_g;
    MainForm& m_form;
    BoardView& m_board;
    Pieces& m_pieces;
    FrmGameMusic& m_music;
    DlgMsgOk& m_dlgMsgOk;
};

template <class Text, class DrawPieces>
void Movement::EndGame(Text text, DrawPieces drawPieces) {
    m_form.shpSpaceOverview.FillColor = MarkerWonColour;
    m_form.timerOverviewSpace.Enabled = false;
    m_music.StopGameMusic();
    m_music.PlayGameMusic(m_form.Game->MusicGenre, "won_game", false);
    m_board.DrawSpaces();
    drawPieces();
    m_dlgMsgOk.ShowMessage(*m_form.Game, text(), false, false);
    m_form.State.GameOver = true;
    m_form.State.GameInProgress = false;
    m_form.State.GamePlayed = true;
}

}  // namespace tabulon
