#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "content/collection.h"
#include "content/content_files.h"
#include "diagnostics/globals.h"
#include "packages/modInstallUninstall.h"
#include "platform/integer.h"

namespace tabulon {

/// One space of a board: a rectangle on its picture, a number along the track, and what it orders.
struct CSpace {
    std::string GameDirectory;
    std::string GameName;
    Integer Sequence;
    std::int32_t Top = 0;
    std::int32_t Left = 0;
    std::int32_t Height = 0;
    std::int32_t Width = 0;
    Integer ActionType;
    std::string message;
    float Data1 = 0;
    Integer Data2;
    /// Left, top, width and height before the last FactorSpaces.
    std::array<std::int32_t, 4> Unfactored{};
};

/// The spaces of a board in the order of their file.
class CSpaces : private Collection<CSpace> {
  public:
    CSpaces(Globals& g, modInstallUninstall& packages) : m_g(g), m_packages(packages) {}

    /// The game's key, and a folder that is carried along.
    std::string GameDirectory;
    std::string PlayerPath;

    /// Adds the rows of spaces.xml from the game's package. False when there are none to read or after a
    /// failure; spaces added before it stay.
    bool Load();
    /// A message of one blank counts as none.
    CSpace& Add(Integer Sequence, std::int32_t Top, std::int32_t Left, std::int32_t Height,
                std::int32_t Width, Integer ActionType, std::string Message, float Data1, Integer Data2,
                const std::string& Key);
    /// Changes every space with that number.
    void SetAction(Integer Sequence, Integer ActionType, const std::string& Message, float Data1,
                   Integer Data2);
    /// One above the highest number; 1 for an empty board.
    Integer NextSequence() const;
    /// The last space with that number; null when there is none.
    const CSpace* ItemBySequence(Integer Sequence) const {
        const auto number = static_cast<std::size_t>(Sequence.Value());
        if (number >= m_byNumber.size()) return Walk(Sequence);
        return m_byNumber[number];
    }
    static std::span<const ColumnDefinition> Columns();
    RecordsetDefinition DefineEmptyRS() const;
    /// Reports a failure unless there are no spaces: it asks for the member `Index`, which a space has not.
    void RemoveBySequence(Integer Sequence);
    /// Multiplies all rectangles, rounding half to even. Each call counts.
    void FactorSpaces(float XFactor, float YFactor);
    /// The same in place of the last FactorSpaces, since which no space was added.
    void RefactorSpaces(float XFactor, float YFactor);

    using Collection::begin;
    using Collection::Count;
    using Collection::end;

    /// Whoever gets a space to change may give it another number, before anything is looked up again.
    CSpace& Item(int position) {
        m_byNumber.clear();
        return Collection::Item(position);
    }
    const CSpace& Item(int position) const { return Collection::Item(position); }
    CSpace& Item(std::string_view key) {
        m_byNumber.clear();
        return Collection::Item(key);
    }
    const CSpace& Item(std::string_view key) const { return Collection::Item(key); }
    void Remove(int position) {
        m_byNumber.clear();
        Collection::Remove(position);
    }
    void Remove(std::string_view key) {
        m_byNumber.clear();
        Collection::Remove(key);
    }

  private:
    const CSpace* Walk(Integer Sequence) const;
    void NumberSpaces() const;
    bool LoadFile();
    void AddRow(const PersistedRecordset::Row& row);

    Globals& m_g;
    modInstallUninstall& m_packages;
    /// The spaces numbered 0 to Count(), as they mostly are; empty until a walk has found them out.
    mutable std::vector<const CSpace*> m_byNumber;
};

}  // namespace tabulon
