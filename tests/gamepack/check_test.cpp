#include "gamepack/check.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>

#include "content/CDecks.h"
#include "content/persisted_recordset.h"
#include "gamepack/game_folder.h"
#include "info/rich_text.h"
#include "packages/settings_lines.h"

namespace tabulon::gamepack {
namespace {

using test::CardRow;
using test::ContentXml;
using test::DeckRow;
using test::GameFolder;
using test::SpaceRow;
using namespace testing;

TEST(CheckTest, AGoodGameHasNoFindings) {
    const Findings findings = CheckGame(GameFolder().Files());
    EXPECT_THAT(findings.Lines(), IsEmpty());
    EXPECT_FALSE(findings.HasErrors());
    EXPECT_EQ(findings.Summary(), "0 errors, 0 warnings");
}

struct Fault {
    const char* Name;
    std::function<void(GameFolder&)> Spoil;
    const char *Level, *Finding;
};

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

/// A race of four spaces; the second one acts, and two of them speak.
auto Race(const std::string& action, const std::string& data1, const std::string& message = " ") {
    return [=](GameFolder& game) {
        Setting("Goal Type=0", "Goal Type=2")(game);
        game.Cards = CardRow(1, {{"CorrectActionType", "0"}, {"IncorrectActionType", "0"}});
        game.Spaces = SpaceRow(1, {{"Message", message}, {"ActionType", "-1"}}) +
                      SpaceRow(2, {{"ActionType", action}, {"Data1", data1}}) +
                      SpaceRow(3, {{"Message", message}, {"ActionType", "-1"}}) +
                      SpaceRow(4, {{"ActionType", "-1"}});
    };
}

/// Questions with four answers, and which is right on each.
auto Questions(const std::string& rights) {
    return [=](GameFolder& game) {
        game.Cards = "";
        for (const char right : rights)
            game.Cards += CardRow(static_cast<int>(std::ranges::count(game.Cards, '\n')) + 1,
                                  {{"Answer4", "d"}, {"CorrectAnswer", {right}}});
    };
}

auto CardMoving(const std::string& action, const std::string& data1) {
    return [=](GameFolder& game) {
        game.Cards += CardRow(3, {{"CorrectActionType", action}, {"CorrectData1", data1}});
    };
}

auto Help(const std::string& name, const std::string& bytes) {
    return [=](GameFolder& game) {
        game.Settings += "Help File=" + name + "\r\n";
        game.More.push_back({name, bytes});
    };
}

const Fault Faults[] = {
    // the settings
    {"NoName", Setting("Game Name=Small", "Game Name="), "error", ".dat:1: "},
    {"NoNameLine", Setting("Game Name=Small\r\n", ""), "error", "the game has no name"},
    {"NoNumber", Setting("Dice Used=2", "Dice Used=two"), "error", ".dat:5: "},
    {"TooBig", Setting("Tries=2", "Tries=40000"), "error", ".dat:6: "},
    {"WrongCase", Line("help file=x.txt"), "warning", ".dat:10: "},
    {"BirthdayAsItIsSpelt", Line("Author Birthday=1.1."), "warning", "Author Birtday="},
    {"Twice", Line("Tries=2"), "warning", "set a second time"},
    {"NoSuchGoal", Setting("Goal Type=0", "Goal Type=3"), "warning", "Write 0 for points"},
    {"NoSuchMusic", Setting("kids", "Kids"), "warning", ".dat:9: "},
    {"NoDice", Setting("Dice Used=2", "Dice Used=0"), "warning", "nobody can move"},
    {"SixReels", Setting("Turn Device=0\r\nDice Used=2", "Turn Device=1\r\nMax Slot Value=9\r\nDice Used=6"),
     "warning", "Use 5 or fewer"},
    {"WonAtOnce", Setting("Finish Condition=20", "Finish Condition=0"), "warning", "the first move wins"},
    {"LoopWithoutEnd", Setting("Goal Type=0", "Goal Type=2\r\nLoop Board=1"), "warning", "never ends"},
    {"NoPoints",
     [](GameFolder& game) {
         game.Spaces = SpaceRow(1, {{"ActionType", "-1"}}) + SpaceRow(2, {{"ActionType", "-1"}});
         game.Decks = game.Cards = "";
     },
     "warning", "nothing on the board or in the cards gives points"},
    {"NoBoard", Setting("board.bmp", "plan.bmp"), "error", ".dat:7: "},
    {"BoardElsewhere", Setting("board.bmp", "../board.bmp"), "error", "no plain file name"},
    {"BoardThatBeginsAlike", Setting("board.bmp", "board"), "error", "the Player would take \"board.bmp\""},
    {"BoardThatIsNone", [](GameFolder& game) { game.Board = "no picture"; }, "error", "board.bmp: "},
    {"BoardThatStays",
     [](GameFolder& game) {
         Setting("board.bmp", "plan.png")(game);
         game.More.push_back({"plan.png", game.Board});
     },
     "warning", "plan.png: the Player leaves such a file behind"},
    {"FileForNothing",
     [](GameFolder& game) {
         game.More.push_back({"cards2.xml", ""});
     },
     "warning", "cards2.xml: nothing in the game uses this file"},
    {"HelpThatIsNotShown", Line("Help File=board.bmp"), "warning", "does not show this kind of help"},

    {"TooLarge", Line("Remark " + std::string(limits::SettingsBytes, 'x')), "error", "larger than 1 MB"},
    {"NameOfThePlayersOwn", Line("Help File=errors.txt"), "error", "named like one of its own"},
    {"BoardTooLarge",
     [](GameFolder& game) { game.Board.replace(18, 6, std::string("\x00\x40\0\0\x00\x40", 6)); }, "error",
     "no more than 100 million pixels"},
    {"HelpTooLarge", Help("help.txt", std::string(limits::HelpTextBytes + 1, 'x')), "error",
     "larger than 4 MB"},
    {"HelpCutOff", Help("help.rtf", "{\\rtf1 {\\b Throw"), "error", "rich text that the Player cannot read"},
    {"HelpThatIsNotCompiled", Help("help.chm", "ITSF"), "error", "cannot unpack it"},

    // the spaces
    {"NoXml", [](GameFolder& game) { game.Spaces = "<z:row"; }, "error", "spaces.xml: "},
    {"NoRows", [](GameFolder& game) { game.Spaces = ""; }, "error", "no space can be read"},
    {"NullColumn", [](GameFolder& game) { game.Spaces += "<z:row Sequence='4'/>"; }, "error",
     "spaces.xml:17: \"Left\" is missing"},
    {"NoNumber", SpaceWith("Data1", "INF"), "error", "spaces.xml:17: \"Data1\" is no number"},
    {"TooBig", SpaceWith("Data2", "32768"), "error", "\"Data2\" is too big"},
    {"OperandTooBig", SpaceWith("Data1", "32768"), "error", "spaces.xml:17: the first operand"},
    {"LongText", SpaceWith("Message", std::string(255, 'x')), "warning", "has 255 characters"},
    {"Outside", SpaceWith("Left", "98"), "warning", "spaces.xml:17: the space leaves the board picture"},
    {"FarOutside", SpaceWith("Width", "2147483647"), "warning", "leaves the board picture"},
    {"NoSize", SpaceWith("Height", "0"), "warning", "has no size"},
    {"Overlap", SpaceWith("Left", "22"), "warning", "spaces.xml:17: the space overlaps space 2"},
    {"NoSuchAction", Space("13", "0"), "warning", "no action 13"},
    {"NumberTwice", SpaceWith("Sequence", "3"), "warning", "several spaces 3"},
    {"OutOfOrder", SpaceWith("Sequence", "9"), "warning", "space 9 stands where space 4 belongs"},
    {"OneSpaceForPoints", [](GameFolder& game) { game.Spaces = SpaceRow(1); }, "warning",
     "the first move never ends"},
    {"LastNumberAboveTheCount",
     [](GameFolder& game) {
         Setting("Goal Type=0", "Goal Type=2")(game);
         game.Spaces += SpaceRow(9);
     },
     "warning", "the move to the last space never ends"},
    {"TargetOutside", Space("3", "5"), "warning", "no space 5 to go to"},
    {"MoveOutside", Space("1", "5"), "warning", "leaves the board of 4 spaces"},
    {"MoveBackAsRolled", Space("2", "-1"), "warning", "leaves the board of 4 spaces"},
    {"NoSuchDeck", Space("0", "2"), "error", "spaces.xml:17: there are no cards in deck 2"},
    {"LessThanNone", Space("5", "-1"), "warning", "is negative"},
    {"TotalThatCannotBeRolled", Space("12", "13"), "warning", "13 cannot be rolled"},
    {"ToTheEndOfARace", Race("1", "2"), "warning", "where only a roll ends the game"},
    {"AsRolledToTheEndOfARace", Race("1", "-1"), "warning", "where only a roll ends the game"},
    {"BackBeforeARace", Race("2", "2"), "warning", "goes round to the end"},
    {"PointsInARace", Race("6", "2"), "warning", "a race shows no points"},
    {"SameWordsInARace", Race("-1", "0", "Oh! The wind blows. "), "warning",
     "space 1 says too: \"The wind blows.\""},
    {"DoubleWithOneDie",
     [](GameFolder& game) {
         Setting("Dice Used=2", "Dice Used=1")(game);
         Space("11", "0")(game);
     },
     "warning", "no double with fewer than two dice"},

    // the decks and cards
    {"NoCardsFile", [](GameFolder& game) { game.Decks += DeckRow("2"); }, "error", "there is no cards2.xml"},
    {"NotWhole", [](GameFolder& game) { game.Decks += DeckRow("2.5"); }, "error",
     "the deck's number is not whole"},
    {"DeckTwice", [](GameFolder& game) { game.Decks += DeckRow("1"); }, "warning", "several decks 1"},
    {"NoCards", [](GameFolder& game) { game.Cards = ""; }, "error", "cards1.xml: no card"},
    {"TooManyDecks",
     [](GameFolder& game) {
         for (std::size_t n = 0; n < limits::Decks; ++n) game.Decks += DeckRow("1");
     },
     "error", "more than 500 decks"},
    {"OtherDeck", CardWith("DeckID", "2"), "warning", "belongs to deck 2"},
    {"NumberTwice", CardWith("Index", "2"), "warning", "several cards 2"},
    {"Gap", CardWith("Index", "4"), "warning", "there is no card 3 among 3"},
    {"NullColumn", [](GameFolder& game) { game.Cards += "<z:row DeckID='1' Index='3'/>"; }, "error",
     "\"CorrectMessage\" is missing"},
    {"SameQuestion", CardWith("Message", "Q2"), "warning", "asks this more than once"},
    {"SameAnswer", CardWith("Answer3", "A"), "warning", "two of its answers are the same"},
    {"OneLetterWins", Questions("01232222222201313131"), "warning", "answer C is right on 9 of 20 cards"},
    {"OneLetterNeverWins", Questions("01201201201212121212"), "warning",
     "answer D is right on 0 of 20 cards, which players"},
    {"TooHardForComputers", Questions("00000012312312312312"), "warning",
     "answer A is right on 6 of 20 cards, and no computer"},
    {"NoRightAnswer", CardWith("CorrectAnswer", "4"), "warning", "no answer is right"},
    {"BlankRightAnswer", CardWith("CorrectAnswer", "3"), "warning", "the right answer is blank"},
    {"NoWordForARightAnswer", CardWith("CorrectMessage", " "), "warning", "answers right waits without end"},
    {"NoTries", Setting("Tries=2", "Tries=0"), "warning", "answers wrong waits without end"},
    {"NoSuchAction", CardWith("IncorrectActionType", "13"), "warning", "no action 13 for a card"},
    {"NumberToRoll", CardWith("CorrectActionType", "12"), "warning", "cannot order a number to roll"},
    {"TargetOutside", CardMoving("3", "0"), "warning", "no space 0 to go to"},
    {"ExtraTurns", CardMoving("10", "1"), "warning", "go to the player before"},
};

TEST(CheckTest, FindsWhatIsWrong) {
    for (const Fault& row : Faults) {
        SCOPED_TRACE(row.Name);
        GameFolder game;
        row.Spoil(game);
        const Findings findings = CheckGame(game.Files());
        EXPECT_THAT(findings.Lines(), Contains(AllOf(StartsWith(row.Level), HasSubstr(row.Finding))));
        EXPECT_EQ(findings.HasErrors(), row.Level == std::string("error"));
    }
}

TEST(CheckTest, CardsOfAllDecksAreCountedTogether) {
    GameFolder game;
    std::string rows;
    for (std::size_t n = 1; n <= limits::Rows; ++n) rows += CardRow(static_cast<int>(n));
    const std::string cards = ContentXml(CCards::Columns(), rows);
    for (std::size_t deck = 2; deck <= limits::Cards / limits::Rows + 1; ++deck) {
        const std::string number = std::to_string(deck);
        game.Decks += DeckRow(number);
        game.More.push_back(
            {"cards" + number + ".xml", ReplaceAll(cards, "DeckID='1'", "DeckID='" + number + "'")});
    }
    EXPECT_THAT(CheckGame(game.Files()).Lines(), ElementsAre(HasSubstr("more than 50000 cards")));
}

const Fault FineThings[] = {
    {"SpaceBesideAnother", SpaceWith("Left", "23"), "", ""},
    {"SpaceBelowAnother",
     [](GameFolder& game) {
         game.Spaces += SpaceRow(4, {{"Left", "20"}, {"Top", "24"}});
     },
     "", ""},
    {"ExtraTurnsOnASpace", Space("10", "1"), "", ""},
    {"CardForwardAsRolled", CardMoving("1", "-1"), "", ""},
    {"CardBackAsRolled", CardMoving("2", "-1"), "", ""},
    {"AlmostToTheEndOfARace", Race("1", "1", "Oh!"), "", ""},
    {"BackToTheStartOfARace", Race("2", "1"), "", ""},
    {"SameWordsOnARing",
     [](GameFolder& game) {
         for (const int space : {4, 5}) game.Spaces += SpaceRow(space, {{"Message", "The wind blows."}});
     },
     "", ""},
    {"BalancedAnswers", Questions("00000111222222223333"), "", ""},
    {"FewQuestions", Questions("0123222222222222222"), "", ""},
};

TEST(CheckTest, LeavesWhatIsFineAlone) {
    for (const Fault& row : FineThings) {
        SCOPED_TRACE(row.Name);
        GameFolder game;
        row.Spoil(game);
        EXPECT_THAT(CheckGame(game.Files()).Lines(), IsEmpty());
    }
}

TEST(CheckTest, ThePackageAndItsSettingsNeedOneName) {
    PackageFiles files = GameFolder().Files();
    files.Key = GameFolder().Key;
    EXPECT_THAT(CheckGame(files).Lines(), IsEmpty());
    files.Key = "{other}";
    EXPECT_TRUE(CheckGame(files).HasErrors());
}

TEST(CheckTest, AnEmptyFolderIsNoGame) { EXPECT_EQ(CheckGame({}).Summary(), "2 errors, 0 warnings"); }

}  // namespace
}  // namespace tabulon::gamepack
