#include <QAccessible>
#include <QWidget>

#include "qt/screen_test.h"

namespace tabulon {
namespace {

class Accessibility : public ScreenTest {
  protected:
    static QAccessibleInterface& Of(const Control& control) {
        return *QAccessible::queryAccessibleInterface(&Find(control));
    }
    /// What the form's window has read out last.
    std::string ReadOut() const {
        const auto* window = QAccessible::queryAccessibleInterface(WindowOf(form));
        for (int i = 0; i < window->childCount(); ++i)
            if (window->child(i)->role() == QAccessible::Notification)
                return window->child(i)->text(QAccessible::Name).toStdString();
        return {};
    }
};

TEST_F(Accessibility, NotifiesOfWhatStandsOutOfSight) {
    form.lblName.Left = form.lblName.Top = form.Twips(-1000);
    Show(form);
    EXPECT_EQ(Of(form.lblName).role(), QAccessible::Notification);
    EXPECT_EQ(Of(form.lblRound).role(), QAccessible::StaticText);
    for (const char* caption : {"Ann has 8.", "Ben has 8."}) {
        form.lblName.Caption = caption;
        screen.PumpEvents();
        EXPECT_EQ(Of(form.lblName).text(QAccessible::Name), caption);
    }
}

TEST_F(Accessibility, ReadsOutTheTextsThatChangeWhileADialogShows) {
    form.lblName.Caption = "Enter the first name";
    form.lblRound.Click = [] {};
    Show(form);
    EXPECT_EQ(ReadOut(), "") << "a form that opens has a description";
    form.lblName.Caption = "Enter the &second name && go on";
    form.lblRound.Caption = "Ann";
    screen.PumpEvents();
    EXPECT_EQ(ReadOut(), "Enter the second name & go on");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(WindowOf(form))->text(QAccessible::Description),
              "Ann\nEnter the second name & go on");
    form.Hide();
    form.lblName.Caption = "Once more";
    Show(form);
    EXPECT_EQ(ReadOut(), "Enter the second name & go on");
}

TEST_F(Accessibility, LeavesTheBoardToItsReader) {
    form.Frame = WindowFrame::FullScreen;
    Show(form);
    form.lblRound.Caption = "2";
    screen.PumpEvents();
    EXPECT_EQ(ReadOut(), "");
}

TEST_F(Accessibility, PressesWhatCanBeClicked) {
    int presses = 0;
    form.lblName.Caption = form.lblRound.Caption = "Ann";
    form.imgPiece.Picture = Picture::Piece(1);
    form.lblName.Click = form.imgPiece.Click = [&presses] { ++presses; };
    Show(form);
    const QString& press = QAccessibleActionInterface::pressAction();
    for (const Control* control : std::vector<Control*>{&form.lblName, &form.imgPiece}) {
        presses = 0;
        auto* action = Of(*control).actionInterface();
        ASSERT_TRUE(action);
        EXPECT_TRUE(action->actionNames().contains(press)) << control->Name;
        action->doAction(press);
        EXPECT_EQ(presses, 1) << control->Name;
    }
    EXPECT_FALSE(Of(form.lblRound).actionInterface()->actionNames().contains(press));
    form.lblName.Caption.clear();
    form.imgPiece.Enabled = false;
    screen.PumpEvents();
    for (const Control* control : std::vector<Control*>{&form.lblName, &form.imgPiece}) {
        auto* action = Of(*control).actionInterface();
        EXPECT_FALSE(action->actionNames().contains(press)) << control->Name;
        action->doAction(press);
    }
    EXPECT_EQ(presses, 1);
}

TEST_F(Accessibility, HasEachButtonOnce) {
    form.cmdRoll.AccessibleName = form.cmdFakeRoll.Caption = "Roll dice";
    Show(form);
    const auto* window = QAccessible::queryAccessibleInterface(WindowOf(form));
    std::vector<const QObject*> children;
    for (int i = 0; i < window->childCount(); ++i) {
        children.push_back(window->child(i)->object());
        EXPECT_EQ(window->indexOfChild(window->child(i)), i);
    }
    EXPECT_THAT(children, testing::Contains(&Find(form.cmdRoll)));
    EXPECT_THAT(children, testing::Contains(&Find(form.cmdOk)));
    EXPECT_THAT(children, testing::Not(testing::Contains(&Find(form.cmdFakeRoll))));
}

TEST_F(Accessibility, TellsTheTextsOfAFormAsItOpens) {
    form.lblName.Caption = "Take &one\r\nand go";
    form.lblRound.Caption = "Hear this first";
    form.lblRound.Click = [] {};
    Show(form);
    const auto* window = QAccessible::queryAccessibleInterface(WindowOf(form));
    EXPECT_EQ(window->role(), QAccessible::Dialog);
    EXPECT_EQ(window->text(QAccessible::Description), "Hear this first\nTake one and go");
}

TEST_F(Accessibility, TiesAnInputToTheLabelBeforeIt) {
    Show(form);
    const auto relations = Of(form.txtName).relations(QAccessible::Label);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations.front().first->object(), &Find(form.lblName));
    EXPECT_TRUE(Of(form.cmdOk).relations(QAccessible::Label).isEmpty());
}

TEST_F(Accessibility, GivesTheBoardItsDescriptionAsName) {
    form.picBoard.AccessibleName = "Ann is on space 3 of 10.";
    Show(form);
    EXPECT_EQ(Of(form.picBoard).role(), QAccessible::Graphic);
    EXPECT_EQ(Of(form.picBoard).text(QAccessible::Name), "Ann is on space 3 of 10.");
    form.picBoard.AccessibleName = "Ann is on space 4 of 10.";
    screen.PumpEvents();
    EXPECT_EQ(Of(form.picBoard).text(QAccessible::Name), "Ann is on space 4 of 10.");
    EXPECT_TRUE(Of(form.picBoard).state().focusable);
    form.picBoard.AccessibleName.clear();
    screen.PumpEvents();
    EXPECT_FALSE(Of(form.picBoard).state().focusable) << "nothing to read";
}

TEST_F(Accessibility, CallsALabelByItsTextUnlessItHasAName) {
    form.lblName.Caption = "Ann";
    for (const char* name : {"", "Ann, Cat", ""}) {
        form.lblName.AccessibleName = name;
        Show(form);
        EXPECT_EQ(Of(form.lblName).text(QAccessible::Name), *name ? name : "Ann");
    }
}

TEST_F(Accessibility, TellsRolesAndStates) {
    form.cmdRoll.AccessibleName = "Roll dice";
    form.cmdRoll.Enabled = false;
    form.chkComputer.Value = true;
    form.imgPiece.Picture = Picture::Piece(1);
    form.imgPiece.AccessibleName = "Cat";
    form.imgPiece.Click = [] {};
    Show(form);
    EXPECT_EQ(Of(form.cmdRoll).role(), QAccessible::Button);
    EXPECT_EQ(Of(form.cmdRoll).text(QAccessible::Name), "Roll dice");
    EXPECT_TRUE(Of(form.cmdRoll).state().disabled);
    EXPECT_EQ(Of(form.chkComputer).role(), QAccessible::CheckBox);
    EXPECT_TRUE(Of(form.chkComputer).state().checked);
    EXPECT_EQ(Of(form.imgPiece).role(), QAccessible::Graphic);
    EXPECT_TRUE(Of(form.imgPiece).state().focusable);
    for (const bool chosen : {false, true}) {
        form.imgPiece.Border = chosen;
        screen.PumpEvents();
        EXPECT_EQ(Of(form.imgPiece).state().selected, chosen);
    }
}

}  // namespace
}  // namespace tabulon
