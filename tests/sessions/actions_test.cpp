#include <gmock/gmock.h>

#include "sessions/played_session.h"

// Each action code in a game of its own: Ann rolls 2 from space 1 and comes to space 3, which orders it.

namespace tabulon::test {

namespace {

using testing::ElementsAreArray;
using testing::TestWithParam;
using testing::Values;

struct ActionCase {
    const char* Name;
    SpaceRow Space;
    std::vector<std::string> Events;
    json Expected;
};

void PrintTo(const ActionCase& action, std::ostream* out) { *out << action.Name; }

class SpaceAction : public TestWithParam<ActionCase> {};

TEST_P(SpaceAction, DoesWhatItsCodeSays) {
    const PlayedSession session({.Rows = {GetParam().Space}}, {.Random = Rolls({2})});
    EXPECT_THAT(session.Events(1), ElementsAreArray(GetParam().Events));
    ExpectState(session.State(1), GetParam().Expected);
}

const json PassesOn = {{"WhoseTurn", 2}};

INSTANTIATE_TEST_SUITE_P(
    EachCode, SpaceAction,
    Values(
        ActionCase{"None",
                   {3, 13},
                   {},
                   {{"Position", {3, 1, 1}}, {"LastRoll", 2}, {"PreviousSpace", 1}, {"WhoseTurn", 2}}},
        ActionCase{"Message", {3, 13, 0, 0, "Hi"}, {"message Hi"}, PassesOn},
        ActionCase{"MessageOfOneBlank", {3, 13, 0, 0, " "}, {}, PassesOn},
        ActionCase{"MessageOfTwoBlanks", {3, 13, 0, 0, "  "}, {"message   "}, PassesOn},
        ActionCase{"Forward", {3, 1, 3}, {"silence", "sound good_move"}, {{"Position", {6, 1, 1}}}},
        ActionCase{"ForwardAsRolled", {3, 1, -1}, {"silence", "sound good_move"}, {{"Position", {5, 1, 1}}}},
        ActionCase{"ForwardPastTheEnd", {3, 1, 9}, {"silence", "sound good_move"}, {{"Position", {2, 1, 1}}}},
        ActionCase{"Back", {3, 2, 1}, {"silence", "sound bad_move"}, {{"Position", {2, 1, 1}}}},
        ActionCase{"BackPastTheStart", {3, 2, 5}, {"silence", "sound bad_move"}, {{"Position", {8, 1, 1}}}},
        ActionCase{"BackByMinusOne", {3, 2, -1}, {"silence", "sound bad_move"}, {{"Position", {4, 1, 1}}}},
        ActionCase{"GoTo", {3, 3, 7}, {}, {{"Position", {7, 1, 1}}}},
        ActionCase{"GoToBeyondTheBoard",
                   {3, 3, 11},
                   {"box The action for this space is illegal!"},
                   {{"Position", {3, 1, 1}}}},
        ActionCase{"GoToStart", {3, 4}, {"silence", "sound bad_move"}, {{"Position", {1, 1, 1}}}},
        ActionCase{"LosePoints",
                   {3, 5, 4},
                   {"silence", "sound bad_point"},
                   {{"Points", {0, -4, 0, 0}}, {"/plates/0/points", "Points: -4"}}},
        ActionCase{"GainPoints",
                   {3, 6, 4},
                   {"silence", "sound good_point"},
                   {{"Points", {0, 4, 0, 0}}, {"/plates/0/points", "Points: 4"}}},
        ActionCase{
            "GainsTwoAndAHalf", {3, 6, 2.5}, {"silence", "sound good_point"}, {{"Points", {0, 2, 0, 0}}}},
        ActionCase{
            "GainsThreeAndAHalf", {3, 6, 3.5}, {"silence", "sound good_point"}, {{"Points", {0, 4, 0, 0}}}},
        ActionCase{"PaysNothingFromNothing",
                   {3, 7, 2},
                   {"silence", "sound bad_point"},
                   {{"Points", {0, 0, 0, 0}}, {"Done", {false, false, false, false}}}},
        ActionCase{"CollectingFromThePoorBankruptsThem",
                   {3, 8, 2},
                   {"silence", "sound good_point"},
                   {{"Points", {0, 0, 0, 0}}, {"Done", {false, false, true, true}}, {"WhoseTurn", 1}}},
        ActionCase{"LoseTurns",
                   {3, 9, 2},
                   {"silence", "sound lose_turn"},
                   {{"LoseTurns", {2, 0, 0, 0}}, {"Position", {3, 1, 1}}, {"WhoseTurn", 2}}},
        ActionCase{"LoseTurnsAndReturn",
                   {3, 9, 2, 1},
                   {"silence", "sound lose_turn"},
                   {{"LoseTurns", {2, 0, 0, 0}}, {"Position", {1, 1, 1}}, {"Round", 3}}},
        ActionCase{"ExtraTurns",
                   {3, 10, 2},
                   {"silence", "sound extra_turn"},
                   {{"ExtraTurns", {0, 2, 0, 0}}, {"WhoseTurn", 1}}},
        ActionCase{"NegativeExtraTurnsKeepTheSeat",
                   {3, 10, -1},
                   {"silence", "sound extra_turn"},
                   {{"ExtraTurns", {0, -1, 0, 0}}, {"WhoseTurn", 1}}},
        ActionCase{"RollDouble",
                   {3, 11},
                   {"silence", "sound bad_roll"},
                   {{"RollDouble", {false, true, false, false}}, {"WhoseTurn", 2}}},
        ActionCase{"RollNumber",
                   {3, 12, 5},
                   {"silence", "sound bad_roll"},
                   {{"RollNumber", {0, 5, 0, 0}}, {"WhoseTurn", 2}}},
        ActionCase{"OverflowComesAfterTheSound",
                   {3, 6, 40000},
                   {"silence", "sound good_point", "error frmMain:SpaceActions 6"},
                   {{"Points", {0, 0, 0, 0}}, {"WhoseTurn", 2}}},
        ActionCase{"OverflowStillReturns",
                   {3, 9, 40000, 1},
                   {"silence", "sound lose_turn", "error frmMain:SpaceActions 6"},
                   {{"LoseTurns", {0, 0, 0, 0}}, {"Position", {1, 1, 1}}}},
        ActionCase{"MissingDeck",
                   {3, 0, 1},
                   {"error frmMain:DrawCard 91"},
                   {{"Position", {3, 1, 1}}, {"WhoseTurn", 2}}}),
    CaseName());

struct CardCase {
    const char* Name;
    CardRow Card;
    json Expected;
    int SpaceData2 = 0;
};

void PrintTo(const CardCase& card, std::ostream* out) { *out << card.Name; }

class CardAction : public TestWithParam<CardCase> {};

TEST_P(CardAction, DoesWhatItsCodeSays) {
    const CardCase& card = GetParam();
    std::vector<double> random = Rolls({2});
    random.push_back(0);  // the card
    const PlayedSession session({.Rows = {{3, 0, 1, card.SpaceData2}}, .Cards = {card.Card}},
                                {.Random = random, .Steps = {{{"click", "cmdRoll"}, {"cards", {"A"}}}}});
    EXPECT_THAT(session.Events(1), ElementsAreArray({"card A", "silence", "sound right_answer"}));
    ExpectState(session.State(1), card.Expected);
}

TEST_P(CardAction, IsTheSameForAWrongAnswer) {
    const CardCase& card = GetParam();
    const CardRow wrong{.Action = 13,
                        .WrongAction = card.Card.Action,
                        .WrongData1 = card.Card.Data1,
                        .WrongData2 = card.Card.Data2};
    std::vector<double> random = Rolls({2});
    random.push_back(0);
    const PlayedSession session({.Rows = {{3, 0, 1, card.SpaceData2}}, .Cards = {wrong}},
                                {.Random = random, .Steps = {{{"click", "cmdRoll"}, {"cards", {"B"}}}}});
    EXPECT_THAT(session.Events(1), ElementsAreArray({"card B", "silence", "sound wrong_answer",
                                                     "message Sorry you missed this one."}));
    ExpectState(session.State(1), card.Expected);
}

INSTANTIATE_TEST_SUITE_P(
    EachCode, CardAction,
    Values(CardCase{"NoActionOfCode0",
                    {0, 3},
                    {{"Position", {3, 1, 1}}, {"CardFinished", true}, {"WhoseTurn", 2}}},
           CardCase{"Forward", {1, 3}, {{"Position", {6, 1, 1}}}},
           CardCase{"ForwardAsRolled", {1, -1}, {{"Position", {5, 1, 1}}}},
           CardCase{"Back", {2, 1}, {{"Position", {2, 1, 1}}}},
           CardCase{"BackAsRolled", {2, -1}, {{"Position", {1, 1, 1}}}},
           CardCase{"BackPastTheStartReturns", {2, 5}, {{"Position", {1, 1, 1}}, {"Round", 3}}},
           CardCase{"GoTo", {3, 7}, {{"Position", {7, 1, 1}}}},
           CardCase{"GoToStart", {4}, {{"Position", {1, 1, 1}}, {"Round", 2}}},
           CardCase{"LosePoints", {5, 4}, {{"Points", {0, -4, 0, 0}}, {"Position", {3, 1, 1}}}},
           CardCase{"GainPointsAndReturn", {6, 4, 1}, {{"Points", {0, 4, 0, 0}}, {"Position", {1, 1, 1}}}},
           CardCase{"PointsOverruleTheReturnOfTheSpace", {6, 4, 0}, {{"Position", {3, 1, 1}}}, 1},
           CardCase{"PayEachPlayer", {7, 2}, {{"Points", {0, 0, 0, 0}}}},
           CardCase{"CollectFromEach", {8, 2}, {{"Done", {false, false, true, true}}, {"WhoseTurn", 1}}},
           CardCase{"LoseTurnsKeepTheReturnOfTheSpace",
                    {9, 2},
                    {{"LoseTurns", {2, 0, 0, 0}}, {"Position", {1, 1, 1}}},
                    1},
           CardCase{"ExtraTurnsGoToTheSlotBefore", {10, 2}, {{"ExtraTurns", {2, 0, 0, 0}}, {"WhoseTurn", 2}}},
           CardCase{"RollDoubleBindsTheDrawer", {11}, {{"RollDouble", {true, false, false, false}}}},
           CardCase{"NoActionOfCode12", {12, 5}, {{"RollNumber", {0, 0, 0, 0}}, {"Position", {3, 1, 1}}}}),
    CaseName());

TEST(WrongAnswers, AreTakenUntilTheTriesAreUsedUp) {
    std::vector<double> random = Rolls({2});
    random.push_back(0);
    const PlayedSession session(
        {.Settings = {{"Tries", "2"}}, .Rows = {{3, 0, 1}}, .Cards = {{6, 4, 0, 5, 3}}},
        {.Random = random, .Steps = {{{"click", "cmdRoll"}, {"cards", {"B", "C"}}}}});
    EXPECT_THAT(session.Events(1),
                ElementsAreArray({"card B", "message You have 1 try left.", "card C", "silence",
                                  "sound wrong_answer", "message Sorry you missed this one."}));
    ExpectState(session.State(1), {{"Points", {0, -3, 0, 0}}});
}

TEST(Escape, OnALaterCardRunsTheActionBeforeAgain) {
    std::vector<double> random = Rolls({2, 2, 2, 2});
    // Ann draws card 1, Ben card 2; each number stands behind its roll.
    random.insert(random.begin() + 7, 0.0);
    random.insert(random.begin() + 15, 0.9);
    const json answers = {{{"click", "cmdRoll"}, {"cards", {"A"}}},
                          {{"click", "cmdRoll"}, {"cards", {"Escape"}}}};
    const PlayedSession session({.Rows = {{3, 0, 1}}, .Cards = {{6, 4}, {5, 9}}},
                                {.Random = random, .Steps = answers});
    EXPECT_THAT(session.Events(2), ElementsAreArray({"sound draw_card", "card Escape"}));
    ExpectState(session.State(2), {{"Points", {0, 4, 4, 0}}});
}

}  // namespace

}  // namespace tabulon::test
