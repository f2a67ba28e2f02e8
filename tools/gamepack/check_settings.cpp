#include <algorithm>
#include <array>
#include <filesystem>

#include "content/game_words.h"
#include "gamepack/check_parts.h"
#include "headless/picture_size.h"
#include "packages/modInstallUninstall.h"
#include "packages/settings_lines.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace tabulon::gamepack {

namespace {

struct Range {
    std::string_view Name;
    std::int32_t Low;
    std::int32_t High;
    const char* Mend;
};

constexpr Range Ranges[] = {
    {"Dice Used", 0, 6, "Use 1 to 6 dice, or 1 to 5 reels."},
    {"Font Size", 0, 72, "Choose 6 to 72 points, or 0 for the usual size."},
    {"Goal Type", 0, 2, "Write 0 for points, 1 for money, 2 for reaching the end of the board."},
    {"Loop Board", 0, 1, "Write 1 for a board that goes round, otherwise 0."},
    {"Lower Age Range", 0, 120, "Write an age, or 0 for none."},
    {"Max Slot Value", 0, 99, "Choose a highest number from 1 to 99."},
    {"Tries", 0, 4, "Give 1 to 4 tries."},
    {"Turn Device", 0, 2, "Write 0 for dice, 1 for the slot machine, 2 for none."},
    {"Upper Age Range", 0, 120, "Write an age, or 0 for none."},
};

constexpr std::array<std::string_view, 8> Genres = {"",     "jazz",   "kids",  "orchestral",
                                                    "rock", "techno", "latin", "random"};

void CheckKey(const Game& game, const std::string& key, Findings& findings) {
    const std::string& file = game.Settings.File;
    if (!game.Files.Key.empty() && game.Files.Key != key)
        findings.Error(file, "the package is called " + game.Files.Key +
                                 ".gam. Both need the same name, or the "
                                 "game cannot be installed.");
    if (key == HiddenGame || key == "defobjs")
        findings.Error(file, "the Player never offers a game of this name. Give it another key.");
    else if (!IsGameKey(key))
        findings.Warning(file,
                         "a game's key should be a new GUID in braces, 38 characters, and the files be "
                         "called {GUID}.dat and {GUID}.gam.");
}

/// The settings that a line with other letters, or without the maker's slip, may have meant.
std::string Suggestion(const std::string& line) {
    const std::string_view name = std::string_view(line).substr(0, line.find('='));
    if (EqualNoCase(name, "Author Birthday"))
        return " Write \"Author Birtday=\": the Player knows no other form.";
    for (const SettingsLine& known : AllSettingsLines())
        if (EqualNoCase(name, known.Name())) return " Write \"" + std::string(known.Beginning) + "\".";
    return " Remove it, or see the package format for the names of settings.";
}

std::int32_t NumberOf(const std::string& name, const std::string& text, const std::string& place,
                      Findings& findings) {
    try {
        const std::int32_t number = ToLong(text);
        if (name != "Finish Condition") ToInteger(static_cast<double>(number));
        return number;
    } catch (const Failure& failure) {
        const bool big = failure.Number() == static_cast<int>(FailureNumber::Overflow);
        findings.Error(place, "\"" + name + "\" is " + (big ? "too big a number." : "no number.") +
                                  " Write a whole number in digits.");
        return 0;
    }
}

void ReadLine(Game& game, const std::string& line, const std::string& place, Findings& findings) {
    const SettingsLine* known = FindSettingsLine(line);
    if (!known) {
        if (!line.empty()) findings.Warning(place, "the Player does not know this line." + Suggestion(line));
        return;
    }
    const std::string name(known->Name());
    if (game.Settings.Has(name))
        findings.Warning(place,
                         "\"" + name + "\" is set a second time, and this line wins. Keep one of them.");
    const std::string text = known->ValueOf(line);
    const std::int32_t number = known->ValueType == REG_DWORD ? NumberOf(name, text, place, findings) : 0;
    game.Settings.Set(name, {text, number, place});
}

void ReadSettings(Game& game, const PackedFile& file, Findings& findings) {
    game.Settings.File = file.Name;
    if (file.Bytes.size() > limits::SettingsBytes)
        findings.Error(file.Name, "it is larger than 1 MB, so no setting is read. Shorten it.");
    int number = 0;
    for (const std::string& line : Lines(ToUtf8(file.Bytes)))
        ReadLine(game, line, file.Name + ":" + std::to_string(++number), findings);
}

void CheckRanges(const Settings& settings, Findings& findings) {
    for (const Range& range : Ranges)
        if (settings.Number(range.Name) < range.Low || settings.Number(range.Name) > range.High)
            findings.Warning(settings.Place(range.Name),
                             "\"" + std::string(range.Name) + "\" has no use for this number. " + range.Mend);
}

void CheckWords(const Settings& settings, Findings& findings) {
    if (std::ranges::find(Genres, settings.Text("Music Genre")) == Genres.end())
        findings.Warning(
            settings.Place("Music Genre"),
            "there is no such music, so the game stays silent. Write jazz, kids, orchestral, rock, "
            "techno, latin or random.");
    const std::string category = settings.Text("Character Category");
    if (!category.empty() && std::ranges::find(PieceCollections, category) == PieceCollections.end())
        findings.Warning(
            settings.Place("Character Category"),
            "there are no such pieces. Write Aliens, Animals, Objects or Professions, or nothing.");
    if (settings.Text("Game Name").empty())
        findings.Error(
            settings.Place("Game Name"),
            "the game has no name, and the Player would wait for one without end. Add \"Game Name=\".");
}

void CheckDevice(const Settings& settings, Findings& findings) {
    const std::int32_t device = settings.Number("Turn Device");
    const std::int32_t used = settings.Number("Dice Used");
    if (device != Device::None && used < 1)
        findings.Warning(settings.Place("Dice Used"), "nobody can move. Use at least one die or reel.");
    if (device == Device::Slots && used == 6)
        findings.Warning(settings.Place("Dice Used"),
                         "with six reels every spin ends in an error report. Use 5 or fewer.");
    if (device == Device::Slots && settings.Number("Max Slot Value") < 1)
        findings.Warning(settings.Place("Max Slot Value"), "the reels have no numbers. Choose 1 or more.");
}

void CheckGoal(const Settings& settings, Findings& findings) {
    const bool race = settings.Number("Goal Type") == Goal::EndOfBoard;
    if (race && settings.Number("Loop Board") == 1)
        findings.Warning(settings.Place("Loop Board"),
                         "the game never ends: a board that goes round has no end to reach. Write 0, or let "
                         "\"Goal Type\" be 0 or 1.");
    if (!race && settings.Number("Finish Condition") < 1)
        findings.Warning(settings.Place("Finish Condition"),
                         "the first move wins, since everybody begins with this total. Choose 1 or more.");
    if (settings.Number("Upper Age Range") > 0 &&
        settings.Number("Upper Age Range") < settings.Number("Lower Age Range"))
        findings.Warning(settings.Place("Upper Age Range"), "it is below the lower age. Exchange the two.");
}

/// The file that the Player would unpack for a setting; null, after a report, when that is not the one meant.
const PackedFile* NamedFile(const Game& game, std::string_view setting, Findings& findings) {
    const std::string name = game.Settings.Text(setting);
    const std::string place = game.Settings.Place(setting);
    const PackedFile* file = game.Files.Find(name);
    if (!IsBareFileName(name))
        findings.Error(
            place, "\"" + name + "\" is no plain file name. Name a file of the package, without folders.");
    else if (IsKeptName(name))
        findings.Error(place,
                       "the Player unpacks no file named like one of its own. Rename \"" + name + "\".");
    else if (!file)
        findings.Error(place, "there is no file \"" + name + "\". Add it to the package, or mend the name.");
    else if (!EqualNoCase(file->Name, name))
        findings.Error(place, "the Player would take \"" + file->Name + "\" for \"" + name +
                                  "\", which begins alike. Rename that file.");
    else
        return file;
    return nullptr;
}

/// A clean-up takes pictures of these kinds alone.
void CheckKind(const PackedFile& picture, Findings& findings) {
    const std::string kind = std::filesystem::path(picture.Name).extension().string();
    if (std::ranges::none_of(std::array{".jpg", ".bmp", ".gif"},
                             [&](const char* known) { return EqualNoCase(kind, known); }))
        findings.Warning(picture.Name,
                         "the Player leaves such a file behind on the user's disk. Make it a .jpg, .bmp or "
                         ".gif.");
}

void CheckPicture(const Game& game, std::string_view setting, Findings& findings) {
    const PackedFile* picture = NamedFile(game, setting, findings);
    if (!picture) return;
    CheckKind(*picture, findings);
    try {
        SizeOfPicture(picture->Bytes);
    } catch (const Failure&) {
        findings.Error(picture->Name,
                       "it is no picture that the Player shows. Save it as JPEG, PNG, BMP or GIF, with no "
                       "side above 16384 and no more than 100 million pixels.");
    }
}

void CheckHelp(const Game& game, Findings& findings) {
    const std::string help = game.Settings.Text("Help File");
    if (help == "DEFAULT" || help.empty() || help == " ") return;
    const PackedFile* file = NamedFile(game, "Help File", findings);
    if (!file) return;
    const std::string kind = std::filesystem::path(help).extension().string();
    if (EqualNoCase(kind, ".txt") || EqualNoCase(kind, ".rtf"))
        CheckHelpText(*file, findings);
    else if (EqualNoCase(kind, ".chm"))
        CheckCompiledHelp(*file, findings);
    else
        findings.Warning(game.Settings.Place("Help File"),
                         "the Player does not show this kind of help. Write it as .txt, .rtf or .chm.");
}

const PackedFile* SettingsFile(const Game& game, Findings& findings) {
    const auto found = std::ranges::find_if(game.Files.Files, IsSettingsFile);
    if (found == game.Files.Files.end()) {
        findings.Error("{GUID}.dat", "there is no settings file. A game needs one, named by its key.");
        return nullptr;
    }
    for (auto other = std::next(found); other != game.Files.Files.end(); ++other)
        if (IsSettingsFile(*other))
            findings.Error(other->Name, "there is more than one settings file. Keep one.");
    return &*found;
}

}  // namespace

void CheckSettings(Game& game, Findings& findings) {
    const PackedFile* file = SettingsFile(game, findings);
    if (!file) return;
    ReadSettings(game, *file, findings);
    CheckKey(game, std::filesystem::path(file->Name).stem().string(), findings);
    CheckRanges(game.Settings, findings);
    CheckWords(game.Settings, findings);
    CheckDevice(game.Settings, findings);
    CheckGoal(game.Settings, findings);
    CheckPicture(game, "Board Image", findings);
    const std::string splash = game.Settings.Text("Splash");
    if (!splash.empty() && splash != "DEFAULT") CheckPicture(game, "Splash", findings);
    CheckHelp(game, findings);
}

}  // namespace tabulon::gamepack
