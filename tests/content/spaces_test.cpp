#include "content/game_test.h"

namespace tabulon {
namespace {

using test::SpaceRow;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CSpacesTest : public test::GameTest {
  protected:
    CSpacesTest() { spaces.GameDirectory = Key; }
    bool Load(const std::string& rows) {
        Pack({{"spaces.xml", test::ContentXml(CSpaces::Columns(), rows)}});
        return spaces.Load();
    }
    CSpace& Add(int sequence, const std::string& message = "") {
        return spaces.Add(sequence, 1, 2, 3, 4, 5, message, 6, 7, "");
    }
    std::vector<Integer> Sequences() const {
        std::vector<Integer> all;
        for (const CSpace& space : spaces) all.push_back(space.Sequence);
        return all;
    }

    CSpaces& spaces = game.Spaces;
};

TEST_F(CSpacesTest, ReadsAllColumnsInTheOrderOfTheRows) {
    ASSERT_TRUE(Load(SpaceRow(2) +
                     "<z:row Sequence='1' Top='-1' Left='70000' Height='5' Width='6' ActionType='12' "
                     "Message='Oh' Data1='2.5' Data2='-3'/>"));
    EXPECT_THAT(Sequences(), ElementsAre(2, 1));
    const CSpace& space = spaces.Item(2);
    EXPECT_EQ(space.Top, -1);
    EXPECT_EQ(space.Left, 70000);
    EXPECT_EQ(space.Height, 5);
    EXPECT_EQ(space.Width, 6);
    EXPECT_EQ(space.ActionType, 12);
    EXPECT_EQ(space.message, "Oh");
    EXPECT_EQ(space.Data1, 2.5F);
    EXPECT_EQ(space.Data2, -3);
    EXPECT_THAT(Files(), ElementsAre(Key + ".gam"));
}

TEST_F(CSpacesTest, ABoardWithoutRowsIsLoaded) {
    EXPECT_TRUE(Load(""));
    EXPECT_EQ(spaces.Count(), 0);
    EXPECT_EQ(spaces.NextSequence(), 1);
}

TEST_F(CSpacesTest, APackageWithoutSpacesIsNoFailure) {
    Pack({{"decks.xml", "x"}});
    EXPECT_FALSE(spaces.Load());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(CSpacesTest, ABoardThatDoesNotKnowItsGameSaysSo) {
    spaces.GameDirectory = "";
    EXPECT_FALSE(spaces.Load());
    ASSERT_EQ(machine.User.Boxes.size(), 1U);
    EXPECT_EQ(machine.User.Boxes[0].Text, "A Game Directory has not been assigned.");
    EXPECT_EQ(machine.User.Boxes[0].Icon, BoxIcon::Critical);
    EXPECT_EQ(machine.User.Boxes[0].Title, "Tab Player");
}

struct BadRow {
    const char* Name;
    std::string Row;
    int Failure;
};
class BadSpaceTest : public CSpacesTest, public testing::WithParamInterface<BadRow> {};

TEST_P(BadSpaceTest, KeepsTheSpacesBeforeItAndCleansUp) {
    EXPECT_FALSE(Load(SpaceRow(1) + GetParam().Row + SpaceRow(3)));
    EXPECT_THAT(Sequences(), ElementsAre(1));
    EXPECT_THAT(machine.Errors, ElementsAre("CSpaces:LoadSpaces " + std::to_string(GetParam().Failure)));
    EXPECT_THAT(Files(), UnorderedElementsAre(Key + ".gam", "ERRORS.TXT"));
}
INSTANTIATE_TEST_SUITE_P(All, BadSpaceTest,
                         testing::Values(BadRow{"NullColumn", "<z:row Sequence='2' Top='1'/>", 94},
                                         BadRow{"NoNumber", SpaceRow(2, {{"Top", "INF"}}), 13},
                                         BadRow{"Beyond16Bits", SpaceRow(2, {{"Data2", "32768"}}), 6},
                                         BadRow{"Beyond32Bits", SpaceRow(2, {{"Left", "2147483648"}}), 6}),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_F(CSpacesTest, AMessageOfOneBlankIsNone) {
    EXPECT_EQ(Add(1, " ").message, "");
    EXPECT_EQ(Add(2, "  ").message, "  ");
    spaces.SetAction(1, 0, " ", 0, 0);
    EXPECT_EQ(spaces.Item(1).message, " ");
}

TEST_F(CSpacesTest, TheLastOfEqualNumbersIsFoundAndAllAreSet) {
    Add(5);
    CSpace& last = Add(5);
    Add(6);
    EXPECT_EQ(spaces.ItemBySequence(5), &last);
    EXPECT_EQ(spaces.ItemBySequence(7), nullptr);
    spaces.SetAction(5, 9, "text", 1.5F, 1);
    EXPECT_EQ(spaces.Item(1).Data1, 1.5F);
    EXPECT_EQ(last.ActionType, 9);
    EXPECT_EQ(spaces.Item(3).message, "");
}

TEST_F(CSpacesTest, ASpaceThatIsGoneIsNotFoundByItsNumber) {
    spaces.Add(1, 9, 0, 0, 0, 0, "", 0, 0, "first");
    ASSERT_NE(spaces.ItemBySequence(1), nullptr);
    spaces.Item("first").Sequence = 9;
    EXPECT_EQ(spaces.ItemBySequence(1), nullptr);
    ASSERT_NE(spaces.ItemBySequence(9), nullptr);
    spaces.Remove("first");
    EXPECT_EQ(spaces.ItemBySequence(9), nullptr);
}

TEST_F(CSpacesTest, TheNextNumberIsAboveTheHighest) {
    Add(-7);
    EXPECT_EQ(spaces.NextSequence(), -6);
    Add(32767);
    Add(3);
    EXPECT_THROW(spaces.NextSequence(), Failure);
}

TEST_F(CSpacesTest, RemovingBySequenceReportsAndRemovesNothing) {
    spaces.RemoveBySequence(1);
    EXPECT_THAT(machine.Errors, IsEmpty());
    Add(1);
    spaces.RemoveBySequence(1);
    EXPECT_THAT(machine.Errors, ElementsAre("CSpaces:RemoveBySequence 438"));
    EXPECT_EQ(spaces.Count(), 1);
}

TEST_F(CSpacesTest, FactorsRoundHalfToEvenAndCompound) {
    CSpace& space = spaces.Add(1, 9, 5, 11, 7, 0, "", 0, 0, "");
    const auto rectangle = [&] { return std::vector{space.Left, space.Top, space.Width, space.Height}; };
    spaces.FactorSpaces(0.5F, 2);
    EXPECT_THAT(rectangle(), ElementsAre(2, 18, 4, 22));
    spaces.FactorSpaces(1.1F, 1);
    EXPECT_THAT(rectangle(), ElementsAre(2, 18, 4, 22));
    spaces.FactorSpaces(1.2F, 1);
    EXPECT_THAT(rectangle(), ElementsAre(2, 18, 5, 22));
}

TEST_F(CSpacesTest, AnEmptyRecordsetHasTheFormatsColumns) {
    const RecordsetDefinition empty = spaces.DefineEmptyRS();
    ASSERT_EQ(empty.Columns.size(), 9U);
    EXPECT_EQ(empty.Columns[6].Name, "Message");
    EXPECT_EQ(empty.Columns[6].DefinedSize, 254);
}

}  // namespace
}  // namespace tabulon
