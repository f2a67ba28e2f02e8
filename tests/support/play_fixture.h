#pragma once

#include <sstream>

#include "content/game_words.h"
#include "robot/play_user.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon::test {

/// A space with this code does nothing.
inline constexpr int NoAction = 13;

/// What a test says of its game.
struct Rules {
    int Seats = 3;
    int Spaces = 10;
    int GoalType = Goal::Points;
    int FinishCondition = 1000;
    bool LoopBoard = false;
    int TurnDevice = Device::None;
    int DiceUsed = 2;
    int MaxSlotValue = 6;
    int Tries = 1;
    int PixelsPerInch = 96;
    std::string GameName = "Test";
};

/// Answers from lists, and writes down what happens: "silence", "sound good_roll", "message Hello",
/// "question Quit this game?", "card 0", "box The text", "error frmMain:RunSlots 9".
class TableUser final : public PlayUser {
  public:
    /// All events in one line: "silence; sound good_roll".
    std::string Story() const {
        std::string story;
        for (const std::string& event : Events) story += (story.empty() ? "" : "; ") + event;
        return story;
    }
    std::vector<std::string> TakeEvents() { return std::exchange(Events, {}); }

    std::deque<GameChoice> Choices;
    std::deque<std::optional<std::vector<PlayerEntry>>> Players;
    std::deque<bool> Yes;
    std::deque<int> Cards;
    std::vector<std::string> Events;
    std::function<void()> PlayersAsked;

  protected:
    std::optional<GameChoice> ChooseGame() override {
        if (Choices.empty()) return {};
        return Next(Choices, "dlgLoadGame");
    }
    std::optional<std::vector<PlayerEntry>> EnterPlayers() override {
        if (PlayersAsked) PlayersAsked();
        return Next(Players, "dlgPlayers");
    }
    bool AnswerQuestion(const std::string& text) override {
        Events.push_back("question " + text);
        return Next(Yes, "dlgMsgYesNo");
    }
    int AnswerCard(const CCard&) override { return Next(Cards, "dlgDrawCard"); }

    void OnSound(const std::string&, const std::string& name, bool loop) override {
        Events.push_back("sound " + name + (loop ? " looping" : ""));
    }
    void OnSilence() override { Events.emplace_back("silence"); }
    void OnMessage(const std::string& text, bool computer) override {
        Events.push_back((computer ? "computer's message " : "message ") + text);
    }
    void OnCard(const CCard&, bool, int pick) override { Events.push_back("card " + std::to_string(pick)); }
    void OnBox(const std::string& text, BoxIcon, const std::string&) override {
        Events.push_back("box " + text);
    }
    void OnError(const clsErrHandler& handler) override {
        Events.push_back("error " + handler.ErrorProc + " " + std::to_string(handler.ErrorNumber));
    }

  private:
    template <class T>
    static T Next(std::deque<T>& answers, const char* form) {
        if (answers.empty()) throw Stuck{form, "no answer"};
        T answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }
};

inline std::vector<PlayerEntry> People(int count) {
    constexpr const char* names[] = {"Ann", "Ben", "Cid", "Dot", "Eve", "Fay"};
    std::vector<PlayerEntry> people;
    for (int i = 0; i < count; ++i) people.push_back({names[i], false, "(Animals) " + std::to_string(i + 1)});
    return people;
}

inline std::vector<int> Values(const Array<Integer>& array) {
    std::vector<int> values;
    for (int i = 0; i <= array.UBound(); ++i) values.push_back(array[i].Value());
    return values;
}

template <class T>
std::vector<T> Values(const Array<T>& array) {
    std::vector<T> values;
    for (int i = 0; i <= array.UBound(); ++i) values.push_back(array[i]);
    return values;
}

/// "1 4 7".
template <class T>
std::string InWords(const Array<T>& array) {
    std::ostringstream words;
    for (const auto& value : Values(array)) words << (words.tellp() ? " " : "") << value;
    return words.str();
}

/// The header of a bitmap: all that the headless screen reads of a picture.
inline std::string Bitmap(int width, int height) {
    std::string bytes(54, '\0');
    bytes.replace(0, 2, "BM");
    bytes[14] = 40;
    for (const auto& [at, value] : {std::pair{18, width}, {22, height}}) {
        bytes[static_cast<std::size_t>(at)] = static_cast<char>(value & 255);
        bytes[static_cast<std::size_t>(at) + 1] = static_cast<char>(value >> 8);
    }
    return bytes;
}

