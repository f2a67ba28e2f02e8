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
    ReDimForNewGame();
    Name.ReDim(PlayerCount);
    IsComputer.ReDim(PlayerCount);
    Position.ReDim(PlayerCount);
    PieceName.ReDim(PlayerCount);
}

Integer PlayState::PlayersInSpace(Integer sequence) const {
    int count = 0;
    for (int i = 0; i <= Position.UBound(); ++i) count += Position[i] == sequence;
    return count;
}

}  // namespace tabulon
