#include "diagnostics/dlgErrorCause.h"

#include "diagnostics/design_size.h"

namespace tabulon {

DlgErrorCause::DlgErrorCause(Globals& g) : Form(g.TheScreen, "dlgErrorCause"), m_g(g) {
    txtSteps.MultiLine = true;
    cmdOk.Click = [this] { cmdOk_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void DlgErrorCause::Design() {
    const DesignSize design(m_g);
    Caption = "Help Us Find This Error...";
    design.Size(*this, 480, 340);
    design.Place(Label1, 16, 14, 448, 106);
    design.Place(txtSteps, 16, 126, 448, 150);
    design.Place(cmdOk, 228, 288, 112, 38);
    design.Place(cmdCancel, 352, 288, 112, 38);
    Label1.Caption =
        "Please help us find this error by telling us what steps you had taken just before the error "
        "occurred.  We "
        "realize that the error may not have been caused by anything that you did.  However, telling us what "
        "you did "
        "do will help us reproduce the problem and make it easier to determine the location of the error.";
    txtSteps.Text.clear();
    txtSteps.AccessibleName = "What you did before the error";
    cmdOk.Caption = "&Ok";
    cmdCancel.Caption = "&Cancel";
}

void DlgErrorCause::GetData(std::string& Steps, bool& Ok) {
    Procedure(m_g.gErrHandler, "dlgErrorCause:GetData", [&] {
        Load();
        txtSteps.Text = Steps;
        m_g.TheScreen.SetMousePointer(MousePointer::Default);
        ShowModal();
        m_g.TheScreen.PumpEvents();
        Ok = !m_cancelled;
        if (Ok) Steps = txtSteps.Text;
        m_g.TheScreen.SetMousePointer(MousePointer::Hourglass);
        Unload();
    });
}

void DlgErrorCause::cmdOk_Click() {
    m_cancelled = false;
    Hide();
}

void DlgErrorCause::cmdCancel_Click() {
    m_cancelled = true;
    Hide();
}

}  // namespace tabulon
