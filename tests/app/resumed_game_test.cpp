#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using namespace testing;

/// Tops of plates in pixels, at a density; a name stands some of them above the top of its character.
struct Density {
    int PixelsPerInch, NameAbove;
    float InPixels(float twips) const { return twips * static_cast<float>(PixelsPerInch) / 1440; }
    float NameTop(FrmMain& form, int i) const {
        return InPixels(form.lblName[i].Top - form.imgCharacter[i].Top);
    }
    float PointsBelowName(FrmMain& form, int points, int name) const {
        return InPixels(form.lblPoints[points].Top - form.lblName[name].Top - form.lblName[name].Height);
    }
};

const Density Densities[] = {{96, 4}, {120, 9}};

TEST(PlateTest, OfANewGameStandWithTheirCharacters) {
    for (const Density& at : Densities) {
        PlayTable points({.Seats = 2, .PixelsPerInch = at.PixelsPerInch});
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(at.NameTop(points.Form(), i), -at.NameAbove);
            EXPECT_EQ(at.PointsBelowName(points.Form(), i, i), 2);
            EXPECT_TRUE(points.Form().lblPoints[i].Visible);
            EXPECT_EQ(points.Form().lblPoints[i].Caption, "Points: 0");
        }
        EXPECT_FALSE(points.Form().lblPoints[2].Visible);

        PlayTable race({.Seats = 2, .GoalType = Goal::EndOfBoard, .PixelsPerInch = at.PixelsPerInch});
        EXPECT_EQ(at.NameTop(race.Form(), 1), 4);
        EXPECT_FALSE(race.Form().lblPoints[0].Visible || race.Form().lblPoints[1].Visible);
    }
}

TEST(PlateTest, OfAResumedGameHaveTheirTopsOnTheNextPlate) {
    for (const Density& at : Densities) {
        PlayTable money({.Seats = 2, .GoalType = Goal::Money, .PixelsPerInch = at.PixelsPerInch});
        FrmMain& form = money.Form();
        form.lblName[0].Top = 77;
        form.lblPoints[2].Top = 88;
        money.State().Points.ReDim(2);
        money.Resume({3, 5});
        EXPECT_EQ(form.lblName[0].Top, 77);
        for (int seat = 1; seat <= 2; ++seat) {
            EXPECT_EQ(at.NameTop(form, seat), -2);
            EXPECT_EQ(at.PointsBelowName(form, seat - 1, seat), 2);
            EXPECT_EQ(form.lblPoints[seat - 1].Caption, "Money: 0");
        }
        EXPECT_EQ(form.lblPoints[2].Top, 88);

        PlayTable race({.Seats = 2, .GoalType = Goal::EndOfBoard, .PixelsPerInch = at.PixelsPerInch});
        race.Form().lblPoints[1].Visible = true;
        race.Resume({3, 5});
        EXPECT_EQ(at.NameTop(race.Form(), 2), 4);
        EXPECT_FALSE(race.Form().lblPoints[1].Visible);
    }
}

TEST(PlateTest, OfSeatsThatDoNotPlayAreEmpty) {
    PlayTable table({.Seats = 4});
    FrmMain& form = table.Form();
    const auto expectPlates = [&](int count) {
        for (int i = 0; i < MaxSeats; ++i) {
            const Control* parts[] = {&form.imgPlate[i], &form.imgCharacter[i], &form.lblName[i],
                                      &form.lblPoints[i]};
            for (const Control* part : parts)
                EXPECT_EQ(part->Visible && !part->Withheld, i < count) << part->Name;
        }
    };
    expectPlates(4);
    table.State().Points.ReDim(2);
    table.Resume({3, 5});
    expectPlates(2);
    table.User.Players.emplace_back(People(3));
    form.cmdNew.Click();
    expectPlates(3);
}

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
}  // namespace tabulon::test
