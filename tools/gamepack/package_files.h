#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "packages/archive_writer.h"

namespace tabulon::gamepack {

/// The files of a package in their order, wherever they come from.
struct PackageFiles {
    /// What the game's key must be; empty when they come from a folder, whose name says nothing.
    std::string Key;
    std::vector<PackedFile> Files;

    /// What the Player unpacks when it asks for the name: the first file whose name begins with it, without
    /// ASCII case. Null when there is none.
    const PackedFile* Find(std::string_view name) const;
};

/// The order of a package: the settings first, then by name without ASCII case. A folder's hidden files are
/// left out. Fails with a text for the author when something in it cannot go into a package.
PackageFiles ReadFolder(const std::filesystem::path& folder);
/// Fails when the file holds no entry, or one that cannot be unpacked.
PackageFiles ReadPackage(const std::filesystem::path& file);

bool IsSettingsFile(const PackedFile& file);
/// A key as published games have it: a GUID in braces, 38 characters.
bool IsGameKey(std::string_view key);

}  // namespace tabulon::gamepack
