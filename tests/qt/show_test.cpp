#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>
#include <cmath>

#include "qt/look.h"
#include "qt/screen_test.h"
#include "qt/text.h"

namespace tabulon {
namespace {

class Showing : public ScreenTest {
  protected:
    static bool HasColour(const QImage& image, QRgb colour) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == colour) return true;
        return false;
    }
};

TEST_F(Showing, PlacesEachControlByItsTwipsAndInAPictureBoxByPixels) {
    form.lblName.Left = screen.TwipsPerPixelX() * 10.6f;
    Show(form);
    const auto pixels = [this](float twips) { return static_cast<int>(std::lround(twips / form.Twips(1))); };
    for (const Control* control : form.Controls) {
        if (control->Container || control == &form.cmdFakeRoll) continue;
        const QRect expected(pixels(control->Left), pixels(control->Top), pixels(control->Width),
                             pixels(control->Height));
        EXPECT_EQ(Find(*control).geometry(), expected) << control->Name;
    }
    EXPECT_EQ(Find(form.lblName).x(), 11) << "rounded";
    EXPECT_EQ(Find(form.imgPiece).geometry(), QRect(7, 9, 33, 35));
    EXPECT_EQ(Find(form.imgPiece).parentWidget(), &Find(form.picBoard));
}

TEST_F(Showing, SizesAndCentresTheWindow) {
    Show(form);
    const QWidget& window = *WindowOf(form);
    EXPECT_EQ(window.size(), QSize(400, 300));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    EXPECT_EQ(form.Left, form.Twips((screen.WidthPixels() - 400) / 2));
    EXPECT_EQ(window.pos(), QPoint((screen.WidthPixels() - 400) / 2, (screen.HeightPixels() - 300) / 2));
}

TEST_F(Showing, CoversTheScreenWithAFullScreenForm) {
    form.Frame = WindowFrame::FullScreen;
    Show(form);
    EXPECT_EQ(WindowOf(form)->geometry(), QRect(0, 0, screen.WidthPixels(), screen.HeightPixels()));
    EXPECT_TRUE(WindowOf(form)->windowFlags() & Qt::FramelessWindowHint);
}

TEST_F(Showing, AppliesChangesAtTheNextPump) {
    Show(form);
    form.lblName.Caption = "Anna";
    form.cmdOk.Enabled = false;
    form.imgPiece.Visible = false;
    form.imgPiece.Move(50, 60, 33, 33);
    form.Caption = "Players";
    screen.PumpEvents();
    EXPECT_EQ(Find<QLabel>(form.lblName).text(), "Anna");
    EXPECT_FALSE(Find(form.cmdOk).isEnabled());
    EXPECT_TRUE(Find(form.imgPiece).isHidden());
    EXPECT_EQ(Find(form.imgPiece).pos(), QPoint(50, 60));
    EXPECT_EQ(WindowOf(form)->windowTitle(), "Players");
}

TEST_F(Showing, ShowsTextListsAndTicks) {
    form.txtName.Text = "Bert";
    form.txtName.MaxLength = 20;
    form.chkComputer.Caption = "&Computer";
    form.chkComputer.Value = true;
    form.cboGame.AddItem("Race", 1, "A race around the farm");
    form.cboGame.AddItem("Quiz");
    form.cboGame.ListIndex = 1;
    form.lstPlayers.AddItem("Anna", 0, "<b>first</b>");
    form.lstPlayers.ListIndex = 0;
    form.rtfText.Content = "Once <i>upon</i>";
    Show(form);
    EXPECT_EQ(Find<QLineEdit>(form.txtName).text(), "Bert");
    EXPECT_EQ(Find<QLineEdit>(form.txtName).maxLength(), 20);
    EXPECT_TRUE(Find<QCheckBox>(form.chkComputer).isChecked());
    EXPECT_EQ(Find<QComboBox>(form.cboGame).currentText(), "Quiz");
    EXPECT_EQ(Find<QComboBox>(form.cboGame).itemData(0, Qt::ToolTipRole), "A race around the farm");
    EXPECT_EQ(Find<QListWidget>(form.lstPlayers).currentRow(), 0);
    EXPECT_EQ(Find<QListWidget>(form.lstPlayers).item(0)->toolTip(), "<p>&lt;b&gt;first&lt;/b&gt;</p>");
    EXPECT_EQ(Find<QTextEdit>(form.rtfText).toPlainText(), "Once <i>upon</i>");
}

