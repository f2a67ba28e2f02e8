#pragma once

#include <cstdint>
#include <string>

#include "content/CDecks.h"
#include "content/CSpaces.h"
#include "diagnostics/globals.h"
#include "packages/modInstallUninstall.h"
#include "platform/integer.h"

namespace tabulon {

/// The definition of one installed game: its settings, spaces and decks.
class CGame {
  public:
    CGame(Globals& g, modInstallUninstall& packages) : Spaces(g, packages), Decks(g, packages), m_g(g) {}

    /// Reads the settings from the game's key and the content from its package; GameDirectory and GameName
    /// come first. False, with ErrorDescription set, without them, and after a failure: then fields read
    /// before it keep their values. Content that is missing leaves its collection empty.
    bool Load();

    std::string ErrorDescription;
    std::string PlayerPath;
    std::string Author;
    std::string GameDirectory;  // the game's key, no folder
    std::string GameName;
    std::string Description;
    Integer GoalType;
    std::int32_t FinishCondition = 0;
    bool LoopBoard = false;
    std::string BoardImage;
    std::string BoardSource;
    std::string Splash;
    std::string HelpFile;
    std::string Font;
    Integer FontSize;
    std::string PreferredResolution;
    std::string CharacterCategory;
    Integer TurnDevice;
    Integer DiceUsed;
    Integer MaxSlotValue;
    Integer Tries;
    std::string MusicGenre;
    std::int32_t SoundDevice = 0;
    std::int32_t SoundVolume = 0;
    CSpaces Spaces;
    CDecks Decks;

    /// Ages are numbers inside and texts outside; a text that is no number fails.
    std::string LowerAgeRange() const;
    void SetLowerAgeRange(const std::string& age);
    std::string UpperAgeRange() const;
    void SetUpperAgeRange(const std::string& age);

  private:
    struct Setting;
    static const Setting Settings[];

    void Refuse(const char* why);
    void ReadSettings();
    void LoadContent();

    Globals& m_g;
    Integer m_lowerAgeRange;
    Integer m_upperAgeRange;
};

}  // namespace tabulon
