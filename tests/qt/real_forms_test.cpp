#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

#include "app/program.h"
#include "headless/no_shell.h"
#include "platform/seeded_random.h"
#include "platform/temporary_directory.h"
#include "presentation/text_fitting.h"
#include "qt/control_view.h"
#include "qt/qt_screen.h"
#include "qt/text.h"

namespace tabulon {
namespace {

constexpr int LongestText = 254;

/// As long as a package may hold, with accents, signs and letters that run from right to left.
std::string Longest() {
    const QString sentence = QString::fromUtf8(
        "Die weiße Füchsin zählt 🦊 Äpfel & “naïve” crêpes, während שלום wartet. ");
    return sentence.repeated(8).left(LongestText).toStdString();
}

struct RunningProgram {
    RunningProgram() {
        program.globals.AppDir = folder.Path();
        program.globals.SmallFonts = IsSmallFonts(screen);
        program.globals.gErrHandler.ShowDetails = [](const std::string& details) {
            ADD_FAILURE() << details;
        };
        game->Font = "Comic Neue";
        game->FontSize = 16;
        game->GameName = "The Wonder Museum";
        game->Author = Longest().substr(0, 60);
        game->PreferredResolution = "1024 x 768";
        card.message = card.Answer1 = card.Answer3 = card.Answer4 = Longest();
        card.Answer2 = "Short";
    }

    void ShowAtOnce(Form& form) {
        form.Show();
        screen.PumpEvents();
    }

    test::TemporaryDirectory folder;
    QtScreen screen{TABULON_PICTURES, "Tab Player"};
    SystemClock clock;
    ClockSeededRandom random;
    NoShell shell;
    SilentOggPlayer player;
    SettingsStore store{":memory:"};
    Program program{Machine{screen, clock, random, shell, player, store, {}, folder.Path()}};
    std::shared_ptr<CGame> game = std::make_shared<CGame>(program.globals, program.packages);
    CCard card;
};

struct FormRow {
    const char* name;
    std::function<Form&(Program&)> form;
    std::function<void(RunningProgram&)> open;  // returns when the form has closed
};

void PrintTo(const FormRow& row, std::ostream* out) { *out << row.name; }

void AskCard(RunningProgram& run) {
    Integer action, data, tries = 2;
    bool done = false, correct = false, result = false;
    run.program.dlgDrawCard.GetData(run.game, run.card, action, data, tries, done, correct, false, false,
                                    result);
}

void AskPlayers(RunningProgram& run) {
    Integer count;
    Array<std::string> names, pieces;
    Array<bool> computers;
    bool result = false;
    run.program.dlgPlayers.GetData(run.game, count, names, pieces, computers, result);
}

void AskGame(RunningProgram& run) {
    Array<std::string> games, names, descriptions;
    for (Array<std::string>* list : {&games, &names, &descriptions}) list->ReDim(1);
    std::int32_t count = 0;
    bool isNew = false, result = false;
    run.program.dlgLoadGame.GetData(games, names, descriptions, count, &run.program.frmTabulonSplash, isNew,
                                    result);
}

const FormRow Rows[] = {
    {"Message", [](Program& p) -> Form& { return p.dlgMsgOk; },
     [](RunningProgram& run) { run.program.dlgMsgOk.ShowMessage(*run.game, Longest(), false, false); }},
    {"Question", [](Program& p) -> Form& { return p.dlgMsgYesNo; },
     [](RunningProgram& run) {
         bool yes = false;
         run.program.dlgMsgYesNo.ShowMessage(*run.game, "Quit this game and start a new one?", 0, yes);
     }},
    {"Card", [](Program& p) -> Form& { return p.dlgDrawCard; }, AskCard},
    {"Players", [](Program& p) -> Form& { return p.dlgPlayers; }, AskPlayers},
    {"Chooser", [](Program& p) -> Form& { return p.dlgLoadGame; }, AskGame},
    {"GameHelp", [](Program& p) -> Form& { return p.dlgRTF; },
     [](RunningProgram& run) {
         run.game->HelpFile = "help.txt";
         std::ofstream(run.folder.Path() / "help.txt") << Longest();
         bool ok = false;
         run.program.dlgRTF.ShowGameHelp(run.game, ok);
     }},
    {"Slots", [](Program& p) -> Form& { return p.frmSlots; },
     [](RunningProgram& run) { run.ShowAtOnce(run.program.frmSlots); }},
    {"Splash", [](Program& p) -> Form& { return p.frmTabulonSplash; },
     [](RunningProgram& run) { run.ShowAtOnce(run.program.frmTabulonSplash); }},
    {"TitlePage", [](Program& p) -> Form& { return p.frmSplash; },
     [](RunningProgram& run) {
         run.game->GameName = run.game->Author = run.game->PreferredResolution = Longest();
         run.program.frmSplash.SetUp(*run.game);
         run.screen.PumpEvents();
     }},
    {"Help", [](Program& p) -> Form& { return p.dlgHelp; },
     [](RunningProgram& run) { run.program.dlgHelp.SetUp(run.game); }},
    {"Tip", [](Program& p) -> Form& { return p.dlgTipOfTheDay; },
     [](RunningProgram& run) {
         bool ok = false;
         run.program.dlgTipOfTheDay.TipOfTheDay(ok);
     }},
    {"Install", [](Program& p) -> Form& { return p.dlgInstallGames; },
     [](RunningProgram& run) {
         bool installed = false;
         run.program.dlgInstallGames.GetData(Array<std::string>(), installed);
     }},
    {"Error", [](Program& p) -> Form& { return p.dlgError; },
     [](RunningProgram& run) {
         run.program.dlgError.SetData("Module: frmMain:RunSlots\r\nError: (9) Subscript");
     }},
    {"ErrorCause", [](Program& p) -> Form& { return p.dlgErrorCause; },
     [](RunningProgram& run) {
         std::string steps;
         bool ok = false;
         run.program.dlgErrorCause.GetData(steps, ok);
     }},
};

QWidget* WindowOf(const Form& form) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName().toStdString() == form.Name && window->isVisible()) return window;
    return nullptr;
}

