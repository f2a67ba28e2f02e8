#pragma once

#include <filesystem>
#include <span>
#include <string>

namespace tabulon {

struct PackedFile {
    std::string Name;  // UTF-8
    std::string Bytes;
    bool operator==(const PackedFile&) const = default;
};

/// Makes or replaces a ZIP archive of the files in their order, deflated (but for sounds, .ogg) and encrypted
/// (WinZip AES, 128 bits) under the PackagePassword. An empty file needs no encryption and has none. Fails
/// with FileIoError, or as WriteFile does; a former file is then as it was.
void WriteArchive(const std::filesystem::path& file, std::span<const PackedFile> files);

}  // namespace tabulon
