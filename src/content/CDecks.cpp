#include "content/CDecks.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <tuple>

#include "platform/failure.h"
#include "platform/files.h"

namespace tabulon {

namespace {

constexpr ColumnDefinition ContentColumns[] = {
    {"Index", AdoType::Single, 4},
    {"Name", AdoType::VarChar, 32},
    {"Bitmap", AdoType::VarChar, 128},
    {"BitmapPath", AdoType::VarChar, 128},
};

}  // namespace

bool CDecks::Load() {
    bool Result = false;
    const auto failed = [&] {
        Result = false;
        m_packages.CleanupGameDir();
    };
    Procedure(
        m_g.gErrHandler, "cDecks:Load",
        [&] {
            Result = LoadFile();
            m_packages.CleanupGameDir();
        },
        failed);
    return Result;
}

bool CDecks::LoadFile() {
    Extract("decks.xml");
    if (GameDirectory.empty()) {
        ShowGameDirectoryMissing(m_g);
        return false;
    }
    const std::filesystem::path file = FindFile(m_g.AppDir, "decks.xml");
    if (file.empty()) return false;
    const PersistedRecordset decks = OpenRecordset(file);
    if (decks.Rows().size() > limits::Decks) throw Failure(FailureNumber::FileIoError, "Too many decks");
    for (const PersistedRecordset::Row& row : decks.Rows()) AddRow(row);
    return true;
}

void CDecks::AddRow(const PersistedRecordset::Row& row) {
    Extract("cards" + row.Text("Index") + ".xml");
    // In braces, so that the cells are read, and fail, in this order.
    const std::tuple cells{row.ToInteger("Index"), row.Text("Name"), row.Text("Bitmap"),
                           row.Text("BitmapPath")};
    std::apply([this](const auto&... cell) { Add(cell..., ""); }, cells);
    CheckCards();
}

void CDecks::Extract(const std::string& fileName) {
    m_packages.ExtractFile(m_g.AppDir / (GameDirectory + ".gam"), m_g.AppDir, fileName, false);
}

void CDecks::CheckCards() const {
    std::size_t cards = 0;
    for (const CDeck& deck : *this) cards += static_cast<std::size_t>(deck.Cards.Count());
    if (cards > limits::Cards) throw Failure(FailureNumber::FileIoError, "Too many cards");
}

CDeck& CDecks::Add(Integer Index, const std::string& Name, const std::string& Bitmap,
                   const std::string& BitmapPath, const std::string& Key) {
    auto made = std::make_unique<CDeck>(m_g);
    made->Index = Index;
    made->Name = Name;
    made->Bitmap = Bitmap;
    made->BitmapPath = BitmapPath;
    CDeck& deck = Collection::Add(std::move(made), Key);
    deck.Cards.GameDirectory = GameDirectory;
    deck.Cards.PlayerPath = PlayerPath;
    deck.Cards.Load(Index);
    return deck;
}

Integer CDecks::NextIndex() const {
    if (Count() == 0) return 1;
    Integer highest = Item(1).Index;
    for (const CDeck& deck : *this) highest = std::max(highest, deck.Index);
    return highest + 1;
}

CDeck* CDecks::ItemByIndex(Integer Index) const {
    for (int position = Count(); position > 0; --position)
        if (Item(position).Index == Index) return &Item(position);
    return nullptr;
}

std::span<const ColumnDefinition> CDecks::Columns() { return ContentColumns; }

RecordsetDefinition CDecks::DefineEmptyRS() const {
    RecordsetDefinition Result;
    Procedure(m_g.gErrHandler, "CSpaces:DefineEmptyRS", [&] { Result.Columns = Columns(); });
    return Result;
}

void CDecks::RemoveByIndex(Integer Index) {
    Procedure(m_g.gErrHandler, "CDecks:RemoveByIndex", [&] {
        for (int position = 1; position <= Count(); ++position)
            if (Item(position).Index == Index) return Remove(position);
    });
}

}  // namespace tabulon
