#include "board/board_reader.h"

#include <gtest/gtest.h>

#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::PlayTable;

TEST(BoardReaderTest, SaysNothingBeforeAGame) {
    test::TestMachine machine;
    MainForm form(machine.g);
    EXPECT_EQ(DescribeBoard(form), "");
}

TEST(BoardReaderTest, TellsWhoStandsWhereAndWhoseTurnItIs) {
    PlayTable table({.Seats = 2});
    table.Turn(4);
    EXPECT_EQ(DescribeBoard(table.Form()),
              "It is Ben's turn. Ann is on space 5 of 10, Points: 0. Ben is on space 1 of 10, Points: 0.");
}

TEST(BoardReaderTest, TellsAResumedGameByItsOwnSlots) {
    PlayTable table({.GoalType = Goal::Money});
    table.Resume({3, 7}, 2);
    EXPECT_EQ(DescribeBoard(table.Form()),
              "It is Ben's turn. Ann is on space 3 of 10, Money: 0. Ben is on space 7 of 10, Money: 0.");
}

TEST(BoardReaderTest, TellsNoAmountsInARaceAndThatItIsOver) {
    PlayTable table({.Seats = 1, .GoalType = Goal::EndOfBoard});
    table.State().GameOver = true;
    EXPECT_EQ(DescribeBoard(table.Form()), "The game is over. Ann is on space 1 of 10.");
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
    table.State().WhoseTurn = 2;
    reader.Follow();
    EXPECT_EQ(table.Form().lblSpoken.Caption, "Ann has 8.");
    EXPECT_EQ(HeardAfter(8), "Ben has 8.");
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

TEST_F(RollReader, IsSilentUntilTheDeviceHasItsNumber) {
    HeardAfter(8);
    table.State().LastRoll = 0;
    reader.Follow();
    EXPECT_EQ(table.Form().lblSpoken.Caption, "");
}

TEST_F(RollReader, KeepsTheBoardInWords) {
    reader.Follow();
    EXPECT_EQ(table.Form().picMainBoard.AccessibleName, DescribeBoard(table.Form()));
}

}  // namespace
}  // namespace tabulon
