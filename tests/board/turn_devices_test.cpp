#include "board/turn_devices.h"

#include <gmock/gmock.h>
#include <numeric>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* FocusText =
    "box Turn device not specified correctly.\r\n\r\n"
    "The game may be corrupted, and may\r\nneed to be reinstalled or repackaged.";

/// The devices of a table, without the turns around them.
struct DeviceTable : PlayTable {
    explicit DeviceTable(const Rules& rules) : PlayTable(rules) { Random.Numbers.clear(); }
    explicit DeviceTable(int dice) : DeviceTable(Rules{.TurnDevice = Device::Dice, .DiceUsed = dice}) {}

    std::int64_t Timed(void (TurnDevices::*device)()) {
        const std::int64_t before = TheScreen.Milliseconds();
        (devices.*device)();
        return TheScreen.Milliseconds() - before;
    }
    int Rolled() { return State().LastRoll.Value(); }
    bool ButtonsAreEnabled() {
        return Form().cmdNew.Enabled && Form().cmdRoll.Enabled && Form().cmdSpin.Enabled &&
               Form().cmdQuit.Enabled;
    }
    bool ShowsDice() {
        for (Image& die : Form().imgDice)
            if (die.Visible) return true;
        return false;
    }

    TurnDevices devices{G(), Form(), TheProgram.frmGameMusic, TheProgram.frmSlots};
};

Rules Reels(int count) { return {.TurnDevice = Device::Slots, .DiceUsed = count, .MaxSlotValue = 9}; }

TEST(DiceTest, EachFrameHasItsFace) {
    const int faces[] = {1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 6, 6};
    DeviceTable table(1);
    for (int frame = 1; frame <= 22; ++frame) {
        table.Random.Numbers.assign(7, PlayTable::FrameNumber(frame));
        table.devices.RollDice();
        EXPECT_EQ(table.Rolled(), faces[frame - 1]) << frame;
        EXPECT_EQ(table.Form().imgDice[0].Picture, Picture::Die(frame));
    }
}

TEST(DiceTest, WhoLeavesDuringTheRollIsShownNothingMore) {
    DeviceTable table(2);
    table.Random.Numbers.assign(3, PlayTable::FrameNumber(1));  // one for the number of rounds
    Timer& anyTimer = table.Form().timerOverviewSpace;
    anyTimer.Tick = [&] { table.Form().Game.reset(); };
    anyTimer.DueAt = table.TheScreen.Milliseconds();
    anyTimer.Enabled = true;
    EXPECT_THROW(table.devices.RollDice(), ProgramEnd);
    EXPECT_THAT(table.Random.Numbers, testing::SizeIs(1)) << "the second die is not rolled";
}

TEST(DeviceTest, WithoutACountNothingIsCelebrated) {
    for (const int device : {Device::Dice, Device::Slots}) {
        DeviceTable table(Rules{.TurnDevice = device, .DiceUsed = -3, .MaxSlotValue = 9});
        table.Random.Numbers = {0.5f};
        table.State().RollDouble = {true, true, true, true};
        (table.devices.*(device == Device::Dice ? &TurnDevices::RollDice : &TurnDevices::RunSlots))();
        EXPECT_TRUE(table.State().RollDouble[table.State().RuleA(table.State().WhoseTurn)]) << device;
    }
}

TEST(DiceTest, FramesBelowOneAreDrawnAgainAndNoneIsAbove22) {
    DeviceTable table(1);
    const float least = 0;
    const float below = 1.99f / 24;
    const float greatest = 0.99999994f;
    table.Random.Numbers = {greatest, least,    below, 2.01f / 24, greatest,
                            least,    greatest, 0.5f,  0.5f,       greatest};
    table.devices.RollDice();
    EXPECT_THAT(table.Random.Numbers, IsEmpty());
    EXPECT_EQ(table.Form().imgDice[0].Picture, Picture::Die(22));
    EXPECT_EQ(table.Rolled(), 6);
}

TEST(DiceTest, TheNumberOfRoundsIsDrawnAndWasted) {
    for (const float wasted : {0.0f, 0.5f, 0.99999994f}) {
        DeviceTable table(2);
        table.Roll({3, 5});
        table.Random.Numbers.front() = wasted;
        EXPECT_EQ(table.Timed(&TurnDevices::RollDice), 6 * 300 + 3000);
        EXPECT_THAT(table.Random.Numbers, IsEmpty());
        EXPECT_EQ(table.Rolled(), 8);
    }
}

