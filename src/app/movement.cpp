#include "app/movement.h"

#include "content/game_words.h"
#include "content/required.h"
#include "platform/numbers.h"

namespace tabulon {

void Movement::MovePlayerToNewSpace(Integer Player, Integer Amount) {
    Procedure(m_g.gErrHandler, "frmMain:MovePlayerToNewSpace", [&] {
        PlayState& state = m_form.State;
        const Integer slot = state.RuleA(Player);
        state.PreviousSpace = state.Position[slot];
        const Integer newPosition = Wrapped(state.PreviousSpace + Amount);
        state.Position[slot] = newPosition;
        if (m_form.PieceLands) m_form.PieceLands(newPosition);
        TestEndOfBoard(newPosition, slot);
    });
}

// For points and money the first space is left out of the ring; the ring of a looping race has it.
Integer Movement::Wrapped(Integer position) {
    const CGame& game = Required(m_form.Game);
    const int count = game.Spaces.Count();
    int wrapped = position.Value();
    while (wrapped > count) {
        const int before = wrapped;
        if (m_form.State.GoalType != Goal::EndOfBoard) {
            wrapped = Integer(wrapped - count + 1).Value();
        } else if (game.LoopBoard) {
            wrapped -= count;
        } else {
            wrapped = game.Spaces.Item(count).Sequence.Value();
        }
        if (wrapped > count && wrapped == before)
            m_g.TheScreen.WaitForEver("a move past the end of the board");
    }
    return wrapped;
}

void Movement::TestEndOfBoard(Integer position, Integer slot) {
    const PlayState& state = m_form.State;
    const CGame& game = Required(m_form.Game);
    const Integer last = game.Spaces.Item(game.Spaces.Count()).Sequence;
    if (state.GoalType != Goal::EndOfBoard || position < last || game.LoopBoard) return;
    const auto draw = [&] { m_pieces.DrawPlayers(); };
    if (game.FinishCondition == 0) {
        EndGame([&] { return "Game Over!  \r\n" + state.Name[slot] + " won!"; }, draw);
    } else if (state.PlayersInSpace(position) == state.PlayerCount) {
        EndGame([] { return "Everyone finished!\r\nCongratulations!"; }, draw);
    }
}

void Movement::MovePlayerAction(Integer Player, Integer Amount, Integer MoveType, bool& ReturnToPrevious,
                                std::optional<Integer> StartValue) {
    Procedure(m_g.gErrHandler, "frmMain:MovePlayerAction", [&] {
        Integer& position = m_form.State.Position[PlayState::RuleC(Player)];
        if (!IsLegal(position, Amount, MoveType)) {
            m_g.TheScreen.MsgBox("The action for this space is illegal!", BoxIcon::Critical, BoxButtons::Ok,
                                 m_g.Application.Title);
            return;
        }
        const Integer before = position;
        switch (MoveType.Value()) {
            case atMoveForward:
                position = Forward(position, Amount, StartValue.value_or(0));
                break;
            case atMoveBack:
                position = Backward(position, Amount, StartValue, ReturnToPrevious);
                break;
            case atGoToSpace:
                position = Amount;
                break;
            case atGoToStart:
                position = 1;
                break;
            default:
                break;
        }
        if (position != before && m_form.PieceLands) m_form.PieceLands(position);
    });
}

bool Movement::IsLegal(Integer position, Integer amount, Integer moveType) {
    const int count = Required(m_form.Game).Spaces.Count();
    if (moveType == atMoveForward) return position.Value() <= count;
    if (moveType == atGoToSpace) return position >= 1 && amount.Value() <= count;
    return true;
}

Integer Movement::Forward(Integer position, Integer amount, Integer start) {
    if (start == 0) return position + amount;
    const int count = Required(m_form.Game).Spaces.Count();
    const Integer reached = amount + start;
    return reached.Value() > count ? Integer(reached.Value() - count) : reached;
}

Integer Movement::Backward(Integer position, Integer amount, std::optional<Integer> start,
                           bool& ReturnToPrevious) {
    const CGame& game = Required(m_form.Game);
    if (start && *start == 0) return position - amount;
    const Integer reached = start.value_or(position) - amount;
    if (reached >= 1) return reached;
    if (start && !game.LoopBoard) {
        ReturnToPrevious = true;
        return position;
    }
    return reached.Value() + game.Spaces.Count();
}

}  // namespace tabulon
