#include "board/turn_devices.h"

#include <algorithm>

#include "board/turn_device_images.h"
#include "content/game_words.h"
#include "content/required.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

constexpr int FrameMilliseconds = 300;
constexpr int ResultMilliseconds = 3000;
constexpr int FewestRounds = 6;
constexpr int GapBetweenDice = 20;  // pixels

}  // namespace

void TurnDevices::HideAndCenterImages(Integer /*number*/) {
    Procedure(m_g.gErrHandler, "frmMain:HideAndCenterImages", [&] {
        const bool dice = Required(m_form.Game).TurnDevice == Device::Dice;
        for (int i = 0; i < MaxSeats; ++i)
            if (!dice || i > 0) m_form.imgDice[i].Visible = false;
        PlaceDice();
    });
}

void TurnDevices::PlaceDice() {
    const float middle = static_cast<float>(m_form.BoardHeight()) / 2;
    if (Required(m_form.Game).TurnDevice == Device::Dice)
        for (Image& die : m_form.imgDice) die.Top = middle - die.Height / 2;
    CenterDice();
}

// The gaps are not part of the total, so the row stands a little to the right of the middle.
void TurnDevices::CenterDice() {
    Procedure(m_g.gErrHandler, "frmMain:CenterDice", [&] {
        const int count = Required(m_form.Game).DiceUsed.Value();
        const std::int32_t middle = ToLong(static_cast<double>(m_form.BoardWidth()) / 2);
        std::int32_t total = 0;
        for (int i = 0; i < count; ++i) total = ToLong(static_cast<double>(total) + m_form.imgDice[i].Width);
        std::int32_t x = ToLong(middle - static_cast<double>(total) / 2);
        for (int i = 0; i < count; ++i) {
            m_form.imgDice[i].Left = static_cast<float>(x);
            x = ToLong(static_cast<double>(m_form.imgDice[i].Width) + x + GapBetweenDice);
        }
    });
}

void TurnDevices::RollDice() {
    Procedure(
        m_g.gErrHandler, "frmMain:RollDice",
        [&] {
            DisableButtons();
            m_g.Random.Randomize();
            m_form.State.LastRoll = 0;
            ShowDice();
            // The draw never exceeds the fewest rounds, but it uses up a number.
            const int rounds = std::max(m_g.Random.Draw(8, -1), FewestRounds);
            DieValues values{};
            for (int i = 0; i < rounds; ++i) RollOnce(values);
            m_form.State.LastRoll = 0;
            for (int i = 0; i < Required(m_form.Game).DiceUsed.Value(); ++i)
                m_form.State.LastRoll += values.at(static_cast<std::size_t>(i));
            m_g.TheScreen.Sleep(ResultMilliseconds);
            for (Image& die : m_form.imgDice) die.Visible = false;
            SettleDouble(values);
            EnableButtons();
        },
        [&] { EnableButtons(); });
}

void TurnDevices::ShowDice() {
    for (int i = 0; i < MaxSeats; ++i) {
        Image& die = m_form.imgDice[i];
        die.Visible = i < Required(m_form.Game).DiceUsed.Value();
        if (die.Visible) die.Raise();
    }
}

void TurnDevices::RollOnce(DieValues& values) {
    TurnDeviceImages images;
    for (int die = 0; die < Required(m_form.Game).DiceUsed.Value(); ++die) {
        int frame = 0;
        // The highest draw is frame 22, so a six comes half as often as any other face.
        while (frame < 1) frame = m_g.Random.Draw(24, -1);
        images.SetDieFrame(m_form.imgDice[die], frame);
        m_g.TheScreen.PumpEvents();
        m_form.EndIfLeft();
        values.at(static_cast<std::size_t>(die)) = FaceOfFrame(frame);
    }
    m_g.TheScreen.Sleep(FrameMilliseconds);
}

void TurnDevices::SettleDouble(const DieValues& values) {
    const PlayState& state = m_form.State;
    if (!state.RollDouble[state.RuleA(state.WhoseTurn)]) return;
    const int count = std::max(0, Required(m_form.Game).DiceUsed.Value());
    const auto end = values.begin() + count;
    for (auto die = values.begin(); die != end; ++die) {
        if (std::count(values.begin(), end, *die) < 2) continue;
        CelebrateDouble();
        return;
    }
}

void TurnDevices::CelebrateDouble() {
    PlayState& state = m_form.State;
    m_music.StopGameMusic();
    m_music.PlayGameMusic(m_form.Game->MusicGenre, "good_roll", false);
    state.RollDouble[state.RuleA(state.WhoseTurn)] = false;
}

