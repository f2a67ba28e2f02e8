#pragma once

#include <span>
#include <string>

#include "content/CCards.h"
#include "content/collection.h"
#include "content/content_files.h"
#include "diagnostics/globals.h"
#include "packages/modInstallUninstall.h"
#include "platform/integer.h"

namespace tabulon {

/// A game with more cannot be loaded.
namespace limits {
inline constexpr std::size_t Decks = 500;
/// In all decks together.
inline constexpr std::size_t Cards = 50000;
}  // namespace limits

/// A deck of cards. Its picture is kept, and shown nowhere.
struct CDeck {
    explicit CDeck(Globals& g) : Cards(g) {}

    std::string Name;
    Integer Index;
    std::string Bitmap;
    std::string BitmapPath;
    CCards Cards;
};

/// The decks of a game in the order of their file.
class CDecks : private Collection<CDeck> {
  public:
    CDecks(Globals& g, modInstallUninstall& packages) : m_g(g), m_packages(packages) {}

    /// The game's key, and a folder that is handed on to the cards.
    std::string GameDirectory;
    std::string PlayerPath;

    /// Adds the rows of decks.xml from the game's package, each with its cards. False when there are none to
    /// read or after a failure; decks added before it stay. A deck without a cards file is empty.
    bool Load();
    /// Loads the unpacked cards of the deck as well.
    CDeck& Add(Integer Index, const std::string& Name, const std::string& Bitmap,
               const std::string& BitmapPath, const std::string& Key);
    /// One above the highest number; 1 without decks.
    Integer NextIndex() const;
    /// The last deck with that number; null when there is none.
    CDeck* ItemByIndex(Integer Index) const;
    static std::span<const ColumnDefinition> Columns();
    /// Reports under the spaces' name.
    RecordsetDefinition DefineEmptyRS() const;
    /// Removes the first deck with that number.
    void RemoveByIndex(Integer Index);

    using Collection::begin;
    using Collection::Count;
    using Collection::end;
    using Collection::Item;
    using Collection::Remove;

  private:
    bool LoadFile();
    void AddRow(const PersistedRecordset::Row& row);
    void Extract(const std::string& fileName);
    void CheckCards() const;

    Globals& m_g;
    modInstallUninstall& m_packages;
};

}  // namespace tabulon
