#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "diagnostics/globals.h"
#include "headless/headless_screen.h"
#include "platform/temporary_directory.h"

namespace tabulon::test {

/// Does what a test wrote down beforehand: one act for each time that a form waits, one answer for each
/// message box that asks.
class ScriptedUser final : public HeadlessUser {
  public:
    struct Box {
        std::string Text;
        BoxIcon Icon;
        BoxButtons Buttons;
        std::string Title;
    };

    bool Act(Form& form) override {
        if (Acts.empty()) return false;
        const auto act = std::move(Acts.front());
        Acts.pop_front();
        act(form);
        return true;
    }
    BoxAnswer AnswerBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                        const std::string& title) override {
        Boxes.push_back({text, icon, buttons, title});
        if (buttons == BoxButtons::Ok) return BoxAnswer::Ok;
        if (Answers.empty()) throw Stuck{text, "no answer"};
        const BoxAnswer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    std::vector<std::string> BoxTexts() const {
        std::vector<std::string> texts;
        for (const Box& box : Boxes) texts.push_back(box.Text);
        return texts;
    }

    std::deque<std::function<void(Form&)>> Acts;
    std::deque<BoxAnswer> Answers;
    std::vector<Box> Boxes;
};

/// Gives the numbers that it holds, in their order.
class ScriptedRandom final : public Random {
  public:
    float Rnd() override {
        if (Numbers.empty()) throw Stuck{"Rnd", "no number"};
        const float number = Numbers.front();
        Numbers.pop_front();
        return number;
    }
    void Randomize() override {}

    std::deque<float> Numbers;
};

class RecordingShell final : public Shell {
  public:
    void Open(const std::string& target) override { Opened.push_back(target); }
    void Start(const std::filesystem::path& program, const std::vector<std::string>& arguments) override {
        Started.push_back(program);
        Arguments.push_back(arguments);
    }
    void StartCompanion(const std::filesystem::path& program,
                        const std::vector<std::string>& arguments) override {
        Companions.push_back(program);
        Arguments.push_back(arguments);
    }
    bool PreviousInstance() override { return HasPreviousInstance; }
    bool RaisePreviousInstance() override { return HasPreviousInstance; }

    bool HasPreviousInstance = false;
    std::vector<std::string> Opened;
    std::vector<std::filesystem::path> Started;
    std::vector<std::filesystem::path> Companions;
    std::vector<std::vector<std::string>> Arguments;  // of each start
};

/// A machine of its own for each test: an empty data directory inside an empty folder, settings in memory
/// unless a file is named, and a clock that starts at half past two on the fifth of January 2026. Reports of
/// failures are collected in Errors.
class TestMachine {
  public:
    explicit TestMachine(const std::filesystem::path& settings = ":memory:") : TestMachine(96, settings) {}
    explicit TestMachine(int pixelsPerInch, const std::filesystem::path& settings = ":memory:")
        : TheScreen(User, {1024, 768, pixelsPerInch}), Store(settings), g(With(TheScreen, Player)) {
        std::filesystem::create_directory(AppDir());
        SetUp(g);
    }

    std::filesystem::path AppDir() const { return Folder / "data"; }
    /// The machine with another screen, or another player of sounds.
    Machine With(Screen& screen, OggPlayer& player) {
        return {screen, Clock, Random, Shell, player, Store, Application(), AppDir()};
    }
    Machine With(Screen& screen) { return With(screen, Player); }
    Machine With(OggPlayer& player) { return With(TheScreen, player); }
    /// As Main leaves it; its failures go into Errors.
    void SetUp(Globals& globals) {
        globals.AppDir = AppDir();
        globals.SmallFonts = globals.TheScreen.LogicalPixelsPerInch() == 96;
        globals.gErrHandler.ShowDetails = [](const std::string&) {};
        globals.gErrHandler.AfterHandlerCalled = [this, &handler = globals.gErrHandler] {
            Errors.push_back(handler.ErrorProc + " " + std::to_string(handler.ErrorNumber));
        };
    }

    TemporaryDirectory Folder;
    ScriptedUser User;
    HeadlessScreen TheScreen;
    VirtualClock Clock{TheScreen, std::chrono::local_days(std::chrono::year(2026) / 1 / 5) +
                                      std::chrono::hours(14) + std::chrono::minutes(30)};
    ScriptedRandom Random;
    RecordingShell Shell;
    SilentOggPlayer Player;
    SettingsStore Store;
    /// "dlgPlayers:GetData 9" for each failure.
    std::vector<std::string> Errors;
    Globals g;

  private:
    static ApplicationInfo Application() {
        ApplicationInfo application;
        application.Executable = "/opt/tabulon/bin/tabulon-player";
        return application;
    }
};

}  // namespace tabulon::test
