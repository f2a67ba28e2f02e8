#include <gmock/gmock.h>

#include "sessions/played_session.h"

// Resumed games, whose arrays keep every seat in its own slot. Ann rolls 1 and comes to space 2, the game is
// saved and resumed, and Ben rolls 2 from space 1: what space 3 orders then is done to the slots as the rules
// for a resumed game say.

namespace tabulon::test {

namespace {

using testing::ElementsAre;

const json Roll = {{"click", "cmdRoll"}};
const json Save = {{"click", "cmdSaveGame"}, {"yes", {true}}};
const json Load = {{"click", "cmdLoadGame"}, {"choose", {{{"saved", 0}}}}};

struct ResumedCase {
    const char* Name;
    SpaceRow Space;
    json Expected;
    CardRow Card = {};
};

void PrintTo(const ResumedCase& resumed, std::ostream* out) { *out << resumed.Name; }

class ResumedAction : public testing::TestWithParam<ResumedCase> {};

TEST_P(ResumedAction, UsesTheSlotsOfAResumedGame) {
    const ResumedCase& resumed = GetParam();
    const bool draws = resumed.Space.Action == 0;
    std::vector<double> random = Rolls({1, 2});
    if (draws) random.insert(random.begin() + 7, 0);  // the deck is ordered anew when the game is resumed
    if (draws) random.push_back(0);
    TinyGame game{.Rows = {resumed.Space}};
    if (draws) game.Cards = {resumed.Card};
    const PlayedSession session(
        game, {.Random = random, .Steps = {Roll, Save, Load, {{"click", "cmdRoll"}, {"cards", {"A"}}}}});
    ExpectState(session.State(3), {{"LoadedGame", true}, {"WhoseTurn", 2}, {"Position", {0, 2, 1, 1}}});
    ExpectState(session.State(4), resumed.Expected);
}

constexpr SpaceRow Draw{3, 0, 1};

INSTANTIATE_TEST_SUITE_P(
    EachCode, ResumedAction,
    testing::Values(
        ResumedCase{"Forward", {3, 1, 4}, {{"Position", {0, 6, 3, 1}}, {"WhoseTurn", 3}}},
        ResumedCase{"ForwardAsRolled", {3, 1, -1}, {{"Position", {0, 4, 3, 1}}}},
        ResumedCase{"Back", {3, 2, 1}, {{"Position", {0, 1, 3, 1}}}},
        ResumedCase{"GoTo", {3, 3, 7}, {{"Position", {0, 7, 3, 1}}}},
        ResumedCase{"GoToStart", {3, 4}, {{"Position", {0, 1, 3, 1}}}},
        ResumedCase{"LosePoints", {3, 5, 4}, {{"Points", {0, 0, -4, 0}}, {"/plates/1/points", "Points: -4"}}},
        ResumedCase{"GainPoints", {3, 6, 4}, {{"Points", {0, 0, 4, 0}}}},
        ResumedCase{"PaysNothing", {3, 7, 4}, {{"Points", {0, 0, 0, 0}}}},
        ResumedCase{"CollectFromEach", {3, 8, 2}, {{"Done", {false, true, false, true}}, {"WhoseTurn", 1}}},
        ResumedCase{
            "LoseTurnsAndReturn", {3, 9, 2, 1}, {{"LoseTurns", {0, 0, 2, 0}}, {"Position", {0, 2, 1, 1}}}},
        ResumedCase{"ExtraTurns", {3, 10, 2}, {{"ExtraTurns", {0, 0, 2, 0}}, {"WhoseTurn", 2}}},
        ResumedCase{"RollDouble", {3, 11}, {{"RollDouble", {false, false, true, false}}}},
        ResumedCase{"RollNumber", {3, 12, 5}, {{"RollNumber", {0, 0, 5, 0}}}},
        ResumedCase{"CardForward", Draw, {{"Position", {0, 5, 3, 1}}}, {1, 3}},
        ResumedCase{"CardBackPastTheStartReturns", Draw, {{"Position", {0, 2, 1, 1}}}, {2, 5}},
        ResumedCase{"CardGoTo", Draw, {{"Position", {0, 7, 3, 1}}}, {3, 7}},
        ResumedCase{
            "CardGainPoints", Draw, {{"Points", {0, 0, 4, 0}}, {"Position", {0, 2, 1, 1}}}, {6, 4, 1}},
        ResumedCase{"CardLoseTurns", Draw, {{"LoseTurns", {0, 0, 2, 0}}}, {9, 2}},
        ResumedCase{"CardExtraTurns", Draw, {{"ExtraTurns", {0, 0, 2, 0}}, {"WhoseTurn", 2}}, {10, 2}},
        ResumedCase{"CardRollDouble", Draw, {{"RollDouble", {false, false, true, false}}}, {11}}),
    CaseName());

TEST(ResumedGame, IsWonByItsOwnSeatAndThenForgetsTheName) {
    const json again = {{"click", "cmdNew"}, {"yes", {true}}};
    const PlayedSession session({.Settings = {{"Finish Condition", "4"}}, .Rows = {{3, 6, 4}}},
                                {.Random = Rolls({1, 2, 2}), .Steps = {Roll, Save, Load, Roll, again, Roll}});
    EXPECT_EQ(session.Events(4).back(), "message Game Over!  \r\nBen won!");
    // The same players keep the empty slot in front, which a new game takes for seat 1.
    ExpectState(session.State(5), {{"Name", {"", "Ann", "Ben", "Cid"}}, {"LoadedGame", false}});
    EXPECT_EQ(session.Events(6).back(), "message Game Over!  \r\n won!");
}

TEST(ResumedGame, TakesTheSeatBeforeForTheComputer) {
    const PlayedSession session({.Rows = {{3, 13, 0, 0, "Hi"}}},
                                {.Players = {Player("Ann", true), Player("Ben"), Player("Cid")},
                                 .Random = Rolls({1, 2}),
                                 .Steps = {Roll, Save, Load, Roll}});
    EXPECT_THAT(session.Events(4), ElementsAre("computer's message Hi"));
}

TEST(Computers, AnswerCardsByDrawAndInTheirTime) {
    std::vector<double> random = Rolls({1, 2});
    for (const double number : {0.0, 0.5, 0.0}) random.push_back(number);  // the card, then C and B
    const PlayedSession session(
        {.Settings = {{"Tries", "2"}}, .Rows = {{3, 0, 1}}, .Cards = {{6, 4, 0, 5, 3}}},
        {.Players = {Player("Ann"), Player("Ben", true)}, .Random = random});
    EXPECT_THAT(session.Events(1),
                ElementsAre("card C", "computer's message You have 1 try left.", "card B", "silence",
                            "sound wrong_answer", "computer's message Sorry you missed this one."));
    ExpectState(session.State(1), {{"Points", {0, 0, -3}}});
    EXPECT_EQ(session.State(1).at("ms").get<int>() - session.State(0).at("ms").get<int>(),
              2 * 4800 + 2 * (3000 + 1000) + 50);
}

}  // namespace

}  // namespace tabulon::test
