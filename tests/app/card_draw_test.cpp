#include <gmock/gmock.h>

#include "app/action_types.h"
#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::NoAction;
using test::PlayTable;
using test::Values;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using Ints = std::vector<int>;

/// Seats on 1, 4 and 7 with 50 points each; seat `mover` rolls a two, and every space draws from deck 1.
struct CardTable : PlayTable {
    explicit CardTable(const test::Rules& rules = {}) : PlayTable(rules) {
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

struct Row {
    const char* Name;
    int Code;
    float Data1;
    int Data2;
    int SpaceData2;
    bool Loop;
    Ints Positions;
    Ints Points;
    Ints Lose;
    Ints Extra;
    std::vector<bool> Double;
    bool Illegal = false;
};

const Ints Same{0, 50, 50, 50};
const Ints None{0, 0, 0, 0};
const std::vector<bool> NoDouble{false, false, false, false};

void ExpectRow(PlayTable& table, const Row& row) {
    EXPECT_EQ(Values(table.State().Position), row.Positions);
    EXPECT_EQ(Values(table.State().Points), row.Points);
    EXPECT_EQ(Values(table.State().LoseTurns), row.Lose);
    EXPECT_EQ(Values(table.State().ExtraTurns), row.Extra);
    EXPECT_EQ(Values(table.State().RollDouble), row.Double);
    EXPECT_EQ(Values(table.State().RollNumber), None);
    std::vector<std::string> events{"sound draw_card looping", "card 0", "silence", "sound right_answer"};
    if (row.Illegal) events.emplace_back("box The action for this space is illegal!");
    EXPECT_EQ(table.User.Events, events);
}

Row Moved(const char* name, int code, float data1, Ints positions, bool loop = false, int spaceData2 = 0) {
    return {name, code, data1, 0, spaceData2, loop, std::move(positions), Same, None, None, NoDouble};
}

class NewGameCard : public testing::TestWithParam<Row> {};

TEST_P(NewGameCard, Acts) {
    const Row& row = GetParam();
    CardTable table;
    table.Game().LoopBoard = row.Loop;
    table.Begin(2, row.SpaceData2);
    table.AddCard(row.Code, row.Data1, row.Data2);
    // The music of the start has ended, so the card begins its own.
    table.Player.Stop();
    table.Answer(Key::A);
    ExpectRow(table, row);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, NewGameCard,
    testing::Values(
        Moved("Forward", atMoveForward, 3, {1, 9, 7}), Moved("ForwardAsRolled", atMoveForward, -1, {1, 8, 7}),
        Moved("ForwardWraps", atMoveForward, 6, {1, 2, 7}),
        Moved("ForwardAndReturn", atMoveForward, 3, {1, 4, 7}, false, 1),
        Moved("Back", atMoveBack, 3, {1, 3, 7}), Moved("BackAsRolled", atMoveBack, -1, {1, 4, 7}),
        Moved("BackToTheFirst", atMoveBack, 5, {1, 1, 7}),
        Moved("BackBeyondTheFirstReturns", atMoveBack, 6, {1, 4, 7}),
        Moved("BackWrapsOnALoop", atMoveBack, 6, {1, 10, 7}, true), Moved("GoTo", atGoToSpace, 9, {1, 9, 7}),
        Row{"GoToBeyond", atGoToSpace, 11, 0, 0, false, {1, 6, 7}, Same, None, None, NoDouble, true},
        Moved("GoToStart", atGoToStart, 40, {1, 1, 7}),
        Row{"Lose", atLosePoints, 5, 0, 0, false, {1, 6, 7}, {0, 50, 45, 50}, None, None, NoDouble},
        Row{"LoseAndReturn", atLosePoints, 5, 1, 0, false, {1, 4, 7}, {0, 50, 45, 50}, None, None, NoDouble},
        Row{"AnyOtherSecondValueReturns",
            atGainPoints,
            5,
            -3,
            0,
            false,
            {1, 4, 7},
            {0, 50, 55, 50},
            None,
            None,
            NoDouble},
        Row{"ThePaymentOverridesTheSpace",
            atGainPoints,
            5,
            0,
            1,
            false,
            {1, 6, 7},
            {0, 50, 55, 50},
            None,
            None,
            NoDouble},
        Row{"PayEach", atPayEachPlayer, 10, 0, 0, false, {1, 6, 7}, {0, 60, 30, 60}, None, None, NoDouble},
        Row{"Collect", atCollectFromEach, 10, 0, 0, false, {1, 6, 7}, {0, 40, 70, 40}, None, None, NoDouble},
        Row{"LoseTurns", atLoseTurns, 3, 1, 0, false, {1, 6, 7}, Same, {0, 3, 0, 0}, None, NoDouble},
        Row{"LoseTurnsAndReturn", atLoseTurns, 3, 0, 1, false, {1, 4, 7}, Same, {0, 3, 0, 0}, None, NoDouble},
        Row{"ExtraTurnsForTheSeatBefore",
            atExtraTurns,
            2,
            0,
            0,
            false,
            {1, 6, 7},
            Same,
            None,
            {0, 2, 0, 0},
            NoDouble},
        Row{"RollDouble",
            atRollDouble,
            0,
            0,
            0,
            false,
            {1, 6, 7},
            Same,
            None,
            None,
            {false, true, false, false}},
        Moved("NeverAnotherCard", atDrawCard, 1, {1, 6, 7}),
        Moved("NeverANumber", atRollNumber, 7, {1, 6, 7}),
        Moved("NothingButTheReturn", atRollNumber, 7, {1, 4, 7}, false, 1),
        Moved("TheSpaceSaysOneOrDoesNot", NoAction, 7, {1, 6, 7}, false, 2)),
    [](const auto& row) { return row.param.Name; });

struct ResumedRow {
    const char* Name;
    int Seat;
    int Code;
    float Data1;
    Ints Positions;
    Ints Lose;
    Ints Extra;
    std::vector<bool> Double;
    bool Illegal = false;
};

class ResumedCard : public testing::TestWithParam<ResumedRow> {};

TEST_P(ResumedCard, Acts) {
    const ResumedRow& row = GetParam();
    CardTable table;
    table.Resume({1, 4, 7}, row.Seat);
    table.Begin(row.Seat);
    table.AddCard(row.Code, row.Data1);
    table.Player.Stop();
    table.Answer(Key::A);
    ExpectRow(table, {row.Name, 0, 0, 0, 0, false, row.Positions, Same, row.Lose, row.Extra, row.Double,
                      row.Illegal});
}

INSTANTIATE_TEST_SUITE_P(
    Codes, ResumedCard,
    testing::Values(
        ResumedRow{"Forward", 2, atMoveForward, 3, {0, 4, 6, 7}, None, None, NoDouble},
        ResumedRow{"BackOfASeatOnTheFirstSpaceReturns", 2, atMoveBack, 2, {0, 1, 4, 7}, None, None, NoDouble},
        ResumedRow{"BackOfTheFirstSeatGoesBelow", 1, atMoveBack, 2, {-2, 3, 4, 7}, None, None, NoDouble},
        ResumedRow{"ForwardOfTheFirstSeat", 1, atMoveForward, 15, {15, 3, 4, 7}, None, None, NoDouble},
        ResumedRow{"GoToOfTheFirstSeat", 1, atGoToSpace, 9, {0, 3, 4, 7}, None, None, NoDouble, true},
        ResumedRow{"GoToStart", 3, atGoToStart, 0, {0, 1, 1, 9}, None, None, NoDouble},
        ResumedRow{"LoseTurns", 2, atLoseTurns, 3, {0, 1, 6, 7}, {0, 0, 3, 0}, None, NoDouble},
        ResumedRow{"ExtraTurns", 2, atExtraTurns, 2, {0, 1, 6, 7}, None, {0, 0, 2, 0}, NoDouble},
        ResumedRow{"RollDouble", 2, atRollDouble, 0, {0, 1, 6, 7}, None, None, {false, false, true, false}}),
    [](const auto& row) { return row.param.Name; });

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

TEST(CardTest, IsAskedUntilItsTriesAreUsedUp) {
    CardTable table({.Tries = 3});
    CCard& card = table.AddCard();
    card.IncorrectActionType = atLosePoints;
    card.IncorrectData1 = 1;
    card.IncorrectMessage = "It was A.";
    table.User.Cards = {Key::B, Key::C};
    table.Answer(Key::D);
    EXPECT_THAT(table.User.Events, ElementsAre("card 1", "message You have 2 tries left.", "card 2",
                                               "message You have 1 try left.", "card 3", "silence",
                                               "sound wrong_answer", "message It was A."));
    EXPECT_EQ(table.State().Points[2], 49);
    EXPECT_TRUE(table.State().CardFinished);
}

TEST(CardTest, TheSecondShowingDoesNotBeginTheMusicAgain) {
    CardTable table({.Tries = 2});
    table.AddCard();
    table.Player.Stop();
    table.User.Cards = {Key::B};
    table.Answer(Key::A);
    EXPECT_THAT(table.User.Events,
                ElementsAre("sound draw_card looping", "card 1", "message You have 1 try left.", "card 0",
                            "silence", "sound right_answer"));
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
    EXPECT_THAT(Values(table.State().Points), ElementsAre(0, 50, 55, 55));
    EXPECT_THAT(Values(table.State().Position), ElementsAre(1, 6, 7));
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

TEST(CardTest, AMissingDeckReportsWithoutADraw) {
    CardTable table;
    table.Turn(2);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:DrawCard 91"));
    EXPECT_EQ(table.State().WhoseTurn, 3);
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
    EXPECT_THAT(Values(table.State().Position), ElementsAre(1, 6, 7));
}

TEST(CardTest, AComputerAnswersByItselfAfterThreeSeconds) {
    CardTable table;
    table.AddCard().CorrectAnswer = 2;
    table.Game().Decks.Item(1).Cards.Item(1).CorrectMessage = "Right!";
    table.State().IsComputer[1] = true;
    table.Random.Numbers = {0, 0.5f};
    const std::int64_t before = table.TheScreen.Milliseconds();
    table.Turn(2);
    EXPECT_THAT(table.User.Events,
                ElementsAre("card 2", "silence", "sound right_answer", "computer's message Right!"));
    // The card, the silence before the sound, and the message.
    EXPECT_EQ(table.TheScreen.Milliseconds() - before, 3000 + 50 + 1000);
}

TEST(CardTest, AComputersRightAnswerWithoutATextIsNeverLeft) {
    CardTable table;
    table.AddCard().CorrectAnswer = 1;
    table.State().IsComputer[1] = true;
    table.Random.Numbers = {0, 0};
    try {
        table.Turn(2);
        FAIL() << "the card was left";
    } catch (const Stuck& stuck) {
        EXPECT_EQ(stuck.Form, "dlgDrawCard");
    }
    EXPECT_TRUE(table.TheProgram.dlgDrawCard.Visible);
}

}  // namespace
}  // namespace tabulon
