#include "library/dlgInstallGames.h"

#include "library/library_fixture.h"

namespace tabulon::test {
namespace {

class DlgInstallGamesTest : public testing::Test {
  protected:
    /// Offers one package, and does this with the dialog.
    template <class Act>
    bool Offer(const char* key, Act&& act) {
        WritePackage(machine, key, "Alpha");
        machine.User.Acts.push_back([&](Form&) { act(); });
        bool result = false;
        dialog.GetData({}, result);
        EXPECT_FALSE(dialog.Loaded);
        std::filesystem::remove(machine.AppDir() / (std::string(key) + ".gam"));
        return result;
    }
    std::vector<std::string> Keys() {
        return machine.Store.SubKeys(HKEY_LOCAL_MACHINE, GamesKey).value_or(std::vector<std::string>{});
    }

    TestMachine machine;
    LibraryRun run{machine};
    DlgInstallGames& dialog = run.dlgInstallGames;
};

struct Package {
    const char* Key;  // base name of the package; its settings file is called alike
    bool Result;
    const char* InstalledAs;  // empty when no key is written
    const char* Error = "";
};

TEST_F(DlgInstallGamesTest, InstallsUnderTheKeyWithoutAnExtension) {
    constexpr const char* guid = "{00000000-1111-2222-3333-444444444444}";
    const Package rows[] = {
        {guid, true, guid},
        {"alpha", true, "alpha"},
        {"alph", true, "alph"},
        {"abc", false, "", "dlgInstallGames:GetData 5"},
        {"{a}.old", true, "", "modInstallUninstall:InstallGameSettings 53"},
    };
    std::vector<std::string> installed, errors;
    for (const Package& row : rows) {
        SCOPED_TRACE(row.Key);
        const auto install = [&] {
            dialog.lstAvailableGames.Select(0);
            dialog.cmdFakeOk.Click();
        };
        EXPECT_EQ(Offer(row.Key, install), row.Result);
        if (*row.InstalledAs) installed.emplace_back(row.InstalledAs);
        if (*row.Error) errors.emplace_back(row.Error);
        EXPECT_EQ(Keys(), installed);
        EXPECT_EQ(machine.Errors, errors);
    }
}

TEST_F(DlgInstallGamesTest, NothingIsInstalledWithoutARowOrWhenLeft) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Ok without a row", [&] { dialog.cmdOk.Click(); }},
        {"Cancel with a row", [&] { dialog.lstAvailableGames.Select(0), dialog.cmdFakeCancel.Click(); }},
        {"close box with a row", [&] { dialog.lstAvailableGames.Select(0), dialog.Unload(); }},
    };
    for (const auto& [name, leave] : ways) {
        EXPECT_FALSE(Offer("{a}", leave)) << name;
        EXPECT_THAT(machine.User.Boxes, testing::IsEmpty());
        EXPECT_THAT(machine.Errors, testing::IsEmpty());
        EXPECT_THAT(Keys(), testing::IsEmpty());
    }
}

}  // namespace
}  // namespace tabulon::test