TEST(DiceTest, ShowTheirCourseAndThenHide) {
    DeviceTable table(2);
    std::vector<std::int64_t> seenAt;
    const std::int64_t start = table.TheScreen.Milliseconds();
    Form watcher(table.TheScreen, "watcher");
    Timer timer(watcher, "timer", 1, true);
    timer.Tick = [&] {
        seenAt.push_back(table.TheScreen.Milliseconds() - start);
        EXPECT_TRUE(table.Form().imgDice[0].Visible && table.Form().imgDice[1].Visible);
        EXPECT_FALSE(table.Form().imgDice[2].Visible);
        EXPECT_FALSE(table.Form().cmdNew.Enabled || table.Form().cmdRoll.Enabled ||
                     table.Form().cmdQuit.Enabled);
        EXPECT_EQ(table.Rolled(), 0);
    };
    watcher.Load();
    table.State().LastRoll = 77;
    table.Roll({6, 6});
    table.devices.HideAndCenterImages(2);
    table.devices.RollDice();
    EXPECT_THAT(seenAt, ElementsAre(300, 600, 900, 1200, 1500)) << "in each round but the first";
    EXPECT_FALSE(table.ShowsDice());
    EXPECT_TRUE(table.ButtonsAreEnabled());
    EXPECT_EQ(table.Form().ActiveControl, &table.Form().cmdRoll);
}

TEST(DiceTest, StandInARowALittleRightOfTheMiddle) {
    const struct {
        int Dice, BoardWidth;
        std::vector<float> Lefts;
    } rows[] = {{1, 600, {276}},
                {2, 600, {251, 320}},
                {3, 600, {226, 295, 364}},
                {2, 617, {259, 328}},
                {6, 600, {153, 222, 291, 360, 429, 498}}};
    for (const auto& row : rows) {
        DeviceTable table(row.Dice);
        table.Form().picMainBoard.Width = static_cast<float>(15 * row.BoardWidth);
        table.devices.HideAndCenterImages(0);
        std::vector<float> lefts;
        for (int i = 0; i < row.Dice; ++i) lefts.push_back(table.Form().imgDice[i].Left);
        EXPECT_EQ(lefts, row.Lefts);
        EXPECT_EQ(table.Form().imgDice[5].Top, 175.5f);
    }
}

struct Double {
    const char* Name;
    std::vector<int> Values;
    int DiceCelebrations, ReelCelebrations;
};

const Double Doubles[] = {
    {"OneNever", {4}, 0, 0},
    {"None", {1, 2, 3}, 0, 0},
    {"Pair", {4, 4}, 1, 2},
    {"PairApart", {4, 1, 4}, 1, 2},
    {"Three", {2, 2, 2}, 1, 6},
    {"TwoPairs", {1, 2, 1, 2}, 1, 4},
    {"LastTwoOfFive", {1, 2, 3, 5, 5}, 1, 2},
};

void ExpectSettled(DeviceTable& table, const Double& row, int celebrations) {
    std::string story;
    for (int i = 0; i < celebrations; ++i)
        story += (i == 0 ? "" : "; ") + std::string("silence; sound good_roll");
    EXPECT_EQ(table.User.Story(), story);
    EXPECT_EQ(table.State().RollDouble[0], celebrations == 0);
    EXPECT_TRUE(table.State().RollDouble[1]) << "of the seat before the mover in no case";
    EXPECT_EQ(table.Rolled(), std::accumulate(row.Values.begin(), row.Values.end(), 0));
}

TEST(DoubleTest, OfDiceIsSettledAtTheFirstPair) {
    for (const Double& row : Doubles) {
        SCOPED_TRACE(row.Name);
        DeviceTable table(static_cast<int>(row.Values.size()));
        table.State().RollDouble = {true, true, true, true};
        table.Roll(row.Values);
        EXPECT_EQ(table.Timed(&TurnDevices::RollDice), 4800 + 50 * row.DiceCelebrations);
        ExpectSettled(table, row, row.DiceCelebrations);
    }
}

TEST(DoubleTest, OfReelsIsCelebratedTwiceForEachPair) {
    for (const Double& row : Doubles) {
        SCOPED_TRACE(row.Name);
        const int reels = static_cast<int>(row.Values.size());
        DeviceTable table(Reels(reels));
        table.State().RollDouble = {true, true, true, true};
        table.Spin(row.Values);
        EXPECT_EQ(table.Timed(&TurnDevices::RunSlots),
                  reels * (4 * 15 + 350) + 750 + 50 * row.ReelCelebrations);
        ExpectSettled(table, row, row.ReelCelebrations);
    }
}

TEST(DiceTest, NobodyWaitsForADoubleThatIsNotOrdered) {
    DeviceTable table(2);
    table.State().RollDouble = {false, true, true, true};
    table.Roll({4, 4});
    table.devices.RollDice();
    EXPECT_THAT(table.User.Events, IsEmpty());
    EXPECT_TRUE(table.State().RollDouble[1]);
}

TEST(DiceTest, TheDoubleOfAResumedGameIsInTheSeatsOwnSlot) {
    DeviceTable table(2);
    table.Resume({1, 1, 1}, 2);
    table.State().RollDouble = {true, true, true, true};
    table.Roll({4, 4});
    table.devices.RollDice();
    EXPECT_THAT(Values(table.State().RollDouble), ElementsAre(true, true, false, true));
}