TEST_F(Showing, ChangesRowsWithoutCallingHandlers) {
    int clicks = 0;
    for (RowList* list : {static_cast<RowList*>(&form.cboGame), static_cast<RowList*>(&form.lstPlayers)})
        list->Click = [&clicks] { ++clicks; };
    form.txtName.Change = [&clicks] { ++clicks; };
    Show(form);
    form.cboGame.AddItem("Race");
    form.lstPlayers.AddItem("Anna");
    form.cboGame.ListIndex = form.lstPlayers.ListIndex = 0;
    form.txtName.Text = "Anna";
    screen.PumpEvents();
    form.lstPlayers.Clear();
    screen.PumpEvents();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(Find<QListWidget>(form.lstPlayers).count(), 0);
}

TEST_F(Showing, SelectsAllTextOnceWhenAsked) {
    form.txtName.Text = "Bert";
    Show(form);
    form.txtName.SelectAll();
    screen.PumpEvents();
    EXPECT_EQ(Find<QLineEdit>(form.txtName).selectedText(), "Bert");
    EXPECT_FALSE(form.txtName.SelectAllRequested);
}

TEST_F(Showing, StacksBySequenceOfRaising) {
    form.imgPiece.Move(0, 0, 40, 40);
    form.imgPiece.Picture = Picture::Piece(1);
    form.shpMarker.Move(0, 0, 40, 40);
    form.shpMarker.FillColor = {255, 0, 0};
    Show(form);
    EXPECT_TRUE(HasColour(Find(form.picBoard).grab().toImage(), qRgb(255, 0, 0)));
    form.imgPiece.Picture = Picture::Product("product/background");
    form.imgPiece.Raise();
    screen.PumpEvents();
    EXPECT_FALSE(HasColour(Find(form.picBoard).grab().toImage(), qRgb(255, 0, 0)));
}

TEST_F(Showing, PaintsLabelsOverWhatIsBehindThem) {
    form.picBoard.Picture = Picture::Product("product/background");
    form.lblRound.Caption = "Round 1";
    form.lblRound.Font.Size = 20;
    form.lblRound.Move(0, 0, 80, 30);
    form.lblRound.ForeColor = {255, 200, 61};
    Show(form);
    const QImage board = Find(form.picBoard).grab().toImage();
    EXPECT_TRUE(HasColour(board.copy(0, 0, 80, 30), qRgb(255, 200, 61)));
    EXPECT_FALSE(HasColour(board.copy(0, 0, 80, 30), Look::Teal.rgb()));
}

TEST_F(Showing, AButtonLooksDifferentInEachOfItsStates) {
    form.cmdRoll.Picture = Picture::Product("buttons/roll");
    Show(form);
    for (const Control* control :
         {static_cast<Control*>(&form.cmdOk), static_cast<Control*>(&form.cmdRoll)}) {
        auto& button = Find<QAbstractButton>(*control);
        std::vector<QImage> looks;
        QTest::mouseMove(&Find(form.txtName));
        const auto look = [&] {
            const QImage image = button.grab().toImage();
            EXPECT_EQ(std::count(looks.begin(), looks.end(), image), 0) << control->Name << looks.size();
            looks.push_back(image);
        };
        Find(form.txtName).setFocus();
        look();
        QTest::mouseMove(&button);
        look();
        button.setDown(true);
        look();
        button.setDown(false);
        QTest::mouseMove(&Find(form.txtName));
        button.setFocus();
        look();
        button.setEnabled(false);
        look();
    }
}

TEST_F(Showing, WhatIsDisabledHasAnotherGround) {
    form.cboGame.AddItem("Tuesday");
    form.cboGame.ListIndex = 0;
    Show(form);
    for (Control* control : std::initializer_list<Control*>{&form.cboGame, &form.txtName, &form.txtNotes,
                                                            &form.lstPlayers, &form.cmdOk, &form.updPiece}) {
        const auto ground = [&] {
            screen.PumpEvents();
            const QImage image = Find(*control).grab().toImage();
            return image.pixelColor(image.width() / 3, image.height() - 5);
        };
        const QColor enabled = ground();
        control->Enabled = false;
        EXPECT_NE(ground(), enabled) << control->Name;
    }
}

TEST_F(Showing, AToolTipNamesTheKeyOfTheTwinThatHasIt) {
    form.cmdRoll.ToolTipText = "Roll the dice";
    form.cmdRoll.Twin = &form.cmdFakeRoll;
    Show(form);
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"", "&Ok", "Roll the dice"},
        {"&Roll Dice", "&Ok", "Roll the dice (Alt+R)"},
        {"&Roll Dice", "&Remove", "Roll the dice"}};
    for (const auto& [twin, before, tip] : rows) {
        form.cmdFakeRoll.Caption = twin;
        form.cmdOk.Caption = before;
        screen.PumpEvents();
        EXPECT_EQ(Find(form.cmdRoll).toolTip(), tip);
    }
}

