#include "diagnostics/dlgError.h"

#include "diagnostics/design_size.h"
#include "diagnostics/product_settings.h"
#include "platform/files.h"
#include "platform/mail_text.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr char Rule[] = "------------------------------";
constexpr std::size_t LargestLog = 64u << 20;

}  // namespace

DlgError::DlgError(Globals& g, Mail& mail, DlgErrorCause& dlgErrorCause)
    : Form(g.TheScreen, "dlgError"), m_g(g), m_mail(mail), m_dlgErrorCause(dlgErrorCause) {
    txtEmailAddress.Change = [this] { MarkAddress(); };
    cmdSend.Click = [this] { cmdSend_Click(); };
    cmdClose.Click = [this] { Unload(); };
}

void DlgError::Design() {
    DesignPlaces();
    DesignTexts();
    lblTitle.Font.Bold = true;
    txtFullName.Text.clear();
    txtEmailAddress.Text.clear();
    MarkAddress();
    m_steps.clear();
}

void DlgError::DesignPlaces() {
    const DesignSize design(m_g);
    design.Size(*this, 560, 500);
    design.Place(lblTitle, 16, 12, 528, 32);
    lblTitle.Font.Size = 2 * design.FontSize - 4;
    design.Place(lblIntro, 16, 46, 528, 38);
    design.Place(lblDetails, 16, 88, 528, 84);
    design.Place(lblEmail, 16, 178, 528, 76);
    design.Place(lblEmail2, 16, 260, 528, 58);
    design.Place(lblFullName, 16, 330, 176, 24);
    design.Place(txtFullName, 200, 326, 344, 28);
    design.Place(lblEmailAddress, 16, 366, 176, 24);
    design.Place(txtEmailAddress, 200, 362, 344, 28);
    design.Place(lblProgress, 16, 404, 528, 24);
    design.Place(cmdSend, 224, 444, 200, 40);
    design.Place(cmdClose, 432, 444, 112, 40);
}

void DlgError::DesignTexts() {
    const std::string& product = m_g.Application.ProductName;
    Caption = "Unexpected Error";
    lblTitle.Caption = product + " Error";
    lblIntro.Caption =
        "We apologize for the inconvenience.  The details of the error are provided below for information "
        "purposes.";
    lblEmail.Caption =
        "An error log has been created containing details about this error.  We humbly request that, in an "
        "effort to "
        "improve " +
        product +
        ", you email this error log to Corvane Software by providing your name and email address in the "
        "fields below "
        "and clicking the SEND ERROR LOG button.";
    lblEmail2.Caption =
        "Your contact information will be kept in the strictest confidence, and we will only use your email "
        "address "
        "to contact you for further information necessary to resolve the error, or to inform you when we "
        "have "
        "resolved it.";
    lblFullName.Caption = "Your &Full Name:";
    txtFullName.AccessibleName = "Your full name";
    lblEmailAddress.Caption = "Your Email &Address:";
    txtEmailAddress.AccessibleName = "Your email address";
    lblProgress.Caption.clear();
    cmdSend.Caption = "&Send Error Log";
    cmdClose.Caption = "&Close";
}

void DlgError::SetData(const std::string& Details) {
    Load();
    lblDetails.Caption = DoubleAmpersands(Details);
    ShowDetailsWhole();
    // A timer that fails again and again must not open one wait inside the other.
    if (!Visible) ShowModal();
}

// A fitting that reports its own failures would report into this dialog.
void DlgError::ShowDetailsWhole() {
    constexpr int smallest = 5;
    const float twips = m_g.TheScreen.TwipsPerPixelX();
    const int width = static_cast<int>(lblDetails.Width / twips);
    const int height = static_cast<int>(lblDetails.Height / twips);
    lblDetails.Font.Size = DesignSize(m_g).FontSize;
    while (lblDetails.Font.Size > smallest &&
           m_g.TheScreen.MeasureText(lblDetails.Font, lblDetails.Caption, width).Height > height)
        --lblDetails.Font.Size;
}

