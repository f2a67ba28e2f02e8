#pragma once

#include "platform/mail.h"

namespace tabulon {

/// Sends by SMTP, encrypted when the server offers that, whoever signed its certificate. Nothing that a user
/// typed can add a header, a command or a recipient: a message with such a text, or with what is no address,
/// is not sent.
class SmtpMail final : public Mail {
  public:
    struct Patience {
        int ConnectMilliseconds = 10'000;
        int AnswerSeconds = 20;  // for one answer of the server, and for a transfer that stands still
        int WholeMilliseconds = 300'000;
    };

    SmtpMail() : SmtpMail(Patience{}) {}
    explicit SmtpMail(const Patience& patience) : m_patience(patience) {}

    bool IsDestinationReachable(const std::string& server,
                                const std::function<void()>& whileWaiting) override;
    bool Send(const MailMessage& message, const std::string& server,
              const std::function<void(int percent)>& progress) override;

  private:
    Patience m_patience;
};

}  // namespace tabulon
