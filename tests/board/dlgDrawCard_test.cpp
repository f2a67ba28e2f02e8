#include "board/dlgDrawCard.h"

#include <gmock/gmock.h>

#include "support/timed_sounds.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DlgDrawCardTest : public testing::Test {
  protected:
    DlgDrawCardTest() {
        card.message = "Which?";
        card.Answer1 = "One";
        card.Answer2 = "Two";
        card.Answer3 = "Three";
        card.Answer4 = "Four";
        card.CorrectAnswer = 1;
        card.CorrectActionType = 6;
        card.CorrectData1 = 10;
        card.IncorrectActionType = 5;
        card.IncorrectData1 = 20;
        game->MusicGenre = "jazz";
        game->Tries = 1;
        dlgMsgOk.MessageShown = [this](const std::string& text, bool) { messages.push_back(text); };
        dialog.AnswerChosen = [this](int index) { chosen.push_back(index); };
        // Messages are closed at once; what is done with the card is said by the test.
        machine.user.Do = [this](Form& form) {
            if (&form == &dlgMsgOk && !dlgMsgOk.AutoClose) dlgMsgOk.cmdOk.Click();
            if (&form != &dialog) return !dlgMsgOk.AutoClose;
            if (cardActs.empty()) return false;
            const auto act = std::move(cardActs.front());
            cardActs.pop_front();
            act();
            return true;
        };
    }
    void Show(bool computer = false, bool startMusic = false) {
        dialog.GetData(game, card, action, data1, tries, done, correct, computer, startMusic, result);
    }
    /// The human's answer to the next showing.
    void Press(int key, int shift = 0) {
        cardActs.push_back([this, key, shift] { dialog.KeyUp(key, shift); });
    }
    void ShowAndPress(int key) {
        Press(key);
        Show();
    }

    test::SoundingMachine machine;
    modInstallUninstall packages{machine.g};
    FrmGameMusic music{machine.g, packages};
    DlgMsgOk dlgMsgOk{machine.g, music};
    DlgDrawCard dialog{machine.g, music, dlgMsgOk};
    std::shared_ptr<CGame> game = std::make_shared<CGame>(machine.g, packages);
    CCard card;
    std::deque<std::function<void()>> cardActs;
    std::vector<std::string> messages;
    std::vector<int> chosen;

    Integer action = -1;
    Integer data1 = -1;
    Integer tries = 1;
    bool done = false;
    bool correct = false;
    bool result = false;
};

struct KeyRow {
    const char* Name;
    int Key, Shift;
    int Chosen;  // -1 for an attempt without an answer
};

TEST_F(DlgDrawCardTest, KeysAnswerOrLeave) {
    const KeyRow rows[] = {
        {"Escape", Key::Escape, 0, -1},
        {"A", Key::A, 0, 0},
        {"B", Key::B, 0, 1},
        {"C", Key::C, 0, 2},
        {"D", Key::D, 0, 3},
        {"AltB", Key::B, Key::Alt, 1},
        {"ShiftControlD", Key::D, Key::Shift | Key::Control, 3},
    };
    for (const KeyRow& row : rows) {
        SCOPED_TRACE(row.Name);
        const bool answers = row.Chosen >= 0, right = row.Chosen == 1;
        chosen.clear();
        tries = 1;
        done = false;
        Press(row.Key, row.Shift);
        Show();
        EXPECT_EQ(chosen, answers ? std::vector{row.Chosen} : std::vector<int>{});
        EXPECT_EQ(done, answers);
        EXPECT_EQ(correct, right);
        EXPECT_EQ(action, !answers ? 0 : right ? 6 : 5);
        EXPECT_EQ(data1, !answers ? 0 : right ? 10 : 20);
        EXPECT_EQ(tries, !answers || right ? 1 : 0);
        EXPECT_TRUE(result);
        EXPECT_FALSE(dialog.Loaded);
        EXPECT_THAT(machine.errors, IsEmpty());
    }
}

