#include <QCoreApplication>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

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

TEST_F(OneCopy, WhatCannotBeOpenedOrStartedIsPassedOver) {
    first.Open("javascript:alert(1)");
    first.Open("file:///etc/passwd");
    first.Open("/nowhere/at/all.html");
    first.Start("/nowhere/program");
}

}  // namespace
}  // namespace tabulon
