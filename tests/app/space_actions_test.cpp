#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using testing::ElementsAre;

constexpr int StartingPoints = 50;

template <class T>
std::string Slots(const char* name, const Array<T>& array, int usual = 0) {
    std::string text;
    for (int i = 0; i <= array.UBound(); ++i) {
        const int value = static_cast<int>(Integer(array[i]).Value());
        if (value != (i == 0 ? 0 : usual))
            text += std::string(" ") + name + std::to_string(i) + "=" + std::to_string(value);
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

constexpr const char* Illegal = "box The action for this space is illegal!";

struct Row {
    const char* Name;
    int Code;
    float Data1;
    int Data2;
    const char* Outcome;  // positions, and what else differs from the start
    const char* Sound = "";
    const char* Report = "";
    int Next = 3;
};

void ExpectTurn(PlayTable& table, const Row& row) {
    table.Turn(2);
    EXPECT_EQ(InWords(table.State().Position) + Changes(table.State()), row.Outcome);
    const std::string sound = *row.Sound ? "silence; sound " + std::string(row.Sound) : "";
    EXPECT_EQ(table.User.Story(), sound + row.Report);
}

const Row NewGame[] = {
    {"Forward", atMoveForward, 3, 0, "1 9 7", "good_move"},
    {"ForwardIgnoresData2", atMoveForward, 3, 1, "1 9 7", "good_move"},
    {"ForwardAsRolled", atMoveForward, -1, 0, "1 8 7", "good_move"},
    {"ForwardNearlyAsRolled", atMoveForward, -1.25f, 0, "1 5 7", "good_move"},
    {"ForwardToTheEnd", atMoveForward, 4, 0, "1 10 7", "good_move"},
    {"ForwardWraps", atMoveForward, 6, 0, "1 2 7", "good_move"},
    {"ForwardWrapsOnce", atMoveForward, 15, 0, "1 11 7", "good_move"},
    {"ForwardHalfDownToEven", atMoveForward, 2.5f, 0, "1 8 7", "good_move"},
    {"ForwardHalfUpToEven", atMoveForward, 3.5f, 0, "1 10 7", "good_move"},
    {"ForwardMinusHalf", atMoveForward, -0.5f, 0, "1 6 7", "good_move"},
    {"ForwardOverflows", atMoveForward, 32767, 0, "1 6 7", "good_move", "; error frmMain:MovePlayerAction 6"},
    {"Back", atMoveBack, 2, 0, "1 4 7", "bad_move"},
    {"BackToTheFirst", atMoveBack, 5, 0, "1 1 7", "bad_move"},
    {"BackWraps", atMoveBack, 6, 0, "1 10 7", "bad_move"},
    {"BackWrapsOnce", atMoveBack, 25, 0, "1 -9 7", "bad_move"},
    {"BackMinusOneIsOneForward", atMoveBack, -1, 0, "1 7 7", "bad_move"},
    {"GoTo", atGoToSpace, 9, 0, "1 9 7"},
    {"GoToLast", atGoToSpace, 10, 0, "1 10 7"},
    {"GoToBeyond", atGoToSpace, 11, 0, "1 6 7", "", Illegal},
    {"GoToBelowTheFirst", atGoToSpace, -3, 0, "1 -3 7"},
    {"GoToStart", atGoToStart, 8, 0, "1 1 7", "bad_move"},
    {"GoToStartOverflows", atGoToStart, 40000, 0, "1 6 7", "bad_move", "; error frmMain:SpaceActions 6"},
    {"Lose", atLosePoints, 5, 1, "1 6 7 Points2=45", "bad_point"},
    {"Gain", atGainPoints, 2.5f, 1, "1 6 7 Points2=52", "good_point"},
    {"GainOverflows", atGainPoints, 40000, 0, "1 6 7", "good_point", "; error frmMain:SpaceActions 6"},
    {"PayEach", atPayEachPlayer, 10, 0, "1 6 7 Points1=60 Points2=30 Points3=60", "bad_point"},
    {"PayEachToTheLast", atPayEachPlayer, 25, 0, "1 6 7 Points1=75 Points2=0 Points3=75 Done2=1",
     "bad_point"},
    {"Collect", atCollectFromEach, 10, 0, "1 6 7 Points1=40 Points2=70 Points3=40", "good_point"},
    {"LoseTurns", atLoseTurns, 3, 0, "1 6 7 Lose1=3", "lose_turn"},
    {"LoseTurnsAndReturn", atLoseTurns, 3, 1, "1 4 7 Lose1=3", "lose_turn"},
    {"LoseTurnsOtherData2", atLoseTurns, 3, 2, "1 6 7 Lose1=3", "lose_turn"},
    {"OverflowStillReturns", atLoseTurns, 32767.5f, 1, "1 4 7", "lose_turn",
     "; error frmMain:SpaceActions 6"},
    {"ExtraTurns", atExtraTurns, 2, 0, "1 6 7 Extra2=2", "extra_turn", "", 2},
    {"ExtraTurnsAndReturn", atExtraTurns, 1.5f, 1, "1 4 7 Extra2=2", "extra_turn", "", 2},
    {"RollDouble", atRollDouble, 0, 0, "1 6 7 Double2=1", "bad_roll"},
    {"RollDoubleTakesNoNumber", atRollDouble, 40000, 1, "1 4 7 Double2=1", "bad_roll"},
    {"RollNumber", atRollNumber, 7, 0, "1 6 7 Number2=7", "bad_roll"},
    {"RollNumberAndReturn", atRollNumber, 6.5f, 1, "1 4 7 Number2=6", "bad_roll"},
    {"CodeAboveAll", NoAction, 3, 1, "1 6 7"},
    {"CodeBelowAll", -1, 3, 1, "1 6 7"},
};

// Seats on 1, 4 and 7; the second has rolled a two and comes to 6, which acts.
TEST(SpaceActionsTest, ActInANewGame) {
    for (const Row& row : NewGame) {
        SCOPED_TRACE(row.Name);
        PlayTable table;
        GivePoints(table.State());
        table.State().Position = {1, 4, 7};
        table.State().WhoseTurn = 2;
        table.SetSpace(6, row.Code, row.Data1, row.Data2);
        ExpectTurn(table, row);
        EXPECT_EQ(table.State().WhoseTurn, row.Next);
    }
}

struct ResumedRow {
    int Seat;
    Row Turn;
};

const ResumedRow ResumedGame[] = {
    {2, {"Forward", atMoveForward, 3, 0, "0 4 6 7", "good_move"}},
    {1, {"ForwardOfTheFirstSeat", atMoveForward, 3, 0, "3 3 4 7", "good_move"}},
    {1, {"ForwardOfTheFirstSeatNeverWraps", atMoveForward, 13, 0, "13 3 4 7", "good_move"}},
    {2, {"Back", atMoveBack, 2, 0, "0 9 6 7", "bad_move"}},
    {1, {"BackOfTheFirstSeat", atMoveBack, 2, 0, "8 3 4 7", "bad_move"}},
    {2, {"GoTo", atGoToSpace, 9, 0, "0 9 6 7"}},
    {1, {"GoToOfTheFirstSeat", atGoToSpace, 9, 0, "0 3 4 7", "", Illegal}},
    {3, {"GoToStart", atGoToStart, 0, 0, "0 1 1 9", "bad_move"}},
    {1, {"GoToStartOfTheFirstSeat", atGoToStart, 0, 0, "1 3 4 7", "bad_move"}},
    {2, {"Gain", atGainPoints, 5, 0, "0 1 6 7 Points2=55", "good_point"}},
    {2, {"LoseTurnsAndReturn", atLoseTurns, 3, 1, "0 1 4 7 Lose2=3", "lose_turn"}},
    {2, {"ExtraTurns", atExtraTurns, 2, 0, "0 1 6 7 Extra2=2", "extra_turn"}},
    {2, {"RollDouble", atRollDouble, 0, 0, "0 1 6 7 Double2=1", "bad_roll"}},
    {2, {"RollNumber", atRollNumber, 7, 0, "0 1 6 7 Number2=7", "bad_roll"}},
};

// Seats on 1, 4 and 7, in slots 1 to 3; the mover has rolled a two, and every space acts.
TEST(SpaceActionsTest, MoveTheSeatBeforeInAResumedGame) {
    for (const auto& [seat, row] : ResumedGame) {
        SCOPED_TRACE(row.Name);
        PlayTable table;
        table.Resume({1, 4, 7}, seat);
        GivePoints(table.State());
        for (int space = 1; space <= 10; ++space) table.SetSpace(space, row.Code, row.Data1, row.Data2);
        ExpectTurn(table, row);
    }
}

TEST(SpaceActionsTest, ForwardIsIllegalForASeatBeforeThatIsBeyondTheBoard) {
    PlayTable table;
    table.Resume({1, 4, 7}, 2);
    table.State().Position[1] = 11;
    table.SetSpace(6, atMoveForward, 3);
    table.Turn(2);
    EXPECT_THAT(table.User.Events, testing::Contains(Illegal));
    EXPECT_EQ(InWords(table.State().Position), "0 11 6 7");
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
    EXPECT_EQ(InWords(table.State().Position), "10 1 1");
    EXPECT_EQ(table.State().Points[1], 0);
    EXPECT_FALSE(table.State().GameOver);
}

TEST(SpaceActionsTest, ForwardWrapsInARaceWithAnEnd) {
    PlayTable table({.GoalType = Goal::EndOfBoard});
    table.SetSpace(4, atMoveForward, 8);
    table.Turn(3);
    EXPECT_EQ(InWords(table.State().Position), "2 1 1");
}

TEST(SpaceActionsTest, APositionWithoutASpaceReports) {
    PlayTable table;
    table.Game().Spaces.Item(4).Sequence = 44;
    table.Turn(3);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:SpaceActions 91"));
    EXPECT_EQ(table.State().WhoseTurn, 2);
}

}  // namespace
}  // namespace tabulon::test