TEST_F(Showing, WithholdsAControlWithoutHidingIt) {
    Show(form);
    for (const bool withheld : {true, false}) {
        form.lblName.Withheld = withheld;
        screen.PumpEvents();
        EXPECT_EQ(Find(form.lblName).isVisible(), !withheld);
    }
}

TEST_F(Showing, ALabelShowsThatItIsHeldDown) {
    form.lblName.Caption = "A)";
    for (const bool clickable : {false, true}) {
        form.lblName.Click = clickable ? [] {} : std::function<void()>();
        Show(form);
        QWidget& label = Find(form.lblName);
        const QImage before = label.grab().toImage();
        QTest::mousePress(&label, Qt::LeftButton);
        EXPECT_EQ(label.grab().toImage() != before, clickable);
        QTest::mouseRelease(&label, Qt::LeftButton);
        EXPECT_EQ(label.grab().toImage(), before);
    }
}

struct RoomRow {
    const char* name;
    const char* caption;
    int width, height;
};
class LabelRoom : public Showing, public testing::WithParamInterface<RoomRow> {};

TEST_P(LabelRoom, IsNeverTooSmallForItsText) {
    form.Place(form.lblName, 10, 12, GetParam().width, GetParam().height);
    form.lblName.Caption = GetParam().caption;
    form.lblName.Font = {"DejaVu Sans", 18, true};
    form.lblName.ForeColor = {255, 0, 255};
    Show(form);
    const QImage label = Find(form.lblName).grab().toImage();
    const QRect room = label.rect();
    const QRgb ink = qRgb(255, 0, 255);
    EXPECT_TRUE(HasColour(label, ink));
    EXPECT_FALSE(HasColour(label.copy(0, room.bottom(), room.width(), 1), ink));
    EXPECT_FALSE(HasColour(label.copy(room.right(), 0, 1, room.height()), ink));
}
INSTANTIATE_TEST_SUITE_P(All, LabelRoom,
                         testing::Values(RoomRow{"LongWord", "Christopher", 88, 44},
                                         RoomRow{"WordToBreak", "HHHHHHHHHHHHHHHHHHHHHHHHHHHH", 88, 60},
                                         RoomRow{"TooLong", "HHHHHHHHHHHHHHHHHHHHHHHHHHHH", 40, 20},
                                         RoomRow{"ManyLines", "one two three four five six", 88, 44},
                                         RoomRow{"OtherFont", "王小明 李大华", 88, 44}),
                         [](const auto& row) { return row.param.name; });

TEST_F(Showing, EndsATextWithoutRoomInAnEllipsis) {
    const std::pair<QString, const char*> rows[] = {{QString("many words ").repeated(20), "…"},
                                                    {QString(250, 'w'), "…"},
                                                    {QString("שלום ").repeated(50), "…"},
                                                    {QString(25, 'w'), "w"}};
    const QFont font = ToQt(Font{"Comic Neue", 8, false});
    const QFontMetrics metrics(font);
    const QSize room(metrics.horizontalAdvance(QString(20, 'w')), 2 * metrics.lineSpacing());
    for (const auto& [text, end] : rows) {
        const QStringList lines = CutText(text, font, room).split('\n');
        EXPECT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines.last().endsWith(end)) << lines.last().toStdString();
        for (const QString& line : lines) EXPECT_LE(metrics.horizontalAdvance(line), room.width());
    }
}

TEST_F(Showing, KeepsLargeLettersInsideTheirLine) {
    form.txtName.Font.Size = form.cmdOk.Font.Size = form.cboGame.Font.Size = 60;
    form.cmdOk.Caption = "Ok";
    Show(form);
    for (const Control* control :
         std::initializer_list<Control*>{&form.txtName, &form.cmdOk, &form.cboGame}) {
        const QWidget& widget = Find(*control);
        EXPECT_LT(QFontMetrics(widget.font()).height(), widget.height()) << control->Name;
    }
}

TEST_F(Showing, CaptionsOfLabelsArePlainText) {
    const std::pair<const char*, const char*> rows[] = {{"Anna", "Anna"},
                                                        {"&A)", "A)"},
                                                        {"Tom && Ann", "Tom & Ann"},
                                                        {"<b>x</b>", "<b>x</b>"},
                                                        {"Tom &", "Tom &"}};
    Show(form);
    for (const auto& [caption, shown] : rows) {
        form.lblName.Caption = caption;
        screen.PumpEvents();
        EXPECT_EQ(Find<QLabel>(form.lblName).text(), shown);
    }
}

