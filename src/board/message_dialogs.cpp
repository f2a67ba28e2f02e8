#include "board/message_dialogs.h"

#include "platform/text.h"
#include "presentation/modRepositioner.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

constexpr int PollMilliseconds = 10;

}  // namespace

DlgMsgOk::DlgMsgOk(Globals& g, FrmGameMusic& music) : Form(g.TheScreen, "dlgMsgOk"), m_g(g), m_music(music) {
    cmdOk.Click = [this] { cmdOk_Click(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    KeyDown = [this](int code, int) { return ProcessKeyDown(code); };
}

void DlgMsgOk::Design() {
    Caption = m_g.Application.Title;
    lblMsg.Centred = true;
    lblMsg.Font = {"DejaVu Sans", 18, false};
    cmdOk.Caption = "&Ok";
    cmdOk.ToolTipText = "Go on";
    Timer1.Enabled = true;
}

void DlgMsgOk::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgMsgOk:RepositionElements", [&] {
        PositionForm(m_g, *this, 457, 233, 0);
        PositionObjects(m_g, {{&lblMsg, 16, 24, 425, 129, 18, 14}, {&cmdOk, 158, 173, 140, 44, 14, 12}});
    });
}

void DlgMsgOk::ShowMessage(const CGame& oGame, const std::string& sMsg, bool bIsComputer,
                           bool bWaitForMusic) {
    Procedure(m_g.gErrHandler, "dlgMsgOk:ShowMessage", [&] {
        Load();
        RepositionElements();
        lblMsg.Caption = DoubleAmpersands(sMsg);
        AutoClose = bIsComputer;
        WaitForMusic = bWaitForMusic;
        SetFormObjectFonts(m_g, *this, oGame.Font, oGame.FontSize);
        if (MessageShown) MessageShown(sMsg, bIsComputer);
        ShowModal();
    });
}

void DlgMsgOk::cmdOk_Click() {
    Procedure(m_g.gErrHandler, "dlgMsgOk:cmdOk_Click", [&] {
        if (WaitForMusic) {
            while (m_music.Status() == "playing") {
                m_g.TheScreen.PumpEvents();
                m_g.TheScreen.Sleep(PollMilliseconds);
            }
            m_g.TheScreen.SetMousePointer(MousePointer::Default);
        }
        Unload();
    });
}

void DlgMsgOk::Timer1_Timer() {
    Procedure(m_g.gErrHandler, "dlgMsgOk:Timer1_Timer", [&] {
        if (AutoClose) cmdOk_Click();
        if (m_music.Status() != "playing") m_g.TheScreen.SetMousePointer(MousePointer::Default);
    });
}

bool DlgMsgOk::ProcessKeyDown(int KeyCode) {
    if (KeyCode != Key::O && KeyCode != Key::Space && KeyCode != Key::Escape && KeyCode != Key::Enter)
        return false;
    cmdOk_Click();
    return true;
}

DlgMsgYesNo::DlgMsgYesNo(Globals& g) : Form(g.TheScreen, "dlgMsgYesNo"), m_g(g) {
    cmdYes.Click = [this] { cmdYes_Click(); };
    cmdNo.Click = [this] { cmdNo_Click(); };
    KeyDown = [this](int code, int shift) { return ProcessKeyDown(code, shift); };
}

void DlgMsgYesNo::Design() {
    Caption = m_g.Application.Title;
    lblMsg.Centred = true;
    cmdYes.Caption = "&Yes";
    cmdNo.Caption = "&No";
}

void DlgMsgYesNo::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgMsgYesNo:RepositionElements", [&] {
        PositionForm(m_g, *this, 457, 131, 0);
        PositionObjects(m_g, {{&lblMsg, 16, 14, 425, 58, 16, 13},
                              {&cmdYes, 88, 79, 132, 40, 14, 12},
                              {&cmdNo, 236, 79, 132, 40, 14, 12}});
    });
}

void DlgMsgYesNo::ShowMessage(const CGame& oGame, const std::string& sMsg, int /*unused*/, bool& Result) {
    Procedure(m_g.gErrHandler, "dlgMsgYesNo:ShowMessage", [&] {
        Load();
        RepositionElements();
        lblMsg.Caption = sMsg;
        SetFormObjectFonts(m_g, *this, oGame.Font, oGame.FontSize);
        cmdYes.SetFocus();
        ShowModal();
        Result = !AnswerNo;
    });
}

void DlgMsgYesNo::Form_QueryUnload(bool& /*Cancel*/) {
    if (Visible) AnswerNo = true;
}

void DlgMsgYesNo::cmdYes_Click() {
    Procedure(m_g.gErrHandler, "dlgMsgYesNo:cmdYes_Click", [&] {
        AnswerNo = false;
        Hide();
    });
}

void DlgMsgYesNo::cmdNo_Click() {
    Procedure(m_g.gErrHandler, "dlgMsgYesNo:cmdNo_Click", [&] {
        AnswerNo = true;
        Hide();
    });
}

bool DlgMsgYesNo::ProcessKeyDown(int KeyCode, int Shift) {
    const bool alt = Shift == Key::Alt;
    const bool yes = alt ? KeyCode == Key::Y : KeyCode == Key::Enter || KeyCode == Key::Space;
    const bool no = alt && KeyCode == Key::N;
    if (yes) cmdYes_Click();
    if (no) cmdNo_Click();
    return yes || no;
}

}  // namespace tabulon
