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
        machine.SetUp(g);
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
    std::vector<std::string>& Errors = machine.Errors;
    Globals g{OwnMachine()};

  private:
    Machine OwnMachine() {
        Machine own = machine.With(machine.TheScreen);
        own.Application.ShareDir = Share();
        own.Application.Executable = Viewer().parent_path() / "tabulon-player";
        own.Application.WebSite = "https://makers.example";
        own.Application.MailServer = "mail.example";
        own.Application.SupportAddress = "support@makers.example";
        return own;
    }
};

}  // namespace tabulon::test
