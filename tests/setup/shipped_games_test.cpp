#include "setup/shipped_games.h"

#include <gmock/gmock.h>

#include "packages/archive_writer.h"
#include "platform/files.h"
#include "support/test_machine.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Texts = std::vector<std::string>;

class ShippedGamesTest : public testing::Test {
  protected:
    ShippedGamesTest() { machine.SetUp(g); }

    void Pack(const std::string& key) {
        WriteArchive(machine.AppDir() / (key + ".gam"),
                     std::vector<PackedFile>{{key + ".dat", "Game Name=Game " + key}});
    }
    void Ship(const std::string& keys) { WriteFile(machine.Folder / ShippedGamesFile, keys); }
    /// The names of the games that are installed now.
    Texts Install() {
        Texts names;
        InstallShippedGames(g, packages, [&](const std::string& name) { names.push_back(name); });
        return names;
    }
    Texts Games() {
        Texts keys;
        std::int32_t count = 0;
        g.Registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, GamesKey, keys, count);
        return keys;
    }
    void InstallByHand(const std::string& key) {
        Texts names, keys;
        packages.InstallableGames({}, names, keys);
        packages.InstallGame(key);
    }

    test::TestMachine machine;
    Globals g{Own()};
    modInstallUninstall packages{g};

  private:
    Machine Own() {
        Machine own = machine.With(machine.TheScreen);
        own.Application.ShareDir = machine.Folder.Path();
        return own;
    }
};

TEST_F(ShippedGamesTest, OnlyWhatTheInstallationShippedIsInstalled) {
    for (const char* key : {"{b}", "{a}", "{strange}"}) Pack(key);
    WriteFile(machine.AppDir() / "{broken}.gam", "no package");
    Ship("{a}\n{b}\n{not there}\n");
    EXPECT_THAT(Install(), ElementsAre("Game {a}", "Game {b}"));
    EXPECT_THAT(Games(), UnorderedElementsAre("{a}", "{b}"));
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_FALSE(FileExists(machine.AppDir() / "{strange}.dat"));
}

TEST_F(ShippedGamesTest, WithoutAListNothingIsInstalled) {
    Pack("{a}");
    EXPECT_THAT(Install(), IsEmpty());
}

TEST_F(ShippedGamesTest, WhatTheUserRemovedStaysRemoved) {
    for (const char* key : {"{a}", "{b}", "{c}"}) Pack(key);
    Ship("{a}\n{b}\n");
    InstallByHand("{b}");
    InstallByHand("{c}");
    EXPECT_THAT(Install(), ElementsAre("Game {a}"));
    for (const char* key : {"{a}", "{b}", "{c}"}) packages.UninstallGame(key);
    EXPECT_THAT(Install(), IsEmpty());
    Ship("{a}\n{b}\n{new}\n");
    Pack("{new}");
    EXPECT_THAT(Install(), ElementsAre("Game {new}"));
    EXPECT_THAT(Games(), ElementsAre("{new}"));
}

}  // namespace
}  // namespace tabulon
