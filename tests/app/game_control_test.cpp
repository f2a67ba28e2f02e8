#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using namespace std::string_literals;
using namespace testing;

constexpr const char* NewGameQuestion = "question Quit this game and start a new one?";
constexpr const char* AgainQuestion = "question Play again with the same players?";
constexpr const char* QuitQuestion = "question Quit this game?";
constexpr const char* SaveQuestion = "question Do you want to save this game?";

TEST(StartTest, GivesANewGame) {
    PlayTable table({.Seats = 2, .TurnDevice = Device::Dice, .GameName = "Cats & Dogs"});
    const PlayState& state = table.State();
    for (const Array<Integer>* counter : {&state.LoseTurns, &state.ExtraTurns, &state.RollNumber})
        EXPECT_EQ(InWords(*counter), "0 0 0");
    for (const Array<bool>* flag : {&state.Done, &state.RollDouble}) EXPECT_EQ(InWords(*flag), "0 0 0");
    EXPECT_TRUE(state.GameStart && state.GameInProgress && state.SavedGameLoaded);
    EXPECT_FALSE(state.GameOver || state.GamePlayed || state.LoadedGame || state.CardFinished);
    EXPECT_EQ(state.CurrentSpace, 1);
    FrmMain& form = table.Form();
    EXPECT_TRUE(form.cmdRoll.Enabled && form.timerOverviewSpace.Enabled);
    EXPECT_EQ(form.ActiveControl, &form.cmdRoll);
    EXPECT_EQ(form.lblGameName.Caption, "You're playing \"Cats && Dogs\"");
    EXPECT_EQ(form.Caption, "Tab Player v1.0.0");
    EXPECT_EQ(table.TheScreen.Milliseconds(), 3000 + 3 * 50)
        << "the title page, and the silences of the music";
    EXPECT_EQ(form.imgPlayingPiece[1].Picture, form.imgCharacter[1].Picture);
    EXPECT_TRUE(form.imgPlayingPiece[1].Visible);
    EXPECT_FALSE(form.imgPlayingPiece[2].Visible || form.imgDice[0].Visible);
}

TEST(StartTest, CancelledLeavesNoTurnButton) {
    PlayTable table({.TurnDevice = Device::Dice});
    table.Roll({1, 1});
    table.Form().cmdRoll.Click();
    table.User.TakeEvents();
    table.User.Yes = {true};
    table.User.Players.emplace_back();
    table.Form().cmdNew.Click();
    EXPECT_EQ(table.User.Story(), NewGameQuestion +
                                      "; sound player_icon looping; silence; silence; "
                                      "sound begin_game looping"s);
    EXPECT_FALSE(table.Form().cmdRoll.Enabled || table.Form().cmdSaveGame.Enabled);
    EXPECT_EQ(table.Form().lblRound.Caption, "");
    EXPECT_EQ(table.State().WhoseTurn, 2);
    EXPECT_TRUE(table.State().GameInProgress);
    EXPECT_EQ(InWords(table.State().PieceName), "");
    EXPECT_EQ(InWords(table.State().Name), "Ann Ben Cid");
}

// The click on Ok is refused only by its button: the key works without a name.
TEST(StartTest, WithoutPlayersBeginsNothing) {
    PlayTable table({.Seats = 0, .TurnDevice = Device::Dice});
    EXPECT_EQ(table.State().PlayerCount, 0);
    EXPECT_FALSE(table.State().GameInProgress);
    EXPECT_FALSE(table.Form().timerOverviewSpace.Enabled);
    EXPECT_EQ(table.State().WhoseTurn, 0);
    EXPECT_EQ(table.Form().lblRound.Caption, "");
    EXPECT_EQ(table.Form().lblGameName.Caption, "You're playing \"Test\"");
}

TEST(NewGameTest, AsksBeforeARunningGameIsLeft) {
    PlayTable table;
    table.Turn(4);
    table.User.Yes = {false};
    table.Form().cmdFakeNew.Click();
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre(NewGameQuestion));
    EXPECT_EQ(table.State().Position[0], 5);
    table.User.Yes = {true};
    table.User.Players.emplace_back(People(1));
    table.Form().cmdNew.Click();
    EXPECT_EQ(InWords(table.State().Position), "1");
    EXPECT_EQ(table.State().LastRoll, 4) << "outlives the game";
}