bool IsOutOfSight(const Control& control) {
    return control.Kind == ControlKind::Button && static_cast<const Button&>(control).OutOfSight;
}

bool IsOnlyHeard(const Control& control) { return control.Left < 0; }

void ExpectTextFits(const QLabel& label) {
    const QRect room(0, 0, label.width(), 1 << 20);
    const QRect needed = label.fontMetrics().boundingRect(room, LabelTextFlags, label.text());
    EXPECT_LE(needed.height(), label.height()) << label.objectName().toStdString();
}

void ExpectLikeItsData(const Form& form, const QWidget& window) {
    const float twips = form.TheScreen.TwipsPerPixelX();
    EXPECT_EQ(window.width(), std::lround(form.Width / twips));
    EXPECT_EQ(window.height(), std::lround(form.Height / twips));
    for (const Control* control : form.Controls) {
        SCOPED_TRACE(control->Name);
        const auto* widget = window.findChild<QWidget*>(QString::fromStdString(control->Name));
        ASSERT_TRUE(widget);
        EXPECT_EQ(widget->isVisibleTo(&window), control->Visible);
        EXPECT_EQ(widget->isEnabled(), control->Enabled);
        if (IsOutOfSight(*control) || !control->Visible) continue;
        EXPECT_EQ(widget->geometry(), ToPixels(*control, twips));
        if (control->Container || IsOnlyHeard(*control)) continue;
        EXPECT_TRUE(window.rect().contains(widget->geometry()));
        if (const auto* label = dynamic_cast<const QLabel*>(widget)) ExpectTextFits(*label);
    }
}

/// What has text or can be used never lies over its like.
void ExpectNoOverlaps(const Form& form) {
    const auto counts = [](const Control* control) {
        const bool isGround = control->Kind == ControlKind::Shape || control->Kind == ControlKind::Image;
        return control->Visible && !control->Container && !isGround && !IsOutOfSight(*control);
    };
    const float twips = form.TheScreen.TwipsPerPixelX();
    for (const Control* a : form.Controls) {
        for (const Control* b : form.Controls) {
            if (a == b || !counts(a) || !counts(b)) continue;
            EXPECT_FALSE(ToPixels(*a, twips).intersects(ToPixels(*b, twips))) << a->Name << " " << b->Name;
        }
    }
}

/// Tab goes through the controls in their order, also those that are empty by now.
void ExpectTabOrder(const Form& form, const QWidget& window) {
    std::vector<std::string> order, stops;
    for (const Control* control : form.Controls) order.push_back(control->Name);
    for (const QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain()) {
        const std::string name = at->objectName().toStdString();
        if (std::ranges::find(order, name) != order.end()) stops.push_back(name);
    }
    EXPECT_EQ(stops, order);
}

/// The keyboard can come in, and on to all that can be used.
void ExpectFocus(const Form& form, const QWidget& window) {
    const auto takesKeys = [](const QWidget* widget) { return widget->focusPolicy() & Qt::TabFocus; };
    const auto widgets = window.findChildren<QWidget*>();
    EXPECT_EQ(window.focusWidget() != nullptr, std::any_of(widgets.begin(), widgets.end(), takesKeys));
    for (const Control* control : form.Controls) {
        const bool used = control->Visible && control->TabStop && !IsOutOfSight(*control);
        const bool kind = control->Kind == ControlKind::PictureButton || IsInput(control->Kind);
        if (!used || !kind) continue;
        const auto* widget = window.findChild<QWidget*>(QString::fromStdString(control->Name));
        EXPECT_TRUE(takesKeys(widget)) << control->Name;
    }
    EXPECT_FALSE(dynamic_cast<QLabel*>(window.focusWidget())) << "a key too many would choose it";
}

class RealForm : public testing::TestWithParam<FormRow> {};

TEST_P(RealForm, IsShownAsItsDataSay) {
    RunningProgram run;
    Form& form = GetParam().form(run.program);
    bool seen = false;
    QObject context;
    QTimer::singleShot(0, &context, [&] {
        QWidget* window = WindowOf(form);
        if (window) {
            seen = true;
            ExpectLikeItsData(form, *window);
            ExpectNoOverlaps(form);
            ExpectFocus(form, *window);
            ExpectTabOrder(form, *window);
        }
        form.Hide();
    });
    GetParam().open(run);
    EXPECT_TRUE(seen);
}

/// Without a game around it: only its controls are of interest.
TEST(RealMainForm, IsShownAsItsDataSay) {
    RunningProgram run;
    MainForm form(run.program.globals);
    form.Load();
    form.RepositionElements();
    form.ResizeObjects();
    form.lblGameName.Caption = Longest();
    for (int i = 0; i < MaxSeats; ++i) {
        form.lblName[i].Caption = i % 2 ? "דוד המלך" : "Zoë Füchsin 🦊";
        form.lblPoints[i].Caption = "Points: -32768";
        form.lblPoints[i].Visible = true;
    }
    SetFormObjectFonts(run.program.globals, form, "Comic Neue", 16);
    run.ShowAtOnce(form);
    const QWidget* window = WindowOf(form);
    ASSERT_TRUE(window);
    ExpectLikeItsData(form, *window);
    ExpectNoOverlaps(form);
    ExpectFocus(form, *window);
    ExpectTabOrder(form, *window);
}

INSTANTIATE_TEST_SUITE_P(All, RealForm, testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace tabulon
