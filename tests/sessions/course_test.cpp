#include <gmock/gmock.h>

#include "sessions/played_session.h"

// Whole courses of tiny games: saved and resumed ones, computers, lost turns, wins and failures.

namespace tabulon::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

const json Roll = {{"click", "cmdRoll"}};
const json Save = {{"click", "cmdSaveGame"}, {"yes", {true}}};
const json Load = {{"click", "cmdLoadGame"}, {"choose", {{{"saved", 0}}}}};

TEST(NewGame, KeepsEverySeatInTheSlotBeforeOrInItsOwn) {
    const PlayedSession session({}, {.Steps = json::array()});
    ExpectState(session.State(0), {{"Name", {"Ann", "Ben", "Cid"}},
                                   {"IsComputer", {false, false, false}},
                                   {"Position", {1, 1, 1}},
                                   {"PieceName", {"(Animals) 1", "(Animals) 2", "(Animals) 3"}},
                                   {"Points", {0, 0, 0, 0}},
                                   {"RollNumber", {0, 0, 0, 0}},
                                   {"WhoseTurn", 1},
                                   {"Round", 1},
                                   {"round", "Round 1"},
                                   {"button", "cmdRoll"},
                                   {"twin", "&Roll Dice"},
                                   {"cmdSaveGame", false},
                                   {"gameName", "You're playing \"Tiny\""}});
    // Three pieces share the first space, 60 pixels wide.
    for (const int seat : {0, 1, 2})
        EXPECT_EQ(session.State(0).at("pieces").at(seat),
                  json({{"shown", true}, {"left", 20.0 * seat}, {"top", 100.0}}));
}

TEST(ResumedGame, KeepsEverySeatInItsOwnSlotAndShiftsSomeFields) {
    const PlayedSession session({.Rows = {{3, 10, 2}}}, {.Random = Rolls({2}), .Steps = {Roll, Save, Load}});
    EXPECT_THAT(session.Events(2),
                ElementsAre("question Do you want to save this game?", "message Game saved!"));
    ExpectState(session.State(3), {{"LoadedGame", true},
                                   {"GameInProgress", false},
                                   {"Name", {"", "Ann", "Ben", "Cid"}},
                                   {"Position", {0, 3, 1, 1}},
                                   {"PieceName", {"", "(Animals) 1", "(Animals) 2", "(Animals) 3"}},
                                   // Ann's extra turns stood in slot 1, which is saved for player 2.
                                   {"ExtraTurns", {0, 0, 2, 0}},
                                   {"WhoseTurn", 1},
                                   {"cmdSaveGame", false}});
}

TEST(ResumedGame, LosesTheLostTurnsOfTheFirstSeat) {
    const PlayedSession session({.Rows = {{3, 9, 2}}}, {.Random = Rolls({2}), .Steps = {Roll, Save, Load}});
    ExpectState(session.State(1), {{"LoseTurns", {2, 0, 0, 0}}});
    ExpectState(session.State(3), {{"LoseTurns", {0, 0, 0, 0}}, {"WhoseTurn", 2}});
}

TEST(ResumedGame, MovesThePieceOfTheSeatBefore) {
    const PlayedSession session({.Rows = {{3, 1, 4}}},
                                {.Random = Rolls({1, 2}), .Steps = {Roll, Save, Load, Roll}});
    // Ann stands on 2. Ben comes to 3, which sends the piece in slot 1 four spaces forward.
    ExpectState(session.State(4), {{"Position", {0, 6, 3, 1}}, {"WhoseTurn", 3}});
}

TEST(ResumedGame, OfSixFailsAtTheSeventhPlate) {
    const PlayedSession session({}, {.Players = PlayersNamed({"Ann", "Ben", "Cid", "Dot", "Eve", "Fay"}),
                                     .Random = Rolls({2}),
                                     .Steps = {Roll, Save, Load}});
    EXPECT_THAT(session.Events(3), Contains("error frmMain:StartLoadedGame 9"));
    ExpectState(session.State(3), {{"LoadedGame", true}, {"Position", {0, 3, 1, 1, 1, 1, 1}}});
}

