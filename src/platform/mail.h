#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tabulon {

struct MailMessage {
    std::string Sender;         // an address
    std::string RecipientName;  // shown beside the address; may be empty
    std::string Recipient;      // an address
    std::string Subject;
    std::string Body;
    std::filesystem::path Attachment;  // empty for none
};

/// Sends mail. All texts are UTF-8.
class Mail {
  public:
    virtual ~Mail() = default;
    /// True when the host of the server can be reached. `server` is a name or an address, with ":port" or
    /// without.
    virtual bool IsDestinationReachable(const std::string& server) = 0;
    /// True when the server took the message. Blocks until then or until patience ends; `whileWaiting` is
    /// called now and then meanwhile.
    virtual bool Send(const MailMessage& message, const std::string& server,
                      const std::function<void()>& whileWaiting) = 0;
};

/// Where no mail goes out.
class NoMail final : public Mail {
  public:
    bool IsDestinationReachable(const std::string&) override { return false; }
    bool Send(const MailMessage&, const std::string&, const std::function<void()>&) override { return false; }
};

}  // namespace tabulon
