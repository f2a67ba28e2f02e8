#include <gmock/gmock.h>

#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::People;
using test::PlayTable;
using test::Values;
using testing::Contains;
using testing::ElementsAre;

struct Density {
    int PixelsPerInch;
    int NameAbove;  // pixels above the top of the character
};

class PlateLayoutTest : public testing::TestWithParam<Density> {
  protected:
    const float pixel = 1440.0f / static_cast<float>(GetParam().PixelsPerInch);
};

TEST_P(PlateLayoutTest, OfPoints) {
    PlayTable table({.Seats = 2, .PixelsPerInch = GetParam().PixelsPerInch});
    FrmMain& form = table.Form();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(form.lblName[i].Top,
                  form.imgCharacter[i].Top - static_cast<float>(GetParam().NameAbove) * pixel);
        EXPECT_EQ(form.lblPoints[i].Top, form.lblName[i].Top + form.lblName[i].Height + 2 * pixel);
        EXPECT_TRUE(form.lblPoints[i].Visible);
        EXPECT_EQ(form.lblPoints[i].Caption, "Points: 0");
    }
    EXPECT_FALSE(form.lblPoints[2].Visible);
}

TEST_P(PlateLayoutTest, OfARace) {
    PlayTable table({.Seats = 2, .GoalType = Goal::EndOfBoard, .PixelsPerInch = GetParam().PixelsPerInch});
    FrmMain& form = table.Form();
    EXPECT_EQ(form.lblName[1].Top, form.imgCharacter[1].Top + 4 * pixel);
    EXPECT_FALSE(form.lblPoints[0].Visible || form.lblPoints[1].Visible);
}

TEST_P(PlateLayoutTest, OfAResumedGameHasItsTopsOnTheNextPlate) {
    PlayTable table({.Seats = 2, .GoalType = Goal::Money, .PixelsPerInch = GetParam().PixelsPerInch});
    FrmMain& form = table.Form();
    form.lblName[0].Top = 77;
    form.lblPoints[2].Top = 88;
    table.State().Points.ReDim(2);
    table.Resume({3, 5});
    EXPECT_EQ(form.lblName[0].Top, 77);
    for (int seat = 1; seat <= 2; ++seat) {
        EXPECT_EQ(form.lblName[seat].Top, form.imgCharacter[seat].Top - 2 * pixel);
        EXPECT_EQ(form.lblPoints[seat - 1].Top,
                  form.lblName[seat].Top + form.lblName[seat].Height + 2 * pixel);
        EXPECT_EQ(form.lblPoints[seat - 1].Caption, "Money: 0");
    }
    EXPECT_EQ(form.lblPoints[2].Top, 88);
}

TEST_P(PlateLayoutTest, OfAResumedRace) {
    PlayTable table({.Seats = 2, .GoalType = Goal::EndOfBoard, .PixelsPerInch = GetParam().PixelsPerInch});
    FrmMain& form = table.Form();
    form.lblPoints[1].Visible = true;
    table.Resume({3, 5});
    EXPECT_EQ(form.lblName[2].Top, form.imgCharacter[2].Top + 4 * pixel);
    EXPECT_FALSE(form.lblPoints[1].Visible);
}

INSTANTIATE_TEST_SUITE_P(Densities, PlateLayoutTest, testing::Values(Density{96, 4}, Density{120, 9}),
                         [](const auto& row) { return "Dpi" + std::to_string(row.param.PixelsPerInch); });

TEST(ResumedGameTest, BeginsWithNothingOfTheSavesBooleans) {
    PlayTable table({.TurnDevice = Device::Dice});
    table.State().GameInProgress = table.State().GamePlayed = table.State().GameOver = true;
    table.State().Round = 7;
    table.Resume({3, 5}, 2);
    const PlayState& state = table.State();
    EXPECT_TRUE(state.GameStart && state.LoadedGame);
    EXPECT_FALSE(state.GameInProgress || state.GamePlayed || state.GameOver || state.CardFinished);
    EXPECT_EQ(table.Form().lblRound.Caption, "Round 7");
    EXPECT_EQ(table.Form().lblName[1].ForeColor, PlateColour::Current);
    EXPECT_EQ(table.Form().lblName[1].Caption, "Ben");
    EXPECT_EQ(table.Form().imgCharacter[1].Picture, Picture::Piece(14));
    EXPECT_EQ(table.Form().imgPlayingPiece[0].Left, 120);
    EXPECT_TRUE(table.Form().cmdRoll.Enabled && table.Form().timerOverviewSpace.Enabled);
    EXPECT_FALSE(table.TheProgram.dlgPlayers.Loaded);
}