TEST_F(DlgDrawCardTest, OtherKeysDoNothing) {
    for (const int key : {Key::Enter, Key::Space, Key::A - 1, Key::D + 1, Key::O})
        cardActs.push_back([this, key] {
            EXPECT_FALSE(dialog.KeyUp(key, 0));
            EXPECT_TRUE(dialog.Visible);
        });
    ShowAndPress(Key::B);
    EXPECT_THAT(chosen, ElementsAre(1));
}

TEST_F(DlgDrawCardTest, ARowIsClickedOnItsLetterOrItsText) {
    for (int row = 0; row < 4; ++row) {
        cardActs.push_back([this, row] { dialog.lblIdentifier[row].Click(); });
        Show();
        cardActs.push_back([this, row] { dialog.lblAnswer[row].Click(); });
        Show();
    }
    EXPECT_THAT(chosen, ElementsAre(0, 0, 1, 1, 2, 2, 3, 3));
}

TEST_F(DlgDrawCardTest, AnAnswerLightsUpUnderTheMouseOfAHuman) {
    for (const bool computer : {false, true}) {
        cardActs.push_back([this, computer] {
            const Picture dark = dialog.imgAnswer[0].Picture;
            for (const Label* part : {&dialog.lblIdentifier[1], &dialog.lblAnswer[1]}) {
                part->MouseMove();
                EXPECT_EQ(dialog.imgAnswer[1].Picture == dark, computer);
                EXPECT_EQ(dialog.imgAnswer[0].Picture, dark);
                part->MouseLeave();
                EXPECT_EQ(dialog.imgAnswer[1].Picture, dark);
            }
            dialog.Hide();
        });
        Show(computer);
    }
}

TEST_F(DlgDrawCardTest, TheAnswerPressedIsMarkedUntilTheDialogGoes) {
    card.CorrectMessage = "Right!";
    std::vector<bool> marked;
    music.SoundStops = [&] {
        EXPECT_TRUE(dialog.Visible);
        for (const Image& answer : dialog.imgAnswer) marked.push_back(answer.Border);
    };
    ShowAndPress(Key::B);
    EXPECT_THAT(marked, ElementsAre(false, true, false, false));
    music.SoundStops = {};
    cardActs.push_back([this] {
        EXPECT_FALSE(dialog.imgAnswer[1].Border) << "of another card";
        dialog.Hide();
    });
    Show();
}

TEST_F(DlgDrawCardTest, ShowsTheCardWithItsAmpersands) {
    card.message = "Salt & pepper && more";
    card.Answer2 = "R&B";
    cardActs.push_back([this] {
        EXPECT_EQ(dialog.lblQuestion.Caption, "Salt && pepper &&&& more");
        EXPECT_EQ(dialog.lblAnswer[1].Caption, "R&&B");
        EXPECT_EQ(dialog.lblIdentifier[1].Caption, "&B)");
        EXPECT_EQ(dialog.lblAnswer[3].ToolTipText, "Click here, or tap the letter \"D\"");
        EXPECT_EQ(dialog.lblIdentifier[0].ToolTipText, "Click here, or tap the letter \"A\"");
        EXPECT_EQ(dialog.lblQuestion.ToolTipText, "Here's the question...");
        dialog.KeyUp(Key::Escape, 0);
    });
    Show();
}

struct AnswerRows {
    const char* Name;
    const char* Answers[4];
    const char* Shown;
    int EndsAt;  // row, or -1 for the whole dialog
};

