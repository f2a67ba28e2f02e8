#pragma once

#include <gmock/gmock.h>
#include <memory>

#include "platform/files.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon::test {

/// A test machine whose program has files of its own, in a folder `share`.
class InfoRun {
  public:
    InfoRun() {
        std::filesystem::create_directory(Share());
        std::filesystem::create_directory(Viewer().parent_path());
        WriteFile(Viewer(), "");
        g.AppDir = AppDir();
        g.SmallFonts = true;
        g.gErrHandler.ShowDetails = [](const std::string&) {};
        g.gErrHandler.AfterHandlerCalled = [this] {
            Errors.push_back(g.gErrHandler.ErrorProc + " " + std::to_string(g.gErrHandler.ErrorNumber));
        };
    }

    std::filesystem::path Share() const { return machine.Folder / "share"; }
    /// The program that shows compiled help.
    std::filesystem::path Viewer() const { return machine.Folder / "bin/tabulon-help"; }
    std::filesystem::path AppDir() const { return machine.AppDir(); }
    bool HasFile(const std::filesystem::path& name) const { return FileExists(AppDir() / name); }

    std::string Setting(const char* name) { return ToText(Value(name)); }
    RegistryValue Value(const char* name) {
        return g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, name);
    }
    void Set(const char* name, const std::string& text) {
        g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, name, text, REG_SZ);
    }
    void Set(const char* name, std::int32_t number) {
        g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, name, number, REG_DWORD);
    }
    /// What is done with the next form that waits.
    void Then(std::function<void()> act) {
        machine.User.Acts.push_back([act = std::move(act)](Form&) { act(); });
    }

    TestMachine machine;
    std::vector<std::string> Errors;
    Globals g{{machine.TheScreen, machine.Clock, machine.Random, machine.Shell, machine.Player, machine.Store,
               Application(), AppDir()}};

  private:
    ApplicationInfo Application() const {
        ApplicationInfo application;
        application.ShareDir = Share();
        application.Executable = Viewer().parent_path() / "tabulon-player";
        application.WebSite = "https://makers.example";
        application.MailServer = "mail.example";
        application.SupportAddress = "support@makers.example";
        return application;
    }
};

}  // namespace tabulon::test
