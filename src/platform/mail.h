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
    bool OnlyVerified = false;         // true: to no server that cannot prove its name
};

/// Sends mail. All texts are UTF-8.
class Mail {
  public:
    virtual ~Mail() = default;
    /// True when the host of the server can be reached. `server` is a name or an address, with ":port" or
    /// without. `whileWaiting` is called several times a second meanwhile.
    virtual bool IsDestinationReachable(const std::string& server,
                                        const std::function<void()>& whileWaiting) = 0;
    /// True when the server took the message. Blocks until then or until patience ends; `progress` is told
    /// several times a second how much has gone out, from 0 to 100 percent.
    virtual bool Send(const MailMessage& message, const std::string& server,
                      const std::function<void(int percent)>& progress) = 0;
};

/// Where no mail goes out.
class NoMail final : public Mail {
  public:
    bool IsDestinationReachable(const std::string&, const std::function<void()>&) override { return false; }
    bool Send(const MailMessage&, const std::string&, const std::function<void(int)>&) override {
        return false;
    }
};

}  // namespace tabulon
