#include "content/game_words.h"
#include "library/modSavedGames.h"
#include "platform/numbers.h"
#include "platform/settings_store.h"
#include "platform/text.h"

namespace tabulon {

namespace {

std::string SavedGamesKey(const std::string& gameKey) {
    return std::string(GamesKey) + "\\" + gameKey + "\\Saved Games";
}

/// One saved game in the store. Within its life all reads and writes are one transaction, which is kept also
/// when a failure ends it.
class SavedGame {
  public:
    SavedGame(modRegistry& registry, const std::string& gameKey, const std::string& name)
        : m_registry(registry),
          m_transaction(registry.Store()),
          m_key(SavedGamesKey(gameKey) + "\\" + name) {}
    ~SavedGame() { m_transaction.Commit(); }

    void Write(const std::string& name, Integer number) {
        Set(name, std::int32_t{number.Value()}, REG_DWORD);
    }
    void Write(const std::string& name, bool flag) { Set(name, std::int32_t{flag}, REG_DWORD); }
    void Write(const std::string& name, const std::string& text) { Set(name, text, REG_SZ); }

    void Read(const std::string& name, Integer& number) { number = ToInteger(Get(name)); }
    void Read(const std::string& name, bool& flag) { flag = ToBoolean(Get(name)); }
    void Read(const std::string& name, std::string& text) { text = ToText(Get(name)); }

  private:
    void Set(const std::string& name, const RegistryValue& value, std::uint32_t type) {
        m_registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, m_key, name, value, type);
    }
    RegistryValue Get(const std::string& name) {
        return m_registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, m_key, name);
    }

    modRegistry& m_registry;
    StoreTransaction m_transaction;
    const std::string m_key;
};

std::string PlayerPrefix(int player) { return "Player " + std::to_string(player) + " "; }

void WriteGame(SavedGame& saved, const PlayState& state) {
    saved.Write("Player Count", state.PlayerCount);
    saved.Write("Whose Turn", state.WhoseTurn);
    saved.Write("Current Space", state.CurrentSpace);
    saved.Write("Round", state.Round);
    saved.Write("Game Start", state.GameStart);
    saved.Write("Game In Progress", state.GameInProgress);
    saved.Write("Game Played", state.GamePlayed);
}

// Three fields come from the player's own slot in a new game too, so that loading shifts them by a seat.
void WritePlayer(SavedGame& saved, const PlayState& state, int player) {
    const std::string prefix = PlayerPrefix(player);
    const Integer slot = state.RuleA(player);
    saved.Write(prefix + "Name", state.Name[slot]);
    saved.Write(prefix + "Is Computer", state.IsComputer[slot]);
    saved.Write(prefix + "Position", state.Position[slot]);
    saved.Write(prefix + "Piece Name", state.PieceName[slot]);
    saved.Write(prefix + "Points", state.Points[player]);
    saved.Write(prefix + "Done", state.Done[slot]);
    saved.Write(prefix + "Lose Turns", state.LoseTurns[player]);
    saved.Write(prefix + "Extra Turns", state.ExtraTurns[slot]);
    saved.Write(prefix + "Roll Double", state.RollDouble[player]);
    saved.Write(prefix + "Roll Number", state.RollNumber[slot]);
}

void ReadGame(SavedGame& saved, PlayState& state) {
    saved.Read("Player Count", state.PlayerCount);
    saved.Read("Whose Turn", state.WhoseTurn);
    saved.Read("Current Space", state.CurrentSpace);
    saved.Read("Round", state.Round);
    saved.Read("Game Start", state.GameStart);
    saved.Read("Game In Progress", state.GameInProgress);
    saved.Read("Game Played", state.GamePlayed);
}

void ReadPlayer(SavedGame& saved, PlayState& state, int player) {
    const std::string prefix = PlayerPrefix(player);
    saved.Read(prefix + "Name", state.Name[player]);
    saved.Read(prefix + "Is Computer", state.IsComputer[player]);
    saved.Read(prefix + "Position", state.Position[player]);
    saved.Read(prefix + "Piece Name", state.PieceName[player]);
    saved.Read(prefix + "Points", state.Points[player]);
    saved.Read(prefix + "Done", state.Done[player]);
    saved.Read(prefix + "Lose Turns", state.LoseTurns[player]);
    saved.Read(prefix + "Extra Turns", state.ExtraTurns[player]);
    saved.Read(prefix + "Roll Double", state.RollDouble[player]);
    saved.Read(prefix + "Roll Number", state.RollNumber[player]);
}

void SetToolTips(MainForm& form, int plate, const std::string& name, Integer goalType) {
    form.imgPlayingPiece[plate].ToolTipText = name;
    form.imgCharacter[plate].ToolTipText = name + "'s playing piece";
    if (goalType == Goal::Points) form.lblPoints[plate].ToolTipText = name + "'s points";
    if (goalType == Goal::Money) form.lblPoints[plate].ToolTipText = name + "'s money";
}

}  // namespace

bool modSavedGames::SaveGame(const std::string& GameKey, const PlayState& state) {
    bool Result = true;
    const auto saving = [&] {
        const std::string date = ShortDate(m_g.Clock.Now(), m_g.Regional);
        SavedGame saved(m_g.Registry, GameKey, date + " " + MediumTime(m_g.Clock.Now()));
        WriteGame(saved, state);
        for (int player = 1; player <= state.PlayerCount.Value(); ++player) WritePlayer(saved, state, player);
    };
    Procedure(m_g.gErrHandler, "modSavedGames:SaveGame", saving, [&] { Result = false; });
    return Result;
}

bool modSavedGames::LoadGame(const std::string& GameKey, Integer GoalType, const std::string& SavedGameName,
                             PlayState& state, MainForm& form) {
    bool Result = true;
    const auto loading = [&] {
        SavedGame saved(m_g.Registry, GameKey, SavedGameName);
        ReadGame(saved, state);
        state.ReDimForLoadedGame();
        for (int player = 1; player <= state.PlayerCount.Value(); ++player) {
            ReadPlayer(saved, state, player);
            SetToolTips(form, player - 1, state.Name[player], GoalType);
        }
    };
    Procedure(m_g.gErrHandler, "modSavedGames:LoadGame", loading, [&] { Result = false; });
    return Result;
}

std::vector<std::string> modSavedGames::GetSavedGames(const std::string& GameKey) {
    std::vector<std::string> names;
    Procedure(m_g.gErrHandler, "modSavedGames:GetSavedGames", [&] {
        std::int32_t count = 0;
        m_g.Registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, SavedGamesKey(GameKey), names, count);
    });
    return names;
}

}  // namespace tabulon
