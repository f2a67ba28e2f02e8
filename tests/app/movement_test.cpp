#include <gmock/gmock.h>

#include "app/action_types.h"
#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::PlayTable;
using test::Values;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Colour Red{255, 0, 0};

struct Roll {
    const char* Name;
    int GoalType;
    bool Loop;
    int FinishCondition;
    int From;
    int Rolled;
    int To;
    bool Over = false;
};

class RollTest : public testing::TestWithParam<Roll> {};

TEST_P(RollTest, MovesByTheRulesOfTheBoard) {
    const Roll& row = GetParam();
    PlayTable table(
        {.GoalType = row.GoalType, .FinishCondition = row.FinishCondition, .LoopBoard = row.Loop});
    table.State().Position[0] = row.From;
    table.Turn(row.Rolled);
    EXPECT_EQ(table.State().Position[0], row.To);
    EXPECT_EQ(table.State().PreviousSpace, row.From);
    EXPECT_EQ(table.State().GameOver, row.Over);
    EXPECT_EQ(table.State().GamePlayed, row.Over);
    EXPECT_EQ(table.State().GameInProgress, !row.Over);
}

INSTANTIATE_TEST_SUITE_P(
    Boards, RollTest,
    testing::Values(Roll{"Points", Goal::Points, false, 999, 3, 4, 7},
                    Roll{"PointsToTheLast", Goal::Points, false, 999, 5, 5, 10},
                    Roll{"PointsLeaveTheFirstOut", Goal::Points, false, 999, 10, 1, 2},
                    Roll{"PointsLookAtNoLoop", Goal::Points, true, 999, 8, 6, 5},
                    Roll{"PointsGoRoundTwice", Goal::Points, false, 999, 10, 19, 2},
                    Roll{"Money", Goal::Money, false, 999, 9, 2, 2},
                    Roll{"LoopHasTheFirst", Goal::EndOfBoard, true, 0, 10, 1, 1},
                    Roll{"LoopToTheLastEndsNothing", Goal::EndOfBoard, true, 0, 4, 6, 10},
                    Roll{"LoopGoesRoundTwice", Goal::EndOfBoard, true, 0, 10, 15, 5},
                    Roll{"RaceStopsOnTheLast", Goal::EndOfBoard, false, 0, 8, 6, 10, true},
                    Roll{"RaceExactly", Goal::EndOfBoard, false, 0, 8, 2, 10, true},
                    Roll{"RaceOneShort", Goal::EndOfBoard, false, 0, 8, 1, 9},
                    Roll{"RaceOfNothingFromTheLast", Goal::EndOfBoard, false, 0, 10, 0, 10, true},
                    Roll{"RaceForAllGoesOn", Goal::EndOfBoard, false, 1, 8, 6, 10}),
    [](const auto& row) { return row.param.Name; });

TEST(MovementTest, AnOverflowLeavesThePiece) {
    PlayTable table;
    table.State().Position[0] = 8;
    table.Turn(32760);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:MovePlayerToNewSpace 6"));
    EXPECT_EQ(table.State().Position[0], 8);
    EXPECT_EQ(table.State().PreviousSpace, 8);
}

TEST(MovementTest, TheFirstOnTheLastSpaceWinsARace) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 0});
    table.SetSpace(10, atGainPoints, 5, 0, "never shown");
    table.State().WhoseTurn = 2;
    table.State().Position = {1, 8, 7};
    bool overInMessage = true;
    bool timerInMessage = true;
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string& text, bool computer) {
        overInMessage = table.State().GameOver;
        timerInMessage = table.Form().timerOverviewSpace.Enabled;
        table.User.Events.push_back(text + (computer ? " by itself" : ""));
    };
    table.State().IsComputer[1] = true;
    table.Turn(5);
    EXPECT_THAT(table.User.Events, ElementsAre("silence", "sound won_game", "Game Over!  \r\nBen won!"));
    EXPECT_FALSE(overInMessage);
    EXPECT_FALSE(timerInMessage);
    EXPECT_EQ(table.Form().shpSpaceOverview.FillColor, Red);
    EXPECT_EQ(table.State().WhoseTurn, 2);
    EXPECT_TRUE(table.Form().cmdSaveGame.Enabled);
}

// The celebration draws the pieces as in a new game, one seat off, and the end of the turn puts that right.
TEST(MovementTest, TheWinnerOfAResumedRaceIsTheMover) {
    PlayTable table({.GoalType = Goal::EndOfBoard, .FinishCondition = 0});
    table.Resume({4, 8, 9}, 2);
    const auto pieces = [&] {
        std::vector<float> lefts;
        for (int i = 0; i < 3; ++i)
            lefts.push_back(table.Form().imgPlayingPiece[i].Visible ? table.Form().imgPlayingPiece[i].Left
                                                                    : -1);
        return lefts;
    };
    std::vector<float> celebrating;
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string& text, bool) {
        EXPECT_EQ(text, "Game Over!  \r\nBen won!");
        celebrating = pieces();
    };
    table.Turn(2);
    EXPECT_THAT(celebrating, ElementsAre(-1, 180, 540));
    EXPECT_THAT(pieces(), ElementsAre(180, 540, 480));
}

TEST(MovementTest, AllOnTheLastSpaceEndARaceForAll) {
    for (const bool resumed : {false, true}) {
        PlayTable table({.Seats = 2, .GoalType = Goal::EndOfBoard, .FinishCondition = 1});
        if (resumed) table.Resume({1, 8});
        table.State().Position[resumed ? 1 : 0] = 8;
        table.State().Position[resumed ? 2 : 1] = 8;
        table.Turn(3);
        EXPECT_THAT(table.User.TakeEvents(), IsEmpty());
        table.Turn(2);
        EXPECT_THAT(table.User.TakeEvents(), ElementsAre("silence", "sound won_game",
                                                         "message Everyone finished!\r\nCongratulations!"));
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
    EXPECT_THAT(table.User.Events,
                ElementsAre("silence", "sound won_game", "message Game Over!  \r\nAnn won!"));
    EXPECT_EQ(table.State().LastRoll, 3);
    EXPECT_EQ(table.State().WhoseTurn, 1);
    EXPECT_EQ(table.State().Points[1], 0);
    EXPECT_FALSE(table.Form().cmdRoll.Enabled);
}

TEST(MovementTest, ABoardThatNoMoveCanLeaveIsNotWalkedForEver) {
    const auto stuckIn = [](PlayTable& table) -> std::string {
        try {
            table.Turn(1);
        } catch (const Stuck& stuck) {
            return stuck.Form;
        }
        return "";
    };
    PlayTable points({.Spaces = 1});
    EXPECT_EQ(stuckIn(points), "frmMain");
    PlayTable race({.Spaces = 3, .GoalType = Goal::EndOfBoard});
    race.Game().Spaces.Item(3).Sequence = 30;
    race.State().Position[0] = 3;
    EXPECT_EQ(stuckIn(race), "frmMain");
    PlayTable still({.Spaces = 1});
    still.State().Position[0] = 0;
    EXPECT_EQ(stuckIn(still), "");
}

}  // namespace
}  // namespace tabulon
