#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mail_server.h"
#include "platform/failure.h"
#include "platform/mail_text.h"
#include "platform/smtp_mail.h"
#include "platform/text.h"

namespace tabulon::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;

MailMessage Letter() {
    MailMessage letter;
    letter.Sender = "jane@example.com";
    letter.Recipient = "support@example.com";
    letter.RecipientName = "Tabulon Support";
    letter.Subject = "Error Log - Tab Player";
    letter.Body = "Hello";
    return letter;
}

std::string EveryByte(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
    return bytes;
}

class SmtpMailTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!MailServer::IsInstalled()) GTEST_SKIP() << "python3-aiosmtpd is not installed";
    }
    bool Send(const MailMessage& letter, const std::string& server) {
        return SmtpMail().Send(letter, server, [this](int percent) { percents.push_back(percent); });
    }
    std::vector<int> percents;
};

TEST_F(SmtpMailTest, MessageArrivesAsItWasGiven) {
    const MailServer server;
    MailMessage letter = Letter();
    letter.Body =
        "Jürgen received the following error: \r\n.\r\n" + std::string(2000, 'x') + "\nend = \t\r\n";
    ASSERT_TRUE(Send(letter, server.Name()));
    EXPECT_EQ(server.Got("sender"), "jane@example.com");
    EXPECT_EQ(server.Got("recipients"), "support@example.com");
    EXPECT_EQ(server.Got("names"), "content-type date from message-id mime-version subject to");
    EXPECT_THAT(server.Got("headers"), HasSubstr("To: Tabulon Support <support@example.com>"));
    EXPECT_THAT(server.Got("headers"), HasSubstr("Subject: Error Log - Tab Player"));
    EXPECT_EQ(server.Got("defects"), "");
    EXPECT_EQ(WithCrLf(server.Got("body")), WithCrLf(letter.Body));
    EXPECT_EQ(server.Got("attachment-name"), "");
    EXPECT_THAT(percents, AllOf(Contains(0), Contains(100)));
}

