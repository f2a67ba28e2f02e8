#include <QAbstractButton>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

#include "qt/screen_test.h"

namespace tabulon {
namespace {

using testing::ElementsAre;

class Waiting : public ScreenTest {
  protected:
    std::function<void()> Log(const std::string& what) {
        return [this, what] { log.push_back(what); };
    }

    /// Once it has served what waits.
    static void HideSoon(TestForm& shown) {
        shown.Timer1.Interval = 1;
        shown.Timer1.Enabled = true;
        shown.Timer1.Tick = [&shown] { shown.Hide(); };
    }

    TestForm dialog{screen, "dlgTest"};
    std::vector<std::string> log;
};

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

TEST_F(Waiting, SleepHoldsWhatComesForTheNextPump) {
    const std::pair<const char*, void (*)(QWidget&)> ways[] = {
        {"mouse", [](QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton); }},
        {"key", [](QWidget& button) { QTest::keyClick(&button, Qt::Key_Space); }},
        {"screen reader", [](QWidget& button) { dynamic_cast<QAbstractButton&>(button).click(); }},
    };
    form.cmdOk.Click = Log("click");
    Show(form);
    for (const auto& [name, act] : ways) {
        SCOPED_TRACE(name);
        log.clear();
        bool acted = false;
        Soon([&, press = act] {
            press(Find(form.cmdOk));
            acted = true;
        });
        screen.Sleep(5);
        EXPECT_TRUE(acted);
        EXPECT_TRUE(log.empty());
        screen.PumpEvents();
        EXPECT_THAT(log, ElementsAre("click"));
    }
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

TEST_F(Waiting, AHeldClickFindsTheButtonAsItIsThen) {
    form.cmdOk.Click = Log("click");
    Show(form);
    Soon([this] { Click(form.cmdOk); });
    screen.Sleep(1);
    form.cmdOk.Enabled = false;
    screen.PumpEvents();
    EXPECT_TRUE(log.empty());
}

TEST_F(Waiting, OnlyWhatWasPressedWhereItCountsIsHeld) {
    const struct {
        const char* name;
        bool enabled;
        std::function<void(TestForm&)> press;
        std::vector<std::string> heard;
    } rows[] = {
        {"click on an enabled button", true, [](auto& f) { ClickThere(f.cmdRoll); }, {"roll"}},
        {"click on a disabled button", false, [](auto& f) { ClickThere(f.cmdRoll); }, {}},
        {"Space on the focus", true, [](auto& f) { Press(f, Qt::Key_Space); }, {"roll"}},
        {"Space without a focus", false, [](auto& f) { Press(f, Qt::Key_Space); }, {}},
        {"twin", false, [](auto& f) { Press(f, Qt::Key_R, Qt::AltModifier); }, {"twin"}},
        {"access key of a disabled button", false, [](auto& f) { Press(f, Qt::Key_S, Qt::AltModifier); }, {}},
        {"close box", false, [](auto& f) { WindowOf(f)->close(); }, {"unload"}},
    };
    form.Frame = WindowFrame::FullScreen;
    form.cmdFakeRoll.Caption = "&Roll";
    form.cmdRoll.Caption = "&Spin";
    form.cmdRoll.Click = Log("roll");
    form.cmdFakeRoll.Click = Log("twin");
    form.cmdOk.Click = Log("ok");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        log.clear();
        form.unloads = 0;
        form.cmdRoll.Enabled = true;
        Show(form);
        form.cmdRoll.SetFocus();
        screen.PumpEvents();
        form.cmdRoll.Enabled = row.enabled;
        screen.PumpEvents();
        Soon([&] { row.press(form); });
        screen.Sleep(5);
        form.cmdRoll.Enabled = true;
        form.cmdRoll.SetFocus();
        screen.PumpEvents();
        if (form.unloads > 0) log.emplace_back("unload");
        EXPECT_EQ(log, row.heard);
    }
}

TEST_F(Waiting, APressCountsAsWhatTheUserSawWhenItWasMade) {
    form.cmdRoll.Enabled = false;
    form.cmdRoll.Click = Log("roll");
    Show(form);
    const QPoint place = PlaceInWindow(form.cmdRoll);
    for (const bool down : {true, false})
        QCoreApplication::postEvent(
            WindowOf(form)->windowHandle(),
            new QMouseEvent(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, place,
                            WindowOf(form)->mapToGlobal(place), Qt::LeftButton,
                            down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
    form.cmdRoll.Enabled = true;
    screen.PumpEvents();
    EXPECT_TRUE(log.empty());
}

TEST_F(Waiting, AHeldPressIsLostWhenItsWindowCannotBeReachedAnyMore) {
    form.KeyDown = [this](int, int) { return (log.push_back("key"), true); };
    Show(form);
    Soon([this] { Press(form, Qt::Key_O); });
    screen.Sleep(5);
    HideSoon(dialog);
    dialog.ShowModal();
    screen.PumpEvents();
    EXPECT_TRUE(log.empty());
}

TEST_F(Waiting, NothingBehindAModalFormIsPressedByAScreenReader) {
    form.cmdOk.Click = Log("click");
    Show(form);
    Soon([this] { Find<QAbstractButton>(form.cmdOk).click(); });
    HideSoon(dialog);
    dialog.ShowModal();
    EXPECT_TRUE(log.empty());
}

TEST_F(Waiting, WhoWaitedIsNotGoneOnWithWhenTheProgramWasLeft) {
    Show(form);
    Soon([this] {
        form.Unload();
        dialog.Unload();
    });
    EXPECT_THROW(dialog.ShowModal(), ProgramEnd);
}

TEST_F(Waiting, FlushedKeysAreForgottenClicksAreNot) {
    form.KeyDown = [this](int, int) { return (log.push_back("key"), true); };
    form.cmdOk.Click = Log("click");
    Show(form);
    Soon([this] {
        Press(form, Qt::Key_O);
        Click(form.cmdOk);
    });
    screen.Sleep(1);
    screen.FlushKeys();
    screen.PumpEvents();
    EXPECT_THAT(log, ElementsAre("click"));
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
TEST_F(Waiting, AWindowOutlivesThePressesThatItDelivers) {
    const std::pair<const char*, void (*)(TestForm&)> ways[] = {
        {"key", [](TestForm& f) { Press(f, Qt::Key_O); }},
        {"access key", [](TestForm& f) { Press(f, Qt::Key_R, Qt::AltModifier); }},
        {"button", [](TestForm& f) { Click(f.cmdOk); }},
        {"label", [](TestForm& f) { Click(f.lblName); }},
    };
    QPointer<QWidget> window;
    int presses = 0;
    std::function<void()> again;
    const auto handler = [&] {
        if (++presses > 1) return dialog.Unload();
        Soon(again);
        while (dialog.Loaded) screen.PumpEvents();
        screen.PumpEvents();
        EXPECT_TRUE(window) << "Qt has not done with it";
    };
    dialog.KeyDown = [&](int code, int) { return code == Key::O && (handler(), true); };
    dialog.cmdFakeRoll.Caption = "&Roll";
    dialog.cmdFakeRoll.Click = dialog.cmdOk.Click = dialog.lblName.Click = handler;
    for (const auto& [name, press] : ways) {
        SCOPED_TRACE(name);
        presses = 0;
        again = [&, press = press] { press(dialog); };
        Show(dialog);
        window = WindowOf(dialog);
        Soon(again);
        while (dialog.Loaded) screen.PumpEvents();
        screen.PumpEvents();
        EXPECT_FALSE(window);
    }
}

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
