#include "platform/smtp_mail.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <curl/curl.h>
#include <iomanip>
#include <locale>
#include <memory>
#include <random>
#include <sstream>
#include <unistd.h>

#include "platform/mail_text.h"

namespace tabulon {

namespace {

struct Freed {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
    void operator()(curl_mime* mime) const { curl_mime_free(mime); }
};

using Handle = std::unique_ptr<CURL, Freed>;
using Mime = std::unique_ptr<curl_mime, Freed>;

class StringList {
  public:
    void Add(const std::string& text) {
        curl_slist* longer = curl_slist_append(m_list.get(), text.c_str());
        if (!longer) throw std::bad_alloc();
        m_list.release();
        m_list.reset(longer);
    }
    curl_slist* Get() const { return m_list.get(); }

  private:
    std::unique_ptr<curl_slist, Freed> m_list;
};

Handle NewHandle(const std::string& address, int connectMilliseconds) {
    Handle handle(curl_easy_init());
    if (!handle) throw std::bad_alloc();
    curl_easy_setopt(handle.get(), CURLOPT_URL, address.c_str());
    curl_easy_setopt(handle.get(), CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle.get(), CURLOPT_PROXY, "");
    curl_easy_setopt(handle.get(), CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(connectMilliseconds));
    return handle;
}

/// A transfer under way, whose waits are the caller's own.
class Transfer {
  public:
    explicit Transfer(CURL* handle) : m_multi(curl_multi_init()), m_handle(handle) {
        if (!m_multi) throw std::bad_alloc();
        curl_multi_add_handle(m_multi, m_handle);
    }
    ~Transfer() {
        curl_multi_remove_handle(m_multi, m_handle);
        curl_multi_cleanup(m_multi);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// True when all went well. Calls `pulse` at the beginning, several times a second, and at the end; what
    /// it throws ends the transfer. How often does not hang on how small the portions are that go out.
    bool Run(const std::function<void()>& pulse) {
        for (auto next = std::chrono::steady_clock::now(); GoOn();) {
            if (std::chrono::steady_clock::now() >= next) {
                pulse();
                next = std::chrono::steady_clock::now() + Pulse;
            }
            curl_multi_poll(m_multi, nullptr, 0, Pulse.count(), nullptr);
        }
        pulse();
        int left = 0;
        const CURLMsg* end = curl_multi_info_read(m_multi, &left);
        return end && end->data.result == CURLE_OK;
    }

  private:
    static constexpr std::chrono::duration<int, std::milli> Pulse{50};

    bool GoOn() {
        int running = 0;
        return curl_multi_perform(m_multi, &running) == CURLM_OK && running > 0;
    }

    CURLM* m_multi;
    CURL* m_handle;
};

std::string DateNow() {
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::put_time(&utc, "%a, %d %b %Y %H:%M:%S +0000");
    return text.str();
}

std::string NewMessageId(const std::string& sender) {
    std::random_device random;
    std::ostringstream id;
    id << "<" << std::hex << random() << random() << "." << random() << sender.substr(sender.find('@'))
       << ">";
    return id.str();
}

StringList Headers(const MailMessage& message) {
    StringList headers;
    headers.Add("Date: " + DateNow());
    headers.Add("From: " + message.Sender);
    headers.Add("To: " + EncodedMailbox(message.RecipientName, message.Recipient));
    headers.Add("Subject: " + EncodedHeaderText(message.Subject));
    headers.Add("Message-ID: " + NewMessageId(message.Sender));
    return headers;
}

Mime Parts(CURL* handle, const MailMessage& message) {
    Mime mime(curl_mime_init(handle));
    const std::string body = WithCrLf(message.Body);
    curl_mimepart* text = curl_mime_addpart(mime.get());
    curl_mime_data(text, body.data(), body.size());
    curl_mime_type(text, "text/plain; charset=utf-8");
    curl_mime_encoder(text, "quoted-printable");
    if (message.Attachment.empty() || access(message.Attachment.c_str(), R_OK) != 0) return mime;
    curl_mimepart* file = curl_mime_addpart(mime.get());
    curl_mime_filedata(file, message.Attachment.c_str());
    curl_mime_type(file, "application/octet-stream");
    curl_mime_encoder(file, "base64");
    return mime;
}

void SetPatience(CURL* handle, const SmtpMail::Patience& patience) {
    curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, static_cast<long>(patience.WholeMilliseconds));
    curl_easy_setopt(handle, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(patience.AnswerSeconds));
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, static_cast<long>(patience.AnswerSeconds));
}

// Who can read or change what goes by can also take away the offer to encrypt, and then nobody asks for a
// certificate. So asking for a signed one protects nothing unless encryption is a must: it would only keep
// the reports from servers that sign for themselves.
void SetEncryption(CURL* handle, bool onlyVerified) {
    curl_easy_setopt(handle, CURLOPT_USE_SSL,
                     static_cast<long>(onlyVerified ? CURLUSESSL_ALL : CURLUSESSL_TRY));
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, onlyVerified ? 1L : 0L);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, onlyVerified ? 2L : 0L);
}

