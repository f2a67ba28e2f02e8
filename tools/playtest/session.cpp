#include "playtest/session.h"

#include <deque>

#include "playtest/trace.h"
#include "playtest/workplace.h"

namespace tabulon::playtest {

namespace {

/// Gives the script's numbers in their order, whatever is reseeded.
class ListedRandom final : public Random {
  public:
    explicit ListedRandom(const std::vector<float>& numbers) : m_numbers(numbers) {}

    float Rnd() override {
        if (m_next == m_numbers.size()) throw Stuck{"frmMain", "the random numbers are used up"};
        return m_numbers[m_next++];
    }
    void Randomize() override {}

  private:
    const std::vector<float>& m_numbers;
    std::size_t m_next = 0;
};

template <class Answer>
Answer TakeNext(std::deque<Answer>& answers, const char* form) {
    if (answers.empty()) throw Stuck{form, "the script has no answer for it"};
    Answer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

template <class Answer>
void Take(std::deque<Answer>& queue, const std::vector<Answer>& answers) {
    queue.assign(answers.begin(), answers.end());
}

/// Answers from the script and tells the trace.
class ScriptedUser final : public PlayUser {
  public:
    ScriptedUser(const Script& script, Trace& trace) : m_trace(trace) {
        m_choices.push_back(GameChoice{true, -1});
        m_players.push_back(script.FirstPlayers);
    }

    void Begin(const Step& step) {
        Take(m_cards, step.Cards);
        Take(m_yes, step.Yes);
        Take(m_players, step.PlayerLists);
        Take(m_choices, step.Choices);
    }

  protected:
    std::optional<GameChoice> ChooseGame() override { return TakeNext(m_choices, "dlgLoadGame"); }
    Players EnterPlayers() override { return TakeNext(m_players, "dlgPlayers"); }
    bool AnswerQuestion(const std::string& text) override {
        const bool yes = TakeNext(m_yes, "dlgMsgYesNo");
        m_trace.Question(text, yes);
        return yes;
    }
    int AnswerCard(const CCard&) override {
        const std::string answer = TakeNext(m_cards, "dlgDrawCard");
        return answer == "Escape" ? Key::Escape : answer.front();
    }

    void OnSound(const std::string& genre, const std::string& name, bool loop) override {
        m_trace.Sound(genre, name, loop);
    }
    void OnSilence() override { m_trace.Silence(); }
    void OnMessage(const std::string& text, bool computer) override { m_trace.Message(text, computer); }
    void OnCard(const CCard& card, bool computer, int pick) override { m_trace.Card(card, computer, pick); }
    void OnBox(const std::string& text, BoxIcon icon, const std::string& title) override {
        m_trace.Box(text, icon, title);
    }
    void OnError(const clsErrHandler& handler) override { m_trace.Error(handler); }

  private:
    Trace& m_trace;
    std::deque<std::string> m_cards;
    std::deque<bool> m_yes;
    std::deque<Players> m_players;
    std::deque<std::optional<GameChoice>> m_choices;
};

/// A click as a user can make it: the twin is never refused, a button that is disabled or hidden is.
void ClickControl(FrmMain& form, const std::string& name, Trace& trace) {
    for (Control* control : form.Controls) {
        if (control->Name != name) continue;
        const bool possible = control == &form.cmdFakeRoll || (control->Enabled && control->Visible);
        if (possible) {
            control->Click();
        } else {
            trace.Refused(name);
        }
    }
}

}  // namespace

SessionEnd PlaySession(const Script& script, std::ostream& out, const std::function<bool()>& isToStop) {
    Trace trace(out);
    ScriptedUser user(script, trace);
    ListedRandom random(script.Random);
    Workplace workplace({script.Package, script.SmallFonts, script.Clock}, user, random);
    Program& program = workplace.ThePlayer();
    int step = 0;
    try {
        program.Main();
        trace.State(step, workplace.Screen().Milliseconds(), program);
        for (const Step& next : script.Steps) {
            if (isToStop()) return SessionEnd::Stopped;
            user.Begin(next);
            ClickControl(program.frmMain, next.Click, trace);
            if (!program.frmMain.Loaded) throw ProgramEnd{};
            trace.State(++step, workplace.Screen().Milliseconds(), program);
        }
    } catch (const ProgramEnd&) {
        trace.Ended();
    } catch (const Stuck& stuck) {
        trace.Stuck(stuck.Form, stuck.Why);
        return SessionEnd::Stuck;
    }
    return SessionEnd::Done;
}

}  // namespace tabulon::playtest
