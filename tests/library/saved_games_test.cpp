#include <gmock/gmock.h>

#include "library/modSavedGames.h"
#include "platform/child_process.h"
#include "support/test_machine.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* SavedKey =
    "SOFTWARE\\Corvane Software\\Tabulon\\Games\\{game}\\Saved Games\\01/05/26 02:30 PM";
constexpr const char* SavedName = "01/05/26 02:30 PM";

/// Three seats in arrays that are long enough for every slot: numbers and texts tell their slot, and a flag
/// is set in slot 2 alone.
PlayState ThreeSeats(bool loadedGame) {
    PlayState state;
    state.PlayerCount = 3;
    state.WhoseTurn = 2;
    state.CurrentSpace = 1;
    state.Round = 14;
    state.GameStart = state.GamePlayed = true;
    state.LoadedGame = loadedGame;
    for (auto* texts : {&state.Name, &state.PieceName}) *texts = {"0", "1", "2", "3"};
    for (auto* flags : {&state.IsComputer, &state.Done, &state.RollDouble})
        *flags = {false, false, true, false};
    for (auto* numbers :
         {&state.Position, &state.Points, &state.LoseTurns, &state.ExtraTurns, &state.RollNumber})
        *numbers = {0, 1, 2, 3};
    return state;
}

class SavedGamesTest : public testing::Test {
  protected:
    bool Save(const PlayState& state) { return library.SaveGame("{game}", state); }
    bool Load(PlayState& state, Integer goalType = 0) {
        return library.LoadGame("{game}", goalType, SavedName, state, frmMain);
    }
    RegistryValue Stored(const std::string& name) {
        return machine.g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, SavedKey, name);
    }
    void Store(const std::string& name, const RegistryValue& value) {
        constexpr std::uint32_t types[] = {REG_SZ, REG_SZ, REG_BINARY, REG_DWORD};
        machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, SavedKey, name, value,
                                               types[value.index()]);
    }

    test::TestMachine machine;
    modInstallUninstall packages{machine.g};
    modSavedGames library{machine.g, packages};
    MainForm frmMain{machine.g};
};

struct Field {
    const char* Name;
    const char* ValueName;
    bool Shifts;  // is taken from the slot before in a new game
    int (*Loaded)(const PlayState&, int slot);
};
class ShiftTest : public SavedGamesTest, public testing::WithParamInterface<std::tuple<Field, bool>> {};

TEST_P(ShiftTest, TakesEachFieldFromItsOwnSlot) {
    const auto& [field, loadedGame] = GetParam();
    ASSERT_TRUE(Save(ThreeSeats(loadedGame)));
    PlayState loaded;
    ASSERT_TRUE(Load(loaded));
    const bool isFlag = field.Loaded(ThreeSeats(true), 2) == 1;
    for (int seat = 1; seat <= 3; ++seat) {
        const int slot = field.Shifts && !loadedGame ? seat - 1 : seat;
        EXPECT_EQ(field.Loaded(loaded, seat), isFlag ? int{slot == 2} : slot) << "seat " << seat;
        EXPECT_NE(Stored("Player " + std::to_string(seat) + " " + field.ValueName), RegistryValue());
    }
}