/// About how many bytes go out: the attachment in lines of base64, without the headers.
std::uintmax_t SizeOnTheWay(const MailMessage& message) {
    std::error_code none;
    const std::uintmax_t file = std::filesystem::file_size(message.Attachment, none);
    return message.Body.size() + (none ? 0 : file / 57 * 78) + 1;
}

int PercentSent(CURL* handle, std::uintmax_t whole) {
    curl_off_t sent = 0;
    curl_easy_getinfo(handle, CURLINFO_SIZE_UPLOAD_T, &sent);
    return static_cast<int>(std::min<std::uintmax_t>(100, static_cast<std::uintmax_t>(sent) * 100 / whole));
}

bool MaySend(const MailMessage& message, const std::string& server) {
    return IsServerName(server) && IsMailAddress(message.Sender) && IsMailAddress(message.Recipient) &&
           IsHeaderText(message.RecipientName) && IsHeaderText(message.Subject);
}

}  // namespace

bool SmtpMail::IsDestinationReachable(const std::string& server, const std::function<void()>& whileWaiting) {
    constexpr int SmtpPort = 25;
    if (!IsServerName(server)) return false;
    // Of HTTP nothing is used: this connects and says nothing.
    const Handle handle = NewHandle("http://" + server, m_patience.ConnectMilliseconds);
    if (server.find(':') == server.npos)
        curl_easy_setopt(handle.get(), CURLOPT_PORT, static_cast<long>(SmtpPort));
    curl_easy_setopt(handle.get(), CURLOPT_CONNECT_ONLY, 1L);
    if (Transfer(handle.get()).Run(whileWaiting)) return true;
    long error = 0;
    curl_easy_getinfo(handle.get(), CURLINFO_OS_ERRNO, &error);
    return error == ECONNREFUSED;  // the host is there, though nobody listens
}

bool SmtpMail::Send(const MailMessage& message, const std::string& server,
                    const std::function<void(int percent)>& progress) {
    if (!MaySend(message, server)) return false;
    const Handle handle = NewHandle("smtp://" + server, m_patience.ConnectMilliseconds);
    SetPatience(handle.get(), m_patience);
    SetEncryption(handle.get(), message.OnlyVerified);
    const StringList headers = Headers(message);
    StringList recipients;
    recipients.Add(message.Recipient);
    const Mime mime = Parts(handle.get(), message);
    curl_easy_setopt(handle.get(), CURLOPT_PROTOCOLS_STR, "smtp");
    curl_easy_setopt(handle.get(), CURLOPT_MAIL_FROM, message.Sender.c_str());
    curl_easy_setopt(handle.get(), CURLOPT_MAIL_RCPT, recipients.Get());
    curl_easy_setopt(handle.get(), CURLOPT_HTTPHEADER, headers.Get());
    curl_easy_setopt(handle.get(), CURLOPT_MIMEPOST, mime.get());
    const std::uintmax_t whole = SizeOnTheWay(message);
    return Transfer(handle.get()).Run([&] { progress(PercentSent(handle.get(), whole)); });
}

}  // namespace tabulon
