#include <gmock/gmock.h>

#include "packages/modInstallUninstall.h"
#include "packages/settings_lines.h"
#include "packages/zip_maker.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/test_machine.h"

namespace tabulon {
namespace {

using test::ZipMaker;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Texts = std::vector<std::string>;

const std::string Key = "{11111111-2222-3333-4444-555555555555}";

class PackagesTest : public testing::Test {
  protected:
    std::filesystem::path Package(const std::string& name) const {
        return machine.AppDir() / (name + ".gam");
    }
    void Pack(const std::string& name, const std::vector<PackedFile>& files) {
        WriteArchive(Package(name), files);
    }
    void PackGame(const std::string& settings) {
        Pack(Key, {{Key + ".dat", settings}, {"spaces.xml", "<xml/>"}});
    }
    bool Extract(const std::string& fileName, bool checkOnly) {
        return packages.ExtractFile(Package(Key), machine.AppDir(), fileName, checkOnly);
    }
    /// What lies in the data directory, packages left out.
    Texts Unpacked() const {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(machine.AppDir()))
            if (!EqualNoCase(Last(entry, 4), ".gam")) names.push_back(entry.path().filename());
        return names;
    }
    static std::string Last(const std::filesystem::path& path, std::size_t n) {
        return path.string().substr(path.string().size() - n);
    }
    RegistryValue Setting(const std::string& name) {
        return machine.g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\" + Key,
                                                      name);
    }
    void Install() {
        Texts names, keys;
        packages.InstallableGames({}, names, keys);
        ASSERT_TRUE(packages.InstallGame(Key));
    }

    test::TestMachine machine;
    modInstallUninstall packages{machine.g};
};

TEST_F(PackagesTest, ExtractsUnderTheEntrysOwnName) {
    Pack(Key, {{"SPACES.XML", "the spaces"}});
    EXPECT_TRUE(Extract("spaces", false));
    EXPECT_THAT(Unpacked(), ElementsAre("SPACES.XML"));
    EXPECT_EQ(ReadFile(machine.AppDir() / "SPACES.XML", 100), "the spaces");
}

