#include <gmock/gmock.h>

#include "app/action_types.h"
#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::NoAction;
using test::PlayTable;
using test::Rules;
using test::Values;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int StartingPoints = 50;

template <class T>
std::string Slots(const char* name, const Array<T>& array, int usual = 0) {
    std::string text;
    for (int i = 1; i <= array.UBound() + 1; ++i) {
        const int value = static_cast<int>(Integer(array[i - 1]).Value());
        if (value != (i == 1 ? 0 : usual))
            text += std::string(name) + std::to_string(i - 1) + "=" + std::to_string(value) + " ";
    }
    return text;
}

/// All slots that a game of StartingPoints does not begin with.
std::string Changes(const PlayState& state) {
    return Slots("Points", state.Points, StartingPoints) + Slots("Done", state.Done) +
           Slots("Lose", state.LoseTurns) + Slots("Extra", state.ExtraTurns) +
           Slots("Double", state.RollDouble) + Slots("Number", state.RollNumber);
}

void GivePoints(PlayState& state) {
    for (int seat = 1; seat <= state.PlayerCount.Value(); ++seat) state.Points[seat] = StartingPoints;
}

using Ints = std::vector<int>;
using Texts = std::vector<std::string>;

const Texts GoodMove{"silence", "sound good_move"};
const Texts BadMove{"silence", "sound bad_move"};
const Texts BadPoint{"silence", "sound bad_point"};
const Texts GoodPoint{"silence", "sound good_point"};
const Texts LoseTurn{"silence", "sound lose_turn"};
const Texts ExtraTurn{"silence", "sound extra_turn"};
const Texts BadRoll{"silence", "sound bad_roll"};
const Texts Illegal{"box The action for this space is illegal!"};

Texts Then(Texts events, const char* last) {
    events.emplace_back(last);
    return events;
}

struct Row {
    const char* Name;
    int Code;
    float Data1;
    int Data2;
    Ints Positions;
    std::string Changed;
    Texts Events;
    int Next = 3;
};

std::string RowName(const testing::TestParamInfo<Row>& info) { return info.param.Name; }

/// Seats on 1, 4 and 7; the second has rolled a two and comes to 6, which acts.
class NewGameSpace : public testing::TestWithParam<Row> {};

TEST_P(NewGameSpace, Acts) {
    const Row& row = GetParam();
    PlayTable table;
    GivePoints(table.State());
    table.State().Position = {1, 4, 7};
    table.State().WhoseTurn = 2;
    table.SetSpace(6, row.Code, row.Data1, row.Data2);
    table.Turn(2);
    EXPECT_EQ(Values(table.State().Position), row.Positions);
    EXPECT_EQ(Changes(table.State()), row.Changed);
    EXPECT_EQ(table.User.Events, row.Events);
    EXPECT_EQ(table.State().WhoseTurn, row.Next);
}

