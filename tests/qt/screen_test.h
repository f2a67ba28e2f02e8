#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "forms/form.h"
#include "qt/qt_screen.h"

namespace tabulon {

/// A form with one control of each kind.
class TestForm : public Form {
  public:
    explicit TestForm(Screen& screen, const std::string& name = "frmTest") : Form(screen, name) {
        Width = Twips(400);
        Height = Twips(300);
        Place(lblName, 10, 12, 100, 40);
        Place(txtName, 10, 60, 100, 24);
        Place(cmdOk, 120, 60, 80, 30);
        Place(cmdRoll, 210, 60, 57, 57);
        Place(chkComputer, 10, 100, 120, 20);
        Place(cboGame, 10, 130, 120, 24);
        Place(lstPlayers, 10, 160, 120, 60);
        Place(picBoard, 150, 130, 200, 150);
        imgPiece.Move(7, 9, 33, 35);
        shpMarker.Move(3, 4, 17, 17);
        Place(updPiece, 360, 130, 20, 30);
        Place(rtfText, 10, 230, 120, 60);
        Place(txtNotes, 280, 10, 100, 40);
        cmdFakeRoll.OutOfSight = true;
    }

    float Twips(int pixels) const { return static_cast<float>(pixels) * TheScreen.TwipsPerPixelX(); }
    void Place(Control& control, int left, int top, int width, int height) const {
        control.Move(Twips(left), Twips(top), Twips(width), Twips(height));
    }

    bool refuseToClose = false;
    int unloads = 0;

    Label lblName{*this, "lblName(0)"};
    TextBox txtName{*this, "txtName"};
    Button cmdOk{*this, "cmdOk"};
    PictureButton cmdRoll{*this, "cmdRoll"};
    Button cmdFakeRoll{*this, "cmdFakeRoll"};
    CheckBox chkComputer{*this, "chkComputer"};
    ComboBox cboGame{*this, "cboGame"};
    ListBox lstPlayers{*this, "lstPlayers"};
    PictureBox picBoard{*this, "picBoard"};
    Image imgPiece{*this, "imgPiece", &picBoard};
    Shape shpMarker{*this, "shpMarker", &picBoard};
    Label lblRound{*this, "lblRound", &picBoard};
    UpDown updPiece{*this, "updPiece"};
    RichText rtfText{*this, "rtfText"};
    TextBox txtNotes{*this, "txtNotes"};
    Timer Timer1{*this, "Timer1", 20, false};

  protected:
    void Form_QueryUnload(bool& cancel) override { cancel = refuseToClose; }
    void Form_Unload() override { ++unloads; }
};

inline QWidget* WindowOf(const Form& form) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName().toStdString() == form.Name && window->isVisible()) return window;
    return nullptr;
}

class ScreenTest : public testing::Test {
  protected:
    template <class Widget>
    static Widget& Find(const Control& control) {
        auto* widget = WindowOf(control.Parent)->findChild<QWidget*>(QString::fromStdString(control.Name));
        return dynamic_cast<Widget&>(*widget);
    }
    static QWidget& Find(const Control& control) { return Find<QWidget>(control); }

    static void Click(const Control& control) { QTest::mouseClick(&Find(control), Qt::LeftButton); }
    static QPoint PlaceInWindow(const Control& control) {
        const QWidget& widget = Find(control);
        return widget.mapTo(widget.window(), widget.rect().center());
    }
    /// The road of a real click: through the window, to what stands there.
    static void ClickThere(const Control& control) {
        QTest::mouseClick(WindowOf(control.Parent)->windowHandle(), Qt::LeftButton, {},
                          PlaceInWindow(control));
    }
    static void Press(const Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(WindowOf(form)->windowHandle(), key, modifiers);
    }
    /// Does something as soon as the screen serves events.
    void Soon(const std::function<void()>& act) { QTimer::singleShot(0, &m_context, act); }

    void Show(Form& shown) {
        shown.Show();
        screen.PumpEvents();
    }

    QtScreen screen{TABULON_PICTURES, "Tab Player"};
    TestForm form{screen};

  private:
    QObject m_context;
};

/// With a second form to wait for, and a log of what was called.
class WaitingTest : public ScreenTest {
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

}  // namespace tabulon
