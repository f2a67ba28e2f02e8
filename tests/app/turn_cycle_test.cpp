#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

constexpr Colour Green{150, 255, 150};

struct Condition {
    const char* Name;
    int RollNumber, ExtraTurns, LoseTurns;
    bool RollDouble, Moves;
    int ExtraLeft, LoseLeft, Next;
    bool GoodRoll = false;
};

const Condition Conditions[] = {
    {"Normal", 0, 0, 0, false, true, 0, 0, 2},
    {"NumberMet", 3, 0, 0, false, true, 0, 0, 2, true},
    {"NumberMissed", 5, 0, 0, false, false, 0, 0, 2},
    {"NumberMissedKeepsExtraTurnAndSeat", 5, 1, 0, false, false, 1, 0, 1},
    {"NumberMetKeepsExtraTurn", 3, 2, 0, false, true, 2, 0, 1, true},
    {"NumberMetKeepsLostTurnAndDouble", 3, 0, 1, true, true, 0, 1, 2, true},
    {"NumberBelowNothingIsNone", -4, 0, 0, false, true, 0, 0, 2},
    {"ExtraTurnsLeft", 0, 2, 0, false, true, 1, 0, 1},
    {"LastExtraTurn", 0, 1, 0, false, true, 0, 0, 2},
    {"ExtraBeforeLostTurn", 0, 1, 1, true, true, 0, 1, 2},
    {"ExtraTurnsAndALostOneShowPass", 0, 2, 1, false, true, 1, 1, 1},
    {"ExtraBelowNothingKeepsTheSeat", 0, -1, 0, false, true, -1, 0, 1},
    {"LostTurn", 0, 0, 1, false, false, 0, 0, 2},
    {"LostTurnBeforeDouble", 0, 0, 2, true, false, 0, 1, 2},
    {"LostBelowNothingIsNone", 0, 0, -2, false, true, 0, -2, 2},
    {"DoubleAwaited", 0, 0, 0, true, false, 0, 0, 2},
};

/// The first of three seats has rolled a three.
void ExpectDecision(const Condition& row, bool resumed) {
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
    EXPECT_EQ(table.User.Story(), row.GoodRoll ? "silence; sound good_roll" : "");
}

TEST(ConditionTest, TheFirstThatHoldsDecidesTheTurn) {
    for (const Condition& row : Conditions) {
        for (const bool resumed : {false, true}) {
            SCOPED_TRACE(row.Name + std::string(resumed ? " resumed" : " new"));
            ExpectDecision(row, resumed);
        }
    }
}

struct Walk {
    const char* Name;
    int Seats, Mover;
    std::vector<int> Bankrupts;
    int Next;
};

TEST(WalkTest, FindsTheNextSeat) {
    const Walk rows[] = {
        {"Nobody", 4, 2, {}, 3},
        {"WrapsToOne", 4, 4, {}, 1},
        {"Alone", 1, 1, {}, 1},
        {"AloneAndBankrupt", 1, 1, {1}, 1},
        {"TheNext", 4, 1, {2}, 3},
        {"TheNextTwo", 4, 1, {2, 3}, 4},
        {"BehindAFreeSeat", 4, 1, {3}, 3},
        {"TheLastPushesToItself", 4, 1, {4}, 3},
        {"TheLastGetsTheTurn", 4, 2, {4}, 4},
        {"AllButTheMover", 4, 1, {2, 3, 4}, 1},
        {"WrapLooksAtNobody", 4, 4, {1, 2}, 1},
        {"PastTheLast", 4, 3, {4}, 1},
        {"EverySecond", 6, 1, {2, 4, 6}, 5},
        {"TheMoverDoesNotCount", 4, 2, {2}, 3},
        {"BothBehind", 6, 3, {5, 6}, 6},
    };
    for (const Walk& row : rows) {
        SCOPED_TRACE(row.Name);
        PlayTable table({.Seats = row.Seats});
        table.State().WhoseTurn = row.Mover;
        for (const int seat : row.Bankrupts) table.State().Done[seat] = true;
        table.Turn(3);
        EXPECT_EQ(table.State().WhoseTurn, row.Next);
        EXPECT_EQ(table.Form().lblName[row.Next - 1].ForeColor, Green);
    }
}

// It is counted by the drawing: in the middle of a normal move of seat 1, after its return, and when it comes
// to be its turn. A lost turn is drawn at its end alone.
TEST(RoundTest, GrowsWithEachDrawingForSeatOne) {
    for (const bool resumed : {false, true}) {
        PlayTable table({.Seats = 2});
        if (resumed) {
            table.State().Round = 0;
            table.Resume({1, 1});
        }
        std::vector<int> rounds{table.State().Round.Value()};
        table.SetSpace(4, atLoseTurns, 1, 1);
        for (const int rolled : {1, 1, 2, 1, 1}) {
            table.Turn(rolled);
            rounds.push_back(table.State().Round.Value());
        }
        EXPECT_THAT(rounds, testing::ElementsAre(1, 2, 3, 5, 6, 6));
        EXPECT_EQ(table.Form().lblRound.Caption, "Round 6");
    }
}

