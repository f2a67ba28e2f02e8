#include "gamepack/check.h"

#include <functional>
#include <gmock/gmock.h>

#include "gamepack/game_folder.h"

namespace tabulon::gamepack {
namespace {

using test::CardRow;
using test::DeckRow;
using test::GameFolder;
using test::SpaceRow;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(CheckTest, AGoodGameHasNoFindings) {
    const Findings findings = CheckGame(GameFolder().Files());
    EXPECT_THAT(findings.Lines(), IsEmpty());
    EXPECT_FALSE(findings.HasErrors());
    EXPECT_EQ(findings.Summary(), "0 errors, 0 warnings");
}

const std::string Error = "error: ", Warning = "warning: ";

struct Fault {
    const char* Name;
    std::function<void(GameFolder&)> Spoil;
    std::string Level;
    const char* Finding;
};
class FaultTest : public testing::TestWithParam<Fault> {};

TEST_P(FaultTest, IsFound) {
    GameFolder game;
    GetParam().Spoil(game);
    const Findings findings = CheckGame(game.Files());
    EXPECT_THAT(findings.Lines(),
                Contains(AllOf(StartsWith(GetParam().Level), HasSubstr(GetParam().Finding))));
    EXPECT_EQ(findings.HasErrors(), GetParam().Level == Error);
}

auto Setting(const std::string& from, const std::string& to) {
    return [=](GameFolder& game) { game.Settings = ReplaceAll(game.Settings, from, to); };
}
auto Line(const std::string& line) {
    return [=](GameFolder& game) { game.Settings += line + "\r\n"; };
}
auto Space(const std::string& action, const std::string& data1) {
    return [=](GameFolder& game) { game.Spaces += SpaceRow(4, {{"ActionType", action}, {"Data1", data1}}); };
}
auto SpaceWith(const std::string& column, const std::string& value) {
    return [=](GameFolder& game) { game.Spaces += SpaceRow(4, {{column, value}}); };
}
auto CardWith(const std::string& column, const std::string& value) {
    return [=](GameFolder& game) { game.Cards += CardRow(3, {{column, value}}); };
}

INSTANTIATE_TEST_SUITE_P(
    Settings, FaultTest,
    testing::Values(
        Fault{"NoName", Setting("Game Name=Small", "Game Name="), Error,
              "{11111111-2222-3333-4444-555555555555}.dat:1: "},
        Fault{"NoNameLine", Setting("Game Name=Small\r\n", ""), Error, "the game has no name"},
        Fault{"NoNumber", Setting("Dice Used=2", "Dice Used=two"), Error,
              "{11111111-2222-3333-4444-555555555555}.dat:5: "},
        Fault{"TooBig", Setting("Tries=2", "Tries=40000"), Error,
              "{11111111-2222-3333-4444-555555555555}.dat:6: "},
        Fault{"WrongCase", Line("help file=x.txt"), Warning,
              "{11111111-2222-3333-4444-555555555555}.dat:10: "},
        Fault{"BirthdayAsItIsSpelt", Line("Author Birthday=1.1."), Warning, "Author Birtday="},
        Fault{"Twice", Line("Tries=2"), Warning, "set a second time"},
        Fault{"NoSuchGoal", Setting("Goal Type=0", "Goal Type=3"), Warning, "Write 0 for points"},
        Fault{"NoSuchMusic", Setting("kids", "Kids"), Warning,
              "{11111111-2222-3333-4444-555555555555}.dat:9: "},
        Fault{"NoDice", Setting("Dice Used=2", "Dice Used=0"), Warning, "nobody can move"},
        Fault{"SixReels",
              Setting("Turn Device=0\r\nDice Used=2", "Turn Device=1\r\nMax Slot Value=9\r\nDice Used=6"),
              Warning, "Use 5 or fewer"},
        Fault{"WonAtOnce", Setting("Finish Condition=20", "Finish Condition=0"), Warning,
              "the first move wins"},
        Fault{"LoopWithoutEnd", Setting("Goal Type=0", "Goal Type=2\r\nLoop Board=1"), Warning, "never ends"},
        Fault{"NoPoints",
              [](GameFolder& game) {
                  game.Spaces = SpaceRow(1, {{"ActionType", "-1"}}) + SpaceRow(2, {{"ActionType", "-1"}});
                  game.Decks = game.Cards = "";
              },
              Warning, "nothing on the board or in the cards gives points"},
        Fault{"NoBoard", Setting("board.bmp", "plan.bmp"), Error,
              "{11111111-2222-3333-4444-555555555555}.dat:7: "},
        Fault{"BoardElsewhere", Setting("board.bmp", "../board.bmp"), Error, "no plain file name"},
        Fault{"BoardThatBeginsAlike", Setting("board.bmp", "board"), Error,
              "the Player would take \"board.bmp\""},
        Fault{"BoardThatIsNone", [](GameFolder& game) { game.Board = "no picture"; }, Error, "board.bmp: "},
        Fault{"HelpThatIsNotShown", Line("Help File=board.bmp"), Warning, "does not show this kind of help"}),
    [](const auto& row) { return std::string(row.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Spaces, FaultTest,
    testing::Values(
        Fault{"NoXml", [](GameFolder& game) { game.Spaces = "<z:row"; }, Error, "spaces.xml: "},
        Fault{"NoRows", [](GameFolder& game) { game.Spaces = ""; }, Error, "no space can be read"},
        Fault{"NullColumn", [](GameFolder& game) { game.Spaces += "<z:row Sequence='4'/>"; }, Error,
              "spaces.xml:17: \"Left\" is missing"},
        Fault{"NoNumber", SpaceWith("Data1", "INF"), Error, "spaces.xml:17: \"Data1\" is no number"},
        Fault{"TooBig", SpaceWith("Data2", "32768"), Error, "\"Data2\" is too big"},
        Fault{"OperandTooBig", SpaceWith("Data1", "32768"), Error, "spaces.xml:17: the first operand"},
        Fault{"LongText", SpaceWith("Message", std::string(255, 'x')), Warning, "has 255 characters"},
        Fault{"Outside", SpaceWith("Left", "98"), Warning,
              "spaces.xml:17: the space leaves the board picture"},
        Fault{"FarOutside", SpaceWith("Width", "2147483647"), Warning, "leaves the board picture"},
        Fault{"NoSize", SpaceWith("Height", "0"), Warning, "has no size"},
        Fault{"NoSuchAction", Space("13", "0"), Warning, "no action 13"},
        Fault{"NumberTwice", SpaceWith("Sequence", "3"), Warning, "several spaces 3"},
        Fault{"OutOfOrder", SpaceWith("Sequence", "9"), Warning, "space 9 stands where space 4 belongs"},
        Fault{"OneSpaceForPoints", [](GameFolder& game) { game.Spaces = SpaceRow(1); }, Warning,
              "the first move never ends"},
        Fault{"LastNumberAboveTheCount",
              [](GameFolder& game) {
                  Setting("Goal Type=0", "Goal Type=2")(game);
                  game.Spaces += SpaceRow(9);
              },
              Warning, "the move to the last space never ends"},
        Fault{"TargetOutside", Space("3", "5"), Warning, "no space 5 to go to"},
        Fault{"MoveOutside", Space("1", "5"), Warning, "leaves the board of 4 spaces"},
        Fault{"MoveBackAsRolled", Space("2", "-1"), Warning, "leaves the board of 4 spaces"},
        Fault{"NoSuchDeck", Space("0", "2"), Error, "spaces.xml:17: there are no cards in deck 2"},
        Fault{"LessThanNone", Space("5", "-1"), Warning, "is negative"},
        Fault{"TotalThatCannotBeRolled", Space("12", "13"), Warning, "13 cannot be rolled"},
        Fault{"DoubleWithOneDie",
              [](GameFolder& game) {
                  Setting("Dice Used=2", "Dice Used=1")(game);
                  Space("11", "0")(game);
              },
              Warning, "no double with fewer than two dice"}),
    [](const auto& row) { return std::string(row.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Decks, FaultTest,
    testing::Values(
        Fault{"NoCardsFile", [](GameFolder& game) { game.Decks += DeckRow("2"); }, Error,
              "there is no cards2.xml"},
        Fault{"NotWhole", [](GameFolder& game) { game.Decks += DeckRow("2.5"); }, Error,
              "the deck's number is not whole"},
        Fault{"DeckTwice", [](GameFolder& game) { game.Decks += DeckRow("1"); }, Warning, "several decks 1"},
        Fault{"NoCards", [](GameFolder& game) { game.Cards = ""; }, Error, "cards1.xml: no card"},
        Fault{"OtherDeck", CardWith("DeckID", "2"), Warning, "belongs to deck 2"},
        Fault{"NumberTwice", CardWith("Index", "2"), Warning, "several cards 2"},
        Fault{"Gap", CardWith("Index", "4"), Warning, "there is no card 3 among 3"},
        Fault{"NullColumn", [](GameFolder& game) { game.Cards += "<z:row DeckID='1' Index='3'/>"; }, Error,
              "\"CorrectMessage\" is missing"},
        Fault{"NoRightAnswer", CardWith("CorrectAnswer", "4"), Warning, "no answer is right"},
        Fault{"BlankRightAnswer", CardWith("CorrectAnswer", "3"), Warning, "the right answer is blank"},
        Fault{"NoWordForARightAnswer", CardWith("CorrectMessage", " "), Warning,
              "answers right waits without end"},
        Fault{"NoTries", Setting("Tries=2", "Tries=0"), Warning, "answers wrong waits without end"},
        Fault{"NoSuchAction", CardWith("IncorrectActionType", "13"), Warning, "no action 13 for a card"},
        Fault{"NumberToRoll", CardWith("CorrectActionType", "12"), Warning, "cannot order a number to roll"},
        Fault{"TargetOutside",
              [](GameFolder& game) {
                  game.Cards += CardRow(3, {{"CorrectActionType", "3"}, {"CorrectData1", "0"}});
              },
              Warning, "no space 0 to go to"}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST(CheckTest, ACardMayMoveAsRolledBothWays) {
    GameFolder game;
    for (const char* action : {"1", "2"})
        game.Cards += CardRow(action[0] - '0' + 2, {{"CorrectActionType", action}, {"CorrectData1", "-1"}});
    EXPECT_THAT(CheckGame(game.Files()).Lines(), IsEmpty());
}

TEST(CheckTest, ThePackageAndItsSettingsNeedOneName) {
    PackageFiles files = GameFolder().Files();
    files.Key = GameFolder().Key;
    EXPECT_THAT(CheckGame(files).Lines(), IsEmpty());
    files.Key = "{other}";
    EXPECT_TRUE(CheckGame(files).HasErrors());
}

TEST(CheckTest, AnEmptyFolderIsNoGame) {
    const Findings findings = CheckGame({});
    EXPECT_EQ(findings.Summary(), "2 errors, 0 warnings");
}

}  // namespace
}  // namespace tabulon::gamepack
