#include "content/game_test.h"
#include "platform/files.h"

namespace tabulon {
namespace {

using test::CardRow;
using test::ContentXml;
using test::DeckRow;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CDecksTest : public test::GameTest {
  protected:
    CDecksTest() { decks.GameDirectory = Key; }
    static PackedFile Decks(const std::string& rows) {
        return {"decks.xml", ContentXml(CDecks::Columns(), rows)};
    }
    static PackedFile Cards(const std::string& number, const std::string& rows) {
        return {"cards" + number + ".xml", ContentXml(CCards::Columns(), rows)};
    }
    CCards& CardsOf(int position) const { return decks.Item(position).Cards; }

    CDecks& decks = game.Decks;
};

TEST_F(CDecksTest, LoadsEachDeckWithItsCards) {
    Pack({Decks(DeckRow("2") + DeckRow("1")), Cards("1", CardRow(1)),
          Cards("2", CardRow(1) + CardRow(5, {{"DeckID", "2"}}) + CardRow(6, {{"DeckID", "2"}}))});
    machine.Random.Numbers = {0, 0.5F, 0};
    EXPECT_TRUE(decks.Load());
    EXPECT_EQ(decks.Item(1).Name, "Deck 2");
    EXPECT_EQ(CardsOf(1).Count(), 2);
    EXPECT_EQ(CardsOf(1).Item(1).Index, 5);
    EXPECT_EQ(CardsOf(2).Count(), 1);
    EXPECT_THAT(machine.Random.Numbers, IsEmpty());
    EXPECT_THAT(Files(), ElementsAre(Key + ".gam"));
}

TEST_F(CDecksTest, ReadsAllColumnsOfACard) {
    Pack({Decks(DeckRow("1")), Cards("1", CardRow(3, {{"Message", "Why?"},
                                                      {"CorrectData1", "2.5"},
                                                      {"IncorrectData1", "3.5"},
                                                      {"IncorrectData2", "-1"}}))});
    machine.Random.Numbers = {0};
    ASSERT_TRUE(decks.Load());
    const CCard& card = CardsOf(1).Item(1);
    EXPECT_EQ(card.Index, 3);
    EXPECT_EQ(card.DeckID, 1);
    EXPECT_THAT((Texts{card.message, card.CorrectMessage, card.IncorrectMessage, card.Answer1, card.Answer2,
                       card.Answer3, card.Answer4}),
                ElementsAre("Why?", "Right", " ", "a", "b", "c", " "));
    EXPECT_THAT((std::vector<Integer>{card.CorrectActionType, card.CorrectData1, card.CorrectData2,
                                      card.IncorrectActionType, card.IncorrectData1, card.CorrectAnswer}),
                ElementsAre(6, 2, 1, 5, 4, 2));
    EXPECT_EQ(card.IncorrectData2, -1);
    EXPECT_FALSE(card.Used);
}

TEST_F(CDecksTest, APackageWithoutDecksIsNoFailure) {
    Pack({{"spaces.xml", "x"}});
    EXPECT_FALSE(decks.Load());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(CDecksTest, ADeckWithoutAFileIsEmpty) {
    Pack({Decks(DeckRow("1") + DeckRow("4"))});
    EXPECT_TRUE(decks.Load());
    EXPECT_EQ(decks.Count(), 2);
    EXPECT_EQ(CardsOf(2).Count(), 0);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(CDecksTest, ANumberThatIsNotWholeNamesOneFileAndAsksForAnother) {
    Pack({Decks(DeckRow("1.5")), Cards("1.5", CardRow(1, {{"DeckID", "2"}}))});
    EXPECT_TRUE(decks.Load());
    EXPECT_EQ(decks.Item(1).Index, 2);
    EXPECT_EQ(CardsOf(1).Count(), 0);
}

TEST_F(CDecksTest, TheLastOfEqualDecksIsFoundAndTheFirstRemoved) {
    Pack({Decks(DeckRow("1") + DeckRow("1") + DeckRow("3"))});
    ASSERT_TRUE(decks.Load());
    CDeck* last = decks.ItemByIndex(1);
    EXPECT_EQ(last, &decks.Item(2));
    EXPECT_EQ(decks.ItemByIndex(2), nullptr);
    EXPECT_EQ(decks.NextIndex(), 4);
    decks.RemoveByIndex(1);
    EXPECT_EQ(decks.ItemByIndex(1), last);
    EXPECT_EQ(decks.Count(), 2);
}

TEST_F(CDecksTest, AFailureInDecksKeepsThoseBeforeIt) {
    Pack({Decks(DeckRow("1") + "<z:row Index='2' Name='x'/>" + DeckRow("3"))});
    EXPECT_FALSE(decks.Load());
    EXPECT_EQ(decks.Count(), 1);
    EXPECT_THAT(machine.Errors, ElementsAre("cDecks:Load 94"));
    EXPECT_THAT(Files(), UnorderedElementsAre(Key + ".gam", "ERRORS.TXT"));
}

TEST_F(CDecksTest, AFailureInCardsKeepsThoseBeforeItAndDrawsNothing) {
    Pack({Decks(DeckRow("1") + DeckRow("2")),
          Cards("1", CardRow(1) + CardRow(2, {{"CorrectData1", "32768"}})),
          {"cards2.xml", "<xml"}});
    EXPECT_TRUE(decks.Load());
    EXPECT_EQ(decks.Count(), 2);
    EXPECT_EQ(CardsOf(1).Count(), 1);
    EXPECT_EQ(CardsOf(1).Item(1).RandomSequence, 0);
    EXPECT_THAT(machine.Errors, ElementsAre("CCards:Load 6", "CCards:Load 57"));
}

TEST_F(CDecksTest, RowsOfAnotherDeckAreNotLookedAt) {
    Pack({Decks(DeckRow("1")), Cards("1", "<z:row DeckID='2'/>" + CardRow(1))});
    machine.Random.Numbers = {0};
    EXPECT_TRUE(decks.Load());
    EXPECT_EQ(CardsOf(1).Count(), 1);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(CDecksTest, WithoutAGameItLooksForDecksFirst) {
    decks.GameDirectory = "";
    WriteArchive(machine.AppDir() / ".gam", std::vector<PackedFile>{{"decks.xml", "x"}});
    EXPECT_FALSE(decks.Load());
    EXPECT_THAT(machine.User.BoxTexts(), ElementsAre("A Game Directory has not been assigned."));
    EXPECT_THAT(Files(), ElementsAre(".gam"));
    CCards cards(machine.g);
    EXPECT_FALSE(cards.Load(1));
    EXPECT_EQ(machine.User.Boxes.size(), 2U);
}

TEST_F(CDecksTest, AnEmptyRecordsetHasTheFormatsColumns) {
    EXPECT_EQ(decks.DefineEmptyRS().Columns.size(), 4U);
    EXPECT_EQ(CCards(machine.g).DefineEmptyRS().Columns.size(), 16U);
}

}  // namespace
}  // namespace tabulon
