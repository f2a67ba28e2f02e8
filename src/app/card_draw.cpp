#include "app/card_draw.h"

#include "content/game_words.h"
#include "content/required.h"

namespace tabulon {

void CardDraw::DrawCard(Integer DeckIndex, bool& ReturnToPrevious, Integer& /*PreviousSpace*/) {
    Procedure(m_g.gErrHandler, "frmMain:DrawCard", [&] {
        CGame& game = Required(m_form.Game);
        CCard& card = Required(Required(game.Decks.ItemByIndex(DeckIndex)).Cards.NextUnusedCard());
        card.Used = true;
        if (m_form.CardDrawn) m_form.CardDrawn(card);
        const Outcome outcome = Ask(card);
        CarryOut(card, outcome, ReturnToPrevious);
    });
}

CardDraw::Outcome CardDraw::Ask(CCard& card) {
    PlayState& state = m_form.State;
    Outcome outcome;
    Integer TriesLeft = m_form.Game->Tries;
    bool startMusic = true;
    bool ignored = false;
    do {
        m_dlgDrawCard.GetData(m_form.Game, card, outcome.CardAction, outcome.CardData1, TriesLeft,
                              state.CardFinished, outcome.Correct,
                              state.IsComputer[PlayState::RuleC(state.WhoseTurn)], startMusic, ignored);
        startMusic = false;
    } while (!state.CardFinished);
    return outcome;
}

void CardDraw::CarryOut(const CCard& card, const Outcome& outcome, bool& ReturnToPrevious) {
    PlayState& state = m_form.State;
    const Integer seat = state.WhoseTurn;
    const bool runs = outcome.CardAction >= atMoveForward && outcome.CardAction <= atRollDouble;
    if (runs && m_form.ActionRuns) m_form.ActionRuns(outcome.CardAction);
    switch (outcome.CardAction.Value()) {
        case atMoveForward:
        case atMoveBack:
        case atGoToSpace:
        case atGoToStart:
            Move(outcome, ReturnToPrevious);
            break;
        case atLosePoints:
        case atGainPoints:
        case atPayEachPlayer:
        case atCollectFromEach: {
            m_transfers.TransferPoints(seat, outcome.CardData1, outcome.CardAction);
            bool status = false;
            CorrectIncorrectMoveStatus(card, outcome.Correct, status);
            ReturnToPrevious = status;
            break;
        }
        case atLoseTurns:
            state.LoseTurns[state.RuleA(seat)] = outcome.CardData1;
            break;
        case atExtraTurns:
            state.ExtraTurns[state.RuleA(seat)] = outcome.CardData1;
            break;
        case atRollDouble:
            state.RollDouble[state.RuleA(seat)] = true;
            break;
        default:
            break;
    }
}

void CardDraw::Move(const Outcome& outcome, bool& ReturnToPrevious) {
    const PlayState& state = m_form.State;
    const bool relative = outcome.CardAction == atMoveForward || outcome.CardAction == atMoveBack;
    Integer amount = outcome.CardData1;
    std::optional<Integer> start;
    if (relative) {
        if (amount == -1) amount = state.LastRoll;
        start = state.Position[PlayState::RuleC(state.WhoseTurn)];
    }
    m_movement.MovePlayerAction(state.WhoseTurn, amount, outcome.CardAction, ReturnToPrevious, start);
}

void CardDraw::CorrectIncorrectMoveStatus(const CCard& Card, bool Correct, bool& Status) {
    Procedure(m_g.gErrHandler, "frmMain:CorrectIncorrectMoveStatus", [&] {
        if (Correct) {
            Status = Card.CorrectData2 != 0;
        } else {
            Status = Card.IncorrectData2 != 0;
        }
    });
}

}  // namespace tabulon
