#pragma once

#include <cstdint>

#include "board/turn_device_images.h"
#include "diagnostics/globals.h"
#include "platform/array.h"

namespace tabulon {

/// The slot machine: opens, runs its reels one after the other, and closes. The number that a reel stops on
/// is what its scrolling arrives at.
class FrmSlots : public Form {
  public:
    static constexpr int ReelCount = 6;

    explicit FrmSlots(Globals& g);

    /// Fills intValues, which has slots 0 to 5, with the numbers of intSlotsUsed reels, and the rest with 0.
    void GetData(Array<Integer>& intValues, Integer intSlotsUsed, std::int32_t intMaxSlotValue, bool& Result);

    PictureBox picFrame{*this, "picFrame"};
    ControlArray<PictureBox, ReelCount> picSlotView{*this, "picSlotView", &picFrame};
    ControlArray<Image, 2 * ReelCount> imgSlot{*this, "imgSlot",
                                               [this](int i) { return &picSlotView[i / 2]; }};
    ControlArray<Image, ReelCount> imgFrame{*this, "imgFrame", &picFrame};

  protected:
    void Design() override;

  private:
    struct Reel {
        Image& Top;
        Image& Bottom;
        Integer CurrentNumber;  // on Top
        Integer NextNum;        // on Bottom
        bool FirstStep = true;
    };

    void RepositionElements();
    void PositionObjects(Integer intSlotsUsed);
    void RunSlots(Integer intSlotsUsed);
    void RunReel(int index, Reel& reel);
    void Step(Reel& reel);
    void MoveUp(Image& image);
    void PutBelow(Image& image, const Image& other);
    Integer NextNumber(Integer N);
    Integer SetupWinningSlot(PictureBox& View, Image& ImageA, Image& ImageB, Integer NumberA,
                             Integer NumberB);

    Globals& m_g;
    TurnDeviceImages m_images;
    Array<Integer> SlotValues;
    std::int32_t intMaxSlotValue = 0;
};

}  // namespace tabulon
