#include <gmock/gmock.h>

#include "library/modSavedGames.h"
#include "platform/child_process.h"
#include "support/test_machine.h"

namespace tabulon {
namespace {

using namespace testing;

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

std::string InText(const std::string& text) { return text; }
std::string InText(Integer number) { return std::to_string(number.Value()); }
template <auto Member>
std::string Slot(const PlayState& state, int slot) {
    return InText((state.*Member)[slot]);
}

struct Field {
    const char* Name;
    bool IsFlag;
    bool Shifts;  // is taken from the slot before in a new game
    std::string (*Loaded)(const PlayState&, int slot);
};

const Field Fields[] = {
    {"Name", false, true, Slot<&PlayState::Name>},
    {"Is Computer", true, true, Slot<&PlayState::IsComputer>},
    {"Position", false, true, Slot<&PlayState::Position>},
    {"Piece Name", false, true, Slot<&PlayState::PieceName>},
    {"Points", false, false, Slot<&PlayState::Points>},
    {"Done", true, true, Slot<&PlayState::Done>},
    {"Lose Turns", false, false, Slot<&PlayState::LoseTurns>},
    {"Extra Turns", false, true, Slot<&PlayState::ExtraTurns>},
    {"Roll Double", true, false, Slot<&PlayState::RollDouble>},
    {"Roll Number", false, true, Slot<&PlayState::RollNumber>},
};

TEST_F(SavedGamesTest, TakesEachFieldFromItsOwnSlot) {
    for (const bool loadedGame : {false, true}) {
        ASSERT_TRUE(Save(ThreeSeats(loadedGame)));
        PlayState loaded;
        ASSERT_TRUE(Load(loaded));
        for (const Field& field : Fields) {
            SCOPED_TRACE(field.Name + std::string(loadedGame ? " resumed" : " new"));
            for (int seat = 1; seat <= 3; ++seat) {
                const int slot = field.Shifts && !loadedGame ? seat - 1 : seat;
                EXPECT_EQ(field.Loaded(loaded, seat), std::to_string(field.IsFlag ? slot == 2 : slot))
                    << seat;
                EXPECT_NE(Stored("Player " + std::to_string(seat) + " " + field.Name), RegistryValue());
            }
        }
    }
}

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

TEST_F(SavedGamesTest, ToolTipsNameThePlayersPieceAndPlate) {
    Save(ThreeSeats(true));
    frmMain.lblPoints[1].ToolTipText = "former";
    const std::pair<int, const char*> rows[] = {{2, "former"}, {0, "2's points"}, {1, "2's money"}};
    for (const auto& [goalType, toolTip] : rows) {
        PlayState loaded;
        Load(loaded, goalType);
        EXPECT_EQ(frmMain.imgPlayingPiece[1].ToolTipText, "2");
        EXPECT_EQ(frmMain.imgCharacter[1].ToolTipText, "2's playing piece");
        EXPECT_EQ(frmMain.lblPoints[1].ToolTipText, toolTip);
    }
}

struct Odd {
    const char *Name, *ValueName;
    RegistryValue Value;
    int Failure;  // 0: loads
    int PlayerCount;
};

TEST_F(SavedGamesTest, AnOddSavedGameEndsInAReportAtMost) {
    const std::vector<std::uint8_t> bytes{1, 2};
    const Odd rows[] = {
        {"NegativePlayerCount", "Player Count", -1, 9, -1},
        {"NoPlayers", "Player Count", 0, 0, 0},
        {"HugePlayerCount", "Player Count", 30000, 9, 30000},
        {"SeventhPlayer", "Player Count", 7, 9, 7},
        {"SixPlayersOfWhomThreeAreMissing", "Player Count", 6, 0, 6},
        {"PlayerCountBeyondSixteenBits", "Player Count", 40000, 6, 0},
        {"NumberAsText", "Player Count", "2", 0, 2},
        {"TextThatIsNoNumber", "Player Count", "many", 13, 0},
        {"BytesForANumber", "Whose Turn", bytes, 13, 3},
        {"BytesForAName", "Player 2 Name", bytes, 13, 3},
        {"FlagOfMinusOne", "Player 3 Done", -1, 0, 3},
        {"PositionBeyondSixteenBits", "Player 1 Position", 70000, 6, 3},
    };
    for (const Odd& row : rows) {
        SCOPED_TRACE(row.Name);
        machine.Errors.clear();
        Save(ThreeSeats(true));
        Store(row.ValueName, row.Value);
        PlayState loaded;
        EXPECT_EQ(Load(loaded), row.Failure == 0);
        EXPECT_EQ(loaded.PlayerCount, row.PlayerCount);
        std::vector<std::string> errors;
        if (row.Failure != 0) errors = {"modSavedGames:LoadGame " + std::to_string(row.Failure)};
        EXPECT_EQ(machine.Errors, errors);
    }
}

TEST_F(SavedGamesTest, AnUnknownSavedGameLoadsWithoutPlayers) {
    PlayState loaded = ThreeSeats(true);
    EXPECT_TRUE(library.LoadGame("{game}", 0, "never", loaded, frmMain));
    EXPECT_EQ(loaded.PlayerCount, 0);
    EXPECT_EQ(loaded.Points.UBound(), 0);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(SavedGamesTest, AKillWhileSavingLeavesAWholeSavedGame) {
    const auto file = machine.Folder / "settings";
    const auto saveAs = [&](char letter) {
        test::TestMachine saving(file);
        modInstallUninstall savingPackages(saving.g);
        PlayState state = ThreeSeats(true);
        const std::string name(4000, letter);
        state.Name = state.PieceName = {"", name, name, name};
        return modSavedGames(saving.g, savingPackages).SaveGame("{game}", state);
    };
    for (int round = 1; round <= 4; ++round) {
        const test::ChildProcess saver([&](auto progress) {
            for (int n = 0; saveAs(static_cast<char>('a' + n % 26)); ++n) progress();
            return false;
        });
        saver.AwaitProgress(round);
        saver.Kill();
        test::TestMachine reading(file);
        modSavedGames readable(reading.g, packages);
        PlayState loaded;
        ASSERT_TRUE(readable.LoadGame("{game}", 0, SavedName, loaded, frmMain));
        EXPECT_EQ(loaded.PlayerCount, 3);
        EXPECT_EQ(loaded.Name[1], loaded.PieceName[3]);
        EXPECT_EQ(loaded.Name[1].size(), 4000u);
    }
}

}  // namespace
}  // namespace tabulon
