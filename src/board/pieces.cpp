#include "board/pieces.h"

#include "content/game_words.h"
#include "content/required.h"
#include "platform/numbers.h"
#include "presentation/text_fitting.h"

namespace tabulon {

void Pieces::SetPlayerNames(bool& Result) {
    Procedure(m_g.gErrHandler, "frmMain:SetPlayerNames", [&] {
        PlayState& state = m_form.State;
        state.PieceName.ReDim(0);
        state.IsComputer.ReDim(0);
        bool chosen = false;
        m_dlgPlayers.GetData(m_form.Game, state.PlayerCount, state.Name, state.PieceName, state.IsComputer,
                             chosen);
        if (!chosen) {
            m_form.cmdSaveGame.Enabled = m_form.cmdRoll.Enabled = m_form.cmdSpin.Enabled = false;
            Result = false;
            return;
        }
        state.Points.ReDim(state.PlayerCount);
        for (int i = 0; i < state.PlayerCount.Value(); ++i) FillPlate(i);
        m_form.ShowPlates();
        Result = true;
    });
}

void Pieces::FillPlate(int index) {
    const PlayState& state = m_form.State;
    const std::string& name = state.Name[index];
    m_form.imgPlayingPiece[index].ToolTipText = name;
    m_form.imgCharacter[index].ToolTipText = name + "'s playing piece";
    m_form.lblName[index].Caption = name;
    FitLabelText(m_g, m_form.lblName[index]);
    m_form.lblPoints[index].Caption =
        std::string(ScoreCaption(state.GoalType)) + ToText(state.Points[index + 1]);
    FitLabelText(m_g, m_form.lblPoints[index]);
    if (state.GoalType == Goal::Money) m_form.lblPoints[index].ToolTipText = name + "'s money";
    if (state.GoalType == Goal::Points) m_form.lblPoints[index].ToolTipText = name + "'s points";
}

void Pieces::Draw() {
    if (m_form.State.LoadedGame) {
        DrawPlayersForLoadGame();
    } else {
        DrawPlayers();
    }
}

void Pieces::DrawPlayers() {
    Procedure(m_g.gErrHandler, "frmMain:DrawPlayers", [&] {
        const PlayState& state = m_form.State;
        const CGame& game = Required(m_form.Game);
        for (int i = 0; i < state.PlayerCount.Value(); ++i) {
            const Integer position = state.Position[i];
            if (position <= 0) continue;
            const CSpace* space = game.Spaces.ItemBySequence(position);
            if (!space) continue;
            const auto pieces = state.Position.CountLike(i);
            PlacePiece(i, *space, pieces.All, pieces.Before, state.Name[i]);
        }
    });
}

void Pieces::DrawPlayersForLoadGame() {
    Procedure(m_g.gErrHandler, "frmMain:DrawPlayersForLoadGame", [&] {
        const PlayState& state = m_form.State;
        CGame& game = Required(m_form.Game);
        for (int i = 1; i <= state.PlayerCount.Value(); ++i) {
            const CSpace& space = Required(game.Spaces.ItemBySequence(state.Position[i]));
            PlacePiece(i - 1, space, state.PlayersInSpace(space.Sequence).Value(), PlayerPosInSpace(space, i),
                       state.Name[i]);
        }
    });
}

int Pieces::PlayerPosInSpace(const CSpace& space, int player) const {
    int place = -1;
    for (int i = 1; i <= m_form.State.PlayerCount.Value(); ++i) {
        if (m_form.State.Position[i] != space.Sequence) continue;
        ++place;
        if (i == player) return place;
    }
    return 0;
}

void Pieces::PlacePiece(int index, const CSpace& space, int count, int slot, const std::string& name) {
    Image& piece = m_form.imgPlayingPiece[index];
    piece.Top = static_cast<float>(space.Top);
    piece.Left = static_cast<float>(static_cast<double>(space.Width) / count * slot + space.Left);
    if (piece.ToolTipText != name) piece.ToolTipText = name;
    piece.Visible = true;
    piece.Border = index == m_form.State.WhoseTurn.Value() - 1;
    if (piece.Border) piece.Raise();
}

}  // namespace tabulon