TEST(NewGameTest, AsksForPlayersWhenTheSameAreRefusedAfterAWin) {
    PlayTable table({.FinishCondition = 0, .TurnDevice = Device::Dice});
    table.Roll({1, 2});
    table.Form().cmdRoll.Click();
    table.User.TakeEvents();
    table.User.Yes = {false};
    table.User.Players.emplace_back(People(2));
    table.Form().cmdNew.Click();
    EXPECT_EQ(table.User.Events.front(), AgainQuestion);
    EXPECT_EQ(InWords(table.State().Position), "1 1");
    EXPECT_TRUE(table.State().GameInProgress && table.Form().cmdRoll.Enabled);
    EXPECT_FALSE(table.State().GameOver || table.State().GamePlayed || table.Form().cmdSaveGame.Enabled);
}

TEST(NewGameTest, ComplainsOfAGameThatEndedWithPassShowing) {
    PlayTable table({.FinishCondition = 0, .TurnDevice = Device::Dice});
    table.State().LoseTurns[1] = 1;
    table.Roll({1, 2});
    table.Form().cmdRoll.Click();
    table.User.TakeEvents();
    table.User.Yes = {true};
    table.Form().cmdNew.Click();
    EXPECT_THAT(
        table.User.TakeEvents(),
        Contains("box Turn device not specified correctly.\r\n\r\nThe game may be corrupted, and may\r\n"
                 "need to be reinstalled or repackaged."));
    EXPECT_TRUE(table.Form().cmdPass.Visible);
    // The pass moves by the number of the game before.
    table.Form().cmdPass.Click();
    EXPECT_EQ(table.State().Position[0], 4);
}

TEST(SaveTest, AsksAndTells) {
    PlayTable table;
    EXPECT_FALSE(table.Form().cmdSaveGame.Enabled);
    table.Turn(2);
    EXPECT_TRUE(table.Form().cmdSaveGame.Enabled);
    table.User.Yes = {false, true};
    table.Form().cmdSaveGame.Click();
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre(SaveQuestion));
    EXPECT_TRUE(table.Form().cmdSaveGame.Enabled);
    table.Form().cmdFakeSaveGame.Click();
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre(SaveQuestion, "message Game saved!"));
    EXPECT_FALSE(table.Form().cmdSaveGame.Enabled);
    EXPECT_THAT(table.TheProgram.savedGames.GetSavedGames("key"), SizeIs(1));
}

TEST(FocusTest, IsWhereTheUserGoesOn) {
    PlayTable table({.TurnDevice = Device::Dice});
    FrmMain& form = table.Form();
    const auto focused = [&form] { return form.ActiveControl ? form.ActiveControl->Name : "nothing"; };
    EXPECT_EQ(focused(), "cmdRoll") << "at the start";
    std::string during;
    Form watcher(table.TheScreen, "watcher");
    Timer timer(watcher, "timer", 1, true);
    timer.Tick = [&] { during = focused(); };
    watcher.Load();
    table.State().LoseTurns[1] = 1;
    form.cmdHelp.SetFocus();
    table.Roll({1, 1});
    form.cmdFakeRoll.Click();
    watcher.Unload();
    EXPECT_EQ(during, "nothing") << "while the dice roll";
    EXPECT_EQ(focused(), "cmdPass") << "before a lost turn";
    form.cmdHelp.SetFocus();
    form.cmdFakeRoll.Click();
    EXPECT_EQ(focused(), "cmdRoll") << "after it";
    form.cmdSaveGame.SetFocus();
    table.User.Yes = {false, true};
    form.cmdSaveGame.Click();
    EXPECT_EQ(focused(), "cmdSaveGame") << "nothing saved";
    form.cmdSaveGame.Click();
    EXPECT_EQ(focused(), "cmdRoll") << "saved";
    table.State().Points[3] = 1000;
    table.Roll({1, 1});
    form.cmdRoll.Click();
    EXPECT_EQ(focused(), "cmdNew") << "after the end";
}

TEST(SaveTest, FailsAfterACancelledStart) {
    PlayTable table;
    table.User.Players.emplace_back();
    table.User.Yes = {true, true};
    table.Form().cmdNew.Click();
    table.User.TakeEvents();
    table.Form().cmdSaveGame.Enabled = true;
    table.Form().cmdSaveGame.Click();
    EXPECT_THAT(table.User.TakeEvents(),
                ElementsAre(SaveQuestion, "error modSavedGames:SaveGame 9", "message Game save failed!"));
    EXPECT_TRUE(table.Form().cmdSaveGame.Enabled);
}

