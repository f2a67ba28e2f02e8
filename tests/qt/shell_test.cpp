#include <QCoreApplication>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "qt/qt_shell.h"

namespace tabulon {
namespace {

class OneCopy : public testing::Test {
  protected:
    std::filesystem::path Folder() const { return folder.path().toStdString(); }

    QTemporaryDir folder;
    QtShell first{"/usr/bin/true", Folder()};
    QtShell second{"/usr/bin/true", Folder()};
};

TEST_F(OneCopy, TheSecondFindsTheFirst) {
    EXPECT_FALSE(first.PreviousInstance());
    EXPECT_FALSE(first.PreviousInstance());
    EXPECT_TRUE(second.PreviousInstance());
}

TEST_F(OneCopy, AnotherDataDirectoryHasACopyOfItsOwnAndOneThatIsGoneIsNoHindrance) {
    const QTemporaryDir other;
    QtShell("/usr/bin/true", Folder()).PreviousInstance();
    QtShell elsewhere("/usr/bin/true", other.path().toStdString());
    EXPECT_FALSE(first.PreviousInstance());
    EXPECT_FALSE(elsewhere.PreviousInstance());
}

TEST_F(OneCopy, TheFirstIsRaised) {
    int raised = 0;
    first.onRaise = [&raised] { ++raised; };
    first.PreviousInstance();
    std::atomic<bool> done = false;
    bool answered = false;
    std::thread asks([this, &done, &answered] {
        answered = second.RaisePreviousInstance();
        done = true;
    });
    while (!done) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    asks.join();
    EXPECT_TRUE(answered);
    EXPECT_EQ(raised, 1);
}

TEST_F(OneCopy, NobodyAnswersWhenNobodyRuns) { EXPECT_FALSE(second.RaisePreviousInstance()); }

TEST_F(OneCopy, ARestartHandsThePlaceOver) {
    EXPECT_FALSE(first.PreviousInstance());
    first.Start("/usr/bin/false");
    EXPECT_TRUE(second.PreviousInstance());
    first.Start("/usr/bin/true");
    EXPECT_FALSE(second.PreviousInstance());
}

/// A program that tells who it is and then reads without end.
class Companion {
  public:
    Companion() {
        const std::string path = Pipe();
        mkfifo(path.c_str(), 0600);
        m_pipe = open(path.c_str(), O_RDWR);
    }
    ~Companion() { close(m_pipe); }

    void StartFrom(QtShell& shell) const {
        shell.StartCompanion("/bin/sh", {"-c", "echo $$ > " + Pipe() + "; exec sleep 1000"});
    }
    pid_t Id() const {
        char text[32]{};
        return read(m_pipe, text, sizeof text - 1) > 0 ? static_cast<pid_t>(std::atoi(text)) : -1;
    }

  private:
    std::string Pipe() const { return folder.filePath("pipe").toStdString(); }

    QTemporaryDir folder;
    int m_pipe = -1;
};

TEST_F(OneCopy, ACompanionEndsWithTheProgram) {
    const Companion companion;
    pid_t id = -1;
    {
        QtShell shell("/usr/bin/true", Folder());
        companion.StartFrom(shell);
        id = companion.Id();
        ASSERT_GT(id, 0);
        EXPECT_EQ(kill(id, 0), 0);
    }
    EXPECT_NE(kill(id, 0), 0);
}

TEST_F(OneCopy, WhatCannotBeOpenedOrStartedIsPassedOver) {
    first.Open("javascript:alert(1)");
    first.Open("file:///etc/passwd");
    first.Open("/nowhere/at/all.html");
    first.Start("/nowhere/program");
    first.StartCompanion("/nowhere/program", {});
}

}  // namespace
}  // namespace tabulon
