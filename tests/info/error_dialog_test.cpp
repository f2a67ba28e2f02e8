#include "diagnostics/dlgError.h"
#include "info_run.h"

namespace tabulon::test {
namespace {

using namespace testing;

constexpr char NotSent[] = "An error occurred attempting to email the error log.";
constexpr char Sent[] = "The error log has been emailed to Tab Player tech support.";

class RecordingMail final : public Mail {
  public:
    bool IsDestinationReachable(const std::string&, const std::function<void()>& wait) override {
        wait();
        return Reachable;
    }
    bool Send(const MailMessage& message, const std::string& server,
              const std::function<void(int)>& progress) override {
        Messages.push_back(message);
        Server = server;
        progress(37);
        if (WhileSending) WhileSending();
        return Takes;
    }

    bool Reachable = true;
    bool Takes = true;
    std::vector<MailMessage> Messages;
    std::string Server;
    std::function<void()> WhileSending;
};

class ErrorDialogTest : public testing::Test {
  protected:
    /// Opens the dialog with a name and an address, does this, and closes it at the end.
    void Open(std::function<void()> act) {
        run.Then([this, act] {
            dlgError.txtFullName.Text = "J\u00FCrgen Doe";
            dlgError.txtEmailAddress.Text = "jane@example.com";
            act();
            dlgError.cmdClose.Click();
        });
        dlgError.SetData("Module:  a:b\r\nError:     (9) c & d");
    }
    /// Presses the button, and answers the question for the steps.
    void SendWithSteps(const std::string& steps) {
        run.Then([this, steps] {
            EXPECT_EQ(run.machine.TheScreen.Pointer(), MousePointer::Default);
            dlgErrorCause.txtSteps.Text = steps;
            dlgErrorCause.cmdOk.Click();
        });
        dlgError.cmdSend.Click();
        EXPECT_EQ(run.machine.TheScreen.Pointer(), MousePointer::Default);
    }
    void WriteLog(const std::string& text) { WriteFile(run.AppDir() / "ERRORS.TXT", text); }

