#include "board/frmSlots.h"

#include <algorithm>
#include <cmath>

#include "presentation/modRepositioner.h"

namespace tabulon {

namespace {

constexpr int StepsPerNumber = 4;
constexpr int StepMilliseconds = 15;
constexpr int AfterReelMilliseconds = 350;
constexpr int LastLookMilliseconds = 750;

// Pixels. A number fills its view, and a quarter of it is a whole number of pixels.
constexpr int ViewSize = 64;
constexpr int ViewTop = 44;

// The width of all columns but for a margin, in twips of the two densities.
constexpr int SmallFontsWidth = 7335;
constexpr int LargeFontsWidth = 6800;
constexpr int SmallFontsTwips = 15;
constexpr int LargeFontsTwips = 12;
constexpr int Margin = 93;

/// A reel's part of the window in whole pixels: the columns end where a window for as many reels does.
struct Column {
    float Left;
    float Width;
    float ViewLeft() const { return Left + std::floor((Width - ViewSize) / 2); }
};

Column ColumnAt(int index, int width, int twips) {
    const auto edge = [width, twips](int column) {
        return std::round(static_cast<float>(column * (width + Margin)) /
                          (FrmSlots::ReelCount * static_cast<float>(twips)));
    };
    return {edge(index), edge(index + 1) - edge(index)};
}

}  // namespace

FrmSlots::FrmSlots(Globals& g) : Form(g.TheScreen, "frmSlots"), m_g(g) {
    Frame = WindowFrame::None;
    SlotValues.ReDim(ReelCount - 1);
}

void FrmSlots::Design() {
    Caption = "Slots";
    Background = Picture::Product("product/slots");
    const float x = m_g.TheScreen.TwipsPerPixelX();
    const float y = m_g.TheScreen.TwipsPerPixelY();
    PositionForm(m_g, *this, 506, 166, 0);
    picFrame.Move(0, 0, 506 * x, 166 * y);
    for (int i = 0; i < ReelCount; ++i) {
        const Column column = ColumnAt(i, SmallFontsWidth, SmallFontsTwips);
        picSlotView[i].Move(column.ViewLeft(), ViewTop, ViewSize, ViewSize);
        imgFrame[i].Move(column.Left, 0, column.Width, 166);
        imgFrame[i].Picture = Picture::Product("product/reel-frame");
        picSlotView[i].Visible = imgFrame[i].Visible = true;
        imgSlot[2 * i].Move(0, 0, ViewSize, ViewSize);
        imgSlot[2 * i + 1].Move(0, ViewSize, ViewSize, ViewSize);
        imgSlot[2 * i].Picture = imgSlot[2 * i + 1].Picture = {};
    }
}

void FrmSlots::RepositionElements() {
    Procedure(m_g.gErrHandler, "frmSlots:RepositionElements", [&] {
        if (m_g.SmallFonts) return;
        for (int i = 0; i < ReelCount; ++i) {
            const Column column = ColumnAt(i, LargeFontsWidth, LargeFontsTwips);
            picSlotView[i].Left = column.ViewLeft();
            imgFrame[i].Left = column.Left;
            imgFrame[i].Width = column.Width;
        }
    });
}

void FrmSlots::GetData(Array<Integer>& intValues, Integer intSlotsUsed, std::int32_t maxSlotValue,
                       bool& Result) {
    Procedure(
        m_g.gErrHandler, "frmSlots:GetData",
        [&] {
            Result = true;
            Load();
            RepositionElements();
            PositionObjects(intSlotsUsed);
            Show();
            m_g.TheScreen.PumpEvents();
            intMaxSlotValue = maxSlotValue;
            RunSlots(intSlotsUsed);
            for (int i = 0; i < intSlotsUsed.Value(); ++i) intValues[i] = SlotValues[i];
            for (int i = intSlotsUsed.Value(); i < ReelCount; ++i) intValues[i] = 0;
            m_g.TheScreen.Sleep(LastLookMilliseconds);
            Unload();
        },
        [&] { Unload(); });
}

void FrmSlots::PositionObjects(Integer intSlotsUsed) {
    Procedure(m_g.gErrHandler, "frmSlots:PositionObjects", [&] {
        const int reels = intSlotsUsed.Value();
        const double w = m_g.SmallFonts ? 7335 : 6800;
        const int columns = std::min(reels, ReelCount);  // more fail later; no window must be that wide
        picFrame.Width = static_cast<float>(w / 6 * columns + 93.0 / 6 * columns);
        if (reels == 1) picFrame.Width += 93;
        picFrame.Left = 0;
        Width = picFrame.Width;
        // With five reels the sixth column lies outside the window.
        if (reels >= 5) return;
        for (int i = reels; i < ReelCount; ++i) imgFrame[i].Visible = picSlotView[i].Visible = false;
    });
}

void FrmSlots::RunSlots(Integer intSlotsUsed) {
    Procedure(m_g.gErrHandler, "frmSlots:RunSlots", [&] {
        for (int i = 0; i < intSlotsUsed.Value(); ++i) {
            Reel reel{imgSlot[2 * i], imgSlot[2 * i + 1], 0, 0, true};
            RunReel(i, reel);
        }
    });
}

void FrmSlots::RunReel(int index, Reel& reel) {
    reel.Top.Top = 0;
    PutBelow(reel.Bottom, reel.Top);
    m_g.Random.Randomize();
    const int spins = m_g.Random.Draw(12, 1);
    reel.CurrentNumber = m_g.Random.Draw(intMaxSlotValue, 1);
    reel.NextNum = NextNumber(reel.CurrentNumber);
    m_images.SetReelNumber(reel.Top, reel.CurrentNumber);
    for (int spin = 0; spin < spins; ++spin) {
        m_images.SetReelNumber(reel.Bottom, reel.NextNum);
        for (int i = 0; i < StepsPerNumber; ++i) Step(reel);
    }
    m_g.TheScreen.Sleep(AfterReelMilliseconds);
    SlotValues[index] =
        SetupWinningSlot(picSlotView[index], reel.Top, reel.Bottom, reel.CurrentNumber, reel.NextNum);
}

// A picture that has left the view comes back below the other inside the same step as the other's move, so a
// second wrap comes after three steps and the pictures no longer meet the view's edge.
void FrmSlots::Step(Reel& reel) {
    MoveUp(reel.Top);
    if (reel.FirstStep) {
        reel.FirstStep = false;
    } else if (reel.Top.Top == 0) {
        PutBelow(reel.Bottom, reel.Top);
        reel.NextNum = NextNumber(reel.CurrentNumber);
        m_images.SetReelNumber(reel.Bottom, reel.NextNum);
    }
    MoveUp(reel.Bottom);
    if (reel.Bottom.Top == 0) {
        PutBelow(reel.Top, reel.Bottom);
        reel.CurrentNumber = NextNumber(reel.NextNum);
        m_images.SetReelNumber(reel.Top, reel.CurrentNumber);
    }
    m_g.TheScreen.Sleep(StepMilliseconds);
}

void FrmSlots::MoveUp(Image& image) { image.Top -= image.Height / StepsPerNumber; }

void FrmSlots::PutBelow(Image& image, const Image& other) { image.Top = other.Height + other.Top; }

Integer FrmSlots::NextNumber(Integer N) {
    Integer next = 0;
    Procedure(m_g.gErrHandler, "frmSlots:NextNumber", [&] {
        next = N + 1;
        if (next.Value() > intMaxSlotValue) next = 1;
    });
    return next;
}

// The heights decide and not the places: pictures of one height always stop on the second.
Integer FrmSlots::SetupWinningSlot(PictureBox& View, Image& ImageA, Image& ImageB, Integer NumberA,
                                   Integer NumberB) {
    Integer stopped = 0;
    Procedure(m_g.gErrHandler, "frmSlots:SetupWinningSlot", [&] {
        const float middle = View.Height / 2;
        const float distanceA = std::fabs(ImageA.Height / 2 - middle);
        const float distanceB = std::fabs(ImageB.Height / 2 - middle);
        const bool first = distanceA > distanceB;
        Image& winner = first ? ImageA : ImageB;
        winner.Top = 0;
        PutBelow(first ? ImageB : ImageA, winner);
        stopped = first ? NumberA : NumberB;
    });
    return stopped;
}

}  // namespace tabulon
