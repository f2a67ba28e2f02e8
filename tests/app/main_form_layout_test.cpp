#include <algorithm>
#include <gmock/gmock.h>

#include "board/main_form.h"
#include "support/test_machine.h"

namespace tabulon {
namespace {

using namespace testing;

struct ScreenSize {
    int Width, Height;
};

/// At a density, on a screen.
class LayoutTest : public testing::TestWithParam<std::tuple<int, ScreenSize>> {
  protected:
    LayoutTest() {
        machine.SetUp(g);
        form.Load();
        form.RepositionElements();
    }
    float Pixels(float twips) const { return twips / screen.TwipsPerPixelX(); }
    std::vector<float> PlaceOf(const Control& control) const {
        return {Pixels(control.Left), Pixels(control.Top), Pixels(control.Width), Pixels(control.Height)};
    }
    float Right(const Control& control) const { return Pixels(control.Left + control.Width); }
    float Bottom(const Control& control) const { return Pixels(control.Top + control.Height); }

    static bool IsNoUse(const Control& control) {
        return control.Kind == ControlKind::Image || control.Container || control.Name == "lblSpoken" ||
               (control.Kind == ControlKind::Button && static_cast<const Button&>(control).OutOfSight);
    }
    /// What has text or can be used.
    std::vector<const Control*> Used() const {
        std::vector<const Control*> used;
        for (const Control* control : form.Controls)
            if (control->Visible && !IsNoUse(*control)) used.push_back(control);
        return used;
    }

