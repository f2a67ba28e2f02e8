#pragma once

#include <array>
#include <string_view>

/// The numbers and words of the content files, with their meanings.
namespace tabulon {

/// What a space or a card orders.
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

/// The operand of a move that goes as far as was rolled.
inline constexpr int AsManyAsRolled = -1;

/// Meanings of Game.GoalType.
namespace Goal {
inline constexpr int Points = 0, Money = 1, EndOfBoard = 2;
}

/// Meanings of Game.TurnDevice, and the kinds of turn button.
namespace Device {
inline constexpr int Dice = 0, Slots = 1, None = 2, Pass = 3;
}

/// A die has this many pictures of each face, in the order of the faces.
inline constexpr int FramesPerFace = 4;
inline constexpr int HighestFace = 6;
constexpr int FaceOfFrame(int frame) { return (frame - 1) / FramesPerFace + 1; }

/// The collections of playing pieces, in the order of their pictures.
inline constexpr std::array<std::string_view, 4> PieceCollections{"Aliens", "Animals", "Objects",
                                                                  "Professions"};
inline constexpr int PiecesPerCollection = 12;

}  // namespace tabulon
