#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using testing::ElementsAre;

struct Roll {
    const char* Name;
    int GoalType;
    bool Loop;
    int FinishCondition, From, Rolled, To;
    bool Over = false;
};

TEST(MovementTest, FollowsTheRulesOfTheBoard) {
    const Roll rows[] = {
        {"Points", Goal::Points, false, 999, 3, 4, 7},
        {"PointsToTheLast", Goal::Points, false, 999, 5, 5, 10},
        {"PointsLeaveTheFirstOut", Goal::Points, false, 999, 10, 1, 2},
        {"PointsLookAtNoLoop", Goal::Points, true, 999, 8, 6, 5},
        {"PointsGoRoundTwice", Goal::Points, false, 999, 10, 19, 2},
        {"Money", Goal::Money, false, 999, 9, 2, 2},
        {"LoopHasTheFirst", Goal::EndOfBoard, true, 0, 10, 1, 1},
        {"LoopToTheLastEndsNothing", Goal::EndOfBoard, true, 0, 4, 6, 10},
        {"LoopGoesRoundTwice", Goal::EndOfBoard, true, 0, 10, 15, 5},
        {"RaceStopsOnTheLast", Goal::EndOfBoard, false, 0, 8, 6, 10, true},
        {"RaceExactly", Goal::EndOfBoard, false, 0, 8, 2, 10, true},
        {"RaceOneShort", Goal::EndOfBoard, false, 0, 8, 1, 9},
        {"RaceOfNothingFromTheLast", Goal::EndOfBoard, false, 0, 10, 0, 10, true},
        {"RaceForAllGoesOn", Goal::EndOfBoard, false, 1, 8, 6, 10},
    };
    for (const Roll& row : rows) {
        SCOPED_TRACE(row.Name);
        PlayTable table(
            {.GoalType = row.GoalType, .FinishCondition = row.FinishCondition, .LoopBoard = row.Loop});
        PlayState& state = table.State();
        state.Position[0] = row.From;
        table.Turn(row.Rolled);
        EXPECT_EQ(state.Position[0], row.To);
        EXPECT_EQ(state.PreviousSpace, row.From);
        EXPECT_TRUE(state.GameOver == row.Over && state.GamePlayed == row.Over);
        EXPECT_EQ(state.GameInProgress, !row.Over);
    }
}

TEST(MovementTest, AnOverflowLeavesThePiece) {
    PlayTable table;
    table.State().Position[0] = 8;
    table.Turn(32760);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:MovePlayerToNewSpace 6"));
    EXPECT_EQ(table.State().Position[0], 8);
    EXPECT_EQ(table.State().PreviousSpace, 8);
}

TEST(MovementTest, TheFirstOnTheLastSpaceWinsARaceAndIsToldBeforeItIsOver) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 0});
    table.SetSpace(10, atGainPoints, 5, 0, "never shown");
    table.State().WhoseTurn = 2;
    table.State().Position = {1, 8, 7};
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string& text, bool computer) {
        EXPECT_FALSE(table.State().GameOver || table.Form().timerOverviewSpace.Enabled);
        table.User.Events.push_back(text + (computer ? " by itself" : ""));
    };
    table.State().IsComputer[1] = true;
    table.Turn(5);
    EXPECT_EQ(table.User.Story(), "silence; sound won_game; Game Over!  \r\nBen won!");
    EXPECT_EQ(table.State().WhoseTurn, 2);
    EXPECT_TRUE(table.Form().cmdSaveGame.Enabled);
}

