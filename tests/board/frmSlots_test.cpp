#include "board/frmSlots.h"

#include <cmath>
#include <gmock/gmock.h>

#include "support/test_machine.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FrmSlotsTest : public testing::Test {
  protected:
    explicit FrmSlotsTest(int pixelsPerInch = 96) : machine(pixelsPerInch) { values.ReDim(5); }

    void Draw(int spins, int first, int most) {
        machine.Random.Numbers.push_back((static_cast<float>(spins) - 0.5f) / 12);
        machine.Random.Numbers.push_back((static_cast<float>(first) - 0.5f) / static_cast<float>(most));
    }
    void Run(int reels, int most) { slots.GetData(values, reels, most, result); }

    test::TestMachine machine;
    FrmSlots slots{machine.g};
    Array<Integer> values;
    bool result = false;
};

struct Most {
    int Value, First;
    std::vector<int> Stops;  // after 1 to 12 spins
};

TEST_F(FrmSlotsTest, AReelStopsWhereItsStepsLead) {
    const Most rows[] = {
        {100, 1, {2, 4, 4, 6, 6, 8, 8, 10, 12, 12, 14, 14}},
        {100, 95, {96, 98, 98, 100, 100, 2, 2, 4, 6, 6, 8, 8}},
        {9, 4, {5, 7, 7, 9, 9, 2, 2, 4, 6, 6, 8, 8}},
        {6, 6, {1, 3, 3, 5, 5, 1, 1, 3, 5, 5, 1, 1}},
        {5, 2, {3, 5, 5, 2, 2, 4, 4, 1, 3, 3, 5, 5}},
        {2, 1, {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}},
        {1, 1, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
    };
    for (const Most& row : rows) {
        std::vector<int> stops;
        for (int spins = 1; spins <= 12; ++spins) {
            Draw(spins, row.First, row.Value);
            const std::int64_t before = machine.TheScreen.Milliseconds();
            Run(1, row.Value);
            EXPECT_EQ(machine.TheScreen.Milliseconds() - before, spins * 4 * 15 + 350 + 750);
            stops.push_back(values[0].Value());
            EXPECT_EQ(slots.imgSlot[1].Picture, Picture::Reel(stops.back()));
            EXPECT_EQ(slots.imgSlot[1].Top, 0);
            EXPECT_EQ(slots.imgSlot[0].Top, slots.imgSlot[1].Height);
        }
        EXPECT_EQ(stops, row.Stops) << row.Value << " from " << row.First;
    }
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_FALSE(slots.Loaded);
}

TEST_F(FrmSlotsTest, TheGreatestDrawsStayInRange) {
    machine.Random.Numbers = {0.99999994f, 0.99999994f, 0, 0};
    Run(1, 9);
    // Twelve spins from 9.
    EXPECT_EQ(values[0], 4);
    Run(1, 9);
    EXPECT_EQ(values[0], 2);
}

TEST_F(FrmSlotsTest, RunsOneReelAfterTheOther) {
    Draw(1, 1, 9);
    Draw(12, 2, 9);
    Draw(2, 3, 9);
    for (int i = 0; i < 6; ++i) values[i] = 99;
    Run(3, 9);
    EXPECT_EQ(machine.TheScreen.Milliseconds(), (1 + 12 + 2) * 60 + 3 * 350 + 750);
    EXPECT_EQ(values, (Array<Integer>{2, 6, 6, 0, 0, 0}));
    EXPECT_TRUE(result);
    EXPECT_THAT(machine.Random.Numbers, IsEmpty());
}

TEST_F(FrmSlotsTest, ReelsAreBlankUntilTheyRun) {
    for (int spin = 0; spin < 2; ++spin) {
        for (int i = 0; i < 2; ++i) Draw(1, 1, 9);
        std::vector<bool> blank;
        Timer look(slots, "look", 0, true);
        look.Tick = [&] {
            look.Enabled = false;
            for (const Image& reel : slots.imgSlot) blank.push_back(reel.Picture == Picture());
        };
        Run(2, 9);
        slots.Timers.pop_back();
        EXPECT_THAT(blank, testing::AllOf(testing::SizeIs(12), testing::Each(true))) << spin;
    }
}

TEST_F(FrmSlotsTest, SevenReelsReportAndTheWindowGoes) {
    for (int i = 0; i < 7; ++i) Draw(1, 1, 9);
    Run(7, 9);
    EXPECT_TRUE(result);
    EXPECT_THAT(machine.Errors, ElementsAre("frmSlots:RunSlots 9", "frmSlots:GetData 9"));
    EXPECT_EQ(values, (Array<Integer>{2, 2, 2, 2, 2, 2}));
    EXPECT_FALSE(slots.Visible);
}

struct Window {
    int PixelsPerInch;
    float Widths[6];
};

class WindowTest : public FrmSlotsTest, public testing::WithParamInterface<Window> {
  protected:
    WindowTest() : FrmSlotsTest(GetParam().PixelsPerInch) {}
    /// Any pixel of the control is in the window.
    bool IsInside(const Control& column) const {
        return column.Left <
               std::round(slots.Width * static_cast<float>(GetParam().PixelsPerInch) / TwipsPerInch);
    }
};

TEST_P(WindowTest, FitsTheReels) {
    for (int reels = 1; reels <= 6; ++reels) {
        for (int i = 0; i < reels; ++i) Draw(1, 1, 2);
        std::vector<bool> views;
        float width = 0;
        Timer look(slots, "look", 0, true);
        look.Tick = [&] {
            look.Enabled = false;
            width = slots.Width;
            EXPECT_EQ(slots.picFrame.Left, 0);
            EXPECT_EQ(slots.picFrame.Width, slots.Width);
            for (int i = 0; i < 6; ++i) {
                views.push_back(slots.picSlotView[i].Visible);
                EXPECT_EQ(slots.imgFrame[i].Visible, views.back());
                EXPECT_EQ(views.back() && IsInside(slots.imgFrame[i]), i < reels) << i << " of " << reels;
            }
        };
        Run(reels, 2);
        slots.Timers.pop_back();
        EXPECT_FLOAT_EQ(width, GetParam().Widths[reels - 1]) << reels;
        ASSERT_EQ(views.size(), 6u);
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(views[static_cast<std::size_t>(i)], i < reels || reels >= 5) << reels;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Densities, WindowTest,
    testing::Values(Window{96, {1331, 2476, 3714, 4952, 6190, 7428}},
                    Window{120, {1241.8333f, 2297.6667f, 3446.5f, 4595.3333f, 5744.1667f, 6893}}),
    [](const auto& row) { return "Dpi" + std::to_string(row.param.PixelsPerInch); });

// The pictures keep exact quarters of their height, or a reel would miss its places.
TEST_F(FrmSlotsTest, AQuarterOfAPictureIsExact) {
    slots.Load();
    for (Image& picture : slots.imgSlot) {
        EXPECT_EQ(picture.Height, slots.picSlotView[0].Height);
        EXPECT_EQ(std::fmod(picture.Height, 4.0f), 0);
    }
}

}  // namespace
}  // namespace tabulon
