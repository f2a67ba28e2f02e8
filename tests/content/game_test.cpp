#include "content/game_test.h"

#include "content/CGames.h"
#include "platform/failure_of.h"

namespace tabulon {
namespace {

using test::FailureOf;
using testing::ElementsAre;
using testing::IsEmpty;

class CGameTest : public test::GameTest {};

TEST_F(CGameTest, AKeyWithoutValuesLoadsWithDefaults) {
    EXPECT_TRUE(game.Load());
    EXPECT_EQ(game.Font, "Duality");
    EXPECT_EQ(game.FontSize, 14);
    EXPECT_EQ(game.BoardImage, "");
    EXPECT_EQ(game.FinishCondition, 0);
    EXPECT_FALSE(game.LoopBoard);
    EXPECT_EQ(game.LowerAgeRange(), "0");
    EXPECT_EQ(game.Spaces.Count(), 0);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(CGameTest, ReadsEverySettingUnderItsName) {
    for (const char* name : {"Author", "Description", "Splash Image", "Board Image", "Board Source",
                             "Help File", "Font", "Preferred Resolution", "CharacterCategory", "Music Genre"})
        Set(name, std::string("the ") + name);
    std::int32_t number = 2;
    for (const char* name : {"Lower Age Range", "Upper Age Range", "Goal Type", "Font Size", "TurnDevice",
                             "DiceUsed", "MaxSlotValue", "Card Answer Tries"})
        Set(name, number++);
    Set("Finish Condition", 100'000);
    Set("Loop Board", 1);
    ASSERT_TRUE(game.Load());
    EXPECT_THAT(
        (Texts{game.Author, game.Description, game.Splash, game.BoardImage, game.BoardSource, game.HelpFile,
               game.Font, game.PreferredResolution, game.CharacterCategory, game.MusicGenre}),
        ElementsAre("the Author", "the Description", "the Splash Image", "the Board Image",
                    "the Board Source", "the Help File", "the Font", "the Preferred Resolution",
                    "the CharacterCategory", "the Music Genre"));
    EXPECT_THAT((Texts{game.LowerAgeRange(), game.UpperAgeRange()}), ElementsAre("2", "3"));
    EXPECT_THAT((std::vector<Integer>{game.GoalType, game.FontSize, game.TurnDevice, game.DiceUsed,
                                      game.MaxSlotValue, game.Tries}),
                ElementsAre(4, 5, 6, 7, 8, 9));
    EXPECT_EQ(game.FinishCondition, 100'000);
    EXPECT_TRUE(game.LoopBoard);
}

TEST_F(CGameTest, NumbersMayBeStoredAsText) {
    Set("DiceUsed", "2.5");
    Set("Loop Board", "1");
    EXPECT_TRUE(game.Load());
    EXPECT_EQ(game.DiceUsed, 2);
    EXPECT_TRUE(game.LoopBoard);
}

TEST_F(CGameTest, AFontSizeOfZeroAndALoopOfTwoCountAsUnset) {
    Set("Font Size", 0);
    Set("Loop Board", 2);
    game.LoopBoard = true;
    EXPECT_TRUE(game.Load());
    EXPECT_EQ(game.FontSize, 14);
    EXPECT_TRUE(game.LoopBoard);
}

TEST_F(CGameTest, AValueThatDoesNotConvertStopsTheLoad) {
    Pack({{"spaces.xml", test::ContentXml(CSpaces::Columns(), test::SpaceRow(1))}});
    Set("Author", "Ann");
    Set("TurnDevice", 32768);
    Set("DiceUsed", 2);
    EXPECT_FALSE(game.Load());
    EXPECT_EQ(game.Author, "Ann");
    EXPECT_EQ(game.DiceUsed, 0);
    EXPECT_EQ(game.FontSize, 0);
    EXPECT_EQ(game.Spaces.Count(), 0);
    EXPECT_THAT(machine.Errors, ElementsAre("frmGameDesigner:LoadGameFile 6"));
}

TEST_F(CGameTest, ALoopThatDoesNotConvertFailsAfterTheFont) {
    Set("Loop Board", "x");
    EXPECT_FALSE(game.Load());
    EXPECT_EQ(game.Font, "Duality");
    EXPECT_THAT(machine.Errors, ElementsAre("frmGameDesigner:LoadGameFile 13"));
}

TEST_F(CGameTest, RefusesQuietlyWithoutItsNames) {
    game.GameName = "";
    EXPECT_FALSE(game.Load());
    EXPECT_EQ(game.ErrorDescription, "Game Name not set");
    game.GameDirectory = "";
    EXPECT_FALSE(game.Load());
    EXPECT_EQ(game.ErrorDescription, "Game Directory not set");
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_THAT(machine.User.Boxes, IsEmpty());
}

struct PathCase {
    const char* Name;
    const char* Key;
    const char* Path;
};
class PlayerPathTest : public test::GameTest, public testing::WithParamInterface<PathCase> {};

TEST_P(PlayerPathTest, IsCutByLength) {
    machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, "PlayerPath", "/player", REG_SZ);
    game.GameDirectory = GetParam().Key;
    EXPECT_TRUE(game.Load());
    EXPECT_EQ(game.PlayerPath, GetParam().Path);
}
INSTANTIATE_TEST_SUITE_P(
    All, PlayerPathTest,
    testing::Values(PathCase{"OfAGuid", "{11111111-2222-3333-4444-555555555555}", "/player"},
                    PathCase{"OfAnyTextAsLong", "a name of thirty-eight characters .. x", "/player"},
                    PathCase{"Short", "ten letter", ""}, PathCase{"Shortest", "x", ""}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST_F(CGameTest, AnAgeThatIsNoNumberFails) {
    game.SetLowerAgeRange(" 7 ");
    EXPECT_EQ(FailureOf([&] { game.SetLowerAgeRange("seven"); }), 13);
    EXPECT_EQ(game.LowerAgeRange(), "7");
}

TEST_F(CGameTest, LoadsSpacesAndDecksAndCleansUp) {
    Pack({{"spaces.xml", test::ContentXml(CSpaces::Columns(), test::SpaceRow(1) + test::SpaceRow(2))},
          {"decks.xml", test::ContentXml(CDecks::Columns(), test::DeckRow("1"))},
          {"cards1.xml", test::ContentXml(CCards::Columns(), test::CardRow(1))}});
    machine.Random.Numbers = {0};
    Set("Author", "Ann");
    EXPECT_TRUE(game.Load());
    EXPECT_EQ(game.Spaces.Count(), 2);
    EXPECT_EQ(game.Decks.Count(), 1);
    EXPECT_EQ(game.Decks.Item(1).Cards.Count(), 1);
    EXPECT_EQ(game.Decks.PlayerPath, game.PlayerPath);
    EXPECT_THAT(Files(), ElementsAre(Key + ".gam"));
}

TEST_F(CGameTest, GamesAreKeptWithTheirSettings) {
    CGames games(machine.g, packages);
    CGame& added = games.Add("s.bmp", "b.bmp", true, 7, 2, Key, "99", "5", "Name", "Ann", "About", "first");
    EXPECT_EQ(&games.Item("FIRST"), &added);
    EXPECT_EQ(added.UpperAgeRange() + " " + added.LowerAgeRange(), "99 5");
    EXPECT_EQ(FailureOf([&] { games.Add("", "", false, 0, 0, "", "old", "5", "", "", "", ""); }), 13);
    EXPECT_EQ(games.Count(), 1);
}

}  // namespace
}  // namespace tabulon