void DlgError::cmdSend_Click() {
    if (m_sending) return;
    m_sending = true;
    try {
        SendLog();
    } catch (const std::exception&) {
        // The log and the dialog stay.
    }
    m_sending = false;
    lblProgress.Caption.clear();
    m_g.TheScreen.SetMousePointer(MousePointer::Default);
}

void DlgError::SendLog() {
    m_g.TheScreen.SetMousePointer(MousePointer::Hourglass);
    ShowProgress("Looking for the mail server...");
    if (!m_mail.IsDestinationReachable(MailServer(), [this] { m_g.TheScreen.Sleep(1); }))
        WarnOfNoConnection();
    if (!HasNameAndAddress()) return;
    const MailMessage message = Message(LogText());
    const auto progress = [this](int percent) {
        ShowProgress("Sending... " + std::to_string(percent) + " %");
    };
    progress(0);
    if (m_mail.Send(message, MailServer(), progress)) {
        FinishSent();
    } else {
        m_g.TheScreen.MsgBox("An error occurred attempting to email the error log.", BoxIcon::Critical,
                             BoxButtons::Ok, m_g.Application.Title);
    }
}

// Both answers go on to the sending.
void DlgError::WarnOfNoConnection() {
    m_g.TheScreen.MsgBox(
        "        No internet connection detected.    \r\n\r\n"
        "Please establish an internet connection, and\r\n"
        "           Click OK to try again or         \r\n"
        " click CANCEL to not send us the error log. ",
        BoxIcon::Information, BoxButtons::OkCancel, {});
}

bool DlgError::HasNameAndAddress() {
    const char* missing = nullptr;
    if (txtEmailAddress.Text.empty()) missing = "Please give us your email address.";
    if (txtFullName.Text.empty()) missing = "Please give us your full name.";
    if (missing) m_g.TheScreen.MsgBox(missing, BoxIcon::Critical, BoxButtons::Ok, m_g.Application.Title);
    return !missing;
}

std::string DlgError::LogText() {
    std::string log = std::string("\r\n") + Rule + "\r\n";
    bool ok = false;
    m_dlgErrorCause.GetData(m_steps, ok);
    if (ok) log += m_steps + "\r\n" + Rule + "\r\n\r\n";
    if (!FileExists(LogFile())) return log;
    for (const std::string& line : Lines(ToUtf8(ReadFile(LogFile(), LargestLog)))) log += "\r\n" + line;
    return log;
}

MailMessage DlgError::Message(const std::string& log) const {
    MailMessage message;
    message.Sender = txtEmailAddress.Text;
    message.Recipient = ProductSetting(m_g, "SupportAddress", m_g.Application.SupportAddress);
    message.Subject = "Error Log - " + m_g.Application.Title;
    message.Body = txtFullName.Text + " received the following error: \r\n\r\n" + log;
    message.OnlyVerified = ProductSetting(m_g, "MailTls", {}) == "verify";
    const std::string game = GameDirectory ? GameDirectory() : std::string();
    if (game.empty()) return message;
    message.RecipientName = "Tabulon Support";
    message.Attachment = FindFile(m_g.AppDir, game + ".gam");
    return message;
}

void DlgError::FinishSent() {
    m_g.TheScreen.MsgBox("The error log has been emailed to " + m_g.Application.Title + " tech support.",
                         BoxIcon::Information, BoxButtons::Ok, m_g.Application.Title);
    if (FileExists(LogFile())) std::filesystem::remove(LogFile());
    Unload();
}

void DlgError::MarkAddress() {
    const std::string& address = txtEmailAddress.Text;
    txtEmailAddress.Marked = !address.empty() && !IsMailAddress(address);
    txtEmailAddress.ToolTipText =
        txtEmailAddress.Marked ? "An email address looks like name@example.com." : "";
}

void DlgError::ShowProgress(const std::string& text) {
    lblProgress.Caption = text;
    m_g.TheScreen.Sleep(1);
}

std::string DlgError::MailServer() const {
    return ProductSetting(m_g, "MailServer", m_g.Application.MailServer);
}

std::filesystem::path DlgError::LogFile() const { return m_g.AppDir / ErrorLog; }

}  // namespace tabulon