template <auto Member>
int NumberOf(const PlayState& state, int slot) {
    return (state.*Member)[slot].Value();
}
template <auto Member>
int FlagOf(const PlayState& state, int slot) {
    return (state.*Member)[slot] ? 1 : 0;
}
template <auto Member>
int TextOf(const PlayState& state, int slot) {
    return std::stoi((state.*Member)[slot]);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, ShiftTest,
    testing::Combine(
        testing::Values(Field{"Name", "Name", true, TextOf<&PlayState::Name>},
                        Field{"IsComputer", "Is Computer", true, FlagOf<&PlayState::IsComputer>},
                        Field{"Position", "Position", true, NumberOf<&PlayState::Position>},
                        Field{"PieceName", "Piece Name", true, TextOf<&PlayState::PieceName>},
                        Field{"Points", "Points", false, NumberOf<&PlayState::Points>},
                        Field{"Done", "Done", true, FlagOf<&PlayState::Done>},
                        Field{"LoseTurns", "Lose Turns", false, NumberOf<&PlayState::LoseTurns>},
                        Field{"ExtraTurns", "Extra Turns", true, NumberOf<&PlayState::ExtraTurns>},
                        Field{"RollDouble", "Roll Double", false, FlagOf<&PlayState::RollDouble>},
                        Field{"RollNumber", "Roll Number", true, NumberOf<&PlayState::RollNumber>}),
        testing::Bool()),
    [](const auto& row) {
        return std::string(std::get<0>(row.param).Name) + (std::get<1>(row.param) ? "Resumed" : "New");
    });

TEST_F(SavedGamesTest, KeepsTheFieldsOfTheGame) {
    ASSERT_TRUE(Save(ThreeSeats(false)));
    EXPECT_EQ(Stored("Game Start"), RegistryValue(1));
    EXPECT_EQ(Stored("Game In Progress"), RegistryValue(0));
    PlayState loaded;
    loaded.GameInProgress = true;
    ASSERT_TRUE(Load(loaded));
    EXPECT_EQ(loaded.PlayerCount, 3);
    EXPECT_EQ(loaded.WhoseTurn, 2);
    EXPECT_EQ(loaded.Round, 14);
    EXPECT_TRUE(loaded.GamePlayed);
    EXPECT_FALSE(loaded.GameInProgress);
    EXPECT_EQ(loaded.Name.UBound(), 3);
    EXPECT_EQ(loaded.Name[0], "");
}

TEST_F(SavedGamesTest, AMinuteHasOneSavedGame) {
    PlayState state = ThreeSeats(true);
    Save(state);
    state.PlayerCount = 1;
    Save(state);
    EXPECT_THAT(library.GetSavedGames("{game}"), ElementsAre(SavedName));
    PlayState loaded;
    EXPECT_TRUE(Load(loaded));
    EXPECT_EQ(loaded.Points.UBound(), 1);
    machine.TheScreen.Sleep(60000);
    Save(state);
    EXPECT_THAT(library.GetSavedGames("{game}"), ElementsAre(SavedName, "01/05/26 02:31 PM"));
    EXPECT_THAT(library.GetSavedGames("{other}"), IsEmpty());
}

TEST_F(SavedGamesTest, AFailureKeepsTheValuesSoFar) {
    PlayState state = ThreeSeats(false);
    state.IsComputer = {false};
    EXPECT_FALSE(Save(state));
    EXPECT_THAT(machine.Errors, ElementsAre("modSavedGames:SaveGame 9"));
    EXPECT_EQ(Stored("Player Count"), RegistryValue(3));
    EXPECT_EQ(Stored("Player 2 Name"), RegistryValue("1"));
    EXPECT_EQ(Stored("Player 2 Is Computer"), RegistryValue());
}

struct Tip {
    const char* Name;
    int GoalType;
    const char* Expected;
};
class ToolTipTest : public SavedGamesTest, public testing::WithParamInterface<Tip> {};

