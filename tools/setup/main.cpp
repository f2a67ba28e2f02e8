// Puts down what an installation writes: where the Player and its sounds lie, whom it turns to, and the games
// that came with it. A game that was uninstalled since then stays uninstalled, and games that came from
// elsewhere are left to the user.
#include <iostream>
#include <string>
#include <vector>

#include "diagnostics/globals.h"
#include "headless/headless_screen.h"
#include "headless/no_shell.h"
#include "packages/modInstallUninstall.h"
#include "platform/directories.h"
#include "platform/seeded_random.h"
#include "setup/options.h"
#include "setup/shipped_games.h"

namespace {

using namespace tabulon;

/// Tells on the terminal what a window would show.
class TerminalUser final : public HeadlessUser {
  public:
    bool Act(Form& form) override {
        form.Hide();
        return true;
    }
    BoxAnswer AnswerBox(const std::string& text, BoxIcon, BoxButtons, const std::string& title) override {
        std::cerr << title << ": " << text << '\n';
        m_troubled = true;
        return BoxAnswer::Ok;
    }
    bool Troubled() const { return m_troubled; }

  private:
    bool m_troubled = false;
};

void WriteText(modRegistry& registry, const char* name, const std::string& text) {
    registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, name, text, REG_SZ);
}

/// Folders, and what the command line gives.
void WriteProduct(modRegistry& registry, const ApplicationInfo& application,
                  const std::vector<ProductOption>& options) {
    WriteText(registry, "PlayerPath", application.Executable.parent_path().string());
    WriteText(registry, "MusicPath", (application.ShareDir / "music").string());
    for (const ProductOption& option : options)
        if (option.Given) WriteText(registry, option.Name, *option.Given);
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<ProductOption> options = ProductOptions();
    if (const int status = ReadCommandLine(argc, argv, options); status != 0)
        return status == EndsWell ? 0 : status;
    const std::filesystem::path executable = ExecutablePath();
    const std::filesystem::path dataDirectory = DataDirectory(executable);
    std::error_code failure;
    std::filesystem::create_directories(dataDirectory, failure);
    TerminalUser user;
    HeadlessScreen screen(user);
    SystemClock clock;
    ClockSeededRandom random;
    NoShell shell;
    SilentOggPlayer silence;
    SettingsStore store(dataDirectory / SettingsFile);
    if (!store.Trouble().empty()) {
        std::cerr << store.Trouble() << '\n';
        return 1;
    }
    ApplicationInfo application;
    application.Executable = executable;
    application.ShareDir = ShareDirectory(executable);
    Globals globals({screen, clock, random, shell, silence, store, application, dataDirectory});
    globals.AppDir = dataDirectory;
    modInstallUninstall packages(globals);
    WriteProduct(globals.Registry, application, options);
    InstallShippedGames(globals, packages,
                        [](const std::string& name) { std::cout << "installed " << name << '\n'; });
    return user.Troubled() ? 1 : 0;
}
