#include "board/dlgPlayers.h"

namespace tabulon {

bool DlgPlayers::ProcessKeyDown(bool InTextBox, int KeyCode, int Shift) {
    bool acted = false;
    Procedure(m_g.gErrHandler, "dlgPlayers:ProcessKeyDown", [&] {
        if (InTextBox && KeyCode == Key::Enter && !txtPlayerName.Text.empty()) {
            if (txtPlayerName.Text.ends_with("\r\n"))
                txtPlayerName.SetText(txtPlayerName.Text.substr(0, txtPlayerName.Text.size() - 1));
            cmdAdd_Click();
            acted = true;
        }
        acted = (Shift == Key::Alt && AccessKey(KeyCode)) || acted;
    });
    return acted;
}

bool DlgPlayers::AccessKey(int KeyCode) {
    switch (KeyCode) {
        case Key::A:
            cmdAdd_Click();
            return true;
        case Key::G:
            cmdChange_Click();
            return true;
        case Key::R:
            cmdRemove_Click();
            return true;
        case Key::O:
            cmdOk_Click();
            return true;
        case Key::C:
            cmdCancel_Click();
            return true;
        default:
            return false;
    }
}

}  // namespace tabulon
