#include "app/turn_cycle.h"

#include "content/game_words.h"
#include "content/required.h"

namespace tabulon {

void TurnCycle::InitiateTurnDevice() {
    Procedure(m_g.gErrHandler, "frmMain:InitiateTurnDevice", [&] {
        PlayState& state = m_form.State;
        if (m_form.TurnBegins) m_form.TurnBegins();
        RunDevice();
        const bool moved = MoveByCondition();
        if (state.GameOver) {
            m_devices.ToggleTurnDeviceButton(false);
        } else {
            if (moved) ActOnSpace();
            ChooseNextSeat();
            ShowButtonOfSeat();
        }
        Redraw();
        m_form.cmdSaveGame.Enabled = true;
        if (state.GameOver) m_devices.ToggleTurnDeviceButton(false);
        m_form.FocusTurnButton();
    });
}

// While the pass button shows nothing is rolled, and the number of the turn before still serves.
void TurnCycle::RunDevice() {
    if (m_form.cmdPass.Visible) return;
    const CGame& game = Required(m_form.Game);
    if (game.TurnDevice == Device::Dice) {
        m_devices.HideAndCenterImages(game.DiceUsed);
        m_devices.RollDice();
    } else if (game.TurnDevice == Device::Slots) {
        m_devices.HideAndCenterImages(0);
        m_devices.RunSlots();
    }
}

// The first condition that holds decides the turn. Only the plain move is drawn before the space acts.
bool TurnCycle::MoveByCondition() {
    PlayState& state = m_form.State;
    const Integer seat = state.WhoseTurn;
    if (state.RollNumber[PlayState::RuleB(seat)] > 0) {
        if (state.RollNumber[PlayState::RuleB(seat)] != state.LastRoll) return false;
        m_music.StopGameMusic();
        m_music.PlayGameMusic(Required(m_form.Game).MusicGenre, "good_roll", false);
        m_movement.MovePlayerToNewSpace(seat, state.LastRoll);
        return true;
    }
    if (state.ExtraTurns[PlayState::RuleB(seat)] > 0) {
        m_movement.MovePlayerToNewSpace(seat, state.LastRoll);
        state.ExtraTurns[PlayState::RuleB(seat)] -= 1;
        return true;
    }
    if (state.LoseTurns[state.RuleA(seat)] > 0) {
        state.LoseTurns[state.RuleA(seat)] -= 1;
        return false;
    }
    if (state.RollDouble[state.RuleA(seat)]) return false;
    m_movement.MovePlayerToNewSpace(seat, state.LastRoll);
    Redraw();
    return true;
}

void TurnCycle::ActOnSpace() {
    PlayState& state = m_form.State;
    bool returnToPrevious = false;
    m_actions.Act(state.Position[state.RuleA(state.WhoseTurn)], returnToPrevious, state.PreviousSpace);
    if (returnToPrevious) {
        state.Position[state.RuleA(state.WhoseTurn)] = state.PreviousSpace;
        Redraw();
    }
    TestWinByPoints();
}

void TurnCycle::TestWinByPoints() {
    const PlayState& state = m_form.State;
    if (state.GoalType != Goal::Points && state.GoalType != Goal::Money) return;
    if (state.Points[PlayState::RuleB(state.WhoseTurn)].Value() < Required(m_form.Game).FinishCondition)
        return;
    m_movement.EndGame(
        [&] { return "Game Over!  \r\n" + state.Name[state.RuleA(state.WhoseTurn)] + " won!"; },
        [&] { m_pieces.Draw(); });
}

// The walk looks at every seat from the next one on, and each bankrupt one pushes the turn one further, also
// one that lies behind a free seat. After the wrap seat 1 is not looked at.
void TurnCycle::ChooseNextSeat() {
    PlayState& state = m_form.State;
    if (state.ExtraTurns[PlayState::RuleB(state.WhoseTurn)] != 0) return;
    state.WhoseTurn += 1;
    const int count = state.PlayerCount.Value();
    for (int i = state.WhoseTurn.Value(); i <= count; ++i) {
        if (state.Done[PlayState::RuleB(i)]) state.WhoseTurn += 1;
    }
    if (state.WhoseTurn > count) state.WhoseTurn = 1;
}

void TurnCycle::ShowButtonOfSeat() {
    const PlayState& state = m_form.State;
    const Integer device = Required(m_form.Game).TurnDevice;
    if (state.LoseTurns[state.RuleA(state.WhoseTurn)] > 0) {
        m_devices.SetTurnDeviceButton(Device::Pass);
    } else if (device == Device::Dice || device == Device::Slots) {
        m_devices.SetTurnDeviceButton(device);
    }
    m_transfers.SelectPlayerPiece(state.WhoseTurn);
}

void TurnCycle::Redraw() {
    m_board.DrawSpaces();
    m_pieces.Draw();
}

void TurnCycle::cmdRoll_Click() { TurnWithFollowUp("frmMain:cmdRoll_Click"); }

void TurnCycle::cmdSpin_Click() { TurnWithFollowUp("frmMain:cmdSpin_Click"); }

void TurnCycle::TurnWithFollowUp(std::string_view procedure) {
    Procedure(m_g.gErrHandler, procedure, [&] {
        InitiateTurnDevice();
        const PlayState& state = m_form.State;
        if (state.IsComputer[PlayState::RuleC(state.WhoseTurn)] && !state.GameOver) InitiateTurnDevice();
    });
}

}  // namespace tabulon
