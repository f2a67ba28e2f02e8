#include "player/terminal_game.h"

#include <iostream>

#include "headless/no_shell.h"
#include "robot/play_user.h"
#include "platform/seeded_random.h"

namespace tabulon {

namespace {

constexpr int MostTurns = 2000;

/// Lets four computers play and tells what they meet.
class TerminalUser final : public PlayUser {
  protected:
    std::optional<GameChoice> ChooseGame() override { return GameChoice{}; }
    std::optional<std::vector<PlayerEntry>> EnterPlayers() override {
        return std::vector<PlayerEntry>{{"Ann", true, "(Animals) 1"},
                                        {"Ben", true, "(Aliens) 2"},
                                        {"Cleo", true, "(Objects) 3"},
                                        {"Dan", true, "(Professions) 4"}};
    }
    bool AnswerQuestion(const std::string&) override { return true; }
    int AnswerCard(const CCard&) override { return Key::A; }
    void OnMessage(const std::string& text, bool) override { std::cout << "    " << text << '\n'; }
    void OnBox(const std::string& text, BoxIcon, const std::string&) override { std::cout << text << '\n'; }
    void OnError(const clsErrHandler& handler) override {
        std::cout << "    (" << handler.ErrorProc << ": " << handler.ErrorString << ")\n";
    }
};

PictureButton* TurnButton(FrmMain& form) {
    for (PictureButton* button : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass}) {
        if (button->Visible) return button;
    }
    return nullptr;
}

/// One line a turn: who moved, by what, and where everybody stands now.
void TellTurn(const PlayState& state, Integer seat) {
    std::cout << state.Name[state.RuleA(seat)] << " has " << state.LastRoll.Value() << ".  ";
    for (int i = 1; i <= state.PlayerCount.Value(); ++i)
        std::cout << state.Name[state.RuleA(i)] << " on " << state.Position[state.RuleA(i)].Value() << "  ";
    std::cout << '\n';
}

int PlayTurns(FrmMain& form) {
    for (int turn = 0; turn < MostTurns && !form.State.GameOver; ++turn) {
        const PictureButton* button = TurnButton(form);
        if (!button) break;
        const Integer seat = form.State.WhoseTurn;
        button->Click();
        TellTurn(form.State, seat);
    }
    std::cout << (form.State.GameOver ? "The game is over.\n" : "The game did not come to an end.\n");
    return form.State.GameOver ? 0 : 1;
}

int PlayGame(Program& program) {
    try {
        program.Main();
        std::cout << program.frmMain.lblGameName.Caption << "\n\n";
        return PlayTurns(program.frmMain);
    } catch (const Stuck& stuck) {
        std::cout << "The game cannot go on: " << stuck.Why << ".\n";
    } catch (const ProgramEnd&) {
        std::cout << "There is no game to play.\n";
    }
    return 1;
}

}  // namespace

int PlayInTerminal(const ApplicationInfo& application, const std::filesystem::path& dataDirectory,
                   SettingsStore& store) {
    std::cout << "There is no display to open a window on, so four computers play a game here.\n\n";
    TerminalUser user;
    HeadlessScreen screen(user);
    SystemClock clock;
    ClockSeededRandom random;
    NoShell shell;
    SilentOggPlayer silence;
    Program program({screen, clock, random, shell, silence, store, application, dataDirectory});
    user.Sit(program);
    const int status = PlayGame(program);
    // Nobody closes a window here, which would put away what lies unpacked.
    program.frmGameMusic.StopGameMusic();
    program.packages.CleanupGameDir();
    return status;
}

}  // namespace tabulon
