#include "board/board_reader.h"

#include <gtest/gtest.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

TEST(BoardReaderTest, TellsWhoStandsWhereAndWhoseTurnItIs) {
    TestMachine machine;
    EXPECT_EQ(DescribeBoard(MainForm(machine.g)), "") << "before a game";
    PlayTable points({.Seats = 2});
    points.Turn(4);
    EXPECT_EQ(DescribeBoard(points.Form()),
              "It is Ben's turn. Ann is on space 5 of 10, Points: 0. Ben is on space 1 of 10, Points: 0.");
    PlayTable resumed({.GoalType = Goal::Money});
    resumed.Resume({3, 7}, 2);
    EXPECT_EQ(DescribeBoard(resumed.Form()),
              "It is Ben's turn. Ann is on space 3 of 10, Money: 0. Ben is on space 7 of 10, Money: 0.");
    PlayTable race({.Seats = 1, .GoalType = Goal::EndOfBoard});
    race.State().GameOver = true;
    EXPECT_EQ(DescribeBoard(race.Form()), "The game is over. Ann is on space 1 of 10.");
}

class RollReader : public testing::Test {
  protected:
    /// What is to be heard after a roll, and then when the turn is the next player's.
    std::string HeardAfter(int roll) {
        table.State().LastRoll = 0;
        reader.Follow();
        table.State().LastRoll = roll;
        reader.Follow();
        return table.Form().lblSpoken.Caption;
    }

    PlayTable table;
    BoardReader reader{table.Form()};
};

TEST_F(RollReader, KeepsARollWithItsRollerWhenTheTurnHasPassed) {
    EXPECT_EQ(HeardAfter(8), "Ann has 8.");
    EXPECT_EQ(table.Form().picMainBoard.AccessibleName, DescribeBoard(table.Form()));
    table.State().WhoseTurn = 2;
    reader.Follow();
    EXPECT_EQ(table.Form().lblSpoken.Caption, "Ann has 8.");
    EXPECT_EQ(HeardAfter(8), "Ben has 8.");
    table.State().LastRoll = 0;
    reader.Follow();
    EXPECT_EQ(table.Form().lblSpoken.Caption, "") << "until the device has its number";
}

TEST_F(RollReader, NamesTheFacesOfSeveralDice) {
    MainForm& form = table.Form();
    form.imgDice[0].Picture = Picture::Die(9);
    form.imgDice[1].Picture = Picture::Die(20);
    form.imgDice[0].Visible = true;
    EXPECT_EQ(HeardAfter(3), "Ann has 3.");
    form.imgDice[1].Visible = true;
    EXPECT_EQ(HeardAfter(8), "Ann has 8 (3 and 5).");
}

TEST(BoardReaderTest, IsReachedByAKeyWhichAlsoLeadsBackToTheTurn) {
    PlayTable table;
    MainForm& form = table.Form();
    form.ActiveControl = &form.cmdHelp;
    const std::pair<Control*, Control*> rows[] = {// the only turn button that can be used, and where it leads
                                                  {&form.cmdRoll, &form.cmdRoll},
                                                  {&form.cmdPass, &form.cmdPass},
                                                  {nullptr, &form.cmdNew}};
    for (const auto& [usable, next] : rows) {
        for (Control* button : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass})
            button->Visible = button->Enabled = button == usable;
        EXPECT_TRUE(form.KeyDown(Key::F6, 0));
        EXPECT_EQ(form.ActiveControl, &form.picMainBoard);
        EXPECT_TRUE(form.KeyDown(Key::F6, 0));
        EXPECT_EQ(form.ActiveControl, next);
    }
    EXPECT_FALSE(form.KeyDown(Key::R, 0));
}

}  // namespace
}  // namespace tabulon::test