TEST_F(DlgDrawCardTest, BlankAnswersCutTheDialog) {
    const AnswerRows rows[] = {
        {"All", {"a", "b", "c", "d"}, "ABCD", -1},
        {"Two", {"a", "b", "", " "}, "AB", 2},
        {"None", {"", "", "", ""}, "A", 1},
        {"GapAboveAFilledRow", {"a", "b", " ", "d"}, "ABD", 2},
        {"TwoBlanksAreAText", {"a", "b", "c", "  "}, "ABCD", -1},
    };
    for (const AnswerRows& row : rows) {
        SCOPED_TRACE(row.Name);
        chosen.clear();
        std::string* answers[] = {&card.Answer1, &card.Answer2, &card.Answer3, &card.Answer4};
        for (int i = 0; i < 4; ++i) *answers[i] = row.Answers[i];
        cardActs.push_back([this, &row] {
            std::string shown;
            for (int i = 0; i < 4; ++i) {
                if (dialog.lblAnswer[i].Visible) shown += static_cast<char>('A' + i);
                EXPECT_EQ(dialog.lblIdentifier[i].Visible, dialog.lblAnswer[i].Visible) << i;
            }
            EXPECT_EQ(shown, row.Shown);
            EXPECT_EQ(dialog.Height, row.EndsAt < 0 ? 544 * 15 : dialog.lblAnswer[row.EndsAt].Top);
            EXPECT_EQ(dialog.imgBottom.Top, dialog.Height - dialog.imgBottom.Height - 5);
            dialog.KeyUp(Key::D, 0);
        });
        Show();
        EXPECT_THAT(chosen, ElementsAre(3)) << "the key of a hidden row works";
    }
}

TEST_F(DlgDrawCardTest, CountsTheTries) {
    game->Tries = tries = 3;
    correct = true;
    for (const int key : {Key::A, Key::C, Key::D}) {
        ShowAndPress(key);
        EXPECT_EQ(done, tries == 0);
        EXPECT_EQ(action, 5);
    }
    EXPECT_THAT(messages,
                ElementsAre("You have 2 tries left.", "You have 1 try left.", "Sorry you missed this one."));
    EXPECT_THAT(machine.player.Played, ElementsAre("wrong_answer.ogg"));
    EXPECT_FALSE(correct);
}

TEST_F(DlgDrawCardTest, WithoutTriesAMissIsSilentAndKeepsTheLastJudgement) {
    ShowAndPress(Key::B);
    EXPECT_TRUE(correct);
    game->Tries = tries = 0;
    machine.player.Played.clear();
    done = false;
    ShowAndPress(Key::A);
    EXPECT_TRUE(done && correct);
    EXPECT_EQ(action, 5);
    EXPECT_EQ(tries, 0);
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(machine.player.Played, IsEmpty());
}

TEST_F(DlgDrawCardTest, EscapeHandsBackWhatTheLastAnswerLeft) {
    ShowAndPress(Key::B);
    action = data1 = -1;
    correct = false;
    tries = 4;
    ShowAndPress(Key::Escape);
    EXPECT_EQ(action, 6);
    EXPECT_EQ(data1, 10);
    EXPECT_EQ(tries, 4);
    EXPECT_TRUE(done && correct);
    done = false;
    ShowAndPress(Key::Escape);
    EXPECT_FALSE(done) << "what the caller says of it goes in";
}

TEST_F(DlgDrawCardTest, ItsMusicInterruptsNothing) {
    struct Row {
        bool StartMusic, SoundOn, Playing;
        bool Starts;
    };
    const Row rows[] = {{true, true, false, true},
                        {false, true, false, false},
                        {true, false, false, false},
                        {true, true, true, false}};
    const std::vector<std::string> started{"draw_card.ogg looping"};
    for (const Row& row : rows) {
        machine.player.Stop();
        machine.player.Length = 100000;
        if (row.Playing) machine.player.Play("other.ogg");
        machine.player.Played.clear();
        machine.g.SoundOn = row.SoundOn;
        Press(Key::Escape);
        Show(false, row.StartMusic);
        EXPECT_EQ(machine.player.Played, row.Starts ? started : std::vector<std::string>{});
    }
}