void TurnDevices::RunSlots() {
    Procedure(
        m_g.gErrHandler, "frmMain:RunSlots",
        [&] {
            DisableButtons();
            const CGame& game = Required(m_form.Game);
            m_form.State.LastRoll = 0;
            Array<Integer> values;
            values.ReDim(MaxSeats - 1);
            Array<Integer> doubles;
            doubles.ReDim(9);
            bool spun = false;
            m_frmSlots.GetData(values, game.DiceUsed, game.MaxSlotValue.Value(), spun);
            m_form.EndIfLeft();
            if (spun) {
                Tally(values, doubles);
                SettleDouble(doubles);
            }
            EnableButtons();
        },
        [&] { EnableButtons(); });
}

// One round more than there are reels: with six of them it falls off the end of the values, and the spin ends
// there with its sum complete.
void TurnDevices::Tally(const Array<Integer>& values, Array<Integer>& doubles) {
    PlayState& state = m_form.State;
    for (int i = 0; i <= Required(m_form.Game).DiceUsed.Value(); ++i) {
        state.LastRoll += values[i];
        if (state.RollDouble[state.RuleA(state.WhoseTurn)]) doubles[i] = values[i];
    }
}

// Goes on after the first pair, and meets each pair twice.
void TurnDevices::SettleDouble(const Array<Integer>& doubles) {
    const PlayState& state = m_form.State;
    if (!state.RollDouble[state.RuleA(state.WhoseTurn)]) return;
    const int count = std::max(0, Required(m_form.Game).DiceUsed.Value());
    for (int pair = 0; pair < count * count; ++pair) {
        const int one = pair / count;
        const int other = pair % count;
        if (one != other && doubles[one] == doubles[other]) CelebrateDouble();
    }
}

void TurnDevices::DisableButtons() {
    m_form.cmdNew.Enabled = false;
    ToggleTurnDeviceButton(false);
    m_form.cmdQuit.Enabled = false;
    m_form.ClearFocus();
}

void TurnDevices::EnableButtons() {
    m_form.cmdNew.Enabled = true;
    m_form.cmdQuit.Enabled = true;
    ToggleTurnDeviceButton(true);
    SetTurnDeviceButtonFocus();
}

void TurnDevices::HideDiceImages(Integer FirstDie) {
    Procedure(m_g.gErrHandler, "frmMain:HideDiceImages", [&] {
        for (int i = FirstDie.Value(); i < MaxSeats; ++i) m_form.imgDice[i].Visible = false;
    });
}

void TurnDevices::SetTurnDeviceButton(Integer Device) {
    Procedure(m_g.gErrHandler, "frmMain:SetTurnDeviceButton", [&] {
        if (Device != Device::Dice && Device != Device::Slots && Device != Device::Pass) return;
        m_form.cmdFakeRoll.Caption = Device == Device::Dice    ? "&Roll Dice"
                                     : Device == Device::Slots ? "&Spin Slots"
                                                               : "&Pass";
        m_form.cmdRoll.Visible = Device == Device::Dice;
        m_form.cmdSpin.Visible = Device == Device::Slots;
        m_form.cmdPass.Visible = Device == Device::Pass;
    });
}

PictureButton* TurnDevices::DeviceButton() {
    const Integer device = Required(m_form.Game).TurnDevice;
    if (device == Device::Dice) return &m_form.cmdRoll;
    if (device == Device::Slots) return &m_form.cmdSpin;
    return nullptr;
}

void TurnDevices::ToggleTurnDeviceButton(bool Enable) {
    Procedure(m_g.gErrHandler, "frmMain:ToggleTurnDeviceButton", [&] {
        if (PictureButton* button = DeviceButton()) button->Enabled = Enable;
    });
}

void TurnDevices::SetTurnDeviceButtonFocus() {
    Procedure(m_g.gErrHandler, "frmMain:SetTurnDeviceButtonFocus", [&] {
        PictureButton* button = DeviceButton();
        if (!button) return;
        if (button->Enabled && button->Visible) {
            button->SetFocus();
            return;
        }
        m_g.TheScreen.MsgBox(
            "Turn device not specified correctly.\r\n\r\nThe game may be corrupted, and may\r\nneed to be "
            "reinstalled "
            "or repackaged.",
            BoxIcon::None, BoxButtons::Ok, m_g.Application.Title);
    });
}

}  // namespace tabulon
