#include "playtest/trace.h"

#include <ostream>

namespace tabulon::playtest {

namespace {

using nlohmann::ordered_json;

ordered_json ToJson(const std::string& text) { return text; }
ordered_json ToJson(bool flag) { return flag; }
ordered_json ToJson(Integer number) { return number.Value(); }
ordered_json ToJson(Colour colour) { return {colour.Red, colour.Green, colour.Blue}; }

template <class T>
ordered_json ToJson(const Array<T>& values) {
    ordered_json list = ordered_json::array();
    for (int i = 0; i <= values.UBound(); ++i) list.push_back(ToJson(values[i]));
    return list;
}

const char* IconName(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Critical:
            return "critical";
        case BoxIcon::Question:
            return "question";
        case BoxIcon::Exclamation:
            return "exclamation";
        case BoxIcon::Information:
            return "information";
        case BoxIcon::None:
            return "none";
    }
    return "none";
}

void AddPlayState(ordered_json& line, const PlayState& state) {
    line["PlayerCount"] = ToJson(state.PlayerCount);
    line["WhoseTurn"] = ToJson(state.WhoseTurn);
    line["CurrentSpace"] = ToJson(state.CurrentSpace);
    line["Round"] = ToJson(state.Round);
    line["GameStart"] = state.GameStart;
    line["GameInProgress"] = state.GameInProgress;
    line["GamePlayed"] = state.GamePlayed;
    line["GameOver"] = state.GameOver;
    line["LoadedGame"] = state.LoadedGame;
    line["SavedGameLoaded"] = state.SavedGameLoaded;
    line["LastRoll"] = ToJson(state.LastRoll);
    line["PreviousSpace"] = ToJson(state.PreviousSpace);
    line["CardFinished"] = state.CardFinished;
    line["Name"] = ToJson(state.Name);
    line["IsComputer"] = ToJson(state.IsComputer);
    line["Position"] = ToJson(state.Position);
    line["PieceName"] = ToJson(state.PieceName);
    line["Points"] = ToJson(state.Points);
    line["Done"] = ToJson(state.Done);
    line["LoseTurns"] = ToJson(state.LoseTurns);
    line["ExtraTurns"] = ToJson(state.ExtraTurns);
    line["RollDouble"] = ToJson(state.RollDouble);
    line["RollNumber"] = ToJson(state.RollNumber);
}

void AddButtons(ordered_json& line, FrmMain& form) {
    line["button"] = nullptr;
    line["enabled"] = nullptr;
    for (const PictureButton* button : {&form.cmdRoll, &form.cmdSpin, &form.cmdPass}) {
        if (!button->Visible) continue;
        line["button"] = button->Name;
        line["enabled"] = button->Enabled;
    }
    line["twin"] = form.cmdFakeRoll.Caption;
    line["cmdSaveGame"] = form.cmdSaveGame.Enabled;
}

void AddPlayers(ordered_json& line, FrmMain& form) {
    ordered_json plates = ordered_json::array();
    ordered_json pieces = ordered_json::array();
    for (int i = 0; i < MaxSeats; ++i) {
        const Label& points = form.lblPoints[i];
        plates.push_back({{"name", form.lblName[i].Caption},
                          {"points", points.Caption},
                          {"shown", points.Visible},
                          {"colour", ToJson(form.lblName[i].ForeColor)}});
        const Image& piece = form.imgPlayingPiece[i];
        pieces.push_back({{"shown", piece.Visible}, {"left", piece.Left}, {"top", piece.Top}});
    }
    line["plates"] = plates;
    line["pieces"] = pieces;
}

}  // namespace

void Trace::Sound(const std::string& genre, const std::string& name, bool loop) {
    Write({{"event", "sound"}, {"genre", genre}, {"name", name}, {"loop", loop}});
}

void Trace::Silence() { Write({{"event", "silence"}}); }

void Trace::Message(const std::string& text, bool computer) {
    Write({{"event", "message"}, {"text", text}, {"computer", computer}});
}

void Trace::Question(const std::string& text, bool answer) {
    Write({{"event", "question"}, {"text", text}, {"answer", answer}});
}

void Trace::Card(const CCard& card, bool computer, int pick) {
    Write({{"event", "card"},
           {"text", card.message},
           {"answers", {card.Answer1, card.Answer2, card.Answer3, card.Answer4}},
           {"computer", computer},
           {"pick", pick < 0 ? std::string("Escape") : std::string(1, static_cast<char>('A' + pick))}});
}

void Trace::Box(const std::string& text, BoxIcon icon, const std::string& title) {
    Write({{"event", "box"}, {"text", text}, {"icon", IconName(icon)}, {"title", title}});
}

void Trace::Error(const clsErrHandler& handler) {
    Write({{"event", "error"},
           {"procedure", handler.ErrorProc},
           {"number", handler.ErrorNumber},
           {"description", handler.ErrorString}});
}

void Trace::Refused(const std::string& control) { Write({{"event", "refused"}, {"control", control}}); }

void Trace::Stuck(const std::string& form, const std::string& why) {
    Write({{"event", "stuck"}, {"form", form}, {"why", why}});
}

void Trace::State(int step, std::int64_t milliseconds, Program& program) {
    FrmMain& form = program.frmMain;
    ordered_json line = {{"event", "state"}, {"step", step}, {"ms", milliseconds}};
    AddPlayState(line, form.State);
    AddButtons(line, form);
    AddPlayers(line, form);
    line["round"] = form.lblRound.Caption;
    line["gameName"] = form.lblGameName.Caption;
    line["marker"] = ToJson(form.shpSpaceOverview.FillColor);
    line["timer"] = form.timerOverviewSpace.Enabled;
    Write(line);
}

void Trace::Ended() { Write({{"event", "ended"}}); }

// A text from a package may hold bytes that are no UTF-8; they are shown as replacement characters.
void Trace::Write(const ordered_json& line) {
    m_out << line.dump(-1, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace tabulon::playtest
