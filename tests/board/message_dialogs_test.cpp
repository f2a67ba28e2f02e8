#include "board/message_dialogs.h"

#include <gmock/gmock.h>

#include "support/timed_sounds.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MessageTest : public testing::Test {
  protected:
    MessageTest() { game.Font = "Comic Neue"; }

    /// Lets timers run until a time, then does something with the form that waits.
    template <class Act>
    void At(std::int64_t milliseconds, Act&& act) {
        machine.user.Do = [this, milliseconds, act, done = false](Form&) mutable {
            if (done || machine.screen.Milliseconds() < milliseconds) return false;
            done = true;
            act();
            return true;
        };
    }
    void ShowOk(bool computer, bool waits) { dlgMsgOk.ShowMessage(game, "Hello", computer, waits); }
    bool Ask() {
        bool yes = false;
        dlgMsgYesNo.ShowMessage(game, "Sure?", 0, yes);
        return yes;
    }

    test::SoundingMachine machine;
    modInstallUninstall packages{machine.g};
    FrmGameMusic music{machine.g, packages};
    DlgMsgOk dlgMsgOk{machine.g, music};
    DlgMsgYesNo dlgMsgYesNo{machine.g};
    CGame game{machine.g, packages};
};

TEST_F(MessageTest, DoublesTheAmpersandsOfATextAndNotOfAQuestion) {
    At(0, [&] {
        EXPECT_EQ(dlgMsgOk.lblMsg.Caption, "Q&&A");
        EXPECT_EQ(dlgMsgOk.lblMsg.Font.Name, "Comic Neue");
        dlgMsgOk.cmdOk.Click();
    });
    dlgMsgOk.ShowMessage(game, "Q&A", false, false);
    EXPECT_FALSE(dlgMsgOk.Loaded);
    At(0, [&] {
        EXPECT_EQ(dlgMsgYesNo.lblMsg.Caption, "Q&A");
        dlgMsgYesNo.cmdYes.Click();
    });
    bool yes = false;
    dlgMsgYesNo.ShowMessage(game, "Q&A", 0, yes);
    EXPECT_TRUE(yes);
    EXPECT_TRUE(dlgMsgYesNo.Loaded);
    EXPECT_FALSE(dlgMsgYesNo.Visible);
}

TEST_F(MessageTest, KeysCloseAMessage) {
    const std::pair<int, bool> rows[] = {{Key::O, true},     {Key::Space, true}, {Key::Escape, true},
                                         {Key::Enter, true}, {Key::A, false},    {Key::Y, false}};
    for (const auto& [key, closes] : rows) {
        for (const int shift : {0, Key::Alt, Key::Control | Key::Shift}) {
            At(machine.screen.Milliseconds(), [&, key = key, closes = closes] {
                EXPECT_EQ(dlgMsgOk.KeyDown(key, shift), closes);
                EXPECT_EQ(dlgMsgOk.Visible, !closes);
                dlgMsgOk.cmdOk.Click();
            });
            ShowOk(false, false);
        }
    }
    EXPECT_THAT(machine.errors, IsEmpty());
}

struct Closing {
    const char* Name;
    bool Computer, Waits;
    int Sound;    // milliseconds
    int ClickAt;  // -1: nobody clicks
    int ClosesAt;
};

class ClosingTest : public MessageTest, public testing::WithParamInterface<Closing> {};

TEST_P(ClosingTest, ComesInTime) {
    const Closing& row = GetParam();
    machine.player.Length = row.Sound;
    machine.player.Play("sound.ogg");
    machine.screen.SetMousePointer(MousePointer::Hourglass);
    if (row.ClickAt >= 0) At(row.ClickAt, [&] { dlgMsgOk.cmdOk.Click(); });
    ShowOk(row.Computer, row.Waits);
    EXPECT_GE(machine.screen.Milliseconds(), row.ClosesAt);
    // The wait for a sound may sleep a little.
    EXPECT_LT(machine.screen.Milliseconds(), row.ClosesAt + (row.Waits ? 100 : 1));
    EXPECT_FALSE(dlgMsgOk.Loaded);
    const bool quiet = row.Waits || row.ClosesAt >= row.Sound + 1000;
    EXPECT_EQ(machine.screen.Pointer(), quiet ? MousePointer::Default : MousePointer::Hourglass);
    EXPECT_THAT(machine.errors, IsEmpty());
    EXPECT_EQ(machine.g.gErrHandler.StackTop, 0);
}