TEST_F(SmtpMailTest, AttachmentArrivesByteForByteAndAMissingOneIsLeftOut) {
    const MailServer server;
    const TemporaryDirectory folder;
    MailMessage letter = Letter();
    letter.Attachment = folder / "{A-1}.gam";
    EXPECT_TRUE(Send(letter, server.Name()));
    EXPECT_EQ(server.Got("body"), "Hello");
    WriteFile(letter.Attachment, EveryByte(200'000));
    ASSERT_TRUE(Send(letter, server.Name()));
    EXPECT_EQ(server.Got("attachment-name"), "{A-1}.gam");
    EXPECT_EQ(server.Got("attachment"), EveryByte(200'000));
}

// Several times a second: a wait after each small portion made a large report take minutes.
TEST_F(SmtpMailTest, LargeAttachmentGoesOutWithProgressAndFewWaits) {
    const MailServer server;
    const TemporaryDirectory folder;
    MailMessage letter = Letter();
    letter.Attachment = folder / "large.gam";
    WriteFile(letter.Attachment, EveryByte(8'000'000));
    ASSERT_TRUE(Send(letter, server.Name()));
    EXPECT_EQ(server.Got("attachment").size(), 8'000'000u);
    EXPECT_TRUE(std::ranges::is_sorted(percents));
    EXPECT_EQ(percents.back(), 100);
    EXPECT_LT(percents.size(), 3000u);
}

TEST_F(SmtpMailTest, CertificateThatNobodySignedWillDoUnlessAVerifiedOneIsAskedFor) {
    const struct {
        const char* name;
        bool encrypts, onlyVerified, arrives;
    } rows[] = {{"self-signed", true, false, true},
                {"self-signed, verified wanted", true, true, false},
                {"in the clear, verified wanted", false, true, false}};
    for (const auto& row : rows) {
        const MailServer server(row.encrypts);
        MailMessage letter = Letter();
        letter.OnlyVerified = row.onlyVerified;
        EXPECT_EQ(Send(letter, server.Name()), row.arrives) << row.name;
        EXPECT_EQ(server.Got("encrypted"), row.arrives ? "True" : "") << row.name;
    }
}

TEST_F(SmtpMailTest, NamesWithOtherCharactersArriveRight) {
    const MailServer server;
    MailMessage letter = Letter();
    letter.RecipientName = "Zoë \"Zo\" Žižková, Žluťoučký kůň";
    letter.Subject = "Fehler – žluťoučký kůň úpěl ďábelské ódy, příliš žluťoučký";
    ASSERT_TRUE(Send(letter, server.Name()));
    EXPECT_THAT(server.Got("headers"), HasSubstr("Subject: " + letter.Subject));
    EXPECT_THAT(server.Got("headers"), HasSubstr("Žižková, Žluťoučký kůň\" <support@example.com>"));
}

TEST_F(SmtpMailTest, WhatCouldAddAHeaderOrARecipientIsNotSent) {
    const MailServer server;
    const struct {
        const char* name;
        std::string MailMessage::*field;
        std::string text;
    } rows[] = {
        {"header after the sender", &MailMessage::Sender, "jane@example.com\r\nBcc: all@example.com"},
        {"command after the sender", &MailMessage::Sender, "jane@example.com>\nRCPT TO:<all@example.com"},
        {"second recipient", &MailMessage::Recipient, "support@example.com,all@example.com"},
        {"sender with a name", &MailMessage::Sender, "Jane <jane@example.com>"},
        {"no sender", &MailMessage::Sender, ""},
        {"subject of two lines", &MailMessage::Subject, "Error\r\nBcc: all@example.com"},
        {"subject with a NUL", &MailMessage::Subject, std::string("Error\0Log", 9)},
        {"name of two lines", &MailMessage::RecipientName, "Support\nBcc: all@example.com"},
        {"name that is no text", &MailMessage::RecipientName, "Support \xff"},
    };
    for (const auto& row : rows) {
        MailMessage letter = Letter();
        letter.*row.field = row.text;
        EXPECT_FALSE(Send(letter, server.Name())) << row.name;
    }
    EXPECT_FALSE(server.HasMail());
}

TEST_F(SmtpMailTest, RefusedRecipientIsNoSuccess) {
    const MailServer server;
    MailMessage letter = Letter();
    letter.Recipient = "refused@example.com";
    EXPECT_FALSE(Send(letter, server.Name()));
    EXPECT_FALSE(server.HasMail());
}

void Wait() {}
void NoProgress(int) {}

TEST(SmtpMailPatienceTest, ClosedPortIsReachableButTakesNoMail) {
    SilentServer server;
    server.Close();
    SmtpMail mail;
    EXPECT_TRUE(mail.IsDestinationReachable(server.Name(), Wait));
    EXPECT_FALSE(mail.Send(Letter(), server.Name(), NoProgress));
}

TEST(SmtpMailPatienceTest, SilentServerIsReachableButEndsThePatience) {
    const SilentServer server;
    EXPECT_TRUE(SmtpMail().IsDestinationReachable(server.Name(), Wait));
    EXPECT_FALSE(SmtpMail({300, 1, 300}).Send(Letter(), server.Name(), NoProgress));
}

TEST(SmtpMailPatienceTest, FailureWhileWaitingReachesTheCaller) {
    const SilentServer server;
    SmtpMail mail;
    EXPECT_THROW(mail.Send(Letter(), server.Name(), [](int) { throw Failure(FailureNumber::InvalidCall); }),
                 Failure);
    EXPECT_THROW(
        mail.IsDestinationReachable(server.Name(), [] { throw Failure(FailureNumber::InvalidCall); }),
        Failure);
}

TEST(SmtpMailPatienceTest, WhatIsNoServerIsNeverReached) {
    SmtpMail mail;
    for (const char* name : {"", "mail.example.com/x", "user@host", "host:", "host:25:25", "a b"}) {
        EXPECT_FALSE(mail.IsDestinationReachable(name, Wait)) << name;
        EXPECT_FALSE(mail.Send(Letter(), name, NoProgress)) << name;
    }
}

TEST(MailTextTest, AddressesAreToldFromOtherTexts) {
    const struct {
        std::string text;
        bool isAddress;
    } rows[] = {
        {"jane@example.com", true},
        {"jane.doe+games@mail.example.co.uk", true},
        {"o'neil@localhost", true},
        {"jane", false},
        {"@example.com", false},
        {"jane@", false},
        {"jane@@example.com", false},
        {".jane@example.com", false},
        {"jane..doe@example.com", false},
        {"jane@example..com", false},
        {"jane@-example.com", false},
        {"jane doe@example.com", false},
        {"\"jane doe\"@example.com", false},
        {"jane@exämple.com", false},
        {"jane@example.com ", false},
        {std::string(65, 'j') + "@example.com", false},
        {"jane@" + std::string(64, 'e') + ".com", false},
    };
    for (const auto& row : rows) EXPECT_EQ(IsMailAddress(row.text), row.isAddress) << row.text;
}

TEST(MailTextTest, EncodedWordsStayShortAndWhole) {
    const std::string text = "x" + ToUtf8("žluťoučký kůň úpěl ďábelské ódy, příliš žluťoučký kůň úpěl");
    std::string encoded = EncodedHeaderText(text);
    for (std::size_t end; !encoded.empty(); encoded.erase(0, end)) {
        end = std::min(encoded.find(' '), encoded.size() - 1) + 1;
        EXPECT_LE(end, 76u);
    }
}

TEST(MailTextTest, NamesAreQuoted) {
    EXPECT_EQ(EncodedMailbox("Doe, \"J\" \\", "j@x.org"), R"("Doe, \"J\" \\" <j@x.org>)");
    EXPECT_EQ(EncodedMailbox("", "j@x.org"), "j@x.org");
    EXPECT_EQ(EncodedHeaderText("=?UTF-8?Q?no?="), "=?UTF-8?B?PT9VVEYtOD9RP25vPz0=?=");
}

}  // namespace
}  // namespace tabulon::test
