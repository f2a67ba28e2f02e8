#include "presentation/text_fitting.h"

#include <gmock/gmock.h>

#include "support/test_machine.h"

namespace tabulon {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// Measures by a rule that can be reckoned: a character is as wide as its font's size, a line twice as high.
class MeasuringScreen final : public Screen {
  public:
    explicit MeasuringScreen(int pixelsPerInch) : m_pixelsPerInch(pixelsPerInch) {}

    TextExtent MeasureText(const Font& font, std::string_view text, int width) override {
        Widths.push_back(width);
        const int word = LongestWord * font.Size;
        const int room = std::max(width, word);
        const int length = static_cast<int>(text.size()) * font.Size;
        return {word, (length + room - 1) / room * 2 * font.Size};
    }
    void Show(Form&) override {}
    void ShowModal(Form&) override {}
    void Hide(Form&) override {}
    void PumpEvents() override {}
    void Sleep(int) override {}
    void Beep() override {}
    void FlushKeys() override {}
    void SetMousePointer(MousePointer) override {}
    Picture LoadPicture(const std::filesystem::path&) override { return {}; }
    int WidthPixels() const override { return 1024; }
    int HeightPixels() const override { return 768; }
    int LogicalPixelsPerInch() const override { return m_pixelsPerInch; }
    BoxAnswer MsgBox(const std::string&, BoxIcon, BoxButtons, const std::string&) override {
        return BoxAnswer::Ok;
    }

    int LongestWord = 0;  // characters
    std::vector<int> Widths;

