#include "library/dlgInstallGames.h"

#include "library/library_fixture.h"

namespace tabulon {
namespace {

using test::LibraryRun;
using testing::IsEmpty;

struct Package {
    const char* Name;
    const char* Key;  // base name of the package; its settings file is called alike
    bool Result;
    const char* InstalledAs;  // empty when no key is written
    std::vector<std::string> Errors;
};
class InstallPackageTest : public testing::TestWithParam<Package> {};

TEST_P(InstallPackageTest, InstallsUnderTheKeyWithoutAnExtension) {
    const Package& row = GetParam();
    test::TestMachine machine;
    test::WritePackage(machine, row.Key, "Alpha");
    LibraryRun run(machine);
    bool result = !row.Result;
    machine.User.Acts.push_back([&](Form&) {
        run.dlgInstallGames.lstAvailableGames.Select(0);
        run.dlgInstallGames.cmdFakeOk.Click();
    });
    run.dlgInstallGames.GetData({}, result);
    EXPECT_EQ(result, row.Result);
    EXPECT_EQ(machine.Errors, row.Errors);
    EXPECT_FALSE(run.dlgInstallGames.Loaded);
    const auto keys =
        machine.Store.SubKeys(HKEY_LOCAL_MACHINE, GamesKey).value_or(std::vector<std::string>{});
    EXPECT_EQ(keys,
              *row.InstalledAs ? std::vector<std::string>{row.InstalledAs} : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(
    Keys, InstallPackageTest,
    testing::Values(
        Package{"Guid",
                "{00000000-1111-2222-3333-444444444444}",
                true,
                "{00000000-1111-2222-3333-444444444444}",
                {}},
        Package{"Word", "alpha", true, "alpha", {}}, Package{"FourCharacters", "alph", true, "alph", {}},
        Package{"TooShort", "abc", false, "", {"dlgInstallGames:GetData 5"}},
        Package{"CutBehindTheBrace", "{a}.old", true, "", {"modInstallUninstall:InstallGameSettings 53"}}),
    [](const auto& row) { return row.param.Name; });

struct Closing {
    const char* Name;
    void (*Close)(DlgInstallGames&);
};
class NothingInstalledTest : public testing::TestWithParam<Closing> {};

TEST_P(NothingInstalledTest, GivesFalseWithoutAMessage) {
    test::TestMachine machine;
    test::WritePackage(machine, "{a}", "Alpha");
    LibraryRun run(machine);
    bool result = true;
    machine.User.Acts.push_back([](Form& form) { GetParam().Close(static_cast<DlgInstallGames&>(form)); });
    run.dlgInstallGames.GetData({}, result);
    EXPECT_FALSE(result);
    EXPECT_THAT(machine.User.Boxes, IsEmpty());
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_FALSE(machine.Store.KeyExists(HKEY_LOCAL_MACHINE, GamesKey));
}

INSTANTIATE_TEST_SUITE_P(Ways, NothingInstalledTest,
                         testing::Values(Closing{"OkWithoutARow",
                                                 [](DlgInstallGames& d) { d.cmdOk.Click(); }},
                                         Closing{"CancelWithARow",
                                                 [](DlgInstallGames& d) {
                                                     d.lstAvailableGames.Select(0);
                                                     d.cmdFakeCancel.Click();
                                                 }},
                                         Closing{"CloseBoxWithARow",
                                                 [](DlgInstallGames& d) {
                                                     d.lstAvailableGames.Select(0);
                                                     d.Unload();
                                                 }}),
                         [](const auto& row) { return row.param.Name; });

}  // namespace
}  // namespace tabulon
