#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "headless/headless_screen.h"

namespace tabulon {

struct PlayerEntry {
    std::string Name;
    bool Computer = false;
    std::string Piece;  // "(Animals) 1"
};

/// What is done in the game chooser.
struct GameChoice {
    bool New = true;
    int Saved = -1;  // row of the saved games
};

/// A user of the Player's dialogs. What a kind of user decides, and whom it tells what happens, is said by
/// those who derive from it. A decision that it cannot make throws Stuck.
class PlayUser : public HeadlessUser {
  public:
    /// Takes the place in front of a program, and follows it from now on. Comes before Main.
    void Sit(Program& program);

    bool Act(Form& form) override;
    BoxAnswer AnswerBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                        const std::string& title) override;

  protected:
    /// Nothing stands for Cancel.
    virtual std::optional<GameChoice> ChooseGame() = 0;
    virtual std::optional<std::vector<PlayerEntry>> EnterPlayers() = 0;
    virtual bool AnswerQuestion(const std::string& text) = 0;
    /// 'A' to 'D', or Key::Escape.
    virtual int AnswerCard(const CCard& card) = 0;

    virtual void OnSound(const std::string& /*genre*/, const std::string& /*name*/, bool /*loop*/) {}
    virtual void OnSilence() {}
    virtual void OnMessage(const std::string& /*text*/, bool /*computer*/) {}
    /// `pick` is 0 to 3, or -1 for a card that is left.
    virtual void OnCard(const CCard& /*card*/, bool /*computer*/, int /*pick*/) {}
    virtual void OnBox(const std::string& /*text*/, BoxIcon /*icon*/, const std::string& /*title*/) {}
    virtual void OnError(const clsErrHandler& /*handler*/) {}

    Program& TheProgram() { return *m_program; }

  private:
    void UseChooser();
    void UsePlayersDialog();
    void EnterPlayer(int row, const PlayerEntry& player);
    void UseCard();

    Program* m_program = nullptr;
};

}  // namespace tabulon
