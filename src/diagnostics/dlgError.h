#pragma once

#include <functional>
#include <string>

#include "diagnostics/dlgErrorCause.h"
#include "platform/mail.h"

namespace tabulon {

/// Tells of a failure, and mails the error log to the makers. Once the log has been sent, it is gone.
/// Its procedures are not on the error handler's stack: it must not report into itself.
class DlgError : public Form {
  public:
    DlgError(Globals& g, Mail& mail, DlgErrorCause& dlgErrorCause);

    /// Returns when the dialog has closed. A failure that comes while it is up takes the place of the one
    /// shown, and does not wait.
    void SetData(const std::string& Details);

    /// The key of the game whose package goes with the log; empty when no game is open.
    std::function<std::string()> GameDirectory;

    Label lblTitle{*this, "lblTitle"};
    Label lblIntro{*this, "lblIntro"};
    Label lblDetails{*this, "lblDetails"};
    Label lblEmail{*this, "lblEmail"};
    Label lblEmail2{*this, "lblEmail2"};
    Label lblFullName{*this, "lblFullName"};
    TextBox txtFullName{*this, "txtFullName"};
    Label lblEmailAddress{*this, "lblEmailAddress"};
    TextBox txtEmailAddress{*this, "txtEmailAddress"};
    Label lblProgress{*this, "lblProgress"};
    Button cmdSend{*this, "cmdSend"};
    Button cmdClose{*this, "cmdClose"};

  protected:
    void Design() override;

  private:
    void DesignPlaces();
    void DesignTexts();
    void cmdSend_Click();
    void ShowDetailsWhole();
    void SendLog();
    bool HasNameAndAddress();
    void WarnOfNoConnection();
    std::string LogText();
    MailMessage Message(const std::string& log) const;
    void FinishSent();
    void MarkAddress();
    void ShowProgress(const std::string& text);
    std::string MailServer() const;
    std::filesystem::path LogFile() const;

    Globals& m_g;
    Mail& m_mail;
    DlgErrorCause& m_dlgErrorCause;
    bool m_sending = false;
    std::string m_steps;  // as last typed, for the next try
};

}  // namespace tabulon
