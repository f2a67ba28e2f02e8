#pragma once

namespace tabulon {

/// What a space or a card orders. The codes are those of the content files.
enum ActionType : int {
    atDrawCard = 0,
    atMoveForward = 1,
    atMoveBack = 2,
    atGoToSpace = 3,
    atGoToStart = 4,
    atLosePoints = 5,
    atGainPoints = 6,
    atPayEachPlayer = 7,
    atCollectFromEach = 8,
    atLoseTurns = 9,
    atExtraTurns = 10,
    atRollDouble = 11,
    atRollNumber = 12,
};

}  // namespace tabulon
