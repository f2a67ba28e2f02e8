#pragma once

#include <array>

#include "board/frmSlots.h"
#include "board/main_form.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// Dice and slot machine of the main form, and its one turn button.
class TurnDevices {
  public:
    TurnDevices(Globals& g, MainForm& form, FrmGameMusic& music, FrmSlots& frmSlots)
        : m_g(g), m_form(form), m_music(music), m_frmSlots(frmSlots) {}

    /// The number is not used: the game says how many dice there are.
    void HideAndCenterImages(Integer number);
    void CenterDice();
    /// Puts the dice where they belong on a board of this size, shown or not.
    void PlaceDice();
    /// Rolls for about 4.8 seconds and leaves the sum in LastRoll. A pair clears the player's RollDouble.
    void RollDice();
    /// Spins the reels and leaves the sum in LastRoll. A pair clears the player's RollDouble.
    void RunSlots();
    void HideDiceImages(Integer FirstDie);

    /// Shows the roll (0), spin (1) or pass (3) button; another number does nothing.
    void SetTurnDeviceButton(Integer Device);
    void ToggleTurnDeviceButton(bool Enable);
    /// Says so when the game's turn button is not usable.
    void SetTurnDeviceButtonFocus();

  private:
    using DieValues = std::array<std::int32_t, MaxSeats>;

    void ShowDice();
    void RollOnce(DieValues& values);
    void SettleDouble(const DieValues& values);
    void Tally(const Array<Integer>& values, Array<Integer>& doubles);
    void SettleDouble(const Array<Integer>& doubles);
    void CelebrateDouble();
    void DisableButtons();
    void EnableButtons();
    PictureButton* DeviceButton();

    Globals& m_g;
    MainForm& m_form;
    FrmGameMusic& m_music;
    FrmSlots& m_frmSlots;
};

}  // namespace tabulon