    const int Density = std::get<0>(GetParam());
    const ScreenSize Size = std::get<1>(GetParam());
    test::TestMachine machine;
    HeadlessScreen screen{machine.User, {Size.Width, Size.Height, Density}};
    Globals g{machine.With(screen)};
    MainForm form{g};
};

TEST_P(LayoutTest, IsTheSameInPixels) {
    EXPECT_THAT(PlaceOf(form.cmdMinimizeWindow), ElementsAre(960, 0, 31, 33));
    EXPECT_THAT(PlaceOf(form.cmdQuit), ElementsAre(920, 0, 31, 33));
    EXPECT_THAT(PlaceOf(form.cmdTabulon), ElementsAre(40, 120, 201, 29));
    EXPECT_THAT(PlaceOf(form.cmdNew), ElementsAre(280, 40, 57, 57));
    for (const Control* device : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass})
        EXPECT_THAT(PlaceOf(*device), ElementsAre(344, 40, 57, 57));
    EXPECT_THAT(PlaceOf(form.cmdSaveGame), ElementsAre(408, 40, 57, 57));
    EXPECT_THAT(PlaceOf(form.picMainBoard), ElementsAre(testing::_, testing::_, 617, 424));
    EXPECT_EQ(form.BoardWidth(), 617);
    EXPECT_EQ(form.BoardHeight(), 424);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_P(LayoutTest, SoundButtonsStandWhereTheirRowSays) {
    if (g.SmallFonts) return;
    for (const Control* button : {&form.cmdSoundOff, &form.cmdSoundOn})
        EXPECT_EQ((std::vector{button->Left, button->Top, button->Width, button->Height}),
                  (std::vector{6536.0f, 64.0f, 480.0f, 348.0f}));
    EXPECT_EQ(form.cmdTabulon.FontTextCaption.Size, 8);
}

TEST_P(LayoutTest, FitsTheScreen) {
    form.ResizeObjects();
    EXPECT_THAT((std::vector{form.Left, form.Top, Pixels(form.Width), Pixels(form.Height)}),
                ElementsAre(0, 0, Size.Width, Size.Height));
    EXPECT_EQ(Pixels(form.imgRound.Left), Size.Width - 177);
    EXPECT_EQ(Pixels(form.lblRound.Left - form.imgRound.Left), 24);
    EXPECT_EQ(Pixels(form.lblRound.Top - form.imgRound.Top), 15);
    EXPECT_EQ(form.picOverview.Left + form.picOverview.Width / 2,
              form.imgRound.Left + form.imgRound.Width / 2);
    EXPECT_EQ(Right(form.cmdQuit), Size.Width);
    EXPECT_EQ(Pixels(form.cmdQuit.Left) - Right(form.cmdMinimizeWindow), 3);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_P(LayoutTest, GivesTheBoardTheMainArea) {
    form.ResizeObjects();
    EXPECT_EQ(form.picMainBoard.Left, 0);
    EXPECT_EQ(Pixels(form.picMainBoard.Top) - Bottom(form.picOverview), 8);
    EXPECT_EQ(Bottom(form.picMainBoard), Size.Height);
    EXPECT_EQ(Right(form.picMainBoard), Size.Width - 177 - 7);
    EXPECT_EQ(Pixels(form.imgBoardStrip.Width - form.picMainBoard.Width), 3);
    EXPECT_EQ(Pixels(form.picMainBoard.Top - form.imgBoardStrip.Top), 4);
}

TEST_P(LayoutTest, PutsThePlatesRightOfTheBoard) {
    form.ResizeObjects();
    const float gap = Pixels(form.imgCharacter[0].Top) - Bottom(form.imgRound);
    EXPECT_TRUE(gap == 10 || gap == 32) << gap;
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(Pixels(form.imgCharacter[i].Left - form.picMainBoard.Width), 15);
        EXPECT_EQ(Pixels(form.lblName[i].Left) - Right(form.imgCharacter[i]), 7);
        EXPECT_EQ(form.lblPoints[i].Left, form.lblName[i].Left);
        EXPECT_EQ(form.imgCharacter[i].Width, form.imgCharacter[i].Height);
        EXPECT_LE(Bottom(form.lblPoints[i]), Bottom(form.imgPlate[i]));
        EXPECT_LE(Right(form.lblPoints[i]), Size.Width);
        if (i > 0) {
            EXPECT_EQ(Pixels(form.imgCharacter[i].Top) - Bottom(form.imgCharacter[i - 1]), 32);
        }
    }
}

TEST_P(LayoutTest, MakesPiecesSmallOnlyWhereSixPlatesNeedIt) {
    form.ResizeObjects();
    EXPECT_LE(Bottom(form.imgPlate[5]), Size.Height);
    EXPECT_EQ(Pixels(form.imgCharacter[5].Width) < 64, Size.Height < 768);
    form.lblName[1].Top = form.imgCharacter[1].Top;
    form.lblPoints[0].Top = form.lblName[1].Top + form.lblName[1].Height;  // as in a resumed game
    const auto places = [this] {
        return std::vector{PlaceOf(form.imgCharacter[1]), PlaceOf(form.lblName[1]),
                           PlaceOf(form.lblPoints[0])};
    };
    const auto before = places();
    form.ResizeObjects();
    EXPECT_EQ(places(), before);
}

TEST_P(LayoutTest, LinesTheButtonsUpFromRightToLeft) {
    form.ResizeObjects();
    const float edge = form.imgStripEnd.Left;
    EXPECT_EQ(Pixels(edge - form.cmdHelp.Left), 86);
    EXPECT_EQ(Pixels(edge - form.cmdSoundOff.Left), 77);
    EXPECT_EQ(form.cmdSoundOn.Left, form.cmdSoundOff.Left);
    const Control* row[] = {&form.cmdNew, &form.cmdRoll, &form.cmdSaveGame, &form.cmdLoadGame, &form.cmdHelp};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Pixels(row[i + 1]->Left) - Right(*row[i]), 7) << row[i]->Name;
    EXPECT_EQ(form.cmdSpin.Left, form.cmdRoll.Left);
    EXPECT_EQ(form.cmdPass.Left, form.cmdRoll.Left);
    EXPECT_EQ(Pixels(form.cmdNew.Left) - Right(form.lblGameName), 7);
}

TEST_P(LayoutTest, KeepsAllThatIsUsedOnTheScreenAndApart) {
    for (Label& points : form.lblPoints) points.Visible = true;
    form.ResizeObjects();
    for (const Control* one : Used()) {
        SCOPED_TRACE(one->Name);
        EXPECT_GE(std::min(one->Left, one->Top), 0);
        EXPECT_LE(Right(*one), Size.Width);
        EXPECT_LE(Bottom(*one), Size.Height);
        for (const Control* other : Used()) {
            if (one == other) continue;
            EXPECT_TRUE(Right(*one) <= Pixels(other->Left) || Right(*other) <= Pixels(one->Left) ||
                        Bottom(*one) <= Pixels(other->Top) || Bottom(*other) <= Pixels(one->Top))
                << other->Name;
        }
    }
}

TEST_P(LayoutTest, LeavesAMinimisedFormAlone) {
    form.WindowState = WindowState::Minimised;
    const std::vector<float> board = PlaceOf(form.picMainBoard);
    const float width = form.Width;
    form.ResizeObjects();
    EXPECT_EQ(PlaceOf(form.picMainBoard), board);
    EXPECT_EQ(form.Width, width);
    form.WindowState = WindowState::Normal;
    form.ResizeObjects();
    EXPECT_NE(PlaceOf(form.picMainBoard), board);
}

INSTANTIATE_TEST_SUITE_P(Screens, LayoutTest,
                         testing::Combine(testing::Values(96, 120),
                                          testing::Values(ScreenSize{1024, 600}, ScreenSize{1280, 720},
                                                          ScreenSize{1024, 768}, ScreenSize{1280, 1024},
                                                          ScreenSize{3840, 2160})),
                         [](const auto& row) {
                             return "Dpi" + std::to_string(std::get<0>(row.param)) + "On" +
                                    std::to_string(std::get<1>(row.param).Width) + "x" +
                                    std::to_string(std::get<1>(row.param).Height);
                         });

TEST(LayoutAtSmallFontsTest, TheDesignStands) {
    test::TestMachine machine;
    MainForm form(machine.g);
    form.Load();
    for (Control* control : form.Controls) control->Left += 1;
    const float left = form.cmdNew.Left;
    form.RepositionElements();
    EXPECT_EQ(form.cmdNew.Left, left);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

}  // namespace
}  // namespace tabulon