TEST_F(DlgDrawCardTest, AResultWaitsForItsSoundUnderAnHourglass) {
    card.CorrectMessage = "Well done";
    machine.player.Length = 2000;
    MousePointer during = MousePointer::Default;
    dlgMsgOk.MessageShown = [&](const std::string& text, bool) {
        messages.push_back(text);
        during = machine.screen.Pointer();
        EXPECT_FALSE(dialog.Visible);
        EXPECT_LT(dialog.Left + dialog.Width, 0);
    };
    ShowAndPress(Key::B);
    EXPECT_THAT(messages, ElementsAre("Well done"));
    EXPECT_EQ(during, MousePointer::Hourglass);
    EXPECT_EQ(machine.screen.Pointer(), MousePointer::Default);
    EXPECT_EQ(machine.screen.Milliseconds(), 50 + 2000);
}

TEST_F(DlgDrawCardTest, ABlankResultIsNotShown) {
    for (const char* blank : {"", " "}) {
        card.CorrectMessage = card.IncorrectMessage = blank;
        messages.clear();
        ShowAndPress(Key::B);
        EXPECT_THAT(messages, IsEmpty());
        tries = 1;
        ShowAndPress(Key::A);
        EXPECT_THAT(messages, ElementsAre("Sorry you missed this one."));
    }
}

TEST_F(DlgDrawCardTest, AComputerPicksAnyButTheFirst) {
    const std::pair<float, int> rows[] = {{0, 1},      {0.333f, 1}, {0.334f, 2},
                                          {0.666f, 2}, {0.667f, 3}, {0.99999994f, 3}};
    for (const auto& [number, answer] : rows) {
        card.CorrectAnswer = 0;
        chosen.clear();
        tries = 1;
        machine.machine.Random.Numbers = {number};
        const std::int64_t before = machine.screen.Milliseconds();
        Show(true);
        EXPECT_THAT(chosen, ElementsAre(answer));
        EXPECT_EQ(machine.screen.Milliseconds() - before, 3000 + 50 + 1000);
        EXPECT_FALSE(correct);
    }
}

TEST_F(DlgDrawCardTest, AComputersCardTakesNoKeysAndClicks) {
    card.CorrectMessage = "Yes";
    machine.machine.Random.Numbers = {0};
    for (const int key : {Key::A, Key::Escape}) Press(key);
    cardActs.push_back([this] { dialog.lblAnswer[0].Click(); });
    cardActs.push_back([this] { dialog.lblIdentifier[2].Click(); });
    Show(true);
    EXPECT_THAT(chosen, ElementsAre(1));
    EXPECT_TRUE(correct);
}

// The timer of the card still runs under the message, and comes due while that waits for its sound.
TEST_F(DlgDrawCardTest, AComputerPicksOnceHoweverLongItsMessageStands) {
    card.CorrectMessage = "Yes";
    machine.player.Length = 10000;
    machine.machine.Random.Numbers = {0};
    Show(true);
    EXPECT_THAT(chosen, ElementsAre(1));
    EXPECT_GE(machine.screen.Milliseconds(), 3000 + 50 + 10000);
    EXPECT_LT(machine.screen.Milliseconds(), 3000 + 50 + 10200);
    EXPECT_THAT(machine.errors, IsEmpty());
    EXPECT_EQ(machine.g.gErrHandler.StackTop, 0);
}

struct StaysRow {
    const char* Name;
    int CorrectAnswer, Tries;
    const char* CorrectMessage;
};

class CardStaysTest : public DlgDrawCardTest, public testing::WithParamInterface<StaysRow> {};

TEST_P(CardStaysTest, OpenForAComputer) {
    card.CorrectAnswer = GetParam().CorrectAnswer;
    card.CorrectMessage = GetParam().CorrectMessage;
    game->Tries = GetParam().Tries;
    machine.machine.Random.Numbers = {0};
    EXPECT_THROW(Show(true), Stuck);
    EXPECT_TRUE(dialog.Visible && dialog.Done);
    EXPECT_FALSE(dialog.Timer1.Enabled);
}

INSTANTIATE_TEST_SUITE_P(Cards, CardStaysTest,
                         testing::Values(StaysRow{"RightWithoutAText", 1, 1, " "},
                                         StaysRow{"MissWithoutTries", 2, 0, "Yes"}),
                         [](const auto& row) { return row.param.Name; });

}  // namespace
}  // namespace tabulon