TEST(Computers, FollowAPersonOnceAndThenWaitForAClick) {
    const json players = {Player("Ann"), Player("Ben", true), Player("Cid", true)};
    const PlayedSession session({.Rows = {{4, 13, 0, 0, "Hi"}}},
                                {.Players = players, .Random = Rolls({2, 3, 5}), .Steps = {Roll, Roll}});
    EXPECT_THAT(session.Events(1), ElementsAre("computer's message Hi"));
    ExpectState(session.State(1), {{"Position", {3, 4, 1}}, {"WhoseTurn", 3}});
    ExpectState(session.State(2), {{"Position", {3, 4, 6}}, {"WhoseTurn", 1}});
    // A dice roll takes six frames and a last look; the computer's message a second.
    EXPECT_EQ(session.State(1).at("ms").get<int>() - session.State(0).at("ms").get<int>(), 2 * 4800 + 1000);
}

TEST(Twin, HasNoComputerFollowing) {
    const PlayedSession session({}, {.Players = {Player("Ann"), Player("Ben", true)},
                                     .Random = Rolls({2}),
                                     .Steps = {{{"click", "cmdFakeRoll"}}}});
    ExpectState(session.State(1), {{"Position", {3, 1}}, {"WhoseTurn", 2}});
}

TEST(LostTurn, IsPassedWithoutARoll) {
    const PlayedSession session({.Rows = {{3, 9, 1}}}, {.Players = PlayersNamed({"Ann"}),
                                                        .Random = Rolls({2}),
                                                        .Steps = {Roll, Roll, {{"click", "cmdPass"}}}});
    ExpectState(session.State(1), {{"button", "cmdPass"}, {"enabled", true}, {"twin", "&Pass"}});
    EXPECT_THAT(session.Events(2), ElementsAre("refused cmdRoll"));
    ExpectState(session.State(3),
                {{"LoseTurns", {0, 0}}, {"Position", {3}}, {"LastRoll", 2}, {"button", "cmdRoll"}});
}

TEST(RollNumber, MovesOnlyOnThatTotal) {
    const PlayedSession session(
        {.Rows = {{3, 12, 5}}},
        {.Players = PlayersNamed({"Ann"}), .Random = Rolls({2, 4, 5}), .Steps = {Roll, Roll, Roll}});
    ExpectState(session.State(2), {{"Position", {3}}});
    EXPECT_THAT(session.Events(2), IsEmpty());
    EXPECT_THAT(session.Events(3), ElementsAre("silence", "sound good_roll"));
    ExpectState(session.State(3), {{"Position", {8}}, {"RollNumber", {0, 5}}});
}

TEST(Bankrupt, SeatIsSteppedOver) {
    // Ann and Cid are given 5 and 9; then Ann's space takes 5 from each: nothing is left of Ben, and 4 of
    // Cid.
    const PlayedSession session({.Rows = {{2, 6, 5}, {4, 6, 9}, {3, 8, 5}}},
                                {.Random = Rolls({1, 4, 3, 1}), .Steps = {Roll, Roll, Roll, Roll}});
    ExpectState(session.State(3), {{"Points", {0, 5, 0, 9}}});
    ExpectState(session.State(4),
                {{"Points", {0, 10, 0, 4}}, {"Done", {false, false, true, false}}, {"WhoseTurn", 3}});
}

struct WinCase {
    const char* Name;
    TinyGame Game;
    std::vector<int> Faces;
    std::string Message;
    json Expected;
};

void PrintTo(const WinCase& win, std::ostream* out) { *out << win.Name; }

class Win : public testing::TestWithParam<WinCase> {};

