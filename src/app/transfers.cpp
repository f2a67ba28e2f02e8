#include "app/transfers.h"

#include <cmath>

#include "content/game_words.h"
#include "platform/numbers.h"
#include "presentation/text_fitting.h"

namespace tabulon {

void Transfers::AddPointsToPlayer(Integer Player, Integer Amount) {
    Procedure(m_g.gErrHandler, "frmMain:AddPointsToPlayer", [&] {
        PlayState& state = m_form.State;
        state.Points[PlayState::RuleB(Player)] += Amount;
        Label& label = m_form.lblPoints[Player - 1];
        label.Caption = ScoreCaption(state.GoalType);
        label.Caption += ToText(state.Points[PlayState::RuleB(Player)]);
        FitLabelText(m_g, label);
    });
}

void Transfers::SelectPlayerPiece(Integer Player) {
    Procedure(m_g.gErrHandler, "frmMain:SelectPlayerPiece", [&] {
        for (int seat = 1; seat <= MaxSeats; ++seat)
            m_form.ColourPlate(seat, Player == seat ? PlateColour::Current : PlateColour::Other);
    });
}

void Transfers::TransferPoints(Integer Player, Integer Amount, Integer TransferType) {
    Procedure(m_g.gErrHandler, "frmMain:TransferPoints", [&] {
        switch (TransferType.Value()) {
            case atLosePoints:
                AddPointsToPlayer(Player, -Amount);
                break;
            case atGainPoints:
                AddPointsToPlayer(Player, Amount);
                break;
            case atPayEachPlayer:
                PayEachPlayer(Player, Amount);
                break;
            case atCollectFromEach:
                CollectFromEach(Player, Amount);
                break;
            default:
                break;
        }
    });
}

void Transfers::PayEachPlayer(Integer player, Integer amount) {
    const PlayState& state = m_form.State;
    const Integer due = (state.PlayerCount - 1) * amount;
    if (state.Points[player] - due > 0) {
        for (int i = 1; i <= state.PlayerCount.Value(); ++i) {
            if (player != i) AddPointsToPlayer(i, amount);
        }
        AddPointsToPlayer(player, -due);
        m_form.ColourPlate(player, PlateColour::Other);
    } else if (state.Points[player] >= 1) {
        GoBankrupt(player);
    }
}

// What the division leaves over is lost, and the label keeps showing the former amount.
void Transfers::GoBankrupt(Integer player) {
    PlayState& state = m_form.State;
    const double others = (state.PlayerCount - 1).Value();
    for (int i = 1; i <= state.PlayerCount.Value(); ++i) {
        if (player != i) AddPointsToPlayer(i, ToInteger(std::floor(state.Points[player].Value() / others)));
    }
    state.Points[player] = 0;
    state.Done[player] = true;
    m_form.ColourPlate(player, PlateColour::Bankrupt);
}

void Transfers::CollectFromEach(Integer player, Integer amount) {
    const PlayState& state = m_form.State;
    for (int i = 1; i <= state.PlayerCount.Value(); ++i) {
        if (player == i) continue;
        if (state.Points[i] - amount > 0) {
            AddPointsToPlayer(player, amount);
            AddPointsToPlayer(i, -amount);
            m_form.ColourPlate(i, PlateColour::Other);
        } else {
            PayAll(i, player);
        }
    }
}

void Transfers::PayAll(Integer player, Integer receiver) {
    PlayState& state = m_form.State;
    AddPointsToPlayer(receiver, state.Points[player]);
    AddPointsToPlayer(player, -state.Points[player]);
    state.Done[player] = true;
    m_form.ColourPlate(player, PlateColour::Bankrupt);
}

}  // namespace tabulon
