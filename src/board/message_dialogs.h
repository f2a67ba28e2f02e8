#pragma once

#include <functional>
#include <string>

#include "content/CGame.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// Tells one thing. For a computer it closes by itself after a second.
class DlgMsgOk : public Form {
  public:
    DlgMsgOk(Globals& g, FrmGameMusic& music);

    /// Returns when the dialog has closed. With bWaitForMusic it closes only after the sound has ended.
    void ShowMessage(const CGame& oGame, const std::string& sMsg, bool bIsComputer, bool bWaitForMusic);

    Label lblMsg{*this, "lblMsg"};
    Button cmdOk{*this, "cmdOk"};
    Timer Timer1{*this, "Timer1", 1000, true};

    bool AutoClose = false;
    bool WaitForMusic = false;

    /// For those who follow the course of a game: a message is about to be shown.
    std::function<void(const std::string& sMsg, bool bIsComputer)> MessageShown;

  protected:
    void Design() override;

  private:
    void RepositionElements();
    void cmdOk_Click();
    void Timer1_Timer();
    bool ProcessKeyDown(int KeyCode);

    Globals& m_g;
    FrmGameMusic& m_music;
};

/// Asks a question. Yes is the answer of the keyboard: Enter and Space say it wherever the focus stands.
class DlgMsgYesNo : public Form {
  public:
    explicit DlgMsgYesNo(Globals& g);

    /// Result is True for Yes. The third argument is not used.
    void ShowMessage(const CGame& oGame, const std::string& sMsg, int unused, bool& Result);

    Label lblMsg{*this, "lblMsg"};
    Button cmdYes{*this, "cmdYes"};
    Button cmdNo{*this, "cmdNo"};

    /// Kept from one question to the next until an answer sets it.
    bool AnswerNo = false;

  protected:
    void Design() override;
    /// Who closes the question without an answer says No.
    void Form_QueryUnload(bool& Cancel) override;

  private:
    void RepositionElements();
    void cmdYes_Click();
    void cmdNo_Click();
    bool ProcessKeyDown(int KeyCode, int Shift);

    Globals& m_g;
};

}  // namespace tabulon