TEST_P(Win, EndsTheGame) {
    const WinCase& win = GetParam();
    json steps = json::array();
    for (std::size_t i = 0; i < win.Faces.size(); ++i) steps.push_back(Roll);
    const PlayedSession session(
        win.Game, {.Players = PlayersNamed({"Ann", "Ben"}), .Random = Rolls(win.Faces), .Steps = steps});
    const int last = static_cast<int>(win.Faces.size());
    if (last > 1) ExpectState(session.State(last - 1), {{"GameOver", false}, {"GameInProgress", true}});
    const std::vector<std::string> events = session.Events(last);
    ASSERT_GE(events.size(), 3u);
    EXPECT_THAT(std::vector(events.end() - 3, events.end()),
                ElementsAre("silence", "sound won_game", "message " + win.Message));
    ExpectState(session.State(last), {{"GameOver", true},
                                      {"GameInProgress", false},
                                      {"GamePlayed", true},
                                      {"enabled", false},
                                      {"timer", false},
                                      {"marker", {255, 0, 0}}});
    ExpectState(session.State(last), win.Expected);
}

INSTANTIATE_TEST_SUITE_P(
    EachAim, Win,
    testing::Values(
        WinCase{"Points",
                {{{"Finish Condition", "4"}}, {{3, 6, 4}}},
                {2},
                "Game Over!  \r\nAnn won!",
                {{"WhoseTurn", 2}, {"/plates/0/points", "Points: 4"}, {"/plates/0/shown", true}}},
        WinCase{"MoneyOfTheSecond",
                {{{"Goal Type", "1"}, {"Finish Condition", "4"}}, {{3, 6, 4}}},
                {1, 2},
                "Game Over!  \r\nBen won!",
                {{"WhoseTurn", 1}, {"/plates/1/points", "Money: 4"}}},
        WinCase{"FirstAtTheEnd",
                {{{"Goal Type", "2"}, {"Finish Condition", "0"}}, {{5, 6, 4}}, {}, 5},
                {6},
                "Game Over!  \r\nAnn won!",
                {{"WhoseTurn", 1}, {"Position", {5, 1}}, {"Points", {0, 0, 0}}, {"/plates/0/shown", false}}},
        WinCase{"AllAtTheEnd",
                {{{"Goal Type", "2"}, {"Finish Condition", "1"}}, {}, {}, 5},
                {6, 6},
                "Everyone finished!\r\nCongratulations!",
                {{"WhoseTurn", 2}, {"Position", {5, 5}}}}),
    CaseName());

TEST(Boards, OfPointsLeaveTheFirstSpaceOutOfTheRing) {
    const PlayedSession session({.Spaces = 5}, {.Random = Rolls({6})});
    ExpectState(session.State(1), {{"Position", {3, 1, 1}}});  // 1 + 6 is 7; 7 - 5 + 1
}

TEST(Boards, ThatLoopHaveTheFirstSpaceInTheRing) {
    const PlayedSession session({.Settings = {{"Goal Type", "2"}, {"Loop Board", "1"}}, .Spaces = 5},
                                {.Random = Rolls({6})});
    ExpectState(session.State(1), {{"Position", {2, 1, 1}}, {"GameOver", false}});
}

TEST(Slots, OfSixReelsFailWithTheirSumComplete) {
    // One spin from 1 stops each reel on 2.
    const PlayedSession session({.Settings = {{"Turn Device", "1"}, {"Dice Used", "6"}}, .Spaces = 20},
                                {.Random = std::vector<double>(12, 0), .Steps = {{{"click", "cmdSpin"}}}});
    EXPECT_THAT(session.Events(1), ElementsAre("error frmMain:RunSlots 9"));
    ExpectState(session.State(1),
                {{"LastRoll", 12}, {"Position", {13, 1, 1}}, {"button", "cmdSpin"}, {"enabled", true}});
}

TEST(MissingBoard, IsToldAndThePiecesStandAllTheSame) {
    const PlayedSession session({.Settings = {{"Board Image", "none.bmp"}}}, {.Steps = json::array()});
    EXPECT_THAT(session.Events(0), Contains("error frmMain:LoadGameBoard 53").Times(1));
    EXPECT_THAT(session.Events(0), Contains("error frmMain:SetOverviewSpace 11").Times(1));
    ExpectState(session.State(0), {{"round", "Round 1"}, {"/pieces/2/shown", true}});
}

