#pragma once

#include <filesystem>
#include <string>

#include "content/CDecks.h"
#include "content/CSpaces.h"
#include "gamepack/package_files.h"
#include "platform/text.h"
#include "support/content_xml.h"

namespace tabulon::test {

/// A small game that plays well, to be spoilt by a test.
struct GameFolder {
    const std::string Key = "{11111111-2222-3333-4444-555555555555}";
    std::string Settings =
        "Game Name=Small\r\nGoal Type=0\r\nFinish Condition=20\r\nTurn Device=0\r\nDice Used=2\r\nTries=2\r\n"
        "Board Image=board.bmp\r\nSplash=DEFAULT\r\nMusic Genre=kids\r\n";
    std::string Spaces = SpaceRow(1) + SpaceRow(2, {{"ActionType", "0"}, {"Data1", "1"}}) + SpaceRow(3);
    std::string Decks = DeckRow("1");
    std::string Cards = CardRow(1) + CardRow(2);
    /// A bitmap of 100 x 50 pixels, as far as its header goes.
    std::string Board = std::string("BM") + std::string(12, '\0') + "\x28" + std::string(3, '\0') + "\x64" +
                        std::string(3, '\0') + "\x32" + std::string(40, '\0');

    std::vector<PackedFile> More;

    gamepack::PackageFiles Files() const {
        gamepack::PackageFiles files{"",
                                     {{Key + ".dat", Settings},
                                      {"board.bmp", Board},
                                      {"cards1.xml", ContentXml(CCards::Columns(), Cards)},
                                      {"decks.xml", ContentXml(CDecks::Columns(), Decks)},
                                      {"spaces.xml", ContentXml(CSpaces::Columns(), Spaces)}}};
        files.Files.insert(files.Files.end(), More.begin(), More.end());
        return files;
    }
};

}  // namespace tabulon::test
