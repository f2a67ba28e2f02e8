#pragma once

#include <gmock/gmock.h>

#include "library/dlgLoadGame.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon::test {

/// Writes down what the chooser asks for.
class RecordingHost final : public GameHost {
  public:
    void LoadGame(const std::string& GameDirectory, const std::string& GameName) override {
        if (Fails) throw Failure(FailureNumber::ObjectNotSet);
        Calls.push_back("game " + GameDirectory + " " + GameName);
    }
    void LoadSavedGame(const std::string& SavedGameName) override {
        Calls.push_back("saved " + SavedGameName);
    }

    std::vector<std::string> Calls;
    bool Fails = false;
};

/// One run of the program, as far as this room goes, on a machine that outlives it.
struct LibraryRun {
    explicit LibraryRun(TestMachine& machine)
        : g(machine.g), user(machine.User), splash(g.TheScreen, "frmTabulonSplash") {
        music.SoundStops = [this] { ++stops; };
    }

    /// Opens the chooser, does with it what `act` does, and cancels it if it is still there.
    template <class Act>
    void Choose(const Form* startUpSplash, Act&& act) {
        user.Acts.push_back([this, act](Form& form) {
            act();
            if (&form == &dlgLoadGame && form.Visible) dlgLoadGame.cmdCancel.Click();
        });
        Array<std::string> games{"", ""}, names{"", ""}, descriptions{"", ""};
        std::int32_t count = 0;
        dlgLoadGame.GetData(games, names, descriptions, count, startUpSplash, newGame, result);
    }
    template <class Act>
    void ChooseAtStart(Act&& act) {
        Choose(&splash, act);
    }
    template <class Act>
    void ChooseLater(Act&& act) {
        Choose(nullptr, act);
    }

    Globals& g;
    ScriptedUser& user;
    Form splash;
    modInstallUninstall packages{g};
    modSavedGames library{g, packages};
    FrmGameMusic music{g, packages};
    MainForm frmMain{g};
    RecordingHost host;
    DlgInstallGames dlgInstallGames{g, packages};
    DlgLoadGame dlgLoadGame{g, {music, packages, library, dlgInstallGames, frmMain, host}};
    bool newGame = false;
    bool result = false;
    int stops = 0;
};

inline void WritePackage(const TestMachine& machine, const std::string& key, const std::string& name) {
    WriteZip(machine.AppDir() / (key + ".gam"),
             {{key + ".dat", "Game Name=" + name + "\r\nDescription=about " + name + "\r\n"},
              {"spaces.xml", "<xml/>"}});
}

inline void SetValue(TestMachine& machine, const std::string& key, const std::string& name,
                     const std::string& text) {
    machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\" + key, name, text,
                                           REG_SZ);
}

/// Packages and installs a game, and saves it under the names.
inline void AddGame(TestMachine& machine, const std::string& key, const std::string& name,
                    const std::vector<std::string>& savedGames = {}) {
    WritePackage(machine, key, name);
    SetValue(machine, key, "Game Name", name);
    SetValue(machine, key, "Description", "about " + name);
    for (const std::string& saved : savedGames)
        SetValue(machine, key + "\\Saved Games\\" + saved, "Note", "kept");
}

inline std::vector<std::string> RowTexts(const RowList& list) {
    std::vector<std::string> texts;
    for (const ListRow& row : list.Rows) texts.push_back(row.Text);
    return texts;
}

}  // namespace tabulon::test
