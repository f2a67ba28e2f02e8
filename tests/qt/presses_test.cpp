#include <QAbstractButton>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

#include "qt/screen_test.h"

namespace tabulon {
namespace {

using testing::ElementsAre;

class Presses : public WaitingTest {};

TEST_F(Presses, SleepHoldsWhatComesForTheNextPump) {
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

TEST_F(Presses, AHeldClickFindsTheButtonAsItIsThen) {
    form.cmdOk.Click = Log("click");
    Show(form);
    Soon([this] { Click(form.cmdOk); });
    screen.Sleep(1);
    form.cmdOk.Enabled = false;
    screen.PumpEvents();
    EXPECT_TRUE(log.empty());
}

TEST_F(Presses, OnlyWhatWasPressedWhereItCountsIsHeld) {
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

TEST_F(Presses, APressCountsAsWhatTheUserSawWhenItWasMade) {
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

TEST_F(Presses, AHeldPressIsLostWhenItsWindowCannotBeReachedAnyMore) {
    form.KeyDown = [this](int, int) { return (log.push_back("key"), true); };
    Show(form);
    Soon([this] { Press(form, Qt::Key_O); });
    screen.Sleep(5);
    HideSoon(dialog);
    dialog.ShowModal();
    screen.PumpEvents();
    EXPECT_TRUE(log.empty());
}

TEST_F(Presses, NothingBehindAModalFormIsPressedByAScreenReader) {
    form.cmdOk.Click = Log("click");
    Show(form);
    Soon([this] { Find<QAbstractButton>(form.cmdOk).click(); });
    HideSoon(dialog);
    dialog.ShowModal();
    EXPECT_TRUE(log.empty());
}

TEST_F(Presses, FlushedKeysAreForgottenClicksAreNot) {
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

TEST_F(Presses, AWindowOutlivesThePressesThatItDelivers) {
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

}  // namespace
}  // namespace tabulon
