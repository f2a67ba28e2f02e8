#include <gmock/gmock.h>

#include "app/action_types.h"
#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::PlayTable;
using test::Values;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr Colour Green{150, 255, 150};

struct Condition {
    const char* Name;
    int RollNumber, ExtraTurns, LoseTurns;
    bool RollDouble;
    bool Moves;
    int ExtraLeft, LoseLeft;
    int Next;
    bool GoodRoll = false;
};

/// The first of three seats has rolled a three.
class ConditionTest : public testing::TestWithParam<std::tuple<Condition, bool>> {};

TEST_P(ConditionTest, DecidesTheTurn) {
    const auto& [row, resumed] = GetParam();
    PlayTable table;
    if (resumed) table.Resume({1, 1, 1});
    PlayState& state = table.State();
    const int slot = resumed ? 1 : 0;
    state.RollNumber[1] = row.RollNumber;
    state.ExtraTurns[1] = row.ExtraTurns;
    state.LoseTurns[slot] = row.LoseTurns;
    state.RollDouble[slot] = row.RollDouble;
    table.Turn(3);
    EXPECT_EQ(state.Position[slot], row.Moves ? 4 : 1);
    EXPECT_EQ(state.RollNumber[1], row.RollNumber);
    EXPECT_EQ(state.ExtraTurns[1], row.ExtraLeft);
    EXPECT_EQ(state.LoseTurns[slot], row.LoseLeft);
    EXPECT_EQ(state.RollDouble[slot], row.RollDouble);
    EXPECT_EQ(state.WhoseTurn, row.Next);
    EXPECT_EQ(table.Form().cmdPass.Visible, row.Next == 1 && row.LoseLeft > 0);
    const std::vector<std::string> celebration{"silence", "sound good_roll"};
    EXPECT_EQ(table.User.Events, row.GoodRoll ? celebration : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(
    Precedence, ConditionTest,
    testing::Combine(
        testing::Values(Condition{"Normal", 0, 0, 0, false, true, 0, 0, 2},
                        Condition{"NumberMet", 3, 0, 0, false, true, 0, 0, 2, true},
                        Condition{"NumberMissed", 5, 0, 0, false, false, 0, 0, 2},
                        Condition{"NumberMissedKeepsExtraTurnAndSeat", 5, 1, 0, false, false, 1, 0, 1},
                        Condition{"NumberMetKeepsExtraTurn", 3, 2, 0, false, true, 2, 0, 1, true},
                        Condition{"NumberMetKeepsLostTurnAndDouble", 3, 0, 1, true, true, 0, 1, 2, true},
                        Condition{"NumberBelowNothingIsNone", -4, 0, 0, false, true, 0, 0, 2},
                        Condition{"ExtraTurnsLeft", 0, 2, 0, false, true, 1, 0, 1},
                        Condition{"LastExtraTurn", 0, 1, 0, false, true, 0, 0, 2},
                        Condition{"ExtraBeforeLostTurn", 0, 1, 1, true, true, 0, 1, 2},
                        Condition{"ExtraTurnsAndALostOneShowPass", 0, 2, 1, false, true, 1, 1, 1},
                        Condition{"ExtraBelowNothingKeepsTheSeat", 0, -1, 0, false, true, -1, 0, 1},
                        Condition{"LostTurn", 0, 0, 1, false, false, 0, 0, 2},
                        Condition{"LostTurnBeforeDouble", 0, 0, 2, true, false, 0, 1, 2},
                        Condition{"LostBelowNothingIsNone", 0, 0, -2, false, true, 0, -2, 2},
                        Condition{"DoubleAwaited", 0, 0, 0, true, false, 0, 0, 2}),
        testing::Bool()),
    [](const auto& row) {
        return std::string(std::get<0>(row.param).Name) + (std::get<1>(row.param) ? "_Resumed" : "_New");
    });

struct Walk {
    const char* Name;
    int Seats;
    int Mover;
    std::vector<int> Done;
    int Next;
};

class WalkTest : public testing::TestWithParam<Walk> {};

TEST_P(WalkTest, FindsTheNextSeat) {
    const Walk& row = GetParam();
    PlayTable table({.Seats = row.Seats});
    table.State().WhoseTurn = row.Mover;
    for (const int seat : row.Done) table.State().Done[seat] = true;
    table.Turn(3);
    EXPECT_EQ(table.State().WhoseTurn, row.Next);
    EXPECT_EQ(table.Form().lblName[row.Next - 1].ForeColor, Green);
}

INSTANTIATE_TEST_SUITE_P(
    OverBankrupts, WalkTest,
    testing::Values(Walk{"Nobody", 4, 2, {}, 3}, Walk{"WrapsToOne", 4, 4, {}, 1}, Walk{"Alone", 1, 1, {}, 1},
                    Walk{"AloneAndBankrupt", 1, 1, {1}, 1}, Walk{"TheNext", 4, 1, {2}, 3},
                    Walk{"TheNextTwo", 4, 1, {2, 3}, 4}, Walk{"BehindAFreeSeat", 4, 1, {3}, 3},
                    Walk{"TheLastPushesToItself", 4, 1, {4}, 3}, Walk{"TheLastGetsTheTurn", 4, 2, {4}, 4},
                    Walk{"AllButTheMover", 4, 1, {2, 3, 4}, 1}, Walk{"WrapLooksAtNobody", 4, 4, {1, 2}, 1},
                    Walk{"PastTheLast", 4, 3, {4}, 1}, Walk{"EverySecond", 6, 1, {2, 4, 6}, 5},
                    Walk{"TheMoverDoesNotCount", 4, 2, {2}, 3}, Walk{"BothBehind", 6, 3, {5, 6}, 6}),
    [](const auto& row) { return row.param.Name; });

// It is counted by the drawing: in the middle of a normal move of seat 1, after its return, and when it comes
// to be its turn.
TEST(RoundTest, GrowsWithEachDrawingForSeatOne) {
    for (const bool resumed : {false, true}) {
        PlayTable table({.Seats = 2});
        if (resumed) {
            table.State().Round = 0;
            table.Resume({1, 1});
        }
        const auto round = [&] { return table.State().Round.Value(); };
        EXPECT_EQ(round(), 1);
        table.Turn(1);
        EXPECT_EQ(round(), 2);
        table.Turn(1);
        EXPECT_EQ(round(), 3);
        table.SetSpace(4, atLoseTurns, 1, 1);
        table.Turn(2);
        EXPECT_EQ(round(), 5);
        table.Turn(1);
        EXPECT_EQ(round(), 6);
        table.Turn(1);
        EXPECT_EQ(round(), 6) << "a lost turn is drawn at its end alone";
        EXPECT_EQ(table.Form().lblRound.Caption, "Round 6");
    }
}

TEST(RoundTest, IsNotCountedWhenTheDrawingFails) {
    PlayTable table({.Seats = 1});
    table.SetSpace(4, atGoToSpace, -3);
    table.Turn(3);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:DrawSpaces 9"));
    EXPECT_EQ(table.State().Round, 2);
}

TEST(WinByPointsTest, TellsAndGoesOnToTheNextSeat) {
    PlayTable table({.FinishCondition = 20});
    table.SetSpace(4, atGainPoints, 20);
    const int roundBefore = table.State().Round.Value();
    bool overInMessage = true;
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string& text, bool computer) {
        overInMessage = table.State().GameOver || table.Form().timerOverviewSpace.Enabled;
        table.User.Events.push_back((computer ? "by itself " : "") + text);
    };
    table.State().IsComputer[0] = true;
    table.Turn(3);
    EXPECT_THAT(table.User.Events, ElementsAre("silence", "sound good_point", "silence", "sound won_game",
                                               "Game Over!  \r\nAnn won!"));
    EXPECT_FALSE(overInMessage);
    const PlayState& state = table.State();
    EXPECT_TRUE(state.GameOver && state.GamePlayed && !state.GameInProgress);
    EXPECT_EQ(state.WhoseTurn, 2);
    EXPECT_EQ(table.Form().lblName[1].ForeColor, Green);
    EXPECT_EQ(table.Form().shpSpaceOverview.FillColor, (Colour{255, 0, 0}));
    // The move and the win are drawn for seat 1, the end for seat 2.
    EXPECT_EQ(state.Round.Value(), roundBefore + 2);
}

TEST(WinByPointsTest, ComesAfterAReturnAndForTheMoverAlone) {
    PlayTable table({.FinishCondition = 20});
    table.State().Points[2] = 100;
    table.State().Points[1] = 19;
    table.SetSpace(4, atLoseTurns, 1, 1);
    table.Turn(3);
    EXPECT_FALSE(table.State().GameOver);
    table.State().WhoseTurn = 2;
    table.Turn(3);
    EXPECT_TRUE(table.State().GameOver);
    EXPECT_EQ(table.State().Position[1], 1);
}

TEST(WinByPointsTest, IsNotLookedAtWithoutAMoveOrInARace) {
    PlayTable table({.FinishCondition = 0});
    table.State().LoseTurns[0] = 1;
    table.Turn(3);
    EXPECT_FALSE(table.State().GameOver);
    PlayTable race({.GoalType = Goal::EndOfBoard, .FinishCondition = 0});
    race.Turn(3);
    EXPECT_FALSE(race.State().GameOver);
    PlayTable money({.GoalType = Goal::Money, .FinishCondition = 0});
    money.Turn(3);
    EXPECT_TRUE(money.State().GameOver);
}

TEST(WinByPointsTest, NamesTheMoverOfAResumedGame) {
    PlayTable table({.FinishCondition = 0});
    table.Resume({1, 1, 1}, 3);
    table.Turn(3);
    EXPECT_THAT(table.User.Events, Contains("message Game Over!  \r\nCid won!"));
}

TEST(WinByPointsTest, LeavesTheButtonShownAndDisabled) {
    PlayTable table({.FinishCondition = 20, .TurnDevice = Device::Dice});
    table.State().Points[1] = 20;
    table.Roll({1, 2});
    table.Form().cmdRoll.Click();
    EXPECT_TRUE(table.State().GameOver);
    EXPECT_FALSE(table.Form().cmdRoll.Enabled);
    EXPECT_TRUE(table.Form().cmdRoll.Visible);
    EXPECT_TRUE(table.Form().cmdSaveGame.Enabled);
}

/// Three seats with dice, of which some are computers; each roll is a three.
struct ComputerTable : PlayTable {
    explicit ComputerTable(std::initializer_list<int> computers, int device = Device::Dice)
        : PlayTable({.TurnDevice = device}) {
        for (const int seat : computers) State().IsComputer[seat - 1] = true;
        for (int i = 0; i < 3; ++i) device == Device::Dice ? Roll({1, 2}) : Spin({1, 2});
    }
};

TEST(FollowUpTest, ComesOnceAfterTheVisibleButton) {
    ComputerTable table({2, 3});
    table.Form().cmdRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 4, 1));
    EXPECT_EQ(table.State().WhoseTurn, 3);
    EXPECT_TRUE(table.Form().cmdRoll.Enabled);
    table.Form().cmdRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 4, 4));
    EXPECT_EQ(table.State().WhoseTurn, 1);
}

