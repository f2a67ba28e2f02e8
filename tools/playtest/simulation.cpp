#include "playtest/simulation.h"

#include "content/game_words.h"
#include "playtest/unusable.h"

namespace tabulon::playtest {

/// Computers on all seats. Whoever sits at the machine only clicks what waits.
class Simulation::Seats final : public PlayUser {
  public:
    explicit Seats(int count) : m_count(count) {}

  protected:
    std::optional<GameChoice> ChooseGame() override { return Once(m_chosen, "dlgLoadGame", GameChoice{}); }
    std::optional<std::vector<PlayerEntry>> EnterPlayers() override {
        std::vector<PlayerEntry> players;
        for (int seat = 1; seat <= m_count; ++seat)
            players.push_back({"Seat " + std::to_string(seat), true, "(Animals) " + std::to_string(seat)});
        return Once(m_entered, "dlgPlayers", players);
    }
    bool AnswerQuestion(const std::string&) override { return true; }
    int AnswerCard(const CCard&) override { return Key::A; }

  private:
    /// A dialog that comes again has refused the answer, and would go on for ever.
    template <class Answer>
    static Answer Once(bool& given, const char* form, Answer answer) {
        if (given) throw Stuck{form, "it refuses to close"};
        given = true;
        return answer;
    }

    int m_count;
    bool m_chosen = false;
    bool m_entered = false;
};

namespace {

/// What an author can do something about.
std::string InWords(const Stuck& stuck) {
    if (stuck.Form == "dlgDrawCard")
        return "a computer's card never closes; the game has no tries, or a right answer has no message "
               "(dlgDrawCard)";
    return stuck.Why + " (" + stuck.Form + ")";
}

}  // namespace

Simulation::Simulation(const StatisticsSettings& settings)
    : m_settings(settings), m_random(settings.Seed), m_counting(&m_loading) {
    Start();
    m_counting = &m_figures;
}

Simulation::~Simulation() = default;

void Simulation::Start() {
    m_workplace.reset();
    m_user = std::make_unique<Seats>(m_settings.Seats);
    m_workplace = std::make_unique<Workplace>(Workplace::Settings{m_settings.Package}, *m_user, m_random);
    Program& program = m_workplace->ThePlayer();
    program.globals.gErrHandler.BeforeHandlerCalled = [this,
                                                       &handler = program.globals.gErrHandler](bool& cancel) {
        if (m_counting) m_counting->CountFailure(handler.ErrorProc, m_game, handler.ErrorString);
        cancel = true;
    };
    try {
        program.Main();
    } catch (const Stuck& stuck) {
        throw Unusable(m_settings.Package.string() + ": no game can be started, " + stuck.Form +
                       " waits for ever: " + stuck.Why);
    } catch (const ProgramEnd&) {
        throw Unusable(m_settings.Package.string() + ": no game can be started");
    }
    FrmMain& form = program.frmMain;
    m_turnButton = {form.cmdRoll.Visible, form.cmdSpin.Visible, form.cmdPass.Visible,
                    form.cmdFakeRoll.Caption};
    Follow(form);
}

void Simulation::Follow(FrmMain& form) {
    form.TurnBegins = [this, &state = form.State] {
        ++m_turns;
        m_seat = state.WhoseTurn;
    };
    form.PieceLands = [this](Integer space) { m_figures.CountLanding(space); };
    form.ActionRuns = [this](Integer code) { m_figures.CountAction(code); };
    form.CardDrawn = [this](const CCard& card) { m_figures.CountCard(card.DeckID, card.Index); };
}

void Simulation::Play(std::int64_t game) {
    m_game = game;
    m_turns = 0;
    m_random.Begin(game);
    PutBack();
    try {
        m_workplace->ThePlayer().frmMain.Control().StartNewGame(false);
        PlayTurns();
        CountEnd();
    } catch (const Stuck& stuck) {
        m_figures.CountLoop(InWords(stuck), game);
        m_figures.CountGame(m_turns, false);
        // What was open when the game stopped cannot be closed in order.
        m_counting = nullptr;
        Start();
        m_counting = &m_figures;
    }
}

// All that the start of a game leaves as the game before it had left it.
void Simulation::PutBack() {
    Program& program = m_workplace->ThePlayer();
    FrmMain& form = program.frmMain;
    form.State.LastRoll = form.State.PreviousSpace = 0;
    form.cmdRoll.Visible = m_turnButton.Roll;
    form.cmdSpin.Visible = m_turnButton.Spin;
    form.cmdPass.Visible = m_turnButton.Pass;
    form.cmdFakeRoll.Caption = m_turnButton.Twin;
    for (CDeck& deck : form.Game->Decks)
        for (CCard& card : deck.Cards) card.Used = false;
    DlgDrawCard& dialog = program.dlgDrawCard;
    dialog.Card = nullptr;
    dialog.ActionType = dialog.Data1 = dialog.Tries = 0;
    dialog.Done = dialog.Correct = dialog.IsComputer = false;
}

void Simulation::PlayTurns() {
    const PlayState& state = m_workplace->ThePlayer().frmMain.State;
    while (!state.GameOver && m_turns < m_settings.MaxTurns && !m_settings.Stop.stop_requested()) {
        const std::int64_t before = m_turns;
        ClickTurnButton();
        if (m_turns == before) throw Stuck{"frmMain", "the turn button begins no turn"};
    }
}

void Simulation::ClickTurnButton() {
    FrmMain& form = m_workplace->ThePlayer().frmMain;
    for (PictureButton* button : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass}) {
        if (!button->Visible || !button->Enabled) continue;
        // Only the twin makes one turn for certain; a click may add the one of the next seat.
        const bool last = m_turns + 1 == m_settings.MaxTurns;
        return last ? form.cmdFakeRoll.Click() : button->Click();
    }
    throw Stuck{"frmMain", "there is no turn button that can be clicked"};
}

void Simulation::CountEnd() {
    const FrmMain& form = m_workplace->ThePlayer().frmMain;
    m_figures.CountGame(m_turns, form.State.GameOver);
    const bool together = form.State.GoalType == Goal::EndOfBoard && form.Game->FinishCondition != 0;
    if (form.State.GameOver && !together) m_figures.CountWin(m_seat.Value());
}

}  // namespace tabulon::playtest
