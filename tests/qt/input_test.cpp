#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QToolButton>
#include <QWindow>
#include <utility>
#include <vector>

#include "qt/screen_test.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::Pair;

class Input : public ScreenTest {
  protected:
    std::function<void()> Count() {
        return [this] { ++calls; };
    }
    int calls = 0;
};

TEST_F(Input, TypedTextReachesTheDataBeforeTheHandlerWhichMayCorrectIt) {
    std::vector<std::string> seen;
    form.txtName.Change = [this, &seen] {
        seen.push_back(form.txtName.Text);
        if (form.txtName.Text == "Al") form.txtName.Text = "x";
    };
    Show(form);
    QTest::keyClicks(&Find(form.txtName), "Al");
    EXPECT_THAT(seen, ElementsAre("A", "Al"));
    EXPECT_EQ(Find<QLineEdit>(form.txtName).text(), "x");
}

TEST_F(Input, TypingKeepsTheCursorWhereItStands) {
    form.txtName.Text = "Bert";
    form.txtName.Change = [] {};
    Show(form);
    auto& edit = Find<QLineEdit>(form.txtName);
    edit.setCursorPosition(1);
    QTest::keyClicks(&edit, "e");
    EXPECT_EQ(form.txtName.Text, "Beert");
    EXPECT_EQ(edit.cursorPosition(), 2);
}

class DoubleClick : public Input {
  protected:
    /// Opens the list, clicks its second row, and returns where on the screen that was.
    QPoint ClickSecondRow() {
        for (const char* row : {"Anna", "Bert"}) form.cboGame.AddItem(row);
        form.cboGame.Click = [this] { order.push_back("Click"); };
        form.cboGame.DblClick = [this] { order.push_back("DblClick"); };
        form.cmdOk.Click = [this] { order.push_back("cmdOk"); };
        Show(form);
        auto& box = Find<QComboBox>(form.cboGame);
        box.showPopup();
        QWidget* rows = box.view()->viewport();
        const QPoint place = box.view()->visualRect(box.model()->index(1, 0)).center();
        QTest::mouseClick(rows, Qt::LeftButton, Qt::NoModifier, place);
        return rows->mapToGlobal(place);
    }
    void ClickOn(QWidget& widget, QPoint place) {
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, widget.mapFromGlobal(place));
        screen.PumpEvents();
    }
    std::vector<std::string> order;
};

TEST_F(DoubleClick, OnARowComesOnceAfterItsClick) {
    const QPoint place = ClickSecondRow();
    for (int i = 0; i < 2; ++i) {
        ClickOn(*WindowOf(form), place);
        EXPECT_THAT(order, ElementsAre("Click", "DblClick"));
    }
    EXPECT_EQ(form.cboGame.ListIndex, 1);
}

TEST_F(DoubleClick, IsNoneWhenTheSecondClickIsElsewhere) {
    ClickSecondRow();
    Click(form.cmdOk);
    screen.PumpEvents();
    EXPECT_THAT(order, ElementsAre("Click", "cmdOk"));
}

TEST_F(Input, LongTextOfSeveralLinesIsCut) {
    form.txtNotes.MultiLine = true;
    form.txtNotes.MaxLength = 3;
    Show(form);
    QTest::keyClicks(&Find(form.txtNotes), "abcd");
    EXPECT_EQ(form.txtNotes.Text, "abc");
    screen.PumpEvents();
    EXPECT_EQ(Find<QPlainTextEdit>(form.txtNotes).toPlainText(), "abc");
}

TEST_F(Input, RowsReachTheData) {
    for (const char* row : {"Anna", "Bert"}) {
        form.lstPlayers.AddItem(row);
        form.cboGame.AddItem(row);
    }
    form.cboGame.ListIndex = 0;
    form.lstPlayers.Click = form.cboGame.Click = Count();
    int doubleClicks = 0;
    form.lstPlayers.DblClick = [&doubleClicks] { ++doubleClicks; };
    Show(form);
    auto& list = Find<QListWidget>(form.lstPlayers);
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(form.lstPlayers.SelectedRow().Text, "Bert");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(doubleClicks, 1);
    QTest::keyClick(&Find(form.cboGame), Qt::Key_Down);
    EXPECT_EQ(form.cboGame.SelectedRow().Text, "Bert");
    EXPECT_EQ(calls, 2);
}

