#include "app/space_actions.h"

#include "content/game_words.h"
#include "content/required.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

/// Of a space's Data1: as many spaces as were just rolled.

/// The sound of each action code.
constexpr const char* Sounds[] = {"",           "good_move",  "bad_move",  "",           "bad_move",
                                  "bad_point",  "good_point", "bad_point", "good_point", "lose_turn",
                                  "extra_turn", "bad_roll",   "bad_roll"};

Integer Data1Of(const CSpace& space) { return ToInteger(static_cast<double>(space.Data1)); }

/// For the codes whose second value says whether the mover goes back; another value than 0 and 1 says
/// nothing.
void ReadReturn(const CSpace& space, bool& ReturnToPrevious) {
    if (space.ActionType == atDrawCard) ReturnToPrevious = space.Data2 == 1;
    if (space.ActionType < atLoseTurns) return;
    if (space.Data2 == 1) ReturnToPrevious = true;
    if (space.Data2 == 0) ReturnToPrevious = false;
}

}  // namespace

void SpaceActions::Act(Integer Sequence, bool& ReturnToPrevious, Integer& PreviousSpace) {
    Procedure(m_g.gErrHandler, "frmMain:SpaceActions", [&] {
        const CSpace& space = Required(Required(m_form.Game).Spaces.ItemBySequence(Sequence));
        if (!space.message.empty() && space.message != " ") DisplaySpaceActionMessage(space.message);
        if (space.ActionType < atDrawCard || space.ActionType > atRollNumber) return;
        ReadReturn(space, ReturnToPrevious);
        const char* sound = Sounds[space.ActionType.Value()];
        if (*sound) {
            m_music.StopGameMusic();
            m_music.PlayGameMusic(m_form.Game->MusicGenre, sound, false);
        }
        CarryOut(space, ReturnToPrevious, PreviousSpace);
    });
}

void SpaceActions::DisplaySpaceActionMessage(const std::string& Message) {
    Procedure(m_g.gErrHandler, "frmMain:DisplaySpaceActionMessage", [&] {
        const PlayState& state = m_form.State;
        const bool isComputer = state.IsComputer[PlayState::RuleC(state.WhoseTurn)];
        m_dlgMsgOk.ShowMessage(*m_form.Game, Message, isComputer, false);
    });
}

void SpaceActions::CarryOut(const CSpace& space, bool& ReturnToPrevious, Integer& PreviousSpace) {
    if (m_form.ActionRuns) m_form.ActionRuns(space.ActionType);
    switch (space.ActionType.Value()) {
        case atDrawCard:
            m_cards.DrawCard(Data1Of(space), ReturnToPrevious, PreviousSpace);
            break;
        case atMoveForward:
        case atMoveBack:
        case atGoToSpace:
        case atGoToStart:
            Move(space, ReturnToPrevious);
            break;
        case atLosePoints:
        case atGainPoints:
        case atPayEachPlayer:
        case atCollectFromEach:
            m_transfers.TransferPoints(m_form.State.WhoseTurn, Data1Of(space), space.ActionType);
            break;
        default:
            SetCounter(space);
            break;
    }
}

void SpaceActions::Move(const CSpace& space, bool& ReturnToPrevious) {
    const PlayState& state = m_form.State;
    const bool forward = space.ActionType == atMoveForward;
    const Integer amount = forward && space.Data1 == AsManyAsRolled ? state.LastRoll : Data1Of(space);
    std::optional<Integer> start;
    if (forward) start = state.Position[PlayState::RuleC(state.WhoseTurn)];
    m_movement.MovePlayerAction(state.WhoseTurn, amount, space.ActionType, ReturnToPrevious, start);
}

void SpaceActions::SetCounter(const CSpace& space) {
    PlayState& state = m_form.State;
    const Integer seat = state.WhoseTurn;
    switch (space.ActionType.Value()) {
        case atLoseTurns:
            state.LoseTurns[state.RuleA(seat)] = Data1Of(space);
            break;
        case atExtraTurns:
            state.ExtraTurns[PlayState::RuleB(seat)] = Data1Of(space);
            break;
        case atRollDouble:
            state.RollDouble[PlayState::RuleB(seat)] = true;
            break;
        case atRollNumber:
            state.RollNumber[PlayState::RuleB(seat)] = Data1Of(space);
            break;
        default:
            break;
    }
}

}  // namespace tabulon