INSTANTIATE_TEST_SUITE_P(
    Moves, NewGameSpace,
    testing::Values(Row{"Forward", atMoveForward, 3, 0, {1, 9, 7}, "", GoodMove},
                    Row{"ForwardIgnoresData2", atMoveForward, 3, 1, {1, 9, 7}, "", GoodMove},
                    Row{"ForwardAsRolled", atMoveForward, -1, 0, {1, 8, 7}, "", GoodMove},
                    Row{"ForwardNearlyAsRolled", atMoveForward, -1.25f, 0, {1, 5, 7}, "", GoodMove},
                    Row{"ForwardToTheEnd", atMoveForward, 4, 0, {1, 10, 7}, "", GoodMove},
                    Row{"ForwardWraps", atMoveForward, 6, 0, {1, 2, 7}, "", GoodMove},
                    Row{"ForwardWrapsOnce", atMoveForward, 15, 0, {1, 11, 7}, "", GoodMove},
                    Row{"ForwardHalfDownToEven", atMoveForward, 2.5f, 0, {1, 8, 7}, "", GoodMove},
                    Row{"ForwardHalfUpToEven", atMoveForward, 3.5f, 0, {1, 10, 7}, "", GoodMove},
                    Row{"ForwardMinusHalf", atMoveForward, -0.5f, 0, {1, 6, 7}, "", GoodMove},
                    Row{"Back", atMoveBack, 2, 0, {1, 4, 7}, "", BadMove},
                    Row{"BackToTheFirst", atMoveBack, 5, 0, {1, 1, 7}, "", BadMove},
                    Row{"BackWraps", atMoveBack, 6, 0, {1, 10, 7}, "", BadMove},
                    Row{"BackWrapsOnce", atMoveBack, 25, 0, {1, -9, 7}, "", BadMove},
                    Row{"BackMinusOneIsOneForward", atMoveBack, -1, 0, {1, 7, 7}, "", BadMove},
                    Row{"GoTo", atGoToSpace, 9, 0, {1, 9, 7}, "", {}},
                    Row{"GoToLast", atGoToSpace, 10, 0, {1, 10, 7}, "", {}},
                    Row{"GoToBeyond", atGoToSpace, 11, 0, {1, 6, 7}, "", Illegal},
                    Row{"GoToBelowTheFirst", atGoToSpace, -3, 0, {1, -3, 7}, "", {}},
                    Row{"GoToStart", atGoToStart, 8, 0, {1, 1, 7}, "", BadMove},
                    Row{"GoToStartOverflows",
                        atGoToStart,
                        40000,
                        0,
                        {1, 6, 7},
                        "",
                        Then(BadMove, "error frmMain:SpaceActions 6")},
                    Row{"ForwardOverflowsInTheSum",
                        atMoveForward,
                        32767,
                        0,
                        {1, 6, 7},
                        "",
                        Then(GoodMove, "error frmMain:MovePlayerAction 6")}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    Points, NewGameSpace,
    testing::Values(
        Row{"Lose", atLosePoints, 5, 1, {1, 6, 7}, "Points2=45 ", BadPoint},
        Row{"Gain", atGainPoints, 2.5f, 1, {1, 6, 7}, "Points2=52 ", GoodPoint},
        Row{"PayEach", atPayEachPlayer, 10, 0, {1, 6, 7}, "Points1=60 Points2=30 Points3=60 ", BadPoint},
        Row{"PayEachToTheLast",
            atPayEachPlayer,
            25,
            0,
            {1, 6, 7},
            "Points1=75 Points2=0 Points3=75 Done2=1 ",
            BadPoint},
        Row{"Collect", atCollectFromEach, 10, 0, {1, 6, 7}, "Points1=40 Points2=70 Points3=40 ", GoodPoint},
        Row{"GainOverflows",
            atGainPoints,
            40000,
            0,
            {1, 6, 7},
            "",
            Then(GoodPoint, "error frmMain:SpaceActions 6")}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    Counters, NewGameSpace,
    testing::Values(Row{"LoseTurns", atLoseTurns, 3, 0, {1, 6, 7}, "Lose1=3 ", LoseTurn},
                    Row{"LoseTurnsAndReturn", atLoseTurns, 3, 1, {1, 4, 7}, "Lose1=3 ", LoseTurn},
                    Row{"LoseTurnsOtherData2", atLoseTurns, 3, 2, {1, 6, 7}, "Lose1=3 ", LoseTurn},
                    Row{"ExtraTurns", atExtraTurns, 2, 0, {1, 6, 7}, "Extra2=2 ", ExtraTurn, 2},
                    Row{"ExtraTurnsAndReturn", atExtraTurns, 1.5f, 1, {1, 4, 7}, "Extra2=2 ", ExtraTurn, 2},
                    Row{"RollDouble", atRollDouble, 0, 0, {1, 6, 7}, "Double2=1 ", BadRoll},
                    Row{"RollDoubleTakesNoNumber", atRollDouble, 40000, 1, {1, 4, 7}, "Double2=1 ", BadRoll},
                    Row{"RollNumber", atRollNumber, 7, 0, {1, 6, 7}, "Number2=7 ", BadRoll},
                    Row{"RollNumberAndReturn", atRollNumber, 6.5f, 1, {1, 4, 7}, "Number2=6 ", BadRoll},
                    Row{"OverflowStillReturns",
                        atLoseTurns,
                        32767.5f,
                        1,
                        {1, 4, 7},
                        "",
                        Then(LoseTurn, "error frmMain:SpaceActions 6")}),
    RowName);

INSTANTIATE_TEST_SUITE_P(OtherCodes, NewGameSpace,
                         testing::Values(Row{"Above", NoAction, 3, 1, {1, 6, 7}, "", {}},
                                         Row{"Below", -1, 3, 1, {1, 6, 7}, "", {}}),
                         RowName);

struct ResumedRow {
    const char* Name;
    int Seat;
    int Code;
    float Data1;
    int Data2;
    Ints Positions;
    std::string Changed;
    Texts Events;
};

/// Seats on 1, 4 and 7, in slots 1 to 3; the mover has rolled a two, and every space acts.
class ResumedSpace : public testing::TestWithParam<ResumedRow> {};

TEST_P(ResumedSpace, MovesTheSeatBefore) {
    const ResumedRow& row = GetParam();
    PlayTable table;
    table.Resume({1, 4, 7}, row.Seat);
    GivePoints(table.State());
    for (int sequence = 1; sequence <= 10; ++sequence)
        table.SetSpace(sequence, row.Code, row.Data1, row.Data2);
    table.Turn(2);
    EXPECT_EQ(Values(table.State().Position), row.Positions);
    EXPECT_EQ(Changes(table.State()), row.Changed);
    EXPECT_EQ(table.User.Events, row.Events);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, ResumedSpace,
    testing::Values(
        ResumedRow{"Forward", 2, atMoveForward, 3, 0, {0, 4, 6, 7}, "", GoodMove},
        ResumedRow{"ForwardOfTheFirstSeat", 1, atMoveForward, 3, 0, {3, 3, 4, 7}, "", GoodMove},
        ResumedRow{"ForwardOfTheFirstSeatNeverWraps", 1, atMoveForward, 13, 0, {13, 3, 4, 7}, "", GoodMove},
        ResumedRow{"Back", 2, atMoveBack, 2, 0, {0, 9, 6, 7}, "", BadMove},
        ResumedRow{"BackOfTheFirstSeat", 1, atMoveBack, 2, 0, {8, 3, 4, 7}, "", BadMove},
        ResumedRow{"GoTo", 2, atGoToSpace, 9, 0, {0, 9, 6, 7}, "", {}},
        ResumedRow{"GoToOfTheFirstSeat", 1, atGoToSpace, 9, 0, {0, 3, 4, 7}, "", Illegal},
        ResumedRow{"GoToStart", 3, atGoToStart, 0, 0, {0, 1, 1, 9}, "", BadMove},
        ResumedRow{"GoToStartOfTheFirstSeat", 1, atGoToStart, 0, 0, {1, 3, 4, 7}, "", BadMove},
        ResumedRow{"Gain", 2, atGainPoints, 5, 0, {0, 1, 6, 7}, "Points2=55 ", GoodPoint},
        ResumedRow{"LoseTurnsAndReturn", 2, atLoseTurns, 3, 1, {0, 1, 4, 7}, "Lose2=3 ", LoseTurn},
        ResumedRow{"ExtraTurns", 2, atExtraTurns, 2, 0, {0, 1, 6, 7}, "Extra2=2 ", ExtraTurn},
        ResumedRow{"RollDouble", 2, atRollDouble, 0, 0, {0, 1, 6, 7}, "Double2=1 ", BadRoll},
        ResumedRow{"RollNumber", 2, atRollNumber, 7, 0, {0, 1, 6, 7}, "Number2=7 ", BadRoll}),
    [](const auto& row) { return row.param.Name; });

TEST(ResumedSpaceTest, ForwardIsIllegalForASeatBeforeThatIsBeyondTheBoard) {
    PlayTable table;
    table.Resume({1, 4, 7}, 2);
    table.State().Position[1] = 11;
    table.SetSpace(6, atMoveForward, 3);
    table.Turn(2);
    EXPECT_THAT(table.User.Events, testing::Contains(Illegal.front()));
    EXPECT_THAT(Values(table.State().Position), ElementsAre(0, 11, 6, 7));
}

TEST(SpaceMessageTest, OnlyEmptyAndOneBlankShowNoBox) {
    const std::pair<const char*, Texts> rows[] = {
        {"", {}}, {" ", {}}, {"  ", {"message   "}}, {"Bees & honey", {"message Bees & honey"}}};
    for (const auto& [message, events] : rows) {
        PlayTable table;
        table.SetSpace(4, NoAction, 0, 0, message);
        table.Turn(3);
        EXPECT_EQ(table.User.Events, events) << message;
    }
}

TEST(SpaceMessageTest, ComesBeforeSoundAndAction) {
    PlayTable table;
    table.SetSpace(4, atGainPoints, 5, 0, "Lucky");
    int pointsSeen = -1;
    table.TheProgram.dlgMsgOk.MessageShown = [&](const std::string&, bool) {
        pointsSeen = table.State().Points[1].Value();
        table.User.Events.emplace_back("shown");
    };
    table.Turn(3);
    EXPECT_THAT(table.User.Events, ElementsAre("shown", "silence", "sound good_point"));
    EXPECT_EQ(pointsSeen, 0);
}

// The flag is that of the slot one below the seat: the mover's in a new game, that of the seat before in a
// resumed one.
TEST(SpaceMessageTest, ClosesByItselfForTheFlagOfTheSlotBelow) {
    PlayTable table;
    table.SetSpace(4, NoAction, 0, 0, "Hi");
    table.State().IsComputer[0] = true;
    const std::int64_t before = table.TheScreen.Milliseconds();
    table.Turn(3);
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre("computer's message Hi"));
    EXPECT_EQ(table.TheScreen.Milliseconds() - before, 1000);

    table.Resume({1, 1, 1}, 2);
    table.State().IsComputer[2] = true;
    table.Turn(3);
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre("message Hi"));
    table.State().IsComputer = {false, false, true, false};
    table.State().WhoseTurn = 3;
    table.Turn(3);
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre("computer's message Hi"));
}

TEST(SpaceActionsTest, DoNotChainAndNeverEndARace) {
    PlayTable table({.GoalType = Goal::EndOfBoard});
    table.SetSpace(4, atMoveForward, 6);
    table.SetSpace(10, atGainPoints, 9);
    table.Turn(3);
    EXPECT_THAT(Values(table.State().Position), ElementsAre(10, 1, 1));
    EXPECT_EQ(table.State().Points[1], 0);
    EXPECT_FALSE(table.State().GameOver);
}

TEST(SpaceActionsTest, ForwardWrapsInARaceWithAnEnd) {
    PlayTable table({.GoalType = Goal::EndOfBoard});
    table.SetSpace(4, atMoveForward, 8);
    table.Turn(3);
    EXPECT_THAT(Values(table.State().Position), ElementsAre(2, 1, 1));
}

TEST(SpaceActionsTest, APositionWithoutASpaceReports) {
    PlayTable table;
    table.Game().Spaces.Item(4).Sequence = 44;
    table.Turn(3);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:SpaceActions 91"));
    EXPECT_EQ(table.State().WhoseTurn, 2);
}

}  // namespace
}  // namespace tabulon