TEST(DiceTest, AFailureBringsTheButtonsBack) {
    DeviceTable table(7);
    table.Random.Numbers.assign(20, 0.5f);
    table.devices.RollDice();
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:RollDice 9"));
    EXPECT_EQ(table.Rolled(), 0);
    EXPECT_TRUE(table.ButtonsAreEnabled());
}

TEST(ReelsTest, SixReportAfterTheFullSum) {
    DeviceTable table(Reels(6));
    table.State().RollDouble = {true, false, false, false};
    table.Spin({1, 2, 3, 4, 5, 5});
    EXPECT_EQ(table.Timed(&TurnDevices::RunSlots), 6 * 410 + 750);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:RunSlots 9"));
    EXPECT_EQ(table.Rolled(), 20);
    EXPECT_TRUE(table.State().RollDouble[0]);
    EXPECT_TRUE(table.ButtonsAreEnabled());
    EXPECT_EQ(table.Form().ActiveControl, &table.Form().cmdSpin);
}

TEST(ReelsTest, DisableTheButtonsWhileTheyRun) {
    DeviceTable table(Reels(1));
    table.Spin({4});
    Form watcher(table.TheScreen, "watcher");
    Timer timer(watcher, "timer", 0, true);
    int looks = 0;
    timer.Tick = [&] {
        timer.Enabled = ++looks < 1;
        EXPECT_FALSE(table.Form().cmdNew.Enabled || table.Form().cmdSpin.Enabled ||
                     table.Form().cmdQuit.Enabled);
        EXPECT_TRUE(table.TheProgram.frmSlots.Visible);
    };
    watcher.Load();
    table.devices.HideAndCenterImages(0);
    table.devices.RunSlots();
    EXPECT_EQ(looks, 1);
    EXPECT_FALSE(table.ShowsDice());
}

TEST(TurnButtonTest, ShowsTheOneOfItsKind) {
    const struct {
        int Kind;
        const char *Button, *Twin;
    } rows[] = {{3, "cmdPass", "&Pass"},       {0, "cmdRoll", "&Roll Dice"},  {2, "cmdRoll", "&Roll Dice"},
                {1, "cmdSpin", "&Spin Slots"}, {4, "cmdSpin", "&Spin Slots"}, {-1, "cmdSpin", "&Spin Slots"}};
    DeviceTable table(1);
    MainForm& form = table.Form();
    for (const auto& row : rows) {
        table.devices.SetTurnDeviceButton(row.Kind);
        for (const PictureButton* button : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass})
            EXPECT_EQ(button->Visible, button->Name == row.Button) << row.Kind;
        EXPECT_EQ(form.cmdFakeRoll.Caption, row.Twin);
    }
}

TEST(TurnButtonTest, OnlyTheDevicesOwnIsToggled) {
    for (const auto& [device, name] : {std::pair{0, "cmdRoll"}, {1, "cmdSpin"}, {2, ""}, {3, ""}}) {
        DeviceTable table(1);
        MainForm& form = table.Form();
        table.Game().TurnDevice = device;
        table.devices.SetTurnDeviceButton(Device::Pass);
        table.devices.ToggleTurnDeviceButton(false);
        for (const PictureButton* button : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass})
            EXPECT_EQ(button->Enabled, button->Name != name) << device;
    }
}

TEST(TurnButtonTest, TheFocusFailsOnAHiddenOrDisabledOne) {
    for (const int device : {Device::Dice, Device::Slots}) {
        DeviceTable table(1);
        table.Game().TurnDevice = device;
        PictureButton& button = device == Device::Dice ? table.Form().cmdRoll : table.Form().cmdSpin;
        table.devices.SetTurnDeviceButton(device);
        table.Form().ActiveControl = nullptr;
        table.devices.SetTurnDeviceButtonFocus();
        EXPECT_EQ(table.Form().ActiveControl, &button);
        EXPECT_THAT(table.User.TakeEvents(), IsEmpty());

        table.Form().ActiveControl = nullptr;
        button.Enabled = false;
        table.devices.SetTurnDeviceButtonFocus();
        button.Enabled = true;
        table.devices.SetTurnDeviceButton(Device::Pass);
        table.devices.SetTurnDeviceButtonFocus();
        EXPECT_THAT(table.User.TakeEvents(), ElementsAre(FocusText, FocusText));
        EXPECT_EQ(table.Form().ActiveControl, nullptr);
    }
}

TEST(TurnButtonTest, WithoutADeviceNothingIsSaid) {
    DeviceTable table(Rules{});
    Control* const before = table.Form().ActiveControl;
    table.devices.SetTurnDeviceButtonFocus();
    table.devices.ToggleTurnDeviceButton(false);
    EXPECT_THAT(table.User.Events, IsEmpty());
    EXPECT_EQ(table.Form().ActiveControl, before);
}

}  // namespace
}  // namespace tabulon::test
