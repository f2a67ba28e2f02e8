#include "board/board_reader.h"

#include "content/game_words.h"
#include "platform/numbers.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

/// A seat's entry; the default where a game that begins or ends has none.
template <class T>
T At(const Array<T>& field, Integer index) {
    const bool inside = index >= 0 && index.Value() <= field.UBound();
    return inside ? field[index] : T();
}

std::string NameOf(const PlayState& state, Integer seat) { return At(state.Name, state.RuleA(seat)); }

std::string DescribeSeat(const MainForm& form, Integer seat) {
    const PlayState& state = form.State;
    const Integer space = At(state.Position, state.RuleA(seat));
    std::string text =
        NameOf(state, seat) + " is on space " + ToText(space) + " of " + ToText(form.Game->Spaces.Count());
    if (state.GoalType != Goal::EndOfBoard)
        text += ", " + std::string(ScoreCaption(state.GoalType)) +
                ToText(At(state.Points, PlayState::RuleB(seat)));
    return text + ". ";
}

/// The faces that the dice show, as words between brackets; nothing for one die or none.
std::string DescribeDice(MainForm& form) {
    std::string faces;
    int dice = 0;
    for (const Image& die : form.imgDice) {
        if (!die.Visible) continue;
        faces += (++dice == 1 ? "" : " and ") + ToText(FaceOfFrame(die.Picture.Number));
    }
    return dice < 2 ? std::string() : " (" + faces + ")";
}

}  // namespace

std::string DescribeBoard(const MainForm& form) {
    const PlayState& state = form.State;
    if (!form.Game || state.PlayerCount < 1) return {};
    std::string text =
        state.GameOver ? "The game is over. " : "It is " + NameOf(state, state.WhoseTurn) + "'s turn. ";
    for (Integer seat = 1; seat <= state.PlayerCount; seat += 1) text += DescribeSeat(form, seat);
    text.pop_back();
    return text;
}

void GoToBoardOrBack(MainForm& form) {
    if (form.ActiveControl == &form.picMainBoard)
        form.FocusTurnButton();
    else
        form.picMainBoard.SetFocus();
}

void BoardReader::Follow() {
    m_form.picMainBoard.AccessibleName = DescribeBoard(m_form);
    FollowRoll();
}

// A device begins with 0, while the turn is still that of the one who rolls.
void BoardReader::FollowRoll() {
    const PlayState& state = m_form.State;
    if (state.LastRoll == 0) m_roller = NameOf(state, state.WhoseTurn);
    if (state.LastRoll == m_roll) return;
    m_roll = state.LastRoll;
    m_form.lblSpoken.Caption =
        m_roll == 0 ? std::string() : m_roller + " has " + ToText(m_roll) + DescribeDice(m_form) + ".";
}

}  // namespace tabulon
