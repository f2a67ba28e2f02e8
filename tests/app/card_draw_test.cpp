#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using namespace testing;

/// Seats on 1, 4 and 7 with 50 points each; seat `mover` rolls a two, and every space draws from deck 1.
struct CardTable : PlayTable {
    explicit CardTable(const Rules& rules = {}) : PlayTable(rules) {
        State().Position = {1, 4, 7};
        Begin(2);
    }
    void Begin(int mover, int data2 = 0) {
        State().WhoseTurn = mover;
        for (int seat = 1; seat <= 3; ++seat) State().Points[seat] = 50;
        for (int sequence = 1; sequence <= 10; ++sequence) SetSpace(sequence, atDrawCard, 1, data2);
    }
    /// A turn in which the first card that is drawn is answered.
    void Answer(int key) {
        Random.Numbers.push_back(0);
        User.Cards.push_back(key);
        Turn(2);
    }
};

/// Positions, and every slot that is not as CardTable set it up.
std::string Outcome(const PlayState& state) {
    std::string text = InWords(state.Position);
    if (InWords(state.Points) != "0 50 50 50") text += "; points " + InWords(state.Points);
    if (InWords(state.LoseTurns) != "0 0 0 0") text += "; lose " + InWords(state.LoseTurns);
    if (InWords(state.ExtraTurns) != "0 0 0 0") text += "; extra " + InWords(state.ExtraTurns);
    if (InWords(state.RollDouble) != "0 0 0 0") text += "; double " + InWords(state.RollDouble);
    if (InWords(state.RollNumber) != "0 0 0 0") text += "; number " + InWords(state.RollNumber);
    return text;
}

struct Row {
    const char* Name;
    int Code;
    float Data1;
    int Data2;
    const char* Outcome;
    int SpaceData2 = 0;
    bool Loop = false;
};

void ExpectCard(CardTable& table, int mover, const Row& row) {
    table.Game().LoopBoard = row.Loop;
    table.Begin(mover, row.SpaceData2);
    table.AddCard(row.Code, row.Data1, row.Data2);
    // The music of the start has ended, so the card begins its own.
    table.Player.Stop();
    table.Answer(Key::A);
    EXPECT_EQ(Outcome(table.State()), row.Outcome);
    EXPECT_THAT(table.User.Events,
                ElementsAre("sound draw_card looping", "card 0", "silence", "sound right_answer"));
}

const Row NewGame[] = {
    {"Forward", atMoveForward, 3, 0, "1 9 7"},
    {"ForwardAsRolled", atMoveForward, -1, 0, "1 8 7"},
    {"ForwardWraps", atMoveForward, 6, 0, "1 2 7"},
    {"ForwardAndReturn", atMoveForward, 3, 0, "1 4 7", 1},
    {"Back", atMoveBack, 3, 0, "1 3 7"},
    {"BackAsRolled", atMoveBack, -1, 0, "1 4 7"},
    {"BackToTheFirst", atMoveBack, 5, 0, "1 1 7"},
    {"BackBeyondTheFirstReturns", atMoveBack, 6, 0, "1 4 7"},
    {"BackWrapsOnALoop", atMoveBack, 6, 0, "1 10 7", 0, true},
    {"GoTo", atGoToSpace, 9, 0, "1 9 7"},
    {"GoToStart", atGoToStart, 40, 0, "1 1 7"},
    {"Lose", atLosePoints, 5, 0, "1 6 7; points 0 50 45 50"},
    {"LoseAndReturn", atLosePoints, 5, 1, "1 4 7; points 0 50 45 50"},
    {"AnyOtherSecondValueReturns", atGainPoints, 5, -3, "1 4 7; points 0 50 55 50"},
    {"ThePaymentOverridesTheSpace", atGainPoints, 5, 0, "1 6 7; points 0 50 55 50", 1},
    {"PayEach", atPayEachPlayer, 10, 0, "1 6 7; points 0 60 30 60"},
    {"Collect", atCollectFromEach, 10, 0, "1 6 7; points 0 40 70 40"},
    {"LoseTurns", atLoseTurns, 3, 1, "1 6 7; lose 0 3 0 0"},
    {"LoseTurnsAndReturn", atLoseTurns, 3, 0, "1 4 7; lose 0 3 0 0", 1},
    {"ExtraTurnsForTheSeatBefore", atExtraTurns, 2, 0, "1 6 7; extra 0 2 0 0"},
    {"RollDouble", atRollDouble, 0, 0, "1 6 7; double 0 1 0 0"},
    {"NeverAnotherCard", atDrawCard, 1, 0, "1 6 7"},
    {"NeverANumber", atRollNumber, 7, 0, "1 6 7"},
    {"NothingButTheReturn", atRollNumber, 7, 0, "1 4 7", 1},
    {"TheSpaceSaysOneOrDoesNot", NoAction, 7, 0, "1 6 7", 2},
};