TEST(CancelledPlayers, LeaveAGameThatCannotBeSaved) {
    const json cancel = {{"click", "cmdNew"}, {"yes", {true}}, {"players", {nullptr}}};
    const PlayedSession session(
        {}, {.Random = Rolls({2, 2}), .Steps = {cancel, {{"click", "cmdFakeRoll"}}, Save, Roll}});
    ExpectState(session.State(1),
                {{"IsComputer", {false}}, {"PieceName", {""}}, {"PlayerCount", 3}, {"enabled", false}});
    ExpectState(session.State(2), {{"Position", {3, 1, 1}}, {"enabled", true}});
    EXPECT_THAT(session.Events(3),
                ElementsAre("question Do you want to save this game?", "error modSavedGames:SaveGame 9",
                            "message Game save failed!"));
    EXPECT_THAT(session.Events(4), ElementsAre("error frmMain:cmdRoll_Click 9"));
}

TEST(NoTurnDevice, StaysWithoutAButton) {
    const PlayedSession session({.Settings = {{"Turn Device", "2"}}}, {.Steps = {Roll}});
    ExpectState(session.State(0), {{"button", nullptr}, {"twin", ""}});
    EXPECT_THAT(session.Events(1), ElementsAre("refused cmdRoll"));
}

TEST(NewGame, AfterAWinCanHaveTheSamePlayers) {
    const json again = {{"click", "cmdNew"}, {"yes", {true}}};
    const PlayedSession session({.Settings = {{"Finish Condition", "4"}}, .Rows = {{3, 6, 4}}},
                                {.Random = Rolls({2}), .Steps = {Roll, again}});
    EXPECT_THAT(session.Events(2),
                ElementsAre("question Play again with the same players?", "silence", "sound begin_game"));
    ExpectState(session.State(2), {{"Name", {"Ann", "Ben", "Cid"}},
                                   {"Points", {0, 0, 0, 0}},
                                   {"Position", {1, 1, 1}},
                                   {"GameInProgress", true},
                                   {"LastRoll", 2}});
}

struct StuckCase {
    const char* Name;
    TinyGame Game;
    Sitting Seats;
    std::string Form;
};

void PrintTo(const StuckCase& stuck, std::ostream* out) { *out << stuck.Name; }

class StuckSession : public testing::TestWithParam<StuckCase> {};

TEST_P(StuckSession, EndsAtTheFormThatWaits) {
    const PlayedSession session(GetParam().Game, GetParam().Seats);
    EXPECT_EQ(session.End, playtest::SessionEnd::Stuck);
    ASSERT_FALSE(session.Events(1).empty());
    EXPECT_EQ(session.Events(1).back(), "stuck " + GetParam().Form);
}

INSTANTIATE_TEST_SUITE_P(
    MissingAnswers, StuckSession,
    testing::Values(StuckCase{"NoNumbers", {}, {.Random = {0, 0.5}}, "frmMain"},
                    StuckCase{"NoCardAnswer",
                              {.Rows = {{3, 0, 1}}, .Cards = {{6, 1}}},
                              {.Random = Rolls({2, 2})},
                              "dlgDrawCard"},
                    StuckCase{"NoYesOrNo", {}, {.Steps = {{{"click", "cmdNew"}}}}, "dlgMsgYesNo"},
                    StuckCase{
                        "NoPlayers", {}, {.Steps = {{{"click", "cmdNew"}, {"yes", {true}}}}}, "dlgPlayers"},
                    StuckCase{"NoChoice", {}, {.Steps = {{{"click", "cmdLoadGame"}}}}, "dlgLoadGame"}),
    CaseName());

TEST(Quit, EndsTheTraceWithoutAState) {
    const PlayedSession session({}, {.Steps = {{{"click", "cmdQuit"}, {"yes", {true}}}, Roll}});
    EXPECT_EQ(session.End, playtest::SessionEnd::Done);
    EXPECT_THAT(session.Events(1), ElementsAre("question Quit this game?", "silence", "silence", "ended"));
}

}  // namespace

}  // namespace tabulon::test