TEST_F(Input, TheRowWithTheFocusIsSelectedByTheFirstKeyThatMoves) {
    for (const char* row : {"Anna", "Bert", "Cleo"}) form.lstPlayers.AddItem(row);
    form.lstPlayers.Click = Count();
    form.Load();
    form.lstPlayers.SetFocus();
    Show(form);
    const std::pair<Qt::Key, int> first[] = {{Qt::Key_Home, 0},    {Qt::Key_Up, 0},     {Qt::Key_Down, 0},
                                             {Qt::Key_Right, 0},   {Qt::Key_PageUp, 0}, {Qt::Key_End, 2},
                                             {Qt::Key_PageDown, 2}};
    for (const auto& [key, row] : first) {
        form.lstPlayers.ListIndex = -1;
        screen.PumpEvents();
        auto& list = Find<QListWidget>(form.lstPlayers);
        list.setCurrentRow(0,
                           QItemSelectionModel::NoUpdate);  // as the list itself does when it gets the focus
        calls = 0;
        Press(form, key);
        EXPECT_EQ(form.lstPlayers.ListIndex, row) << key;
        EXPECT_EQ(calls, 1) << key;
    }
    Press(form, Qt::Key_Up);
    EXPECT_EQ(form.lstPlayers.SelectedRow().Text, "Bert");
}

TEST_F(Input, OpeningAListTellsFirstAndShowsWhatTheHandlerAdds) {
    form.cboGame.DropDown = [this] { form.cboGame.AddItem("Race"); };
    Show(form);
    auto& box = Find<QComboBox>(form.cboGame);
    box.showPopup();
    EXPECT_EQ(box.count(), 1);
    box.hidePopup();
}

TEST_F(Input, ScrollingAnOpenListTellsTheFirstRow) {
    for (int i = 0; i < 60; ++i) form.cboGame.AddItem(std::to_string(i));
    form.cboGame.Scroll = Count();
    Show(form);
    auto& box = Find<QComboBox>(form.cboGame);
    box.showPopup();
    box.view()->verticalScrollBar()->setValue(5);
    EXPECT_EQ(form.cboGame.TopIndex, 5);
    EXPECT_EQ(calls, 1);
    box.hidePopup();
}

TEST_F(Input, ArrowsOfAnUpDownHaveOneHandlerEach) {
    std::string seen;
    form.updPiece.UpClick = [&seen] { seen += 'u'; };
    form.updPiece.DownClick = [&seen] { seen += 'd'; };
    Show(form);
    for (QToolButton* arrow : Find(form.updPiece).findChildren<QToolButton*>())
        QTest::mouseClick(arrow, Qt::LeftButton);
    EXPECT_EQ(seen, "ud");
}

TEST_F(Input, EachClickableControlIsClickedOnceAndNotWhatStandsBehind) {
    int behind = 0;
    form.picBoard.Click = [&behind] { ++behind; };
    Show(form);
    for (Control* control :
         std::vector<Control*>{&form.lblName, &form.cmdOk, &form.cmdRoll, &form.imgPiece}) {
        calls = 0;
        control->Click = Count();
        Click(*control);
        EXPECT_EQ(calls, 1) << control->Name;
    }
    EXPECT_EQ(behind, 0);
    QTest::mouseClick(&Find(form.picBoard), Qt::LeftButton, {}, QPoint(150, 100));
    EXPECT_EQ(behind, 1);
}

