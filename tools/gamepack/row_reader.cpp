#include "gamepack/row_reader.h"

#include <algorithm>

#include "platform/failure.h"

namespace tabulon::gamepack {

namespace {

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string Explained(std::string_view column, const Failure& failure) {
    switch (static_cast<FailureNumber>(failure.Number())) {
        case FailureNumber::InvalidUseOfNull:
            return Quoted(column) + " is missing. Give every row all columns; a text may be one blank.";
        case FailureNumber::TypeMismatch:
            return Quoted(column) + " is no number. Write digits only.";
        case FailureNumber::Overflow:
            return Quoted(column) + " is too big. Whole numbers go from -32768 to 32767.";
        default:
            return failure.Description();
    }
}

/// Characters, in UTF-8.
std::size_t LengthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

bool HasColumns(const PersistedRecordset& table, const std::string& file,
                std::span<const ColumnDefinition> columns, Findings& findings) {
    bool all = true;
    for (const ColumnDefinition& column : columns) {
        if (table.FindColumn(column.Name)) continue;
        all = false;
        findings.Error(file,
                       "there is no column " + Quoted(column.Name) + ". Add an s:AttributeType for it.");
    }
    return all;
}

}  // namespace

RowReader::RowReader(const PersistedRecordset::Row& row, const std::string& file, Findings& findings)
    : m_row(row), m_findings(findings), m_place(file + ":" + std::to_string(row.Line())) {}

template <class Read>
auto RowReader::Cell(std::string_view column, Read read) {
    try {
        return read();
    } catch (const Failure& failure) {
        m_good = false;
        m_findings.Error(m_place, Explained(column, failure));
        return decltype(read())();
    }
}

int RowReader::Whole(std::string_view column) {
    return Cell(column, [&] { return m_row.ToInteger(column).Value(); });
}

std::int32_t RowReader::Long(std::string_view column) {
    return Cell(column, [&] { return m_row.ToLong(column); });
}

float RowReader::Single(std::string_view column) {
    return Cell(column, [&] { return m_row.ToSingle(column); });
}

std::string RowReader::Text(std::string_view column, std::size_t width) {
    std::string text = Cell(column, [&] { return m_row.Text(column); });
    if (LengthOf(text) > width)
        m_findings.Warning(m_place, Quoted(column) + " has " + std::to_string(LengthOf(text)) +
                                        " characters. Keep it to " + std::to_string(width) + ".");
    return text;
}

void ReadRows(const PackedFile& file, std::span<const ColumnDefinition> columns, Findings& findings,
              const std::function<void(RowReader&)>& check) {
    try {
        const PersistedRecordset table(file.Bytes);
        if (!HasColumns(table, file.Name, columns, findings)) return;
        for (const PersistedRecordset::Row& row : table.Rows()) {
            RowReader reader(row, file.Name, findings);
            check(reader);
        }
    } catch (const Failure& failure) {
        findings.Error(file.Name, failure.Description());
    }
}

}  // namespace tabulon::gamepack
