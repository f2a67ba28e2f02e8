#include "library/dlgLoadGame.h"

#include "library/library_fixture.h"

namespace tabulon::test {
namespace {

using namespace testing;

class DlgLoadGameTest : public testing::Test {
  protected:
    TestMachine machine;
    LibraryRun run{machine};
    DlgLoadGame& dialog = run.dlgLoadGame;
};

TEST_F(DlgLoadGameTest, StartsANewGameAtStartUp) {
    AddGame(machine, "{a}", "Alpha", {"Monday"});
    AddGame(machine, "{b}", "Beta");
    run.ChooseAtStart([this] {
        EXPECT_THAT(RowTexts(dialog.cmbInstalledGames), ElementsAre("Alpha", "Beta"));
        EXPECT_EQ(dialog.cmbInstalledGames.Rows[1].ToolTipText, "about Beta");
        EXPECT_EQ(dialog.lblDescription.Caption, "about Alpha");
        EXPECT_THAT(dialog.cmbSavedGames.Rows, IsEmpty());
        EXPECT_TRUE(dialog.cmdNewGame.Enabled);
        EXPECT_TRUE(dialog.cmdInstallGame.Enabled && dialog.cmdUninstall.Enabled);
        EXPECT_FALSE(dialog.cmdLoadGame.Enabled || dialog.cmbSavedGames.Enabled);
        dialog.cmbInstalledGames.Select(1);
        EXPECT_EQ(dialog.lblDescription.Caption, "about Beta");
        dialog.cmdLoadGame.Click();
        EXPECT_TRUE(dialog.Visible);
        dialog.cmdNewGame.Click();
    });
    EXPECT_TRUE(run.result);
    EXPECT_TRUE(run.newGame);
    EXPECT_THAT(run.host.Calls, ElementsAre("game {b} Beta"));
    EXPECT_EQ(run.frmMain.GameDirectory, "{b}");
    EXPECT_EQ(run.frmMain.GameName, "Beta");
    EXPECT_FALSE(dialog.Loaded);
    EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(DlgLoadGameTest, WithoutGamesOffersNone) {
    run.ChooseAtStart([this] {
        EXPECT_THAT(RowTexts(dialog.cmbInstalledGames), ElementsAre("(none)", ""));
        dialog.cmdNewGame.Click();
    });
    EXPECT_THAT(run.host.Calls, ElementsAre("game  (none)"));
}

TEST(ChooserPlaceTest, StandsOverTheSplashAtBothDensities) {
    for (const int density : {96, 120}) {
        TestMachine machine(density);
        LibraryRun run(machine);
        const float twips = machine.TheScreen.TwipsPerPixelX();
        run.splash.Left = 10 * twips;
        run.splash.Top = 20 * twips;
        run.ChooseAtStart([&] {
            EXPECT_EQ(run.dlgLoadGame.Position, StartUpPosition::Manual);
            EXPECT_EQ(run.dlgLoadGame.Left, 125 * twips);
            EXPECT_EQ(run.dlgLoadGame.Top, 320 * twips);
        });
        run.ChooseLater([&] { EXPECT_EQ(run.dlgLoadGame.Position, StartUpPosition::CentreScreen); });
    }
}

class LaterChoiceTest : public DlgLoadGameTest {
  protected:
    LaterChoiceTest() {
        AddGame(machine, "{a}", "Alpha", {"Monday", "Tuesday"});
        AddGame(machine, "{b}", "Beta", {"Friday"});
        run.ChooseAtStart([this] { dialog.cmdNewGame.Click(); });
        run.host.Calls.clear();
    }
};

TEST_F(LaterChoiceTest, ResumesASavedGame) {
    run.ChooseLater([this] {
        EXPECT_THAT(RowTexts(dialog.cmbSavedGames), ElementsAre("Monday", "Tuesday"));
        EXPECT_EQ(dialog.cmbSavedGames.Rows[1].ToolTipText, "Tuesday");
        EXPECT_FALSE(dialog.cmdLoadGame.Enabled);
        EXPECT_FALSE(dialog.cmdInstallGame.Enabled || dialog.cmdUninstall.Enabled);
        dialog.cmbSavedGames.Select(1);
        EXPECT_TRUE(dialog.cmdLoadGame.Enabled);
        dialog.cmdLoadGame.Click();
    });
    EXPECT_TRUE(run.result);
    EXPECT_FALSE(run.newGame);
    EXPECT_THAT(run.host.Calls, ElementsAre("game {a} Alpha", "saved Tuesday"));
}

TEST_F(LaterChoiceTest, ADoubleClickResumesAndANewGameLeavesTheSelectedSavedOneAlone) {
    run.ChooseLater([this] {
        dialog.cmbSavedGames.ListIndex = 0;
        dialog.cmbSavedGames.DblClick();
    });
    EXPECT_THAT(run.host.Calls, ElementsAre("game {a} Alpha", "saved Monday"));
    run.ChooseLater([this] {
        dialog.cmbSavedGames.Select(1);
        dialog.cmdNewGame.Click();
    });
    EXPECT_THAT(run.host.Calls, ElementsAre("game {a} Alpha", "saved Monday", "game {a} Alpha"));
}

TEST_F(LaterChoiceTest, ChoosingTheSelectedGameAgainRepeatsItsRows) {
    run.ChooseLater([this] {
        dialog.cmbSavedGames.Select(0);
        dialog.cmbInstalledGames.Select(0);
        EXPECT_THAT(RowTexts(dialog.cmbSavedGames), ElementsAre("Monday", "Tuesday", "Monday", "Tuesday"));
        EXPECT_EQ(dialog.cmbSavedGames.ListIndex, 0);
        EXPECT_TRUE(dialog.cmdUninstall.Enabled);
        dialog.cmbInstalledGames.Select(1);
        EXPECT_THAT(RowTexts(dialog.cmbSavedGames), ElementsAre("Friday"));
        EXPECT_EQ(dialog.cmbSavedGames.ListIndex, -1);
        EXPECT_FALSE(dialog.cmdLoadGame.Enabled);
    });
    EXPECT_FALSE(run.result);
    EXPECT_THAT(run.host.Calls, IsEmpty());
}

TEST_F(LaterChoiceTest, LooksTheFirstSavedGamesUpInTheListsOfTheChoiceBefore) {
    std::filesystem::remove(machine.AppDir() / "{a}.gam");
    AddGame(machine, "{c}", "Gamma");
    run.ChooseLater([this] {
        EXPECT_EQ(dialog.cmbInstalledGames.SelectedRow().Text, "Gamma");
        EXPECT_THAT(RowTexts(dialog.cmbSavedGames), ElementsAre("Monday", "Tuesday"));
    });
}

TEST_F(LaterChoiceTest, TheCloseBoxAndAFailureLeaveWithoutAResult) {
    run.ChooseLater([this] { dialog.Unload(); });
    EXPECT_FALSE(run.result);
    EXPECT_THAT(run.host.Calls, IsEmpty());
    run.host.Fails = true;
    run.ChooseLater([this] { dialog.cmdNewGame.Click(); });
    EXPECT_FALSE(run.result || dialog.Loaded);
    EXPECT_THAT(machine.Errors, ElementsAre("dlgLoadGame:GetData 91"));
}

TEST_F(LaterChoiceTest, AnOpenListBeginsWithTheSelectedRow) {
    run.ChooseLater([this] {
        dialog.cmbInstalledGames.Select(1);
        dialog.cmbInstalledGames.DropDown();
        EXPECT_EQ(dialog.cmbInstalledGames.TopIndex, 1);
        dialog.cmbSavedGames.TopIndex = 3;
        dialog.cmbSavedGames.DropDown();
        EXPECT_EQ(dialog.cmbSavedGames.TopIndex, 0);
    });
}

struct Press {
    const char* Name;
    int KeyCode, Shift;
    bool Acts;
    std::vector<std::string> Calls;  // what is loaded, with a saved game selected
};

TEST_F(LaterChoiceTest, KeysActOnDisabledButtonsToo) {
    const Press rows[] = {
        {"AltW", Key::W, Key::Alt, true, {"game {a} Alpha"}},
        {"AltL", Key::L, Key::Alt, true, {"game {a} Alpha", "saved Monday"}},
        {"AltC", Key::C, Key::Alt, true, {}},
        {"Escape", Key::Escape, 0, true, {}},
        {"ShiftEscape", Key::Escape, Key::Shift, true, {}},
        {"ShiftAltW", Key::W, Key::Alt | Key::Shift, false, {}},
        {"PlainW", Key::W, 0, false, {}},
        {"Enter", Key::Enter, 0, false, {}},
    };
    for (const Press& row : rows) {
        SCOPED_TRACE(row.Name);
        run.host.Calls.clear();
        run.ChooseLater([&] {
            dialog.cmbSavedGames.Select(0);
            dialog.cmdNewGame.Enabled = dialog.cmdLoadGame.Enabled = dialog.cmdCancel.Enabled = false;
            EXPECT_EQ(dialog.KeyDown(row.KeyCode, row.Shift), row.Acts);
            EXPECT_EQ(dialog.Visible, !row.Acts);
        });
        EXPECT_EQ(run.host.Calls, row.Calls);
    }
}

TEST(InstallTest, AnInstalledGameIsThereAfterTheRestart) {
    TestMachine machine;
    AddGame(machine, "{a}", "Alpha");
    WritePackage(machine, "{beta}", "Beta");
    LibraryRun first(machine);
    machine.User.Answers = {BoxAnswer::Yes};
    machine.User.Acts.push_back([&](Form&) { first.dlgLoadGame.cmdInstallGame.Click(); });
    EXPECT_THROW(first.ChooseAtStart([&] {
        EXPECT_THAT(RowTexts(first.dlgInstallGames.lstAvailableGames), ElementsAre("Beta"));
        first.dlgInstallGames.lstAvailableGames.Select(0);
        first.dlgInstallGames.cmdOk.Click();
    }),
                 ProgramEnd);
    EXPECT_THAT(
        machine.User.BoxTexts(),
        ElementsAre("The game you just installed will not be available until you restart the Player.\r\n"
                    "Do you want to restart the Tabulon Player now?"));
    EXPECT_EQ(machine.User.Boxes.at(0).Icon, BoxIcon::Critical);
    EXPECT_THAT(machine.Shell.Started, ElementsAre("/opt/tabulon/bin/tabulon-player"));
    EXPECT_EQ(first.stops, 1);

    LibraryRun second(machine);
    second.ChooseAtStart([&] {
        EXPECT_THAT(RowTexts(second.dlgLoadGame.cmbInstalledGames), ElementsAre("Alpha", "Beta"));
        second.dlgLoadGame.cmbInstalledGames.Select(1);
        second.dlgLoadGame.cmdNewGame.Click();
    });
    EXPECT_THAT(second.host.Calls, ElementsAre("game {beta} Beta"));
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST(InstallTest, WithoutTheRestartTheListStays) {
    TestMachine machine;
    WritePackage(machine, "{beta}", "Beta");
    LibraryRun run(machine);
    machine.User.Answers = {BoxAnswer::No};
    machine.User.Acts.push_back([&](Form&) { run.dlgLoadGame.KeyDown(Key::I, Key::Alt); });
    machine.User.Acts.push_back([&](Form&) {
        run.dlgInstallGames.lstAvailableGames.ListIndex = 0;
        run.dlgInstallGames.lstAvailableGames.DblClick();
    });
    run.ChooseAtStart(
        [&] { EXPECT_THAT(RowTexts(run.dlgLoadGame.cmbInstalledGames), ElementsAre("(none)", "")); });
    EXPECT_THAT(machine.Shell.Started, IsEmpty());
}

constexpr const char* Sure = "Are you sure you want to permanently remove \"Alpha\"?";
constexpr const char* MustRestart = "The Player must now restart.\r\n";

struct Uninstall {
    const char* Name;
    std::string Key;
    BoxAnswer Answer;
    bool Restarts, Stays;
    std::vector<std::string> Boxes;
};

TEST(UninstallTest, RestartsWhateverCameOfIt) {
    const std::string permanent(PermanentGame);
    const Uninstall rows[] = {
        {"Yes", "{a}", BoxAnswer::Yes, true, false, {Sure, MustRestart}},
        {"No", "{a}", BoxAnswer::No, false, true, {Sure}},
        {"Cancel", "{a}", BoxAnswer::Cancel, false, true, {Sure}},
        {"Permanent",
         permanent,
         BoxAnswer::Yes,
         true,
         true,
         {Sure, "Cannot uninstall this game.", MustRestart}},
    };
    for (const Uninstall& row : rows) {
        SCOPED_TRACE(row.Name);
        TestMachine machine;
        AddGame(machine, row.Key, "Alpha", {"Monday", "Tuesday"});
        LibraryRun run(machine);
        machine.User.Answers = {row.Answer};
        const auto uninstall = [&] { run.ChooseAtStart([&] { run.dlgLoadGame.cmdUninstall.Click(); }); };
        if (row.Restarts)
            EXPECT_THROW(uninstall(), ProgramEnd);
        else
            uninstall();
        EXPECT_EQ(machine.Shell.Started.size(), row.Restarts ? 1u : 0u);
        EXPECT_EQ(machine.User.BoxTexts(), row.Boxes);
        EXPECT_EQ(run.library.GetSavedGames(row.Key).size(), row.Stays ? 2u : 0u);
        const std::string key = std::string(GamesKey) + "\\" + row.Key;
        EXPECT_EQ(machine.Store.KeyExists(HKEY_LOCAL_MACHINE, key), row.Stays);
    }
}

}  // namespace
}  // namespace tabulon::test