TEST(LoadTest, WithoutAChoiceChangesNothing) {
    PlayTable table;
    table.Turn(2);
    table.User.TakeEvents();
    table.Form().cmdLoadGame.Click();
    EXPECT_THAT(table.User.TakeEvents(), IsEmpty());
    EXPECT_EQ(InWords(table.State().Position), "3 1 1");
    EXPECT_TRUE(table.State().GameInProgress);
}

TEST(LoadTest, ANewGameShowsItsTitlePageAndReplacesTheOldOneUnasked) {
    PlayTable table;
    table.Turn(2);
    table.User.TakeEvents();
    table.User.Choices.push_back({});
    table.User.Players.emplace_back(People(1));
    table.User.PlayersAsked = [&] { EXPECT_FALSE(table.TheProgram.frmSplash.Loaded) << "is gone by then"; };
    const std::int64_t before = table.TheScreen.Milliseconds();
    table.Form().cmdLoadGame.Click();
    // The title page, the end of the players' music and that before the start's.
    EXPECT_EQ(table.TheScreen.Milliseconds() - before, 3000 + 50 + 50);
    EXPECT_EQ(table.State().PlayerCount, 1);
    EXPECT_THAT(table.User.Events, Not(Contains(NewGameQuestion)));
}

TEST(QuitTest, AsksWhileAGameRuns) {
    PlayTable table;
    table.User.Yes = {false};
    table.Form().cmdQuit.Click();
    EXPECT_TRUE(table.Form().Visible && table.State().GameInProgress);
    table.User.Yes = {true};
    table.Form().cmdFakeQuit.Click();
    EXPECT_EQ(table.User.Story(), QuitQuestion + "; "s + QuitQuestion + "; silence; silence");
    EXPECT_THAT(table.TheScreen.LoadedForms(), IsEmpty());
}

TEST(QuitTest, TheCloseBoxAsksToo) {
    PlayTable table;
    table.User.Yes = {false, true};
    table.Form().Unload();
    EXPECT_TRUE(table.Form().Loaded && table.Form().Visible);
    table.Form().Unload();
    EXPECT_EQ(table.User.Story(), QuitQuestion + "; "s + QuitQuestion + "; silence");
    EXPECT_THAT(table.TheScreen.LoadedForms(), IsEmpty());
}

TEST(QuitTest, NobodyIsAskedAfterTheEndOrInAResumedGame) {
    PlayTable won({.FinishCondition = 0});
    won.Turn(1);
    won.User.TakeEvents();
    won.Form().cmdQuit.Click();
    EXPECT_THAT(won.User.TakeEvents(), ElementsAre("silence", "silence"));
    PlayTable resumed;
    resumed.Resume({1, 1});
    resumed.Form().Unload();
    EXPECT_THAT(resumed.User.TakeEvents(), ElementsAre("silence"));
    EXPECT_THAT(resumed.TheScreen.LoadedForms(), IsEmpty());
}

TEST(SoundTest, OffAndOnChangeTheButtonsAndTheFocus) {
    PlayTable table({.TurnDevice = Device::Dice});
    FrmMain& form = table.Form();
    form.ActiveControl = nullptr;
    form.cmdSoundOff.Click();
    EXPECT_FALSE(table.G().SoundOn || form.cmdSoundOff.Visible);
    EXPECT_TRUE(form.cmdSoundOn.Visible);
    EXPECT_EQ(form.ActiveControl, &form.cmdRoll);
    form.cmdPass.Visible = true;
    form.cmdRoll.Enabled = false;
    form.cmdSoundOn.Click();
    EXPECT_TRUE(table.G().SoundOn && form.cmdSoundOff.Visible);
    EXPECT_FALSE(form.cmdSoundOn.Visible);
    EXPECT_EQ(form.ActiveControl, &form.cmdPass);
    EXPECT_EQ(table.User.Story(), "silence");
}

TEST(MinimizeTest, SilencesAndMinimises) {
    PlayTable table;
    table.Form().cmdMinimizeWindow.Click();
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre("silence"));
    EXPECT_EQ(table.Form().WindowState, WindowState::Minimised);
}

}  // namespace
}  // namespace tabulon::test