    InfoRun run;
    RecordingMail mail;
    DlgErrorCause dlgErrorCause{run.g};
    DlgError dlgError{run.g, mail, dlgErrorCause};
};

TEST_F(ErrorDialogTest, ShowsTheDetailsInTheProductsName) {
    Open([&] {
        EXPECT_EQ(dlgError.lblTitle.Caption, "Tabulon Player Error");
        EXPECT_EQ(dlgError.lblDetails.Caption, "Module:  a:b\r\nError:     (9) c && d");
        EXPECT_THAT(dlgError.lblEmail.Caption, HasSubstr("improve Tabulon Player, you email this error log"));
    });
    EXPECT_FALSE(dlgError.Loaded);
}

TEST_F(ErrorDialogTest, LogGoesOutWithTheStepsAndIsGoneAfterwards) {
    WriteLog("line 1\r\nline 2\r\n");
    Open([&] { SendWithSteps("I rolled"); });
    const std::string rule(30, '-');
    ASSERT_EQ(mail.Messages.size(), 1u);
    EXPECT_EQ(mail.Messages[0].Body, "J\u00FCrgen Doe received the following error: \r\n\r\n\r\n" + rule +
                                         "\r\nI rolled\r\n" + rule + "\r\n\r\n\r\nline 1\r\nline 2");
    EXPECT_EQ(mail.Messages[0].Subject, "Error Log - Tab Player");
    EXPECT_EQ(mail.Messages[0].Sender, "jane@example.com");
    EXPECT_EQ(mail.Messages[0].Recipient, "support@makers.example");
    EXPECT_EQ(mail.Messages[0].RecipientName, "");
    EXPECT_EQ(mail.Messages[0].Attachment, "");
    EXPECT_EQ(mail.Server, "mail.example");
    EXPECT_THAT(run.machine.User.BoxTexts(), ElementsAre(Sent));
    EXPECT_FALSE(run.HasFile("ERRORS.TXT"));
    EXPECT_FALSE(dlgError.Loaded);
}

TEST_F(ErrorDialogTest, CancelledQuestionAndMissingLogLeaveTheRuleAlone) {
    Open([&] {
        run.Then([&] { dlgErrorCause.cmdCancel.Click(); });
        dlgError.cmdSend.Click();
    });
    EXPECT_THAT(mail.Messages[0].Body, testing::EndsWith("\r\n\r\n\r\n" + std::string(30, '-') + "\r\n"));
    EXPECT_THAT(run.machine.User.BoxTexts(), ElementsAre(Sent));
}

TEST_F(ErrorDialogTest, PackageOfTheOpenGameGoesWithIt) {
    WriteFile(run.AppDir() / "{A-1}.GAM", "PK");
    dlgError.GameDirectory = [] { return std::string("{A-1}"); };
    Open([&] { SendWithSteps(""); });
    EXPECT_EQ(mail.Messages[0].RecipientName, "Tabulon Support");
    EXPECT_EQ(mail.Messages[0].Attachment, run.AppDir() / "{A-1}.GAM");
}

TEST_F(ErrorDialogTest, InstallationNamesServerAndAddress) {
    run.Set("MailServer", "mail.family.example:2525");
    run.Set("SupportAddress", "uncle@family.example");
    Open([&] { SendWithSteps(""); });
    EXPECT_EQ(mail.Server, "mail.family.example:2525");
    EXPECT_EQ(mail.Messages[0].Recipient, "uncle@family.example");
    EXPECT_FALSE(mail.Messages[0].OnlyVerified);
}

TEST_F(ErrorDialogTest, InstallationMayAskForAServerWithASignedCertificate) {
    run.Set("MailTls", "verify");
    Open([&] { SendWithSteps(""); });
    EXPECT_TRUE(mail.Messages[0].OnlyVerified);
}

TEST_F(ErrorDialogTest, WhatIsNoAddressIsMarkedWhileItIsTyped) {
    Open([&] {
        for (const auto& [text, marked] : {std::pair("jane", true),
                                           {"jane@", true},
                                           {"jane@example.com", false},
                                           {"jane doe@example.com", true},
                                           {"", false}}) {
            dlgError.txtEmailAddress.SetText(text);
            EXPECT_EQ(dlgError.txtEmailAddress.Marked, marked) << text;
            EXPECT_EQ(dlgError.txtEmailAddress.ToolTipText.empty(), !marked) << text;
        }
        dlgError.txtEmailAddress.SetText("jane");
    });
    Open([&] { EXPECT_FALSE(dlgError.txtEmailAddress.Marked); });
}

TEST_F(ErrorDialogTest, StepsAreStillThereForTheNextTry) {
    mail.Takes = false;
    const auto sendAgain = [&](const std::string& expected, auto act) {
        run.Then([&, expected, act] {
            EXPECT_EQ(dlgErrorCause.txtSteps.Text, expected);
            act();
        });
        dlgError.cmdSend.Click();
    };
    Open([&] {
        SendWithSteps("I rolled");
        sendAgain("I rolled", [&] { dlgErrorCause.cmdCancel.Click(); });
        sendAgain("I rolled", [&] { dlgErrorCause.cmdOk.Click(); });
    });
    EXPECT_THAT(mail.Messages.at(1).Body, Not(HasSubstr("I rolled")));
    EXPECT_THAT(mail.Messages.at(2).Body, HasSubstr("I rolled"));
    Open([&] { sendAgain("", [&] { dlgErrorCause.cmdOk.Click(); }); });
}

TEST_F(ErrorDialogTest, NameAndAddressAreAskedForBeforeTheSteps) {
    const struct {
        const char *name, *address, *box;
    } rows[] = {{"", "", "Please give us your full name."},
                {"", "jane@example.com", "Please give us your full name."},
                {"Jane", "", "Please give us your email address."}};
    for (const auto& row : rows) {
        run.machine.User.Boxes.clear();
        Open([&] {
            dlgError.txtFullName.Text = row.name;
            dlgError.txtEmailAddress.Text = row.address;
            dlgError.cmdSend.Click();
            EXPECT_EQ(run.machine.TheScreen.Pointer(), MousePointer::Default);
        });
        EXPECT_THAT(run.machine.User.BoxTexts(), ElementsAre(row.box));
        EXPECT_EQ(run.machine.User.Boxes[0].Icon, BoxIcon::Critical);
    }
    EXPECT_THAT(mail.Messages, IsEmpty());
}

TEST_F(ErrorDialogTest, WithoutANetworkTheSendIsTriedWhateverTheAnswer) {
    mail.Reachable = mail.Takes = false;
    WriteLog("line");
    for (const BoxAnswer answer : {BoxAnswer::Ok, BoxAnswer::Cancel}) {
        run.machine.User.Boxes.clear();
        run.machine.User.Answers.push_back(answer);
        Open([&] {
            SendWithSteps("");
            EXPECT_TRUE(dlgError.Visible);
            EXPECT_EQ(dlgError.lblProgress.Caption, "");
        });
        EXPECT_THAT(run.machine.User.BoxTexts(),
                    ElementsAre(HasSubstr("No internet connection detected."), NotSent));
        EXPECT_EQ(run.machine.User.Boxes[0].Title, "");
    }
    EXPECT_EQ(mail.Messages.size(), 2u);
    EXPECT_TRUE(run.HasFile("ERRORS.TXT"));
}

TEST_F(ErrorDialogTest, FailureWhileSendingIsNotReported) {
    WriteLog("line");
    mail.WhileSending = [] { throw Failure(FailureNumber::InvalidCall); };
    Open([&] { SendWithSteps(""); });
    EXPECT_THAT(run.Errors, IsEmpty());
    EXPECT_THAT(run.machine.User.Boxes, IsEmpty());
    EXPECT_TRUE(run.HasFile("ERRORS.TXT"));
}

TEST_F(ErrorDialogTest, SecondPressDuringTheSendDoesNothing) {
    mail.WhileSending = [&] {
        EXPECT_EQ(dlgError.lblProgress.Caption, "Sending... 37 %");
        dlgError.cmdSend.Click();
    };
    Open([&] { SendWithSteps(""); });
    EXPECT_EQ(mail.Messages.size(), 1u);
}

TEST_F(ErrorDialogTest, FailureWhileTheDialogIsUpReplacesTheDetailsAndDoesNotWait) {
    run.g.gErrHandler.ShowDetails = [&](const std::string& details) { dlgError.SetData(details); };
    Open([&] {
        run.g.gErrHandler.HandleError(Failure(FailureNumber::Overflow));
        EXPECT_THAT(dlgError.lblDetails.Caption, HasSubstr("(6) Overflow"));
        EXPECT_TRUE(dlgError.Visible);
    });
    EXPECT_FALSE(dlgError.Visible);
}

}  // namespace
}  // namespace tabulon::test