TEST(FollowUpTest, ComesAfterTheSlotsToo) {
    ComputerTable table({2}, Device::Slots);
    table.Form().cmdSpin.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 4, 1));
}

TEST(FollowUpTest, NeverComesAfterTheKeyboardOrAPass) {
    ComputerTable table({2, 3});
    table.Form().cmdFakeRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 1, 1));
    table.State().LoseTurns[1] = 1;
    table.Form().cmdPass.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 1, 1));
    EXPECT_EQ(table.State().WhoseTurn, 3);
}

TEST(FollowUpTest, ComesWhenAComputerKeepsItsSeat) {
    ComputerTable table({1});
    table.State().ExtraTurns[1] = 3;
    table.Form().cmdRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(7, 1, 1));
    EXPECT_EQ(table.State().ExtraTurns[1], 1);
}

TEST(FollowUpTest, ComesWhilePassShows) {
    ComputerTable table({2});
    table.State().LoseTurns[1] = 2;
    table.Form().cmdRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 1, 1));
    EXPECT_EQ(table.State().LoseTurns[1], 1);
    EXPECT_EQ(table.State().WhoseTurn, 3);
}

TEST(FollowUpTest, NeverComesWhenTheGameIsOver) {
    ComputerTable table({1, 2, 3});
    table.Game().FinishCondition = 0;
    table.Form().cmdRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(4, 1, 1));
}