TEST(ResumedGameTest, StopsTheMusicOnceAndStartsNone) {
    PlayTable table;
    table.Resume({3, 5});
    const std::int64_t before = table.TheScreen.Milliseconds();
    table.Form().Control().StartLoadedGame();
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre("silence"));
    EXPECT_EQ(table.TheScreen.Milliseconds() - before, 50);
}

TEST(ResumedGameTest, OfSixFailsAtTheSixthPlate) {
    for (const int goal : {Goal::Points, Goal::EndOfBoard}) {
        PlayTable table({.GoalType = goal});
        table.Resume({1, 1, 1, 1, 1});
        table.State().Round = 3;
        table.State().PlayerCount = 6;
        PlayState& state = table.State();
        state.ReDimForLoadedGame();
        for (int seat = 1; seat <= 6; ++seat) {
            state.Name[seat] = People(seat).back().Name;
            state.PieceName[seat] = People(seat).back().Piece;
            state.Position[seat] = 1;
        }
        table.Form().Control().StartLoadedGame();
        EXPECT_THAT(table.User.TakeEvents(), ElementsAre("error frmMain:StartLoadedGame 9"));
        EXPECT_EQ(table.Form().lblName[5].Caption, "Fay");
        EXPECT_EQ(state.Round, 3) << "nothing was drawn";
        EXPECT_TRUE(table.TheProgram.dlgPlayers.Loaded);
        // Each drawing fails as well, but turns go on.
        table.Turn(2);
        EXPECT_THAT(table.User.TakeEvents(), Contains("error frmMain:DrawSpaces 9"));
        EXPECT_EQ(state.WhoseTurn, 2);
        EXPECT_EQ(state.Round, 3);
    }
}

TEST(ResumedGameTest, EndsAtAPieceThatThereIsNot) {
    PlayTable table;
    table.Resume({3, 5});
    table.State().PieceName[2] = "(Ships) 1";
    table.Form().Control().StartLoadedGame();
    EXPECT_THAT(table.User.TakeEvents(), ElementsAre("error frmMain:StartLoadedGame 35601"));
}

TEST(ResumedGameTest, DoesNotShowPassForASeatThatLosesATurn) {
    PlayTable table({.TurnDevice = Device::Dice});
    table.Resume({3, 5});
    table.State().LoseTurns[1] = 1;
    EXPECT_TRUE(table.Form().cmdRoll.Visible);
    table.Roll({1, 2});
    table.Form().cmdRoll.Click();
    EXPECT_EQ(table.State().LoseTurns[1], 0);
    EXPECT_EQ(table.State().Position[1], 3);
    EXPECT_EQ(table.State().LastRoll, 3);
}

TEST(ResumedGameTest, IsLeftForANewOneWithoutAQuestion) {
    PlayTable table;
    table.Resume({3, 5});
    table.User.Players.emplace_back(People(2));
    table.Form().cmdNew.Click();
    EXPECT_FALSE(table.State().LoadedGame);
    EXPECT_THAT(Values(table.State().Position), ElementsAre(1, 1));
}

// Names, pieces and flags keep the slots of the resumed game, which the new one reads one lower.
TEST(ResumedGameTest, TheSamePlayersAreOneSeatOffAfterwards) {
    PlayTable table({.FinishCondition = 0});
    table.Resume({3, 5});
    table.Turn(2);
    EXPECT_THAT(table.User.TakeEvents(), Contains("message Game Over!  \r\nAnn won!"));
    table.User.Yes = {true};
    table.Form().cmdNew.Click();
    EXPECT_THAT(Values(table.State().Name), ElementsAre("", "Ann", "Ben"));
    EXPECT_THAT(Values(table.State().Position), ElementsAre(1, 1));
    table.User.TakeEvents();
    table.Turn(2);
    EXPECT_THAT(table.User.TakeEvents(), Contains("message Game Over!  \r\n won!"));
}

}  // namespace
}  // namespace tabulon