TEST_P(ToolTipTest, NamesThePlayersPieceAndPlate) {
    Save(ThreeSeats(true));
    frmMain.lblPoints[1].ToolTipText = "former";
    PlayState loaded;
    Load(loaded, GetParam().GoalType);
    EXPECT_EQ(frmMain.imgPlayingPiece[1].ToolTipText, "2");
    EXPECT_EQ(frmMain.imgCharacter[1].ToolTipText, "2's playing piece");
    EXPECT_EQ(frmMain.lblPoints[1].ToolTipText, GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(GoalTypes, ToolTipTest,
                         testing::Values(Tip{"Points", 0, "2's points"}, Tip{"Money", 1, "2's money"},
                                         Tip{"EndOfBoard", 2, "former"}),
                         [](const auto& row) { return row.param.Name; });

struct Odd {
    const char* Name;
    const char* ValueName;
    RegistryValue Value;
    int Failure;  // 0: loads
    int PlayerCount;
};
class OddSavedGameTest : public SavedGamesTest, public testing::WithParamInterface<Odd> {};

TEST_P(OddSavedGameTest, EndsInAReportAtMost) {
    Save(ThreeSeats(true));
    Store(GetParam().ValueName, GetParam().Value);
    PlayState loaded;
    EXPECT_EQ(Load(loaded), GetParam().Failure == 0);
    EXPECT_EQ(loaded.PlayerCount, GetParam().PlayerCount);
    if (GetParam().Failure == 0) {
        EXPECT_THAT(machine.Errors, IsEmpty());
    } else {
        EXPECT_THAT(machine.Errors,
                    ElementsAre("modSavedGames:LoadGame " + std::to_string(GetParam().Failure)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, OddSavedGameTest,
    testing::Values(Odd{"NegativePlayerCount", "Player Count", -1, 9, -1},
                    Odd{"NoPlayers", "Player Count", 0, 0, 0},
                    Odd{"HugePlayerCount", "Player Count", 30000, 9, 30000},
                    Odd{"SeventhPlayer", "Player Count", 7, 9, 7},
                    Odd{"SixPlayersOfWhomThreeAreMissing", "Player Count", 6, 0, 6},
                    Odd{"PlayerCountBeyondSixteenBits", "Player Count", 40000, 6, 0},
                    Odd{"NumberAsText", "Player Count", "2", 0, 2},
                    Odd{"TextThatIsNoNumber", "Player Count", "many", 13, 0},
                    Odd{"BytesForANumber", "Whose Turn", std::vector<std::uint8_t>{1, 2}, 13, 3},
                    Odd{"BytesForAName", "Player 2 Name", std::vector<std::uint8_t>{1, 2}, 13, 3},
                    Odd{"FlagOfMinusOne", "Player 3 Done", -1, 0, 3},
                    Odd{"PositionBeyondSixteenBits", "Player 1 Position", 70000, 6, 3}),
    [](const auto& row) { return row.param.Name; });

TEST_F(SavedGamesTest, AnUnknownSavedGameLoadsWithoutPlayers) {
    PlayState loaded = ThreeSeats(true);
    EXPECT_TRUE(library.LoadGame("{game}", 0, "never", loaded, frmMain));
    EXPECT_EQ(loaded.PlayerCount, 0);
    EXPECT_EQ(loaded.Points.UBound(), 0);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(SavedGamesTest, AKillWhileSavingLeavesAWholeSavedGame) {
    const auto file = machine.Folder / "settings";
    const auto saveAs = [&](char name) {
        test::TestMachine saving(file);
        modInstallUninstall savingPackages(saving.g);
        PlayState state = ThreeSeats(true);
        state.Name =
            state.PieceName = {"", std::string(4000, name), std::string(4000, name), std::string(4000, name)};
        return modSavedGames(saving.g, savingPackages).SaveGame("{game}", state);
    };
    for (int round = 1; round <= 4; ++round) {
        const test::ChildProcess saver([&](auto progress) {
            for (char name = 'a';; name = name == 'z' ? 'a' : static_cast<char>(name + 1)) {
                if (!saveAs(name)) return false;
                progress();
            }
        });
        saver.AwaitProgress(round);
        saver.Kill();
        test::TestMachine reading(file);
        modInstallUninstall readingPackages(reading.g);
        PlayState loaded;
        ASSERT_TRUE(
            modSavedGames(reading.g, readingPackages).LoadGame("{game}", 0, SavedName, loaded, frmMain));
        EXPECT_EQ(loaded.PlayerCount, 3);
        EXPECT_EQ(loaded.Name[1], loaded.PieceName[3]);
        EXPECT_EQ(loaded.Name[1].size(), 4000u);
    }
}

}  // namespace
}  // namespace tabulon