  private:
    int m_pixelsPerInch;
};

struct MeasuringMachine {
    explicit MeasuringMachine(int pixelsPerInch = 96) : screen(pixelsPerInch) { machine.SetUp(g); }
    test::TestMachine machine;
    MeasuringScreen screen;
    Globals g{machine.With(screen)};
    std::vector<std::string>& errors = machine.Errors;
};

struct Fitting {
    const char* Name;
    int Left, Width, Height;  // pixels
    int Characters, Before, After, WrapWidth;
};

void ExpectFitting(const Fitting& row, int pixelsPerInch) {
    MeasuringMachine m(pixelsPerInch);
    const float twips = m.screen.TwipsPerPixelX();
    Form form(m.screen, "form");
    Label label(form, "label");
    label.Move(static_cast<float>(row.Left) * twips, 500, static_cast<float>(row.Width) * twips,
               static_cast<float>(row.Height) * twips);
    label.Caption = std::string(static_cast<std::size_t>(row.Characters), 'x');
    label.Font.Size = row.Before;
    FitLabelText(m.g, label);
    EXPECT_EQ(label.Font.Size, row.After);
    EXPECT_THAT(m.screen.Widths, Each(row.WrapWidth));
    EXPECT_THAT(m.errors, IsEmpty());
    label.Caption = label.Caption.substr(0, 1);
    FitLabelText(m.g, label);
    EXPECT_EQ(label.Font.Size, row.After) << "never grows again";
}

TEST(FitLabelTextTest, ShrinksInWholePoints) {
    const Fitting rows[] = {
        {"Fits", 10, 200, 40, 18, 10, 10, 180},
        {"FitsToThePixel", 10, 200, 40, 36, 10, 10, 180},
        {"OnePixelTooHigh", 10, 200, 39, 36, 10, 9, 180},
        {"WrapsByTwiceItsLeft", 60, 200, 20, 18, 10, 5, 80},
        {"FurtherToTheLeft", 0, 200, 20, 18, 10, 10, 200},
        {"DownToOnePoint", 0, 100, 2, 50, 30, 1, 100},
        {"Empty", 10, 200, 1, 0, 30, 30, 180},
    };
    for (const Fitting& row : rows) {
        for (const int density : {96, 120}) {
            SCOPED_TRACE(row.Name + std::to_string(density));
            ExpectFitting(row, density);
        }
    }
}

TEST(FitLabelTextTest, FailsWhenOnePointIsTooHigh) {
    MeasuringMachine m;
    Form form(m.screen, "form");
    Label label(form, "label");
    label.Move(0, 0, 1500, 15);
    label.Caption = "x";
    label.Font.Size = 5;
    FitLabelText(m.g, label);
    EXPECT_THAT(m.errors, ElementsAre("modMain:FitLabelText 380"));
    EXPECT_EQ(label.Font.Size, 1);
    EXPECT_EQ(m.g.gErrHandler.StackTop, 0);
}

TEST(FitLabelTextTest, KeepsTheRoomThatTheLongestWordNeeded) {
    MeasuringMachine m;
    m.screen.LongestWord = 5;
    Form form(m.screen, "form");
    Label label(form, "label");
    label.Move(80 * 15, 0, 100 * 15, 40 * 15);
    label.Caption = std::string(20, 'x');
    label.Font.Size = 10;
    FitLabelText(m.g, label);
    EXPECT_EQ(label.Font.Size, 6);
    EXPECT_THAT(m.screen.Widths, ElementsAre(-60, 50, 50, 50, 50));
}

TEST(FitLabelTextTest, PlacesInAPictureBoxArePixels) {
    MeasuringMachine m(120);
    Form form(m.screen, "form");
    PictureBox box(form, "box");
    Label label(form, "label", &box);
    label.Move(10, 0, 200, 39);
    label.Caption = std::string(36, 'x');
    label.Font.Size = 10;
    FitLabelText(m.g, label);
    EXPECT_EQ(label.Font.Size, 9);
    EXPECT_THAT(m.screen.Widths, Each(180));
}

/// One control of each kind, with a font of its own.
struct FullForm : Form {
    FullForm(Screen& screen, const char* name) : Form(screen, name) {
        for (Control* control : Controls) {
            control->Move(0, 0, 3000, 30000);
            if (Font* font = FontOf(*control)) *font = {"Design", 20, true};
        }
    }
    Label label{*this, "label"};
    Button button{*this, "button"};
    PictureButton pictureButton{*this, "pictureButton"};
    TextBox text{*this, "text"};
    CheckBox check{*this, "check"};
    ComboBox combo{*this, "combo"};
    ListBox list{*this, "list"};
    Image image{*this, "image"};
    Shape shape{*this, "shape"};
    UpDown upDown{*this, "upDown"};
    RichText rich{*this, "rich"};
};

TEST(SetFormObjectFontsTest, GivesEachKindItsPart) {
    for (const bool splash : {false, true}) {
        MeasuringMachine m;
        FullForm form(m.screen, splash ? "frmSplash" : "dlgOther");
        SetFormObjectFonts(m.g, form, "Game", 14);
        const int inputSize = splash ? 20 : 14;
        const Font input{"Game", inputSize, true};
        for (Control* control :
             std::initializer_list<Control*>{&form.button, &form.text, &form.combo, &form.list})
            EXPECT_EQ(*FontOf(*control), input) << control->Name << inputSize;
        EXPECT_EQ(form.check.Font, (Font{"Game", 14, true}));
        EXPECT_EQ(form.label.Font, (Font{"Game", 20, true})) << "keeps the size of its design";
        for (Control* control : std::initializer_list<Control*>{&form.pictureButton, &form.rich})
            EXPECT_EQ(*FontOf(*control), (Font{"Design", 20, true})) << control->Name;
        EXPECT_THAT(m.errors, IsEmpty());
    }
}

TEST(SetFormObjectFontsTest, FitsTheLabelsAndGoesOnAfterOneThatNeverFits) {
    MeasuringMachine m;
    FullForm form(m.screen, "dlgOther");
    Label flat(form, "flat");
    flat.Move(0, 0, 3000, 0);
    flat.Caption = "x";
    Label last(form, "last");
    last.Move(0, 0, 3000, 16 * 15);
    last.Caption = "x";
    last.Font.Size = 20;
    SetFormObjectFonts(m.g, form, "Game", 14);
    EXPECT_THAT(m.errors, ElementsAre("modMain:FitLabelText 380"));
    EXPECT_EQ(last.Font, (Font{"Game", 8, false}));
}

TEST(SelectItemInDropDownListTest, TakesTheFirstThatIsExactlyEqual) {
    MeasuringMachine m;
    Form form(m.screen, "form");
    ComboBox list(form, "list");
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    for (const char* text : {"animals", "Animals ", "Animals", "Objects", "Animals"}) list.AddItem(text);
    const std::tuple<const char*, int, int> rows[] = {
        {"Ships", -1, 0}, {"Animals", 2, 1}, {"OBJECTS", 2, 1}, {"", 2, 1}, {"Objects", 3, 2}};
    for (const auto& [item, selected, clicked] : rows) {
        SelectItemInDropDownList(m.g, list, item);
        EXPECT_EQ(list.ListIndex, selected) << item;
        EXPECT_EQ(clicks, clicked) << item;
    }
}

TEST(SelectItemInDropDownListTest, ReportsUnderItsBareName) {
    MeasuringMachine m;
    Form form(m.screen, "form");
    ComboBox list(form, "list");
    list.AddItem("One");
    list.Click = [] { throw Failure(FailureNumber::InvalidCall); };
    SelectItemInDropDownList(m.g, list, "One");
    EXPECT_THAT(m.errors, ElementsAre("SelectItemInDropDownList 5"));
}

TEST(IsFormLoadedTest, ComparesExactly) {
    MeasuringMachine m;
    Form form(m.screen, "frmMain");
    EXPECT_FALSE(IsFormLoaded(m.g, "frmMain"));
    form.Load();
    EXPECT_TRUE(IsFormLoaded(m.g, "frmMain"));
    for (const char* name : {"FRMMAIN", "frmMai", "frmMain ", ""})
        EXPECT_FALSE(IsFormLoaded(m.g, name)) << name;
    form.Unload();
    EXPECT_FALSE(IsFormLoaded(m.g, "frmMain"));
}

TEST(ScoreCaptionTest, IsMoneyForOneAlone) {
    for (const int goal : {-1, 0, 2, 3}) EXPECT_EQ(ScoreCaption(goal), "Points: ") << goal;
    EXPECT_EQ(ScoreCaption(1), "Money: ");
}

}  // namespace
}  // namespace tabulon
