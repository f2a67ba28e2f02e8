#pragma once

#include <nlohmann/json.hpp>
#include <sstream>

#include "playtest/script.h"
#include "playtest/session.h"
#include "playtest/tiny_game.h"

namespace tabulon::test {

using nlohmann::json;

/// The numbers that make dice show these faces, one die a roll. A roll draws once for its rounds, and then
/// six times a frame.
inline std::vector<double> Rolls(const std::vector<int>& faces) {
    std::vector<double> numbers;
    for (const int face : faces) {
        numbers.push_back(0);
        const int frame = 4 * (face - 1) + 1;
        numbers.insert(numbers.end(), 6, (frame + 1.5) / 24);
    }
    return numbers;
}

inline json Player(const std::string& name, bool computer = false) {
    return {
        {"name", name}, {"computer", computer}, {"piece", "(Animals) " + std::to_string(name[0] - 'A' + 1)}};
}

inline json PlayersNamed(const std::vector<std::string>& names) {
    json players = json::array();
    for (const std::string& name : names) players.push_back(Player(name));
    return players;
}

/// A session as it is written down, without its package and its clock.
struct Sitting {
    json Players = PlayersNamed({"Ann", "Ben", "Cid"});
    std::vector<double> Random = {};
    json Steps = json::array({{{"click", "cmdRoll"}}});
};

/// What came of a session, read from its trace.
class PlayedSession {
  public:
    PlayedSession(const TinyGame& game, const Sitting& sitting) {
        const TemporaryDirectory folder;
        // The first number chooses the opening music; each card of a deck takes its place by one more.
        std::vector<double> random = {0};
        for (std::size_t i = 0; i < game.Cards.size(); ++i)
            random.push_back((static_cast<double>(i) + 0.5) / static_cast<double>(game.Cards.size()));
        random.insert(random.end(), sitting.Random.begin(), sitting.Random.end());
        const json script = {{"package", game.WriteTo(folder)},
                             {"clock", "2026-01-05T14:30:00"},
                             {"players", sitting.Players},
                             {"random", random},
                             {"steps", sitting.Steps}};
        std::ofstream(folder / "script.json") << script;
        std::stringstream trace;
        End = playtest::PlaySession(playtest::ReadScript(folder / "script.json"), trace);
        for (std::string line; std::getline(trace, line);) Read(json::parse(line));
    }

    /// The state after a step; step 0 is the start.
    const json& State(int step) const { return m_states.at(static_cast<std::size_t>(step)); }
    /// What happened in a step, in short: "sound good_move", "silence", "message Hi", "card A",
    /// "error frmMain:RunSlots 9".
    std::vector<std::string> Events(int step) const {
        const auto at = static_cast<std::size_t>(step);
        return at < m_events.size() ? m_events[at] : std::vector<std::string>{};
    }

    playtest::SessionEnd End = playtest::SessionEnd::Done;

  private:
    void Read(const json& line) {
        if (line.at("event") != "state") {
            m_events.back().push_back(InShort(line));
            return;
        }
        m_states.push_back(line);
        m_events.emplace_back();
    }

    static std::string InShort(const json& line) {
        const auto text = [&](const char* key) { return line.at(key).get<std::string>(); };
        const std::string event = text("event");
        if (event == "sound") return "sound " + text("name");
        if (event == "card") return "card " + text("pick");
        if (event == "error") return "error " + text("procedure") + " " + line.at("number").dump();
        if (event == "refused") return "refused " + text("control");
        if (event == "stuck") return "stuck " + text("form");
        if (event == "message")
            return (line.at("computer") == true ? "computer's message " : "message ") + text("text");
        return line.contains("text") ? event + " " + text("text") : event;
    }

    std::vector<json> m_states;
    std::vector<std::vector<std::string>> m_events{1};
};

/// One field of a state line: "Points" or, by its path, "/plates/0/points".
inline json Field(const json& state, const std::string& path) {
    return path.starts_with('/') ? state.at(json::json_pointer(path)) : state.at(path);
}

/// Expects some fields of a state.
inline void ExpectState(const json& state, const json& expected) {
    for (const auto& [path, value] : expected.items()) EXPECT_EQ(Field(state, path), value) << path;
}

}  // namespace tabulon::test
