#include <gmock/gmock.h>

#include "library/modSavedGames.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon {
namespace {

using test::WriteZip;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

Array<std::string> ArrayOf(const Texts& texts) {
    Array<std::string> array;
    if (!texts.empty()) array.ReDim(static_cast<int>(texts.size()) - 1);
    for (int i = 0; i <= array.UBound(); ++i) array[i] = texts[static_cast<std::size_t>(i)];
    return array;
}

Texts TextsOf(const Array<std::string>& array) {
    Texts texts;
    for (int i = 0; i <= array.UBound(); ++i) texts.push_back(array[i]);
    return texts;
}

class InstalledGamesTest : public testing::Test {
  protected:
    void GetAvailableGames() { library.GetAvailableGames(games, names, descriptions, count); }

    test::TestMachine machine;
    modInstallUninstall packages{machine.g};
    modSavedGames library{machine.g, packages};
    // As the splash form hands them in.
    Array<std::string> games{"", ""};
    Array<std::string> names{"", ""};
    Array<std::string> descriptions{"", ""};
    std::int32_t count = 0;
};

/// What stands behind a key: a package of a game, one without spaces, none, or a game whose name is not
/// known.
enum class Kind { Game, NoSpaces, NoPackage, Nameless };

struct Installed {
    const char* Name;
    std::vector<std::pair<std::string, Kind>> Keys;
    Texts Games;
    Texts Names;
};
class AvailableGamesTest : public InstalledGamesTest, public testing::WithParamInterface<Installed> {
  protected:
    void Install(const std::string& key, Kind kind) {
        const std::string path = std::string(GamesKey) + "\\" + key;
        machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, path, "Description", "about " + key,
                                               REG_SZ);
        if (kind != Kind::Nameless)
            machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, path, "Game Name", "the " + key,
                                                   REG_SZ);
        if (kind == Kind::NoPackage) return;
        const char* entry = kind == Kind::NoSpaces ? "decks.xml" : "spaces.xml";
        WriteZip(machine.AppDir() / (key + ".GAM"), {{entry, "<xml/>"}});
    }
};

TEST_P(AvailableGamesTest, ListsWhatTheTwoPassesLeave) {
    for (const auto& [key, kind] : GetParam().Keys) Install(key, kind);
    GetAvailableGames();
    EXPECT_EQ(TextsOf(games), GetParam().Games);
    EXPECT_EQ(TextsOf(names), GetParam().Names);
    EXPECT_EQ(count, static_cast<std::int32_t>(GetParam().Keys.size()));
    EXPECT_THAT(machine.Errors, IsEmpty());
}

const std::string Hidden(HiddenGame);

INSTANTIATE_TEST_SUITE_P(
    Keys, AvailableGamesTest,
    testing::Values(
        Installed{"AllPlayable", {{"B", Kind::Game}, {"A", Kind::Game}}, {"B", "A"}, {"the B", "the A"}},
        Installed{"MissingInTheMiddleTakesTheNextWithIt",
                  {{"A", Kind::Game}, {"B", Kind::NoPackage}, {"C", Kind::Game}, {"D", Kind::Game}},
                  {"A", "D"},
                  {"the A", "the D"}},
        Installed{"TwoMissingSideBySide",
                  {{"A", Kind::Game}, {"B", Kind::NoPackage}, {"C", Kind::NoPackage}, {"D", Kind::Game}},
                  {"A", "D"},
                  {"the A", "the D"}},
        Installed{
            "NoSpaces", {{"A", Kind::NoSpaces}, {"B", Kind::NoSpaces}, {"C", Kind::Game}}, {"C"}, {"the C"}},
        Installed{
            "LastMissingKeepsItsKey", {{"A", Kind::Game}, {"B", Kind::NoPackage}}, {"A", "B"}, {"the A"}},
        Installed{"NoneIsLeft", {{"A", Kind::NoPackage}, {"B", Kind::NoSpaces}}, {"B"}, {""}},
        Installed{"HiddenGame", {{Hidden, Kind::Game}, {"A", Kind::Game}}, {"A"}, {"the A"}},
        Installed{"Nameless", {{"A", Kind::Nameless}, {"B", Kind::Game}}, {"B"}, {"the B"}},
        Installed{
            "NamelessInTheLastPlace", {{"A", Kind::Game}, {"B", Kind::Nameless}}, {"A", "B"}, {"the A", ""}}),
    [](const auto& row) { return row.param.Name; });

TEST_F(InstalledGamesTest, WithoutAnyGameOneEmptyElementStays) {
    GetAvailableGames();
    EXPECT_EQ(TextsOf(games), Texts{""});
    EXPECT_EQ(TextsOf(names), Texts{""});
    EXPECT_EQ(count, 0);
}

TEST_F(InstalledGamesTest, ArraysWithoutBoundsAreReportedAndStayEmpty) {
    games = names = descriptions = {};
    GetAvailableGames();
    EXPECT_THAT(machine.Errors, testing::ElementsAre("modSavedGames:GetAvailableGames 9"));
    EXPECT_EQ(names.UBound(), -1);
}

TEST_F(InstalledGamesTest, AKeyCannotLeadOutOfTheDataDirectory) {
    WriteZip(machine.Folder / "outside.gam", {{"spaces.xml", "<xml/>"}});
    const std::string key = std::string(GamesKey) + "\\../outside";
    machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, key, "Game Name", std::string("Outside"),
                                           REG_SZ);
    GetAvailableGames();
    EXPECT_EQ(TextsOf(names), Texts{""});
}

TEST_F(InstalledGamesTest, ADamagedPackageIsNoGame) {
    std::filesystem::copy_file("/proc/self/exe", machine.AppDir() / "A.gam");
    const std::string key = std::string(GamesKey) + "\\A";
    machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, key, "Game Name", std::string("A"), REG_SZ);
    GetAvailableGames();
    EXPECT_EQ(TextsOf(names), Texts{""});
}

struct Element {
    const char* Name;
    int Index;
    Texts Before;
    Texts After;
};
class RemoveElementTest : public InstalledGamesTest, public testing::WithParamInterface<Element> {};

TEST_P(RemoveElementTest, ClosesTheGap) {
    games = ArrayOf(GetParam().Before);
    names = ArrayOf({"x", "y"});
    descriptions = {};
    library.RemoveGameArrayElement(games, names, descriptions, GetParam().Index);
    EXPECT_EQ(TextsOf(games), GetParam().After);
    EXPECT_EQ(TextsOf(names), GetParam().Index == 0 ? Texts{"y"} : (Texts{"x", "y"}));
    EXPECT_EQ(descriptions.UBound(), -1);
}

INSTANTIATE_TEST_SUITE_P(Elements, RemoveElementTest,
                         testing::Values(Element{"First", 0, {"a", "b", "c"}, {"b", "c"}},
                                         Element{"Middle", 1, {"a", "b", "c"}, {"a", "c"}},
                                         Element{"LastStays", 2, {"a", "b", "c"}, {"a", "b", "c"}},
                                         Element{"OnlyOneStays", 0, {"a"}, {"a"}},
                                         Element{"Beyond", 7, {"a", "b"}, {"a", "b"}}),
                         [](const auto& row) { return row.param.Name; });

}  // namespace
}  // namespace tabulon
