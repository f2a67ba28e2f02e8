#pragma once

#include <array>
#include <functional>
#include <memory>

#include "board/message_dialogs.h"
#include "content/CGame.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// Asks one card once. Its fields outlive its unloading: what an attempt without an answer reports is what
/// the last answer left.
class DlgDrawCard : public Form {
  public:
    DlgDrawCard(Globals& g, FrmGameMusic& music, DlgMsgOk& dlgMsgOk);

    /// Shows the card until it is answered or left. intTries and bDone are read too; the others are results.
    void GetData(const std::shared_ptr<CGame>& oGame, CCard& oCard, Integer& intActionType, Integer& intData1,
                 Integer& intTries, bool& bDone, bool& bCorrect, bool bIsComputer, bool bStartMusic,
                 bool& Result);

    Image imgQuestion{*this, "imgQuestion"};
    ControlArray<Image, 4> imgAnswer{*this, "imgAnswer"};
    Label lblQuestion{*this, "lblQuestion"};
    ControlArray<Label, 4> lblIdentifier{*this, "lblIdentifier"};
    ControlArray<Label, 4> lblAnswer{*this, "lblAnswer"};
    Image imgBottom{*this, "imgBottom"};
    Timer Timer1{*this, "Timer1", 3000, false};

    std::shared_ptr<CGame> Game;
    CCard* Card = nullptr;  // belongs to Game
    Integer ActionType;
    Integer Data1;
    Integer Tries;
    bool Done = false;
    bool Correct = false;
    bool IsComputer = false;
    std::array<bool, 4> AnswerPicked{};

    /// For those who follow the course of a game: an answer was chosen, and nothing has come of it yet.
    std::function<void(int Index)> AnswerChosen;

  protected:
    void Design() override;

  private:
    void RepositionElements();
    void RepositionObjects();
    void FillTexts();
    void LightAnswer(int index, bool lit);
    void lblAnswer_Click(int Index);
    void lblIdentifier_Click(int Index);
    bool Form_KeyUp(int KeyCode);
    void Timer1_Timer();
    void PickAnswer();
    void ChooseAnswer(int Index);
    void CorrectResponse();
    void IncorrectResponse();
    void NextTry();
    void TellTriesLeft();
    void TellMissed();
    void TellResult(const std::string& message);
    void ToggleTimerState();
    void AnswerAlreadyPicked(int Index, bool& Result);
    void MoveOffScreen();

    Globals& m_g;
    FrmGameMusic& m_music;
    DlgMsgOk& m_dlgMsgOk;
    bool m_picking = false;
};

}  // namespace tabulon
