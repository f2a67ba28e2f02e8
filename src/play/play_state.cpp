#include "play/play_state.h"

namespace tabulon {

void PlayState::ReDimForNewGame() {
    Position.ReDim(PlayerCount - 1);
    Points.ReDim(PlayerCount);
    Done.ReDim(PlayerCount);
    LoseTurns.ReDim(PlayerCount);
    ExtraTurns.ReDim(PlayerCount);
    RollDouble.ReDim(PlayerCount);
    RollNumber.ReDim(PlayerCount);
}

void PlayState::ReDimForLoadedGame() {
    Name.ReDim(PlayerCount);
    IsComputer.ReDim(PlayerCount);
    Position.ReDim(PlayerCount);
    PieceName.ReDim(PlayerCount);
    Points.ReDim(PlayerCount);
    Done.ReDim(PlayerCount);
    LoseTurns.ReDim(PlayerCount);
    ExtraTurns.ReDim(PlayerCount);
    RollDouble.ReDim(PlayerCount);
    RollNumber.ReDim(PlayerCount);
}

Integer PlayState::PlayersInSpace(Integer sequence) const {
    return Position.Count(sequence, Position.UBound() + 1);
}

}  // namespace tabulon