/// A running program with a new game on a board of spaces 60 pixels wide in a row, that do nothing. It has no
/// turn device unless the rules say so, so a test says what was rolled.
class PlayTable {
  public:
    explicit PlayTable(const Rules& rules = {})
        : TheScreen(User, {1024, 768, rules.PixelsPerInch}), m_rules(rules) {
        WriteZip(Folder / "key.gam", {{"spaces.xml", "<xml/>"}, {"board.bmp", Bitmap(600, 400)}});
        Set("Game Name", rules.GameName);
        Set("Board Image", std::string("board.bmp"));
        Set("Goal Type", rules.GoalType);
        Set("TurnDevice", rules.TurnDevice);
        User.Sit(TheProgram);
        TheScreen.PictureLoaded = [this](const FilePicture& picture) {
            Form().picMainBoard.Width = static_cast<float>(picture.Width) * TheScreen.TwipsPerPixelX();
            Form().picMainBoard.Height = static_cast<float>(picture.Height) * TheScreen.TwipsPerPixelY();
        };
        User.PlayersAsked = [this] { FillGame(); };
        User.Choices.push_back(GameChoice{});
        User.Players.emplace_back(People(rules.Seats));
        Random.Numbers.push_back(0);
        TheProgram.Main();
        User.PlayersAsked = {};
        User.TakeEvents();
    }

    FrmMain& Form() { return TheProgram.frmMain; }
    PlayState& State() { return TheProgram.frmMain.State; }
    CGame& Game() { return *TheProgram.frmMain.Game; }
    Globals& G() { return TheProgram.globals; }

    void SetSpace(int sequence, int code, float data1 = 0, int data2 = 0, const std::string& message = "") {
        Game().Spaces.SetAction(sequence, code, message, data1, data2);
    }
    /// A card of deck 1 with the answers "A" to "D", the first of them right.
    CCard& AddCard(int rightCode = 0, float rightData1 = 0, int rightData2 = 0) {
        CDecks& decks = Game().Decks;
        if (decks.Count() == 0) decks.Add(1, "Deck", "", "", "");
        CCards& cards = decks.Item(1).Cards;
        return cards.Add(cards.Count() + 1, 1, "Question", rightCode, "", rightData1, rightData2, 0, "", 0, 0,
                         0, "A", "B", "C", "D", "");
    }
    /// A turn by the keyboard in a game without turn device.
    void Turn(int rolled) {
        State().LastRoll = rolled;
        Form().cmdFakeRoll.Click();
    }
    /// Goes on with a saved game: seat i stands on the i-th position.
    void Resume(const std::vector<int>& positions, int whoseTurn = 1) {
        PlayState& state = State();
        state.PlayerCount = static_cast<int>(positions.size());
        state.WhoseTurn = whoseTurn;
        state.ReDimForLoadedGame();
        for (int seat = 1; seat <= state.PlayerCount.Value(); ++seat) {
            const PlayerEntry person = People(seat).back();
            state.Name[seat] = person.Name;
            state.PieceName[seat] = person.Piece;
            state.Position[seat] = positions[static_cast<std::size_t>(seat) - 1];
        }
        Form().Control().StartLoadedGame();
        User.TakeEvents();
    }
    /// The next roll of the dice.
    void Roll(const std::vector<int>& faces) {
        Random.Numbers.push_back(0);
        for (int round = 0; round < 6; ++round) {
            for (const int face : faces) Random.Numbers.push_back(FrameNumber(4 * face - 3));
        }
    }
    /// The number that draws a frame of a die.
    static float FrameNumber(int frame) { return (static_cast<float>(frame) + 1.5f) / 24; }
    /// The next stops of the reels, each after one spin.
    void Spin(const std::vector<int>& stops) {
        for (const int stop : stops) {
            const int first = stop == 1 ? m_rules.MaxSlotValue : stop - 1;
            Random.Numbers.push_back(0);
            Random.Numbers.push_back((static_cast<float>(first) - 0.5f) /
                                     static_cast<float>(m_rules.MaxSlotValue));
        }
    }

    TemporaryDirectory Folder;
    TableUser User;
    HeadlessScreen TheScreen;
    VirtualClock Clock{TheScreen, std::chrono::local_days(std::chrono::year(2026) / 1 / 5) +
                                      std::chrono::hours(14) + std::chrono::minutes(30)};
    ScriptedRandom Random;
    RecordingShell Shell;
    SilentOggPlayer Player;
    SettingsStore Store{":memory:"};
    Program TheProgram{Machine{TheScreen, Clock, Random, Shell, Player, Store, {}, Folder.Path()}};

  private:
    void Set(const char* name, const RegistryValue& value) {
        const bool number = std::holds_alternative<std::int32_t>(value);
        G().Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\key", name, value,
                                         number ? REG_DWORD : REG_SZ);
    }
    void FillGame() {
        CGame& game = Game();
        game.FinishCondition = m_rules.FinishCondition;
        game.LoopBoard = m_rules.LoopBoard;
        game.DiceUsed = m_rules.DiceUsed;
        game.MaxSlotValue = m_rules.MaxSlotValue;
        game.Tries = m_rules.Tries;
        game.MusicGenre = "jazz";
        for (int i = 1; i <= m_rules.Spaces; ++i)
            game.Spaces.Add(i, 10 * i, 60 * (i - 1), 50, 60, NoAction, "", 0, 0, "");
    }

    Rules m_rules;
};

}  // namespace tabulon::test