TEST_F(Input, DisabledControlsDoNotReact) {
    form.cmdOk.Caption = "&Ok";
    form.cmdFakeRoll.Caption = "&Roll";
    for (Control* control : form.Controls) {
        control->Click = Count();
        control->Enabled = false;
    }
    Show(form);
    for (Control* control : {static_cast<Control*>(&form.cmdOk), static_cast<Control*>(&form.cmdRoll)})
        Click(*control);
    Press(form, Qt::Key_O, Qt::AltModifier);
    Press(form, Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(calls, 0);
    form.cmdRoll.Enabled = true;
    form.cmdRoll.Click = [this] { form.cmdRoll.Enabled = ++calls < 1; };
    screen.PumpEvents();
    Click(form.cmdRoll);
    Click(form.cmdRoll);
    EXPECT_EQ(calls, 1) << "its handler disables it";
}

TEST_F(Input, AccessKeysReachTwinsButtonsBoxesAndLabels) {
    form.cmdFakeRoll.Caption = "Ne&w";
    form.chkComputer.Caption = "&Computer";
    form.cmdRoll.Caption = "&Roll";
    form.lblName.Caption = "&A)";
    for (Control* control : form.Controls) control->Click = Count();
    Show(form);
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_R, Qt::Key_A}) Press(form, key, Qt::AltModifier);
    EXPECT_EQ(calls, 3);
    form.chkComputer.Click = [this] { calls += form.chkComputer.Value; };
    Press(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(form.chkComputer.Value);
    Press(form, Qt::Key_R);
    EXPECT_EQ(calls, 4);
    form.lblName.UseMnemonic = false;
    Press(form, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(calls, 4);
}

TEST_F(Input, AccessKeyOfAPlainLabelFocusesTheNextControl) {
    form.lblName.Caption = "&Name";
    form.Load();
    form.cmdOk.SetFocus();
    Show(form);
    EXPECT_EQ(form.ActiveControl, &form.cmdOk);
    Press(form, Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(form.ActiveControl, &form.txtName);
}

TEST_F(Input, FocusGoesBothWays) {
    Show(form);
    EXPECT_EQ(form.ActiveControl, &form.txtName);
    Press(form, Qt::Key_Tab);
    EXPECT_EQ(form.ActiveControl, &form.cmdOk);
    form.chkComputer.SetFocus();
    form.cmdOk.Enabled = false;
    screen.PumpEvents();
    EXPECT_EQ(form.ActiveControl, &form.chkComputer);
    EXPECT_TRUE(Find(form.chkComputer).hasFocus());
}

TEST_F(Input, AtTheTableNobodyInheritsTheFocus) {
    form.Frame = WindowFrame::FullScreen;
    form.cmdOk.Click = [] { ADD_FAILURE() << "inherited"; };
    Show(form);
    for (bool Control::*given : {&Control::Enabled, &Control::Visible}) {
        form.cmdRoll.SetFocus();
        screen.PumpEvents();
        EXPECT_TRUE(Find(form.cmdRoll).hasFocus());
        form.cmdRoll.*given = false;
        screen.PumpEvents();
        EXPECT_EQ(WindowOf(form)->focusWidget(), nullptr);
        Press(form, Qt::Key_Space);
        form.cmdRoll.*given = true;
    }
    form.cmdRoll.SetFocus();
    screen.PumpEvents();
    form.ClearFocus();
    screen.PumpEvents();
    EXPECT_EQ(WindowOf(form)->focusWidget(), nullptr);
    form.chkComputer.SetFocus();
    screen.PumpEvents();
    ClickThere(form.cmdRoll);
    EXPECT_TRUE(Find(form.chkComputer).hasFocus()) << "a click takes no focus there";
}

TEST_F(Input, TabFollowsTheControlsAlsoWhereOneWasEmptyAtFirst) {
    form.lblName.Click = form.imgPiece.Click = form.lblRound.Click = Count();
    Show(form);
    form.lblName.Caption = form.lblRound.Caption = "Ann";
    form.imgPiece.Picture = Picture::Piece(1);
    screen.PumpEvents();
    for (const Control* stop :
         std::vector<Control*>{&form.txtName, &form.cmdOk, &form.cmdRoll, &form.chkComputer, &form.cboGame,
                               &form.lstPlayers, &form.imgPiece, &form.lblRound, &form.updPiece,
                               &form.updPiece, &form.rtfText, &form.txtNotes, &form.lblName, &form.txtName}) {
        EXPECT_EQ(form.ActiveControl->Name, stop->Name);
        Press(form, Qt::Key_Tab);
    }
}

/// Pieces in rows of three, of which the fifth cannot be chosen.
TEST_F(Input, ArrowsGoAmongTheControlsOfOneArray) {
    Form pieces(screen, "frmPieces");
    ControlArray<Image, 7> imgPiece{pieces, "imgPiece"};
    Image imgOther{pieces, "imgOther(7)"};
    pieces.Width = pieces.Height = form.Twips(300);
    for (int i = 0; i < 7; ++i) form.Place(imgPiece[i], i % 3 * 50, i / 3 * 50, 40, 40);
    for (Control* piece : pieces.Controls) {
        piece->Click = Count();
        static_cast<Image*>(piece)->Picture = Picture::Piece(1);
    }
    imgPiece[4].Enabled = false;
    pieces.Load();
    imgPiece[0].SetFocus();
    Show(pieces);
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_Left, 0},  {Qt::Key_Right, 1}, {Qt::Key_Down, 1}, {Qt::Key_Right, 2}, {Qt::Key_Right, 3},
        {Qt::Key_Right, 5}, {Qt::Key_Up, 2},    {Qt::Key_Home, 0}, {Qt::Key_Down, 3},  {Qt::Key_Down, 6},
        {Qt::Key_Right, 6}, {Qt::Key_Home, 0},  {Qt::Key_End, 6}};
    for (const auto& [key, piece] : steps) {
        Press(pieces, key);
        EXPECT_EQ(pieces.ActiveControl->Name, imgPiece[piece].Name) << key;
    }
    Press(pieces, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(pieces.ActiveControl, &imgPiece[6]);
    EXPECT_EQ(calls, 0);
}

TEST_F(Input, FormSeesKeysBeforeTheControlDoes) {
    std::vector<std::pair<int, int>> down;
    std::vector<std::pair<int, int>> up;
    form.cmdOk.Click = Count();
    form.Load();
    form.cmdOk.SetFocus();
    form.KeyDown = [&down](int code, int shift) {
        down.emplace_back(code, shift);
        return code != Key::Enter;
    };
    form.KeyUp = [&up](int code, int shift) {
        up.emplace_back(code, shift);
        return false;
    };
    Show(form);
    Press(form, Qt::Key_Space);
    Press(form, Qt::Key_Y, Qt::AltModifier);
    Press(form, Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier);
    Press(form, Qt::Key_F5);
    EXPECT_EQ(calls, 0);
    Press(form, Qt::Key_Enter);
    EXPECT_THAT(down, ElementsAre(Pair(Key::Space, 0), Pair(Key::Y, Key::Alt),
                                  Pair(Key::A, Key::Shift | Key::Control), Pair(Key::Enter, 0)));
    EXPECT_EQ(up.size(), 4u);
    EXPECT_EQ(calls, 1);
}

TEST_F(Input, AHeldKeyCountsOnce) {
    form.KeyDown = [this](int, int) { return ++calls > 0; };
    Show(form);
    QWindow* window = WindowOf(form)->windowHandle();
    const auto send = [window](QEvent::Type type, bool repeat) {
        QKeyEvent key(type, Qt::Key_O, Qt::NoModifier, "o", repeat);
        QCoreApplication::sendEvent(window, &key);
    };
    send(QEvent::KeyPress, false);
    send(QEvent::KeyRelease, true);
    send(QEvent::KeyPress, true);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(form.txtName.Text, "");
    send(QEvent::KeyRelease, false);
    send(QEvent::KeyPress, false);
    EXPECT_EQ(calls, 2);
}

TEST_F(Input, AKeyThatWentDownElsewhereIsNotReleasedHere) {
    form.KeyUp = [this](int, int) { return ++calls > 0; };
    Show(form);
    QTest::keyRelease(WindowOf(form)->windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(calls, 0);
}

TEST_F(Input, MouseMovesReachTheFormAndItsControls) {
    int overPiece = 0;
    form.MouseMove = Count();
    form.imgPiece.MouseMove = [&overPiece] { ++overPiece; };
    Show(form);
    QTest::mouseMove(&Find(form.imgPiece), QPoint(5, 5));
    EXPECT_EQ(overPiece, 1);
    EXPECT_EQ(calls, 0);
    QTest::mouseMove(WindowOf(form), QPoint(390, 290));
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace tabulon