const Closing Closings[] = {
    {"ComputerAfterASecond", true, false, 5000, -1, 1000},
    {"ComputerAfterAShortSound", true, true, 300, -1, 1000},
    {"ComputerAfterALongSound", true, true, 2500, -1, 2500},
    {"ComputerWithFourTicksInTheWait", true, true, 4990, -1, 4990},
    {"ComputerClickedBefore", true, false, 0, 0, 0},
    {"HumanAtTheClick", false, false, 5000, 0, 0},
    {"HumanMuchLater", false, false, 300, 60000, 60000},
    {"HumanWaitsForTheSound", false, true, 2500, 0, 2500},
    {"HumanAfterTheSound", false, true, 2500, 7000, 7000},
};
INSTANTIATE_TEST_SUITE_P(Messages, ClosingTest, testing::ValuesIn(Closings),
                         [](const auto& row) { return row.param.Name; });

TEST_F(MessageTest, ThePointerTurnsBackWithinASecondOfTheSoundsEnd) {
    machine.player.Length = 2500;
    machine.player.Play("sound.ogg");
    machine.screen.SetMousePointer(MousePointer::Hourglass);
    std::vector<MousePointer> pointers;
    machine.user.Do = [&](Form&) {
        pointers.push_back(machine.screen.Pointer());
        if (machine.screen.Milliseconds() == 4000) dlgMsgOk.cmdOk.Click();
        return machine.screen.Milliseconds() == 4000;
    };
    ShowOk(false, false);
    const MousePointer busy = MousePointer::Hourglass;
    EXPECT_THAT(pointers, ElementsAre(busy, busy, busy, MousePointer::Default, MousePointer::Default));
}

TEST_F(MessageTest, KeysAnswerAQuestion) {
    const struct {
        int Key, Shift;
        bool Answers, Yes;
    } rows[] = {{Key::Y, Key::Alt, true, true},
                {Key::N, Key::Alt, true, false},
                {Key::Enter, 0, true, true},
                {Key::Space, 0, true, true},
                {Key::Space, Key::Shift, true, true},
                {Key::Y, 0, false, false},
                {Key::N, 0, false, false},
                {Key::Enter, Key::Alt, false, false},
                {Key::Escape, 0, false, false},
                {Key::Y, Key::Alt | Key::Shift, false, false}};
    for (const auto& row : rows) {
        At(0, [&] {
            dlgMsgYesNo.ActiveControl = &dlgMsgYesNo.cmdNo;
            EXPECT_EQ(dlgMsgYesNo.KeyDown(row.Key, row.Shift), row.Answers);
            EXPECT_EQ(dlgMsgYesNo.Visible, !row.Answers) << row.Key << " " << row.Shift;
            if (!row.Answers) dlgMsgYesNo.cmdNo.Click();
        });
        EXPECT_EQ(Ask(), row.Yes) << row.Key << " " << row.Shift;
    }
}

TEST_F(MessageTest, AQuestionThatIsClosedIsANo) {
    for (Button* before : {&dlgMsgYesNo.cmdYes, &dlgMsgYesNo.cmdNo}) {
        At(0, [&] { before->Click(); });
        Ask();
        At(0, [&] { dlgMsgYesNo.Unload(); });
        EXPECT_FALSE(Ask());
        EXPECT_TRUE(dlgMsgYesNo.AnswerNo);
    }
    At(0, [&] { dlgMsgYesNo.cmdYes.Click(); });
    Ask();
    dlgMsgYesNo.Unload();
    EXPECT_FALSE(dlgMsgYesNo.AnswerNo) << "nobody was asked";
}

TEST_F(MessageTest, AQuestionOpensWithTheFocusOnYes) {
    for (Button* before : {&dlgMsgYesNo.cmdNo, &dlgMsgYesNo.cmdYes}) {
        At(0, [&] {
            EXPECT_EQ(dlgMsgYesNo.ActiveControl, &dlgMsgYesNo.cmdYes);
            before->SetFocus();
            before->Click();
        });
        Ask();
    }
}

TEST(MessageSizeTest, IsTheSameInPixelsAtBothDensities) {
    for (const int density : {96, 120}) {
        test::SoundingMachine machine(density);
        const float twips = machine.screen.TwipsPerPixelX();
        modInstallUninstall packages(machine.g);
        FrmGameMusic music(machine.g, packages);
        DlgMsgOk ok(machine.g, music);
        machine.user.Do = [&](Form&) {
            EXPECT_EQ(ok.Width, 457 * twips);
            EXPECT_EQ(ok.Height, 233 * twips);
            EXPECT_THAT((std::vector{ok.lblMsg.Left, ok.lblMsg.Top, ok.lblMsg.Width, ok.lblMsg.Height}),
                        ElementsAre(16 * twips, 24 * twips, 425 * twips, 129 * twips));
            EXPECT_EQ(ok.lblMsg.Font.Size, density == 96 ? 18 : 14);
            ok.cmdOk.Click();
            return true;
        };
        ok.ShowMessage(CGame(machine.g, packages), "Hello", false, false);
    }
}

}  // namespace
}  // namespace tabulon
