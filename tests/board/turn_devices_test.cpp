#include "board/turn_devices.h"

#include <gmock/gmock.h>

#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::PlayTable;
using test::Rules;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* FocusText =
    "box Turn device not specified correctly.\r\n\r\nThe game may be corrupted, and may\r\nneed to be "
    "reinstalled "
    "or repackaged.";

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

struct Countless : testing::TestWithParam<int> {};

TEST_P(Countless, DevicesCelebrateNothing) {
    DeviceTable table(Rules{.TurnDevice = GetParam(), .DiceUsed = -3, .MaxSlotValue = 9});
    table.Random.Numbers = {0.5f};
    table.State().RollDouble = {true, true, true, true};
    (table.devices.*(GetParam() == Device::Dice ? &TurnDevices::RollDice : &TurnDevices::RunSlots))();
    EXPECT_TRUE(table.State().RollDouble[table.State().RuleA(table.State().WhoseTurn)]);
}

INSTANTIATE_TEST_SUITE_P(All, Countless, testing::Values(Device::Dice, Device::Slots),
                         [](const auto& row) { return row.param == Device::Dice ? "Dice" : "Slots"; });

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
    struct Seen {
        std::int64_t At;
        int Dice;
        bool New, Roll, Quit;
        int LastRoll;
    };
    std::vector<Seen> seen;
    const std::int64_t start = table.TheScreen.Milliseconds();
    Form watcher(table.TheScreen, "watcher");
    Timer timer(watcher, "timer", 1, true);
    timer.Tick = [&] {
        int shown = 0;
        for (Image& die : table.Form().imgDice) shown += die.Visible;
        seen.push_back({table.TheScreen.Milliseconds() - start, shown, table.Form().cmdNew.Enabled,
                        table.Form().cmdRoll.Enabled, table.Form().cmdQuit.Enabled, table.Rolled()});
    };
    watcher.Load();
    table.State().LastRoll = 77;
    table.Roll({6, 6});
    table.devices.HideAndCenterImages(2);
    table.devices.RollDice();
    ASSERT_EQ(seen.size(), 5u) << "one in each round but the first";
    for (std::size_t i = 0; i < seen.size(); ++i) {
        EXPECT_EQ(seen[i].At, 300 * (static_cast<int>(i) + 1));
        EXPECT_EQ(seen[i].Dice, 2);
        EXPECT_FALSE(seen[i].New || seen[i].Roll || seen[i].Quit);
        EXPECT_EQ(seen[i].LastRoll, 0);
    }
    for (Image& die : table.Form().imgDice) EXPECT_FALSE(die.Visible);
    EXPECT_TRUE(table.Form().cmdNew.Enabled && table.Form().cmdRoll.Enabled && table.Form().cmdQuit.Enabled);
    EXPECT_EQ(table.Form().ActiveControl, &table.Form().cmdRoll);
}

struct Centred {
    int Dice;
    int BoardWidth;
    std::vector<float> Lefts;
};

TEST(DiceTest, StandInARowALittleRightOfTheMiddle) {
    const Centred rows[] = {{1, 600, {276}},
                            {2, 600, {251, 320}},
                            {3, 600, {226, 295, 364}},
                            {2, 617, {259, 328}},
                            {6, 600, {153, 222, 291, 360, 429, 498}}};
    for (const Centred& row : rows) {
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
    int Celebrations;  // of the dice
    int ReelCelebrations;
};

class DoubleTest : public testing::TestWithParam<Double> {
  protected:
    static std::vector<std::string> Celebrated(int times) {
        std::vector<std::string> events;
        for (int i = 0; i < times; ++i) events.insert(events.end(), {"silence", "sound good_roll"});
        return events;
    }
    static void ExpectSettled(DeviceTable& table, int celebrations) {
        EXPECT_EQ(table.User.Events, Celebrated(celebrations));
        EXPECT_EQ(table.State().RollDouble[0], celebrations == 0);
        EXPECT_EQ(table.State().RollDouble[1], true) << "of the seat before the mover in no case";
        int sum = 0;
        for (const int value : GetParam().Values) sum += value;
        EXPECT_EQ(table.Rolled(), sum);
    }
};

TEST_P(DoubleTest, OfDiceIsSettledAtTheFirstPair) {
    DeviceTable table(static_cast<int>(GetParam().Values.size()));
    table.State().RollDouble = {true, true, true, true};
    table.Roll(GetParam().Values);
    EXPECT_EQ(table.Timed(&TurnDevices::RollDice), 4800 + 50 * GetParam().Celebrations);
    ExpectSettled(table, GetParam().Celebrations);
}

TEST_P(DoubleTest, OfReelsIsCelebratedTwiceForEachPair) {
    const int reels = static_cast<int>(GetParam().Values.size());
    DeviceTable table(Reels(reels));
    table.State().RollDouble = {true, true, true, true};
    table.Spin(GetParam().Values);
    EXPECT_EQ(table.Timed(&TurnDevices::RunSlots),
              reels * (4 * 15 + 350) + 750 + 50 * GetParam().ReelCelebrations);
    ExpectSettled(table, GetParam().ReelCelebrations);
}

INSTANTIATE_TEST_SUITE_P(Values, DoubleTest,
                         testing::Values(Double{"OneNever", {4}, 0, 0}, Double{"None", {1, 2, 3}, 0, 0},
                                         Double{"Pair", {4, 4}, 1, 2}, Double{"PairApart", {4, 1, 4}, 1, 2},
                                         Double{"Three", {2, 2, 2}, 1, 6},
                                         Double{"TwoPairs", {1, 2, 1, 2}, 1, 4},
                                         Double{"LastTwoOfFive", {1, 2, 3, 5, 5}, 1, 2}),
                         [](const auto& row) { return row.param.Name; });

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
    EXPECT_THAT(test::Values(table.State().RollDouble), ElementsAre(true, true, false, true));
}