TEST(CardActionTest, ActsInANewGame) {
    for (const Row& row : NewGame) {
        SCOPED_TRACE(row.Name);
        CardTable table;
        ExpectCard(table, 2, row);
    }
}

struct ResumedRow {
    int Seat;
    Row Card;
};

const ResumedRow ResumedGame[] = {
    {2, {"Forward", atMoveForward, 3, 0, "0 4 6 7"}},
    {2, {"BackOfASeatOnTheFirstSpaceReturns", atMoveBack, 2, 0, "0 1 4 7"}},
    {1, {"BackOfTheFirstSeatGoesBelow", atMoveBack, 2, 0, "-2 3 4 7"}},
    {1, {"ForwardOfTheFirstSeat", atMoveForward, 15, 0, "15 3 4 7"}},
    {3, {"GoToStart", atGoToStart, 0, 0, "0 1 1 9"}},
    {2, {"LoseTurns", atLoseTurns, 3, 0, "0 1 6 7; lose 0 0 3 0"}},
    {2, {"ExtraTurns", atExtraTurns, 2, 0, "0 1 6 7; extra 0 0 2 0"}},
    {2, {"RollDouble", atRollDouble, 0, 0, "0 1 6 7; double 0 0 1 0"}},
};

TEST(CardActionTest, ActsInAResumedGame) {
    for (const auto& [seat, row] : ResumedGame) {
        SCOPED_TRACE(row.Name);
        CardTable table;
        table.Resume({1, 4, 7}, seat);
        ExpectCard(table, seat, row);
    }
}

// The target lies beyond the board; a resumed game moves the piece of the seat before, which the first has
// not.
TEST(CardActionTest, AnIllegalTargetIsTold) {
    for (const bool resumed : {false, true}) {
        CardTable table;
        if (resumed) table.Resume({1, 4, 7}, 1);
        table.Begin(resumed ? 1 : 2);
        table.AddCard(atGoToSpace, resumed ? 9 : 11);
        table.Answer(Key::A);
        EXPECT_EQ(InWords(table.State().Position), resumed ? "0 3 4 7" : "1 6 7");
        EXPECT_EQ(table.User.Events.back(), "box The action for this space is illegal!");
    }
}

TEST(CardTest, AWrongAnswerEarnsItsOwnAction) {
    CardTable table;
    CCard& card = table.AddCard(atGainPoints, 20, 0);
    card.IncorrectActionType = atLosePoints;
    card.IncorrectData1 = 7;
    card.IncorrectData2 = 40000;
    table.Answer(Key::C);
    EXPECT_THAT(table.User.Events,
                ElementsAre("card 2", "silence", "sound wrong_answer", "message Sorry you missed this one."));
    EXPECT_EQ(table.State().Points[2], 43);
    EXPECT_EQ(table.State().Position[1], 4);
    EXPECT_TRUE(card.Used);
}

TEST(CardTest, EscapeBringsTheFirstCardOfAGameBack) {
    CardTable table({.Tries = 2});
    table.AddCard(atGainPoints, 5);
    table.User.Cards = {Key::Escape, Key::Escape};
    table.Answer(Key::A);
    EXPECT_THAT(table.User.Events,
                ElementsAre("card -1", "card -1", "card 0", "silence", "sound right_answer"));
    EXPECT_EQ(table.State().Points[2], 55);
}

TEST(CardTest, EscapeRepeatsTheLastActionWithTheNewCardsReturn) {
    CardTable table;
    CCard& first = table.AddCard(atGainPoints, 5, 0);
    CCard& second = table.AddCard(atLosePoints, 9, 1);
    table.Answer(Key::A);
    table.Random.Numbers.push_back(0.5f);
    table.User.Cards.push_back(Key::Escape);
    table.Turn(2);
    EXPECT_EQ(InWords(table.State().Points), "0 50 55 55");
    EXPECT_EQ(InWords(table.State().Position), "1 6 7");
    EXPECT_TRUE(first.Used && second.Used);
}

TEST(CardTest, AnEmptyDeckCostsADrawAndTwoReports) {
    CardTable table;
    table.Game().Decks.Add(1, "Deck", "", "", "");
    table.Random.Numbers = {0.5f};
    table.Turn(2);
    EXPECT_THAT(table.User.Events,
                ElementsAre("error CCards:NextUnusedCard 91", "error frmMain:DrawCard 91"));
    EXPECT_THAT(table.Random.Numbers, IsEmpty());
}

TEST(CardTest, ADeckNumberIsRoundedAndMayOverflow) {
    CardTable table;
    table.AddCard(atGainPoints, 5);
    table.SetSpace(6, atDrawCard, 1.4f);
    table.SetSpace(9, atDrawCard, 40000, 1);
    table.Answer(Key::A);
    table.User.TakeEvents();
    table.Turn(2);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:SpaceActions 6"));
    EXPECT_EQ(InWords(table.State().Position), "1 6 7");
}

}  // namespace
}  // namespace tabulon::test
