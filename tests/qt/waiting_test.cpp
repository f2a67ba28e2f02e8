#include <QAbstractButton>
#include <QElapsedTimer>
#include <QMessageBox>

#include "qt/screen_test.h"

namespace tabulon {
namespace {

using testing::ElementsAre;

class Waiting : public WaitingTest {};

TEST_F(Waiting, AModalFormHoldsItsCallerUntilItIsHidden) {
    form.cmdOk.Click = [this] {
        dialog.ShowModal();
        log.push_back("closed");
    };
    dialog.cmdOk.Click = [this] {
        log.push_back("ok");
        dialog.Hide();
    };
    Show(form);
    Soon([this] {
        EXPECT_TRUE(WindowOf(dialog)->isModal());
        Click(dialog.cmdOk);
    });
    Click(form.cmdOk);
    EXPECT_THAT(log, ElementsAre("ok", "closed"));
    EXPECT_EQ(WindowOf(dialog), nullptr);
    EXPECT_TRUE(dialog.Loaded);
}

TEST_F(Waiting, OtherWindowsTakeNoKeysDuringAModalForm) {
    form.KeyDown = [this](int, int) { return !(log.push_back("main"), false); };
    dialog.KeyDown = [this](int, int) { return (dialog.Hide(), true); };
    Show(form);
    Soon([this] {
        Press(form, Qt::Key_O);
        Press(dialog, Qt::Key_O);
    });
    dialog.ShowModal();
    EXPECT_TRUE(log.empty());
}

TEST_F(Waiting, UnloadingEndsTheWaitAndTheFrameMayBeRefused) {
    dialog.refuseToClose = true;
    Soon([this] {
        WindowOf(dialog)->close();
        EXPECT_NE(WindowOf(dialog), nullptr);
        dialog.refuseToClose = false;
        WindowOf(dialog)->close();
    });
    dialog.ShowModal();
    EXPECT_EQ(dialog.unloads, 1);
    EXPECT_FALSE(dialog.Loaded);
}

TEST_F(Waiting, WhatAHandlerThrowsLeavesTheInnermostWait) {
    dialog.cmdOk.Click = [] { throw Failure(FailureNumber::Overflow); };
    Soon([this] { Click(dialog.cmdOk); });
    EXPECT_THROW(dialog.ShowModal(), Failure);
    EXPECT_FALSE(dialog.Visible);

    Show(form);
    form.cmdOk.Click = [] { throw ProgramEnd{}; };
    Soon([this] { Click(form.cmdOk); });
    EXPECT_THROW(screen.PumpEvents(), ProgramEnd);
    EXPECT_NO_THROW(screen.PumpEvents());
}

TEST_F(Waiting, HandlersWaitUntilAnExceptionIsTaken) {
    form.cmdOk.Click = [] { throw Failure(FailureNumber::Overflow); };
    form.cmdRoll.Click = Log("roll");
    Show(form);
    Click(form.cmdOk);
    Click(form.cmdRoll);
    EXPECT_TRUE(log.empty());
    EXPECT_THROW(screen.PumpEvents(), Failure);
    screen.PumpEvents();
    EXPECT_THAT(log, ElementsAre("roll"));
}

TEST_F(Waiting, RunEndsWithTheLastForm) {
    Show(form);
    dialog.Load();
    form.cmdOk.Click = [this] {
        form.Unload();
        Soon([this] { dialog.Unload(); });
    };
    Soon([this] { Click(form.cmdOk); });
    EXPECT_EQ(screen.Run(), 0);
    EXPECT_TRUE(screen.LoadedForms().empty());
}

TEST_F(Waiting, RunEndsAtOnceWhenTheProgramDoes) {
    form.cmdOk.Click = [] { throw ProgramEnd{}; };
    Show(form);
    Soon([this] { Click(form.cmdOk); });
    EXPECT_EQ(screen.Run(), 0);
    EXPECT_TRUE(form.Loaded);
}

TEST_F(Waiting, RunShowsAFailureThatNobodyTookAndGoesOn) {
    QString shown;
    form.cmdOk.Click = [this, &shown] {
        Soon([this, &shown] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            shown = box->text();
            Soon([this] { form.Unload(); });
            box->button(QMessageBox::Ok)->click();
        });
        throw Failure(FailureNumber::CustomError, "No <b>board</b>");
    };
    Show(form);
    Soon([this] { Click(form.cmdOk); });
    screen.Run();
    EXPECT_EQ(shown, "No <b>board</b>");
}

TEST_F(Waiting, SleepShowsChangesAndTakesItsTime) {
    Show(form);
    form.cmdOk.Visible = false;
    QElapsedTimer slept;
    slept.start();
    screen.Sleep(30);
    EXPECT_GE(slept.elapsed(), 30);
    EXPECT_TRUE(Find(form.cmdOk).isHidden());
}

TEST_F(Waiting, WhoWaitedIsNotGoneOnWithWhenTheProgramWasLeft) {
    Show(form);
    Soon([this] {
        form.Unload();
        dialog.Unload();
    });
    EXPECT_THROW(dialog.ShowModal(), ProgramEnd);
}

TEST_F(Waiting, TimersFireInPumpsAndWaitsOnly) {
    form.Timer1.Tick = [this] {
        log.push_back("tick");
        form.Timer1.Enabled = false;
    };
    form.Timer1.Enabled = true;
    form.Show();
    screen.Sleep(40);
    QTest::qWait(20);
    EXPECT_TRUE(log.empty());
    screen.PumpEvents();
    EXPECT_THAT(log, ElementsAre("tick"));
}

TEST_F(Waiting, ATimerEndsAModalWaitByItself) {
    dialog.Timer1.Enabled = true;
    dialog.Timer1.Tick = [this] { dialog.Unload(); };
    QElapsedTimer waited;
    waited.start();
    dialog.ShowModal();
    EXPECT_GE(waited.elapsed(), dialog.Timer1.Interval);
    EXPECT_EQ(dialog.Timer1.DueAt, Timer::NotArmed);
}

TEST_F(Waiting, ATimerIsNotEnteredAgainFromItsOwnHandler) {
    form.Timer1.Interval = 1;
    form.Timer1.Enabled = true;
    form.Timer1.Tick = [this] {
        log.push_back("tick");
        screen.Sleep(5);
        screen.PumpEvents();
        form.Timer1.Enabled = false;
    };
    Show(form);
    screen.Sleep(5);
    screen.PumpEvents();
    EXPECT_THAT(log, ElementsAre("tick"));
}

TEST_F(Waiting, AFormMayUnloadItselfInAnyHandler) {
    Show(form);
    for (Control* control : std::vector<Control*>{&form.cmdOk, &form.lblName, &form.imgPiece}) {
        control->Click = [this] { form.Unload(); };
        Show(form);
        Click(*control);
        screen.PumpEvents();
        EXPECT_FALSE(form.Loaded) << control->Name;
    }
    form.KeyDown = [this](int, int) { return (form.Unload(), false); };
    Show(form);
    Press(form, Qt::Key_O);
    EXPECT_FALSE(form.Loaded);
}

// An impatient second press unloads the form while the first one still runs its handler, and pumps.

TEST_F(Waiting, AMessageBoxAnswersWithTheButtonThatWasPressed) {
    const struct {
        const char* name;
        BoxButtons buttons;
        QMessageBox::StandardButton pressed;
        BoxAnswer answer;
    } rows[] = {
        {"Ok", BoxButtons::Ok, QMessageBox::Ok, BoxAnswer::Ok},
        {"Cancel", BoxButtons::OkCancel, QMessageBox::Cancel, BoxAnswer::Cancel},
        {"Yes", BoxButtons::YesNo, QMessageBox::Yes, BoxAnswer::Yes},
        {"No", BoxButtons::YesNoCancel, QMessageBox::No, BoxAnswer::No},
        {"closed by the frame", BoxButtons::YesNoCancel, QMessageBox::NoButton, BoxAnswer::Cancel},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Soon([&row] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->windowTitle(), "Tab Player");
            QAbstractButton* button = box->button(row.pressed);
            button ? button->click() : static_cast<void>(box->close());
        });
        EXPECT_EQ(screen.MsgBox("Go on?", BoxIcon::Question, row.buttons, {}), row.answer);
    }
}

TEST_F(Waiting, TheHourglassIsSetAndTakenBackOnce) {
    screen.SetMousePointer(MousePointer::Hourglass);
    screen.SetMousePointer(MousePointer::Hourglass);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    screen.SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace tabulon
