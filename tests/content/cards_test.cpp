#include "content/game_test.h"
#include "platform/files.h"
#include "platform/seeded_random.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CCardsTest : public test::GameTest {
  protected:
    CCard& Add(int index) {
        return cards.Add(index, 1, "Q", 6, "right", 1, 0, 5, "wrong", 1, 0, 2, "a", "b", "c", "d", "");
    }
    void AddCards(int count) {
        for (int index = 1; index <= count; ++index) Add(index);
    }
    /// Which card the numbers deal; 0 for none.
    int Dealt(std::initializer_list<float> numbers) {
        machine.Random.Numbers = numbers;
        const CCard* card = cards.NextUnusedCard();
        EXPECT_THAT(machine.Random.Numbers, IsEmpty());
        return card ? card->Index.Value() : 0;
    }

    CCards cards{machine.g};
};

TEST_F(CCardsTest, DealsByNumberAndDrawsAgainForAUsedCard) {
    AddCards(4);
    EXPECT_EQ(Dealt({0.5F}), 3);
    EXPECT_EQ(Dealt({0.5F}), 3);
    cards.Item(3).Used = true;
    EXPECT_EQ(Dealt({0.5F, 0.74F, 0.75F}), 4);
    EXPECT_EQ(Dealt({0}), 1);
    EXPECT_EQ(Dealt({0x1.fffffep-1F}), 4);
}

TEST_F(CCardsTest, AUsedUpDeckBecomesWhole) {
    AddCards(2);
    for (CCard& card : cards) card.Used = true;
    EXPECT_EQ(Dealt({0}), 1);
    EXPECT_FALSE(cards.Item(2).Used);
}

TEST_F(CCardsTest, EveryCardIsDealtOnceBeforeAnyIsDealtAgain) {
    SeededRandom chance(1);
    Globals g(
        {machine.TheScreen, machine.Clock, chance, machine.Shell, machine.Player, machine.Store, {}, {}});
    CCards deck(g);
    for (int index = 1; index <= 10; ++index)
        deck.Add(index, 1, "", 0, "", 0, 0, 0, "", 0, 0, 0, "", "", "", "", "");
    for (int round = 0; round < 5; ++round) {
        std::vector<int> dealt;
        for (int n = 0; n < 10; ++n) {
            CCard* card = deck.NextUnusedCard();
            ASSERT_NE(card, nullptr);
            card->Used = true;
            dealt.push_back(card->Index.Value());
        }
        EXPECT_THAT(dealt, testing::UnorderedElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
    }
}

TEST_F(CCardsTest, AGapInTheNumbersFailsWhenItIsDrawn) {
    for (const int index : {1, 2, 4}) Add(index);
    EXPECT_EQ(Dealt({0.5F}), 2);
    EXPECT_EQ(Dealt({0.9F}), 0);
    EXPECT_THAT(machine.Errors, ElementsAre("CCards:NextUnusedCard 91"));
}

TEST_F(CCardsTest, AnEmptyDeckCostsOneDrawAndAReport) {
    EXPECT_EQ(Dealt({0.3F}), 0);
    EXPECT_THAT(machine.Errors, ElementsAre("CCards:NextUnusedCard 91"));
}

TEST_F(CCardsTest, LoadingGivesARandomOrderByDrawingAgain) {
    WriteFile(machine.AppDir() / "cards1.xml",
              test::ContentXml(CCards::Columns(), test::CardRow(1) + test::CardRow(2) + test::CardRow(3)));
    cards.GameDirectory = Key;
    machine.Random.Numbers = {0.9F, 0.7F, 0, 0.2F, 0.8F, 0.5F};
    EXPECT_TRUE(cards.Load(1));
    EXPECT_THAT(machine.Random.Numbers, IsEmpty());
    std::vector<Integer> order;
    for (const CCard& card : cards) order.push_back(card.RandomSequence);
    EXPECT_THAT(order, ElementsAre(3, 1, 2));
}

TEST_F(CCardsTest, TheFirstOfEqualNumbersIsFoundAndRemoved) {
    CCard& first = Add(2);
    Add(2);
    EXPECT_EQ(cards.ItemByIndex(2), &first);
    EXPECT_EQ(cards.ItemByIndex(1), nullptr);
    EXPECT_EQ(cards.NextIndex(), 3);
    cards.RemoveByIndex(1);
    cards.RemoveByIndex(2);
    EXPECT_EQ(cards.Count(), 1);
}

TEST_F(CCardsTest, TheSettersChangeTheFirstMatchAndItsQuestion) {
    AddCards(2);
    cards.SetCorrectAction(2, 7, "new question", 2.5F, 1);
    cards.SetIncorrectAction(2, 8, "newer question", 3.5F, -1);
    cards.SetAnswers(2, 3, "w", "x", "y", "z");
    cards.SetCorrectAction(2.5F, 12, "nobody", 0, 0);
    const CCard& card = cards.Item(2);
    EXPECT_EQ(card.message, "newer question");
    EXPECT_EQ(card.CorrectMessage, "right");
    EXPECT_THAT((std::vector<Integer>{card.CorrectActionType, card.CorrectData1, card.CorrectData2,
                                      card.IncorrectActionType, card.IncorrectData1, card.CorrectAnswer}),
                ElementsAre(7, 2, 1, 8, 4, 3));
    EXPECT_EQ(card.IncorrectData2, -1);
    EXPECT_EQ(card.Answer4, "z");
    EXPECT_EQ(cards.Item(1).message, "Q");
    cards.SameMessageForAllCards("same");
    EXPECT_EQ(cards.Item(1).message + cards.Item(2).message, "samesame");
}

TEST_F(CCardsTest, AnOperandBeyond16BitsAddsNoCard) {
    EXPECT_THROW(cards.Add(1, 1, "", 0, "", 32768, 0, 0, "", 0, 0, 0, "", "", "", "", ""), Failure);
    EXPECT_EQ(cards.Count(), 0);
}

}  // namespace
}  // namespace tabulon