// The celebration draws the pieces as in a new game, one seat off, and the end of the turn puts that right.
TEST(MovementTest, TheWinnerOfAResumedRaceIsTheMover) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 0});
    table.Resume({4, 8, 9}, 2);
    const auto pieces = [&] {
        std::vector<float> lefts;
        for (const Image& piece : table.Form().imgPlayingPiece)
            lefts.push_back(piece.Visible ? piece.Left : -1);
        return lefts;
    };
    std::vector<float> celebrating;
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string& text, bool) {
        EXPECT_EQ(text, "Game Over!  \r\nBen won!");
        celebrating = pieces();
    };
    table.Turn(2);
    EXPECT_THAT(celebrating, ElementsAre(-1, 180, 540, -1, -1, -1));
    EXPECT_THAT(pieces(), ElementsAre(180, 540, 480, -1, -1, -1));
}

TEST(MovementTest, AllOnTheLastSpaceEndARaceForAll) {
    for (const bool resumed : {false, true}) {
        PlayTable table({.Seats = 2, .GoalType = Goal::EndOfBoard, .FinishCondition = 1});
        if (resumed) table.Resume({1, 8});
        table.State().Position[resumed ? 1 : 0] = 8;
        table.State().Position[resumed ? 2 : 1] = 8;
        table.Turn(3);
        EXPECT_EQ(table.User.Story(), "");
        table.Turn(2);
        EXPECT_EQ(table.User.Story(),
                  "silence; sound won_game; message Everyone finished!\r\nCongratulations!");
        EXPECT_TRUE(table.State().GameOver);
    }
}

TEST(MovementTest, WhoWaitsOnTheLastSpaceStaysThereAndItActs) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 1});
    table.State().Position = {10, 4, 4};
    table.SetSpace(10, atGainPoints, 5);
    table.Turn(3);
    EXPECT_EQ(table.State().Position[0], 10);
    EXPECT_EQ(table.State().Points[1], 5);
    EXPECT_EQ(table.State().WhoseTurn, 2);
}

TEST(MovementTest, TheLastSpaceIsTheLastOfTheList) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 0});
    table.Game().Spaces.Item(10).Sequence = 7;
    table.State().Position[0] = 4;
    table.Turn(3);
    EXPECT_TRUE(table.State().GameOver);
    EXPECT_EQ(table.State().Position[0], 7);
}

TEST(MovementTest, ThePreviousSpaceOutlivesTurnsWithoutAMove) {
    PlayTable table;
    table.Turn(3);
    table.State().LoseTurns[1] = 1;
    table.State().PreviousSpace = 9;
    table.Turn(3);
    EXPECT_EQ(table.State().PreviousSpace, 9);
}

// The game is over, and yet the keyboard plays on: device and move, but no action and no other seat.
TEST(MovementTest, TheKeyboardPlaysOnAfterTheEnd) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 0, .TurnDevice = Device::Dice});
    table.SetSpace(10, atGainPoints, 5);
    table.State().Position[0] = 9;
    table.Roll({1, 1});
    table.Form().cmdRoll.Click();
    EXPECT_FALSE(table.Form().cmdRoll.Enabled);
    table.User.TakeEvents();
    table.Roll({1, 2});
    table.Form().cmdFakeRoll.Click();
    EXPECT_EQ(table.User.Story(), "silence; sound won_game; message Game Over!  \r\nAnn won!");
    EXPECT_EQ(table.State().LastRoll, 3);
    EXPECT_EQ(table.State().WhoseTurn, 1);
    EXPECT_EQ(table.State().Points[1], 0);
    EXPECT_FALSE(table.Form().cmdRoll.Enabled);
}

TEST(MovementTest, ABoardThatNoMoveCanLeaveIsNotWalkedForEver) {
    PlayTable points({.Spaces = 1});
    EXPECT_THROW(points.Turn(1), Stuck);
    PlayTable race({.Spaces = 3, .GoalType = Goal::EndOfBoard});
    race.Game().Spaces.Item(3).Sequence = 30;
    race.State().Position[0] = 3;
    EXPECT_THROW(race.Turn(1), Stuck);
    PlayTable still({.Spaces = 1});
    still.State().Position[0] = 0;
    still.Turn(1);
}

}  // namespace
}  // namespace tabulon::test
