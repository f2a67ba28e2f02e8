#include <gmock/gmock.h>

#include "presentation/modRepositioner.h"
#include "support/test_machine.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<float> PlaceOf(const Control& control) {
    return {control.Left, control.Top, control.Width, control.Height};
}

TEST(IsSmallFontsTest, IsTrueAtNinetySixAlone) {
    for (const int density : {72, 95, 97, 120, 144, 192}) {
        test::ScriptedUser user;
        EXPECT_FALSE(IsSmallFonts(HeadlessScreen(user, {800, 600, density}))) << density;
    }
    test::TestMachine machine;
    EXPECT_TRUE(IsSmallFonts(machine.TheScreen));
}

TEST(PositionFormTest, TakesPixelsAndAlwaysSetsTheTop) {
    for (const int density : {96, 120}) {
        test::TestMachine machine(density);
        const float twips = density == 96 ? 15 : 12;
        Form form(machine.TheScreen, "form");
        form.Left = 7;
        form.Top = 8;
        PositionForm(machine.g, form, 457, 233, 0);
        EXPECT_EQ(form.Width, 457 * twips);
        EXPECT_EQ(form.Height, 233 * twips);
        EXPECT_EQ(form.Top, 0);
        EXPECT_EQ(form.Left, 7);
        PositionForm(machine.g, form, 1, 1, 10);
        EXPECT_EQ(form.Top, 10 * twips);
    }
}

TEST(PositionObjectTest, SetsWhatIsAboveNothing) {
    struct Row {
        const char* Name;
        int FontSize;
        float Height, Left, Top, Width;
        std::vector<float> Place;  // left, top, width, height
        int Size;
    };
    const Row rows[] = {
        {"All", 12, 5, 6, 7, 8, {6, 7, 8, 5}, 12},         {"FontAlone", 12, 0, 0, 0, 0, {1, 2, 3, 4}, 12},
        {"NoFont", 0, 5, 6, 7, 8, {6, 7, 8, 5}, 20},       {"NegativeFont", -3, 5, 6, 7, 8, {6, 7, 8, 5}, 20},
        {"Height", 0, 5, 0, 0, 0, {1, 2, 3, 5}, 20},       {"Left", 0, 0, 6, 0, -1, {6, 2, 3, 4}, 20},
        {"Top", 0, -1, -1, 7, -1, {1, 7, 3, 4}, 20},       {"Width", 0, -9, 0, -9, 8, {1, 2, 8, 4}, 20},
        {"Fraction", 1, 0.5f, 0, 0, 0, {1, 2, 3, 0.5f}, 1}};
    test::TestMachine machine;
    Form form(machine.TheScreen, "form");
    Label label(form, "label");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        label.Move(1, 2, 3, 4);
        label.Font.Size = 20;
        PositionObject(machine.g, label, row.FontSize, row.Height, row.Left, row.Top, row.Width);
        EXPECT_EQ(PlaceOf(label), row.Place);
        EXPECT_EQ(label.Font.Size, row.Size);
    }
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST(PositionObjectTest, SizesTheCaptionOfAPictureButtonAndARichText) {
    test::TestMachine machine;
    Form form(machine.TheScreen, "form");
    PictureButton button(form, "button");
    RichText rich(form, "rich");
    for (Control* control : std::initializer_list<Control*>{&button, &rich})
        PositionObject(machine.g, *control, 31, 0, 0, 0, 0);
    EXPECT_EQ(button.FontTextCaption.Size, 31);
    EXPECT_EQ(rich.Font.Size, 31);
}

TEST(PositionObjectTest, FailsForAFontOnAControlWithoutText) {
    test::TestMachine machine;
    Form form(machine.TheScreen, "form");
    Image image(form, "image");
    image.Move(1, 2, 3, 4);
    PositionObject(machine.g, image, 9, 5, 6, 7, 8);
    EXPECT_THAT(machine.Errors, ElementsAre(testing::StartsWith("modRepositioner:PositionObject ")));
    EXPECT_THAT(PlaceOf(image), ElementsAre(1, 2, 3, 4));
    machine.Errors.clear();
    PositionObject(machine.g, image, 0, 5, 6, 7, 8);
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_THAT(PlaceOf(image), ElementsAre(6, 7, 8, 5));
}

TEST(PositionShapeTest, StandsThreePixelsOutAndFourOnTheFarSides) {
    for (const int density : {96, 120}) {
        test::TestMachine machine(density);
        const float pixel = density == 96 ? 15 : 12;
        Form form(machine.TheScreen, "form");
        Label label(form, "label");
        Shape shape(form, "shape");
        label.Move(100 * pixel, 50 * pixel, 200 * pixel, 80 * pixel);
        PositionShape(machine.g, shape, label);
        EXPECT_THAT(PlaceOf(shape), ElementsAre(97 * pixel, 47 * pixel, 207 * pixel, 87 * pixel));
    }
}

TEST(PositionObjectsTest, GivesTheSamePixelsAndItsOwnFontAtEachDensity) {
    for (const int density : {96, 120}) {
        test::TestMachine machine(density);
        const float pixel = density == 96 ? 15 : 12;
        Form form(machine.TheScreen, "form");
        Label label(form, "label");
        Image image(form, "image");
        PositionObjects(machine.g, {{&label, 16, 24, 425, 129, 18, 14}, {&image, 0, 0, 5, 0}});
        EXPECT_THAT(PlaceOf(label), ElementsAre(16 * pixel, 24 * pixel, 425 * pixel, 129 * pixel));
        EXPECT_EQ(label.Font.Size, density == 96 ? 18 : 14);
        EXPECT_EQ(image.Width, 5 * pixel);
        EXPECT_THAT(machine.Errors, IsEmpty());
    }
}

}  // namespace
}  // namespace tabulon
