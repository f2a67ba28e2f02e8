#include "content/CGame.h"

#include <string_view>

#include "platform/modRegistry.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

constexpr const char* DefaultFont = "Duality";
constexpr int DefaultFontSize = 14;

/// The length of "\Games\" and a key of 38 characters.
constexpr std::size_t GameKeyTail = 45;

void Assign(std::string& field, const RegistryValue& value) { field = ToText(value); }
void Assign(Integer& field, const RegistryValue& value) { field = ToInteger(value); }
void Assign(std::int32_t& field, const RegistryValue& value) { field = ToLong(value); }
/// Numbers other than 0 and 1 leave the field as it is.
void Assign(bool& field, const RegistryValue& value) {
    const std::int32_t number = ToLong(value);
    if (number == 0 || number == 1) field = number == 1;
}

template <auto Field>
void Read(CGame& game, const RegistryValue& value) {
    Assign(game.*Field, value);
}

/// The cut is by length, so it finds the product's key only behind a game's key of the usual length.
std::string ProductKeyOf(const std::string& gameKey) {
    return gameKey.size() < GameKeyTail ? std::string() : gameKey.substr(0, gameKey.size() - GameKeyTail);
}

}  // namespace

struct CGame::Setting {
    const char* ValueName;
    void (*Read)(CGame& game, const RegistryValue& value);
};

const CGame::Setting CGame::Settings[] = {
    {"Author", Read<&CGame::Author>},
    {"Description", Read<&CGame::Description>},
    {"Lower Age Range", Read<&CGame::m_lowerAgeRange>},
    {"Upper Age Range", Read<&CGame::m_upperAgeRange>},
    {"Splash Image", Read<&CGame::Splash>},
    {"Board Image", Read<&CGame::BoardImage>},
    {"Board Source", Read<&CGame::BoardSource>},
    {"Help File", Read<&CGame::HelpFile>},
    {"Goal Type", Read<&CGame::GoalType>},
    {"Finish Condition", Read<&CGame::FinishCondition>},
    {"Font", Read<&CGame::Font>},
    {"Font Size", Read<&CGame::FontSize>},
    {"Preferred Resolution", Read<&CGame::PreferredResolution>},
    {"CharacterCategory", Read<&CGame::CharacterCategory>},
    {"TurnDevice", Read<&CGame::TurnDevice>},
    {"DiceUsed", Read<&CGame::DiceUsed>},
    {"MaxSlotValue", Read<&CGame::MaxSlotValue>},
    {"Card Answer Tries", Read<&CGame::Tries>},
    {"Music Genre", Read<&CGame::MusicGenre>},
};

bool CGame::Load() {
    bool Result = false;
    Procedure(m_g.gErrHandler, "frmGameDesigner:LoadGameFile", [&] {
        if (GameDirectory.empty()) return Refuse("Game Directory not set");
        if (GameName.empty()) return Refuse("Game Name not set");
        ReadSettings();
        LoadContent();
        Result = true;
    });
    return Result;
}

void CGame::Refuse(const char* why) { ErrorDescription = why; }

void CGame::ReadSettings() {
    const std::string key = std::string(GamesKey) + "\\" + GameDirectory;
    const auto value = [&](const std::string& path, const char* name) {
        return m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, path, name);
    };
    PlayerPath = ToText(value(ProductKeyOf(key), "PlayerPath"));
    for (const Setting& setting : Settings) setting.Read(*this, value(key, setting.ValueName));
    if (Font.empty()) Font = DefaultFont;
    if (FontSize == 0) FontSize = DefaultFontSize;
    Assign(LoopBoard, value(key, "Loop Board"));
}

void CGame::LoadContent() {
    Spaces.GameDirectory = GameDirectory;
    Spaces.Load();
    Decks.GameDirectory = GameDirectory;
    Decks.PlayerPath = PlayerPath;
    Decks.Load();
}

std::string CGame::LowerAgeRange() const { return ToText(m_lowerAgeRange); }

void CGame::SetLowerAgeRange(const std::string& age) { m_lowerAgeRange = ToInteger(age); }

std::string CGame::UpperAgeRange() const { return ToText(m_upperAgeRange); }

void CGame::SetUpperAgeRange(const std::string& age) { m_upperAgeRange = ToInteger(age); }

}  // namespace tabulon