TEST(FollowUpTest, AsksTheSlotBelowAlsoInAResumedGame) {
    ComputerTable table({});
    table.Resume({1, 1, 1});
    table.State().IsComputer = {false, true, false, false};
    table.Form().cmdRoll.Click();
    EXPECT_THAT(Values(table.State().Position), ElementsAre(0, 4, 4, 1));
}

TEST(PassTest, UsesTheFormerNumberAndRollsNothing) {
    PlayTable table({.TurnDevice = Device::Dice});
    table.Roll({1, 2});
    table.State().LoseTurns[1] = 1;
    table.Form().cmdRoll.Click();
    EXPECT_TRUE(table.Form().cmdPass.Visible);
    EXPECT_FALSE(table.Form().cmdRoll.Visible);
    EXPECT_EQ(table.Form().cmdFakeRoll.Caption, "&Pass");
    // Nothing is lost after all, and the pass moves.
    table.State().LoseTurns[1] = 0;
    table.Form().cmdPass.Click();
    EXPECT_EQ(table.State().Position[1], 4);
    EXPECT_TRUE(table.Form().cmdRoll.Visible);
    EXPECT_EQ(table.Form().cmdFakeRoll.Caption, "&Roll Dice");
}

TEST(PassTest, WithoutADeviceTheButtonStaysForGood) {
    PlayTable table;
    EXPECT_EQ(table.Form().cmdFakeRoll.Caption, "");
    table.State().LoseTurns[1] = 1;
    table.Turn(3);
    EXPECT_TRUE(table.Form().cmdPass.Visible);
    for (int turn = 0; turn < 3; ++turn) table.Form().cmdPass.Click();
    EXPECT_TRUE(table.Form().cmdPass.Visible);
    EXPECT_THAT(Values(table.State().Position), ElementsAre(7, 1, 4));
}

TEST(DoubleTest, LetsThePlayerMoveInTheSameTurn) {
    PlayTable table({.TurnDevice = Device::Dice});
    table.State().RollDouble[0] = true;
    table.Roll({2, 2});
    table.Form().cmdRoll.Click();
    EXPECT_EQ(table.State().Position[0], 5);
    EXPECT_FALSE(table.State().RollDouble[0]);
    EXPECT_THAT(table.User.Events, ElementsAre("silence", "sound good_roll"));
}

}  // namespace
}  // namespace tabulon
