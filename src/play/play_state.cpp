#include "play/play_state.h"

namespace tabulon {

namespace {

/// The arrays that have one shape in new and in resumed games.
void ReDimEqualArrays(PlayState& state) {
    state.Points.ReDim(state.PlayerCount);
    state.Done.ReDim(state.PlayerCount);
    state.LoseTurns.ReDim(state.PlayerCount);
    state.ExtraTurns.ReDim(state.PlayerCount);
    state.RollDouble.ReDim(state.PlayerCount);
    state.RollNumber.ReDim(state.PlayerCount);
}

}  // namespace

void PlayState::ReDimForNewGame() {
    Position.ReDim(PlayerCount - 1);
    ReDimEqualArrays(*this);
}

void PlayState::ReDimForLoadedGame() {
    Name.ReDim(PlayerCount);
    IsComputer.ReDim(PlayerCount);
    Position.ReDim(PlayerCount);
    PieceName.ReDim(PlayerCount);
    ReDimEqualArrays(*this);
}

Integer PlayState::PlayersInSpace(Integer sequence) const { return Position.Count(sequence); }

}  // namespace tabulon
