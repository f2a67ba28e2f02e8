#include "library/modSavedGames.h"
#include "platform/files.h"

namespace tabulon {

namespace {

Array<std::string> ArrayOf(const std::vector<std::string>& names) {
    Array<std::string> array;
    array.ReDim(static_cast<int>(names.size()) - 1);
    for (int i = 0; i <= array.UBound(); ++i) array[i] = names[static_cast<std::size_t>(i)];
    return array;
}

void RemoveElement(Array<std::string>& array, int index) {
    if (index >= array.UBound()) return;
    for (int i = index; i < array.UBound(); ++i) array[i] = array[i + 1];
    array.ReDimPreserve(array.UBound() - 1);
}

}  // namespace

// Both walks go on after a removal without looking at what moved into the gap. What the first one passes over
// has an empty name, which is what the second one looks for.
void modSavedGames::GetAvailableGames(Array<std::string>& Games, Array<std::string>& GameNames,
                                      Array<std::string>& Descriptions, std::int32_t& Count) {
    Procedure(m_g.gErrHandler, "modSavedGames:GetAvailableGames", [&] {
        std::vector<std::string> keys;
        m_g.Registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, GamesKey, keys, Count);
        if (!keys.empty()) Games = ArrayOf(keys);
        Descriptions.ReDimPreserve(Games.UBound());
        GameNames.ReDimPreserve(Games.UBound());
        for (int i = 0; i <= Games.UBound(); ++i) {
            if (Games[i] == HiddenGame) continue;
            if (IsPlayable(Games[i])) {
                DescribeGame(GameNames, Descriptions, i, Games[i]);
            } else {
                RemoveGameArrayElement(Games, GameNames, Descriptions, i);
            }
        }
        for (int i = 0; i <= GameNames.UBound(); ++i)
            if (GameNames[i].empty()) RemoveGameArrayElement(Games, GameNames, Descriptions, i);
    });
}

bool modSavedGames::IsPlayable(const std::string& gameKey) {
    const std::filesystem::path package = FindFile(m_g.AppDir, gameKey + ".gam");
    return !package.empty() && m_packages.ExtractFile(package, m_g.AppDir, "spaces.xml", true);
}

void modSavedGames::DescribeGame(Array<std::string>& GameNames, Array<std::string>& Descriptions, int index,
                                 const std::string& gameKey) {
    const std::string key = std::string(GamesKey) + "\\" + gameKey;
    Descriptions.ReDimPreserve(index);
    GameNames.ReDimPreserve(index);
    GameNames[index] = ToText(m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, key, "Game Name"));
    Descriptions[index] = ToText(m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, key, "Description"));
}

void modSavedGames::RemoveGameArrayElement(Array<std::string>& Games, Array<std::string>& GameNames,
                                           Array<std::string>& Descriptions, std::int32_t Index) {
    Procedure(m_g.gErrHandler, "modSavedGames:RemoveGameArrayElement", [&] {
        RemoveElement(Games, Index);
        RemoveElement(GameNames, Index);
        RemoveElement(Descriptions, Index);
    });
}

}  // namespace tabulon
