#include <gmock/gmock.h>
#include <sstream>

#include "library/modSavedGames.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon {
namespace {

using Texts = std::vector<std::string>;

Array<std::string> ArrayOf(const Texts& texts) {
    Array<std::string> array;
    if (!texts.empty()) array.ReDim(static_cast<int>(texts.size()) - 1);
    for (int i = 0; i <= array.UBound(); ++i) array[i] = texts[static_cast<std::size_t>(i)];
    return array;
}

std::string Joined(const Array<std::string>& array) {
    std::string text;
    for (int i = 0; i <= array.UBound(); ++i) text += (i == 0 ? "" : "|") + array[i];
    return text;
}

class InstalledGamesTest : public testing::Test {
  protected:
    void SetName(const std::string& key, const std::string& name) {
        machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\" + key,
                                               "Game Name", name, REG_SZ);
    }
    /// A key with a package, or with what its sign tells: "-" no package, "~" a package without spaces, "?" a
    /// game without a name.
    void Install(std::string key) {
        const char sign = key[0];
        if (std::string("-~?").find(sign) != std::string::npos) key.erase(0, 1);
        machine.Store.CreateKey(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\" + key);
        if (sign != '?') SetName(key, "the " + key);
        if (sign == '-') return;
        test::WriteZip(machine.AppDir() / (key + ".GAM"),
                       {{sign == '~' ? "decks.xml" : "spaces.xml", "<xml/>"}});
    }
    void GetAvailableGames() {
        // As the splash form hands them in.
        games = names = descriptions = {"", ""};
        library.GetAvailableGames(games, names, descriptions, count);
    }

    test::TestMachine machine;
    modInstallUninstall packages{machine.g};
    modSavedGames library{machine.g, packages};
    Array<std::string> games, names, descriptions;
    std::int32_t count = 0;
};

struct Installed {
    const char* Name;
    std::string Keys;
    const char *Games, *Names;
};

TEST_F(InstalledGamesTest, AreWhatTheTwoPassesLeave) {
    const Installed rows[] = {
        {"AllPlayable", "B A", "B|A", "the B|the A"},
        {"MissingInTheMiddleTakesTheNextWithIt", "A -B C D", "A|D", "the A|the D"},
        {"TwoMissingSideBySide", "A -B -C D", "A|D", "the A|the D"},
        {"NoSpaces", "~A ~B C", "C", "the C"},
        {"LastMissingKeepsItsKey", "A -B", "A|B", "the A"},
        {"NoneIsLeft", "-A ~B", "B", ""},
        {"HiddenGame", std::string(HiddenGame) + " A", "A", "the A"},
        {"Nameless", "?A B", "B", "the B"},
        {"NamelessInTheLastPlace", "A ?B", "A|B", "the A|"},
        {"None", "", "", ""},
    };
    for (const Installed& row : rows) {
        SCOPED_TRACE(row.Name);
        std::istringstream keys(row.Keys);
        const Texts all{std::istream_iterator<std::string>(keys), {}};
        for (const std::string& key : all) Install(key);
        GetAvailableGames();
        EXPECT_EQ(Joined(games), row.Games);
        EXPECT_EQ(Joined(names), row.Names);
        EXPECT_EQ(count, static_cast<std::int32_t>(all.size()));
        EXPECT_THAT(machine.Errors, testing::IsEmpty());
        for (const std::string& key : machine.Store.SubKeys(HKEY_LOCAL_MACHINE, GamesKey).value_or(Texts{})) {
            machine.Store.DeleteKey(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\" + key);
            std::filesystem::remove(machine.AppDir() / (key + ".GAM"));
        }
    }
}

TEST_F(InstalledGamesTest, ArraysWithoutBoundsAreReportedAndStayEmpty) {
    library.GetAvailableGames(games, names, descriptions, count);
    EXPECT_THAT(machine.Errors, testing::ElementsAre("modSavedGames:GetAvailableGames 9"));
    EXPECT_EQ(names.UBound(), -1);
}

TEST_F(InstalledGamesTest, AKeyCannotLeadOutOfTheDataDirectoryAndADamagedPackageIsNoGame) {
    test::WriteZip(machine.Folder / "outside.gam", {{"spaces.xml", "<xml/>"}});
    SetName("../outside", "Outside");
    GetAvailableGames();
    EXPECT_EQ(Joined(names), "");
    std::filesystem::copy_file("/proc/self/exe", machine.AppDir() / "A.gam");
    SetName("A", "the A");
    GetAvailableGames();
    EXPECT_EQ(Joined(names), "");
}

struct Element {
    const char* Name;
    int Index;
    Texts Before;
    const char* After;
};

TEST_F(InstalledGamesTest, RemovingAnElementClosesTheGap) {
    const Element rows[] = {{"First", 0, {"a", "b", "c"}, "b|c"},
                            {"Middle", 1, {"a", "b", "c"}, "a|c"},
                            {"LastStays", 2, {"a", "b", "c"}, "a|b|c"},
                            {"OnlyOneStays", 0, {"a"}, "a"},
                            {"Beyond", 7, {"a", "b"}, "a|b"}};
    for (const Element& row : rows) {
        SCOPED_TRACE(row.Name);
        games = ArrayOf(row.Before);
        names = ArrayOf({"x", "y"});
        library.RemoveGameArrayElement(games, names, descriptions, row.Index);
        EXPECT_EQ(Joined(games), row.After);
        EXPECT_EQ(Joined(names), row.Index == 0 ? "y" : "x|y");
        EXPECT_EQ(descriptions.UBound(), -1);
    }
}

}  // namespace
}  // namespace tabulon
