#include "setup/shipped_games.h"

#include <algorithm>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

namespace tabulon {

namespace {

using Keys = std::vector<std::string>;

constexpr const char* OfferedBefore = "Shipped Games";
constexpr std::size_t LargestList = 1U << 20;

bool Holds(const Keys& keys, const std::string& key) { return std::ranges::find(keys, key) != keys.end(); }

Keys ShippedKeys(const Globals& g) {
    const std::filesystem::path list = g.Application.ShareDir / ShippedGamesFile;
    return FileExists(list) ? Lines(ReadFile(list, LargestList)) : Keys();
}

Keys KeysOfBefore(Globals& g) {
    return Lines(ToText(g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, OfferedBefore)));
}

void Remember(Globals& g, Keys& before, const std::string& key) {
    before.push_back(key);
    std::string text;
    for (const std::string& each : before) text += each + "\n";
    g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, OfferedBefore, text, REG_SZ);
}

/// The games that the user has: they are not installed over.
Keys InstalledKeys(Globals& g) {
    Keys keys;
    std::int32_t count = 0;
    g.Registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, GamesKey, keys, count);
    return keys;
}

/// The packages that are not to be looked into.
Keys PassedOver(Globals& g, const Keys& shipped, const Keys& before) {
    Keys keys = InstalledKeys(g);
    keys.insert(keys.end(), before.begin(), before.end());
    for (const std::filesystem::path& package : FilesMatching(g.AppDir, "*.gam"))
        if (!Holds(shipped, package.stem())) keys.push_back(package.stem());
    return keys;
}

}  // namespace

// Installing a game removes the settings files of all, so each one begins with a new look at what there is.
void InstallShippedGames(Globals& g, modInstallUninstall& packages,
                         const std::function<void(const std::string& name)>& installed) {
    const Keys shipped = ShippedKeys(g);
    Keys before = KeysOfBefore(g);
    for (const std::string& key : InstalledKeys(g))
        if (Holds(shipped, key) && !Holds(before, key)) Remember(g, before, key);
    while (true) {
        Keys names, keys;
        packages.InstallableGames(PassedOver(g, shipped, before), names, keys);
        if (keys.empty()) break;
        const auto first = std::ranges::min_element(names) - names.begin();
        packages.InstallGame(keys[static_cast<std::size_t>(first)]);
        Remember(g, before, keys[static_cast<std::size_t>(first)]);
        installed(names[static_cast<std::size_t>(first)]);
    }
    packages.CleanupGameDir();
}

}  // namespace tabulon
