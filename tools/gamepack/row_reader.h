#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "content/content_files.h"
#include "gamepack/findings.h"
#include "gamepack/package_files.h"

namespace tabulon::gamepack {

/// Reads the cells of one row as the Player does, and reports each one that it would refuse.
class RowReader {
  public:
    RowReader(const PersistedRecordset::Row& row, const std::string& file, Findings& findings);

    /// "spaces.xml:12"
    const std::string& Place() const { return m_place; }

    /// 16 bits; 0 after a report.
    int Whole(std::string_view column);
    /// 32 bits; 0 after a report.
    std::int32_t Long(std::string_view column);
    float Single(std::string_view column);
    /// Reports also a text that is longer than the column is wide.
    std::string Text(std::string_view column, std::size_t width);

    /// False when the Player would stop reading at this row.
    bool Good() const { return m_good; }

  private:
    template <class Read>
    auto Cell(std::string_view column, Read read);

    const PersistedRecordset::Row& m_row;
    Findings& m_findings;
    std::string m_place;
    bool m_good = true;
};

/// Hands every row of a content file to `check(RowReader&)`. Reports a file that cannot be read and columns
/// that are missing, and hands out no row then.
void ReadRows(const PackedFile& file, std::span<const ColumnDefinition> columns, Findings& findings,
              const std::function<void(RowReader&)>& check);

}  // namespace tabulon::gamepack