TEST(DiceTest, AFailureBringsTheButtonsBack) {
    DeviceTable table(7);
    table.Random.Numbers.assign(20, 0.5f);
    table.devices.RollDice();
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:RollDice 9"));
    EXPECT_EQ(table.Rolled(), 0);
    EXPECT_TRUE(table.Form().cmdNew.Enabled && table.Form().cmdRoll.Enabled && table.Form().cmdQuit.Enabled);
}

TEST(ReelsTest, SixReportAfterTheFullSum) {
    DeviceTable table(Reels(6));
    table.State().RollDouble = {true, false, false, false};
    table.Spin({1, 2, 3, 4, 5, 5});
    EXPECT_EQ(table.Timed(&TurnDevices::RunSlots), 6 * 410 + 750);
    EXPECT_THAT(table.User.Events, ElementsAre("error frmMain:RunSlots 9"));
    EXPECT_EQ(table.Rolled(), 20);
    EXPECT_TRUE(table.State().RollDouble[0]);
    EXPECT_TRUE(table.Form().cmdNew.Enabled && table.Form().cmdSpin.Enabled && table.Form().cmdQuit.Enabled);
    EXPECT_EQ(table.Form().ActiveControl, &table.Form().cmdSpin);
}

TEST(ReelsTest, DisableTheButtonsWhileTheyRun) {
    DeviceTable table(Reels(1));
    table.Spin({4});
    bool enabled = true;
    Form watcher(table.TheScreen, "watcher");
    Timer timer(watcher, "timer", 0, true);
    timer.Tick = [&] {
        timer.Enabled = false;
        enabled = table.Form().cmdNew.Enabled || table.Form().cmdSpin.Enabled || table.Form().cmdQuit.Enabled;
        EXPECT_TRUE(table.TheProgram.frmSlots.Visible);
    };
    watcher.Load();
    table.devices.HideAndCenterImages(0);
    table.devices.RunSlots();
    EXPECT_FALSE(enabled);
    for (Image& die : table.Form().imgDice) EXPECT_FALSE(die.Visible);
}

struct Shown {
    int Kind;
    const char* Button;
    const char* Twin;
};

TEST(TurnButtonTest, ShowsTheOneOfItsKind) {
    const Shown rows[] = {{3, "cmdPass", "&Pass"},       {0, "cmdRoll", "&Roll Dice"},
                          {2, "cmdRoll", "&Roll Dice"},  {1, "cmdSpin", "&Spin Slots"},
                          {4, "cmdSpin", "&Spin Slots"}, {-1, "cmdSpin", "&Spin Slots"}};
    DeviceTable table(1);
    for (const Shown& row : rows) {
        table.devices.SetTurnDeviceButton(row.Kind);
        for (const PictureButton* button :
             {&table.Form().cmdRoll, &table.Form().cmdSpin, &table.Form().cmdPass})
            EXPECT_EQ(button->Visible, button->Name == row.Button) << row.Kind;
        EXPECT_EQ(table.Form().cmdFakeRoll.Caption, row.Twin);
    }
}

TEST(TurnButtonTest, OnlyTheDevicesOwnIsToggled) {
    const std::pair<int, const char*> rows[] = {{0, "cmdRoll"}, {1, "cmdSpin"}, {2, ""}, {3, ""}};
    for (const auto& [device, name] : rows) {
        DeviceTable table(1);
        table.Game().TurnDevice = device;
        table.devices.SetTurnDeviceButton(Device::Pass);
        table.devices.ToggleTurnDeviceButton(false);
        for (const PictureButton* button :
             {&table.Form().cmdRoll, &table.Form().cmdSpin, &table.Form().cmdPass})
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
    table.devices.SetTurnDeviceButtonFocus();
    table.devices.ToggleTurnDeviceButton(false);
    EXPECT_THAT(table.User.Events, IsEmpty());
    EXPECT_EQ(table.Form().ActiveControl, nullptr);
}

}  // namespace
}  // namespace tabulon
