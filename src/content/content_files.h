#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "content/persisted_recordset.h"
#include "diagnostics/globals.h"

namespace tabulon {

/// ADO's codes of the types that content columns have.
namespace AdoType {
inline constexpr int Integer = 3, Single = 4, VarChar = 200;
}

struct ColumnDefinition {
    std::string_view Name;
    int Type;
    int DefinedSize;
};

/// An empty recordset: what a content file is made from. The numbers are ADO's: a client cursor, dynamic,
/// with optimistic locks.
struct RecordsetDefinition {
    std::span<const ColumnDefinition> Columns;
    int CursorLocation = 3;
    int CursorType = 2;
    int LockType = 3;
};

/// Fails with FileIoError for what is no recordset, or as reading a file does.
PersistedRecordset OpenRecordset(const std::filesystem::path& file);

/// Tells the user that a collection does not know its game.
void ShowGameDirectoryMissing(Globals& g);

}  // namespace tabulon