TEST_F(PackagesTest, AMissingEntryIsNoFailure) {
    PackGame("");
    EXPECT_TRUE(Extract("decks.xml", false));
    EXPECT_THAT(Unpacked(), IsEmpty());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(PackagesTest, AMissingPackageIsNoFailure) {
    EXPECT_TRUE(Extract("spaces.xml", false));
    EXPECT_FALSE(Extract("spaces.xml", true));
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(PackagesTest, CheckOnlyTellsAndUnpacksNothing) {
    PackGame("");
    EXPECT_TRUE(Extract("spaces.xml", true));
    EXPECT_FALSE(Extract("decks.xml", true));
    EXPECT_THAT(Unpacked(), IsEmpty());
}

TEST_F(PackagesTest, APackageIsFoundWithoutCase) {
    PackGame("");
    std::filesystem::rename(Package(Key), machine.AppDir() / (Key + ".GAM"));
    EXPECT_TRUE(Extract("spaces.xml", true));
}

TEST_F(PackagesTest, APackageThatIsReplacedIsReadAnew) {
    Pack(Key, {{"a.txt", "former"}});
    Extract("a.txt", false);
    Pack(Key, {{"b.txt", "a new one"}});
    EXPECT_FALSE(Extract("a.txt", true));
    EXPECT_TRUE(Extract("b.txt", true));
}

TEST_F(PackagesTest, WhatCannotBeUnpackedIsReportedAndLogged) {
    ZipMaker{"zip:encryption=aes128", "another"}.Write(Package(Key),
                                                       std::vector<PackedFile>{{"a<b&c.txt", "text"}});
    EXPECT_FALSE(Extract("a<b", false));
    EXPECT_THAT(machine.Errors, ElementsAre("modInstallUninstall:ExtractFile 57"));
    EXPECT_THAT(Unpacked(), UnorderedElementsAre("logs", "ERRORS.TXT"));
    packages.CleanupGameDir();
    EXPECT_THAT(ReadFile(machine.AppDir() / "logs/log.xml", 1000), HasSubstr("<asked>a&lt;b</asked>"));
}

TEST_F(PackagesTest, NothingOfTheProgramsOwnIsReplaced) {
    for (const char* name : {"other.gam", "kids.SND", "settings.db", "Settings.DB-journal", "Errors.txt"}) {
        Pack(Key, {{name, "hostile"}});
        EXPECT_FALSE(Extract(name, false)) << name;
        const std::filesystem::path file = FindFile(machine.AppDir(), name);  // the log tells of the refusal
        EXPECT_TRUE(file.empty() || ReadFile(file, 10000) != "hostile") << name;
    }
}

TEST_F(PackagesTest, AHostileEntryIsNeverWritten) {
    ZipMaker{}.Write(Package(Key),
                     std::vector<PackedFile>{{"../board.bmp", "hostile"}, {"/board.bmp", "hostile"}});
    for (const char* asked : {"../board.bmp", "/board.bmp", "board.bmp", "*board.bmp"}) Extract(asked, false);
    EXPECT_THAT(Unpacked(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(machine.Folder / "board.bmp"));
}

TEST_F(PackagesTest, OffersWhatIsNotInstalledAndNotHidden) {
    for (const std::string& name : Texts{"one", "two", "defobjs", "DEFOBJS", std::string(HiddenGame)})
        Pack(name, {{name + ".dat", "Author=x\r\nGame Name=Game " + name + "\r\n"}});
    Pack("nameless", {{"nameless.dat", "Author=x"}});
    std::filesystem::rename(Package("two"), machine.AppDir() / "two.GAM");
    WriteFile(machine.AppDir() / ".gam", "");
    Texts names, keys;
    packages.InstallableGames({"one", "ONE"}, names, keys);
    EXPECT_THAT(keys, UnorderedElementsAre("two", "DEFOBJS", "nameless"));
    EXPECT_THAT(names, UnorderedElementsAre("Game two", "Game DEFOBJS", ""));
    EXPECT_THAT(Unpacked(), UnorderedElementsAre("two.dat", "DEFOBJS.dat", "nameless.dat"));
}

TEST_F(PackagesTest, APackageWithoutSettingsIsReportedAndListedWithoutAName) {
    Pack("bare", {{"spaces.xml", "<xml/>"}});
    Texts names, keys;
    packages.InstallableGames({}, names, keys);
    EXPECT_THAT(keys, ElementsAre("bare"));
    EXPECT_THAT(names, ElementsAre(""));
    EXPECT_THAT(machine.Errors, ElementsAre("modInstallUninstall:ExtractGameNameFromFile 53"));
}

TEST_F(PackagesTest, InstallingWritesTheSettings) {
    PackGame(
        "Game Name=Caf\xE9 & Co \r\nAuthor Birtday=1.4.\nDice Used= 2 \r\nFinish Condition=-70000\r\n"
        "author=lower\r\n Tries=3\r\nSplash=first\r\nSplash=second=2\r\nAuthor Birthday=known to nobody");
    Install();
    EXPECT_EQ(Setting("Game Name"), RegistryValue("Caf\u00E9 & Co "));
    EXPECT_EQ(Setting("Author Birthday"), RegistryValue("1.4."));
    EXPECT_EQ(Setting("DiceUsed"), RegistryValue(2));
    EXPECT_EQ(Setting("Finish Condition"), RegistryValue(-70000));
    EXPECT_EQ(Setting("Splash Image"), RegistryValue("second=2"));
    EXPECT_EQ(Setting("Author"), RegistryValue());
    EXPECT_EQ(Setting("Card Answer Tries"), RegistryValue());
    EXPECT_THAT(Unpacked(), IsEmpty());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(PackagesTest, ASettingsFileMayHaveAnyNumberOfLinesUpToASize) {
    std::string settings = "Game Name=first\nTries=2\nTries=none\n";
    while (settings.size() + 100 < limits::SettingsBytes) settings += "Remark\nGame Name=x\n\n";
    PackGame(settings + "Game Name=last");
    Install();
    EXPECT_EQ(Setting("Game Name"), RegistryValue("last"));
    EXPECT_EQ(Setting("Card Answer Tries"), RegistryValue(2));
    EXPECT_EQ(machine.User.Boxes.size(), 1U);
    EXPECT_THAT(machine.Errors, IsEmpty());
    PackGame(settings + std::string(200, '\n'));
    Install();
    EXPECT_THAT(machine.Errors, testing::Contains("modInstallUninstall:InstallGameSettings 51"));
}

TEST_F(PackagesTest, ANumberThatIsNoneShowsABoxAndStaysUnwritten) {
    PackGame("Font Size=big\r\nTries=99999999999\r\nDice Used=2\r\n");
    Install();
    EXPECT_EQ(Setting("Font Size"), RegistryValue());
    EXPECT_EQ(Setting("Card Answer Tries"), RegistryValue());
    EXPECT_EQ(Setting("DiceUsed"), RegistryValue(2));
    ASSERT_EQ(machine.User.Boxes.size(), 2U);
    EXPECT_EQ(machine.User.Boxes[0].Title, "RegistrySetKeyValue");
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(PackagesTest, InstallingWithoutTheUnpackedSettingsReportsAndSucceeds) {
    PackGame("Game Name=x");
    EXPECT_TRUE(packages.InstallGame(Key));
    EXPECT_THAT(machine.Errors, ElementsAre("modInstallUninstall:InstallGameSettings 53"));
    EXPECT_EQ(Setting("Game Name"), RegistryValue());
}

TEST_F(PackagesTest, InstallingLooksIntoAPackageBesideTheDataDirectory) {
    WriteArchive(machine.Folder / "data.gam",
                 std::vector<PackedFile>{{Key + ".dat", "Game Name=from beside"}});
    EXPECT_TRUE(packages.InstallGame(Key));
    EXPECT_EQ(Setting("Game Name"), RegistryValue("from beside"));
}

TEST_F(PackagesTest, UninstallingRemovesTheKeyAndLeavesThePackage) {
    PackGame("Game Name=x");
    Install();
    const std::string key = std::string(GamesKey) + "\\" + Key;
    for (const char* saved : {"one", "two"})
        machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, key + "\\Saved Games\\" + saved, "Round",
                                               3, REG_DWORD);
    EXPECT_TRUE(packages.UninstallGame(Key));
    EXPECT_FALSE(machine.Store.KeyExists(HKEY_LOCAL_MACHINE, key));
    EXPECT_TRUE(FileExists(Package(Key)));
}

TEST_F(PackagesTest, CleaningUpDeletesTheUnpackedKindsOnly) {
    const Texts kept = {"a.png", "a.ogg", "a.gam", "a.xml.bak", "dat", "Errors.TXT"};
    for (const char* gone : {"a.dat", "a.XML", "a.txt", "a.chm", "a.hlp", "A.JPG", "a.bmp", "a.gif"})
        WriteFile(machine.AppDir() / gone, "x");
    for (const std::string& name : kept) WriteFile(machine.AppDir() / name, "x");
    packages.CleanupGameDir();
    Texts left = Unpacked();
    left.push_back("a.gam");
    EXPECT_THAT(left, testing::UnorderedElementsAreArray(kept));
}

TEST_F(PackagesTest, CleaningUpAfterAnInstallationKeepsOtherSettings) {
    for (const char* name : {"{a}.dat", "{}.DAT", "b.dat", "{c.dat"}) WriteFile(machine.AppDir() / name, "x");
    packages.CleanupGameFiles();
    EXPECT_THAT(Unpacked(), UnorderedElementsAre("b.dat", "{c.dat"));
}

TEST_F(PackagesTest, TrimNullLeavesItsNameOnTheStackWhenItCuts) {
    using namespace std::string_literals;
    const Integer before = machine.g.gErrHandler.StackTop;
    EXPECT_EQ(packages.TrimNull("whole"), "whole");
    EXPECT_EQ(machine.g.gErrHandler.StackTop, before);
    EXPECT_EQ(packages.TrimNull("cut\0here\0"s), "cut");
    EXPECT_EQ(machine.g.gErrHandler.StackTop, before + 1);
}

}  // namespace
}  // namespace tabulon