TEST_F(Showing, GivesEverythingANameAndADescription) {
    form.cmdRoll.ToolTipText = "Roll the dice";
    form.cmdOk.Caption = "&Ok";
    form.lblName.Caption = "Your &name";
    form.lstPlayers.AccessibleName = "Players";
    form.updPiece.AccessibleName = "Piece";
    Show(form);
    EXPECT_EQ(Find(form.cmdRoll).accessibleName(), "Roll the dice");
    EXPECT_EQ(Find(form.cmdRoll).accessibleDescription(), "Roll the dice");
    EXPECT_EQ(Find(form.cmdRoll).toolTip(), "Roll the dice");
    EXPECT_EQ(Find(form.txtName).accessibleName(), "Your name");
    EXPECT_EQ(Find(form.lstPlayers).accessibleName(), "Players");
    EXPECT_EQ(Find(form.lblName).accessibleName(), "");
    EXPECT_EQ(Find<QPushButton>(form.cmdOk).text(), "&Ok");
}

TEST_F(Showing, WrapsALongToolTip) {
    form.cmdOk.ToolTipText = std::string(254, 'x');
    Show(form);
    EXPECT_EQ(Find(form.cmdOk).toolTip(), "<p>" + QString(254, 'x') + "</p>");
}

TEST_F(Showing, KeepsAKeyboardTwinOutOfSight) {
    Show(form);
    EXPECT_FALSE(WindowOf(form)->rect().intersects(Find(form.cmdFakeRoll).geometry()));
    EXPECT_EQ(Find(form.cmdFakeRoll).focusPolicy(), Qt::NoFocus);
}

TEST_F(Showing, MinimisesAndRestoresWithTheForm) {
    int resizes = 0;
    form.Frame = WindowFrame::FullScreen;
    form.Resize = [&resizes] { ++resizes; };
    Show(form);
    form.WindowState = WindowState::Minimised;
    screen.PumpEvents();
    EXPECT_TRUE(WindowOf(form)->isMinimized());
    EXPECT_EQ(resizes, 0);
    screen.BringForward();
    EXPECT_EQ(form.WindowState, WindowState::Normal);
    EXPECT_EQ(resizes, 1);
}

TEST_F(Showing, ShowsAnUnloadedFormAfresh) {
    Show(form);
    form.Unload();
    EXPECT_EQ(WindowOf(form), nullptr);
    form.lblName.Caption = "Again";
    Show(form);
    EXPECT_EQ(Find<QLabel>(form.lblName).text(), "Again");
}

TEST_F(Showing, ANameIsShownAsItStands) {
    form.lblName.Caption = "Tom &Ann && Co";
    form.lblName.UseMnemonic = false;
    Show(form);
    EXPECT_EQ(Find<QLabel>(form.lblName).text(), "Tom &Ann && Co");
    const QImage name = Find(form.lblName).grab().toImage();
    form.lblName.Caption = "Tom &&Ann &&&& Co";
    form.lblName.UseMnemonic = true;
    screen.PumpEvents();
    EXPECT_EQ(Find(form.lblName).grab().toImage(), name);
}

TEST_F(Showing, MeasuresTextAsLabelsWrapIt) {
    const Font font{"DejaVu Sans", 10, false};
    const auto height = [&](const char* text, int width) {
        return screen.MeasureText(font, text, width).Height;
    };
    const int line = height("Gg", 500);
    EXPECT_GT(line, 0);
    EXPECT_EQ(height("one two three", 500), line);
    EXPECT_EQ(height("one two three", 1), 3 * line);
    EXPECT_EQ(height("one two", -40), 2 * line);
    EXPECT_EQ(height("<br><br>x", 500), line);
    EXPECT_EQ(screen.MeasureText(font, "a longest a", 1).Width,
              screen.MeasureText(font, "longest", 500).Width);
}

TEST_F(Showing, MeasuresALineByItsFontWhateverLettersItHolds) {
    const Font font{"Comic Neue", 12, false};
    const auto height = [&](const char* text) { return screen.MeasureText(font, text, 1).Height; };
    for (const char* word : {"王小明", "さくら", "김철수", "🦊", "שלום"})
        EXPECT_EQ(height(word), height("Gg")) << word;
    EXPECT_EQ(height("王小明 🦊"), height("Gg Gg"));
}

}  // namespace
}  // namespace tabulon
