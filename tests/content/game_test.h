#pragma once

#include <gmock/gmock.h>

#include "content/CGame.h"
#include "packages/archive_writer.h"
#include "support/content_xml.h"
#include "support/test_machine.h"

namespace tabulon::test {

/// A machine with room for one installed game.
class GameTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    GameTest() {
        game.GameDirectory = Key;
        game.GameName = "Game";
    }

    void Pack(const std::vector<PackedFile>& files) {
        WriteArchive(machine.AppDir() / (Key + ".gam"), files);
    }
    void Set(const std::string& name, const RegistryValue& value) {
        const std::uint32_t type = std::holds_alternative<std::string>(value) ? REG_SZ : REG_DWORD;
        machine.g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, std::string(GamesKey) + "\\" + Key, name,
                                               value, type);
    }
    /// What lies in the data directory.
    Texts Files() const {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(machine.AppDir()))
            names.push_back(entry.path().filename());
        return names;
    }

    const std::string Key = "{11111111-2222-3333-4444-555555555555}";
    TestMachine machine;
    modInstallUninstall packages{machine.g};
    CGame game{machine.g, packages};
};

}  // namespace tabulon::test