TEST(WinByPointsTest, IsToldBeforeTheGameIsOver) {
    PlayTable table({.FinishCondition = 20});
    table.SetSpace(4, atGainPoints, 20);
    const int roundBefore = table.State().Round.Value();
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string& text, bool computer) {
        EXPECT_FALSE(table.State().GameOver || table.Form().timerOverviewSpace.Enabled);
        table.User.Events.push_back((computer ? "by itself " : "") + text);
    };
    table.State().IsComputer[0] = true;
    table.Turn(3);
    EXPECT_EQ(table.User.Events.back(), "Game Over!  \r\nAnn won!");
    EXPECT_TRUE(table.State().GameOver);
    EXPECT_EQ(table.Form().lblName[1].ForeColor, Green);
    // The move and the win are drawn for seat 1, the end for seat 2.
    EXPECT_EQ(table.State().Round.Value(), roundBefore + 2);
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
    EXPECT_EQ(table.User.Events.back(), "message Game Over!  \r\nCid won!");
}

/// Three seats with dice, of which some are computers; each roll is a three.
struct ComputerTable : PlayTable {
    explicit ComputerTable(std::initializer_list<int> computers, int device = Device::Dice)
        : PlayTable({.TurnDevice = device}) {
        for (const int seat : computers) State().IsComputer[seat - 1] = true;
        for (int i = 0; i < 3; ++i) device == Device::Dice ? Roll({1, 2}) : Spin({1, 2});
    }
};

struct FollowUp {
    const char* Name;
    std::initializer_list<int> Computers;
    int ExtraOfTheFirst, LostOfTheSecond, FinishCondition;
    const char* Positions;
    int Next;
};

TEST(FollowUpTest, ComesOnceAfterTheVisibleButton) {
    const FollowUp rows[] = {
        {"OfAPerson", {2, 3}, 0, 0, 1000, "4 4 1", 3},
        {"OfAComputerWithAnExtraTurn", {1}, 3, 0, 1000, "7 1 1", 1},
        {"WhilePassShows", {2}, 0, 1, 1000, "4 1 1", 3},
        {"NotWhenTheGameIsOver", {1, 2, 3}, 0, 0, 0, "4 1 1", 2},
    };
    for (const FollowUp& row : rows) {
        SCOPED_TRACE(row.Name);
        ComputerTable table(row.Computers);
        table.State().ExtraTurns[1] = row.ExtraOfTheFirst;
        table.State().LoseTurns[1] = row.LostOfTheSecond;
        table.Game().FinishCondition = row.FinishCondition;
        table.Form().cmdRoll.Click();
        EXPECT_EQ(InWords(table.State().Position), row.Positions);
        EXPECT_EQ(table.State().WhoseTurn, row.Next);
        EXPECT_EQ(InWords(table.State().LoseTurns), "0 0 0 0");
    }
}

TEST(FollowUpTest, ComesAfterTheSlotsToo) {
    ComputerTable table({2}, Device::Slots);
    table.Form().cmdSpin.Click();
    EXPECT_EQ(InWords(table.State().Position), "4 4 1");
}

TEST(FollowUpTest, NeverComesAfterTheKeyboardOrAPass) {
    ComputerTable table({2, 3});
    table.Form().cmdFakeRoll.Click();
    EXPECT_EQ(InWords(table.State().Position), "4 1 1");
    table.State().LoseTurns[1] = 1;
    table.Form().cmdPass.Click();
    EXPECT_EQ(InWords(table.State().Position), "4 1 1");
    EXPECT_EQ(table.State().WhoseTurn, 3);
}

TEST(FollowUpTest, AsksTheSlotBelowAlsoInAResumedGame) {
    ComputerTable table({});
    table.Resume({1, 1, 1});
    table.State().IsComputer = {false, true, false, false};
    table.Form().cmdRoll.Click();
    EXPECT_EQ(InWords(table.State().Position), "0 4 4 1");
}

TEST(PassTest, WithoutADeviceTheButtonStaysForGood) {
    PlayTable table;
    EXPECT_EQ(table.Form().cmdFakeRoll.Caption, "");
    table.State().LoseTurns[1] = 1;
    table.Turn(3);
    EXPECT_TRUE(table.Form().cmdPass.Visible);
    for (int turn = 0; turn < 3; ++turn) table.Form().cmdPass.Click();
    EXPECT_TRUE(table.Form().cmdPass.Visible);
    EXPECT_EQ(InWords(table.State().Position), "7 1 4");
}

TEST(DoubleTest, LetsThePlayerMoveInTheSameTurn) {
    PlayTable table({.TurnDevice = Device::Dice});
    table.State().RollDouble[0] = true;
    table.Roll({2, 2});
    table.Form().cmdRoll.Click();
    EXPECT_EQ(table.State().Position[0], 5);
    EXPECT_FALSE(table.State().RollDouble[0]);
    EXPECT_EQ(table.User.Story(), "silence; sound good_roll");
}

}  // namespace
}  // namespace tabulon::test
