#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// File names in the data directory have no ASCII case. `dir` may be missing or unreadable: then there are no
/// files in it.

/// True when the name can only mean a file of the folder that it is used in: no separator, drive, "..",
/// control character or device name (with an extension too), and 1 to 255 bytes.
bool IsBareFileName(std::string_view name);

/// The file of that very name, or else the first one that differs in case; empty when there is none, or when
/// the name is not bare.
std::filesystem::path FindFile(const std::filesystem::path& dir, std::string_view name);

/// The regular files whose names match, in the order of the file system. "*" stands for any characters, once;
/// symbolic links are passed over, since they may lead out of the folder.
std::vector<std::filesystem::path> FilesMatching(const std::filesystem::path& dir, std::string_view pattern);

/// Deletes what FilesMatching finds, but for a file of the name `kept`. Fails with PermissionDenied when any
/// of it cannot be deleted, after deleting the rest.
void DeleteMatching(const std::filesystem::path& dir, std::string_view pattern, std::string_view kept = {});

/// True for a regular file, or a link to one.
bool FileExists(const std::filesystem::path& path);

/// Fails with FileNotFound, PathNotFound, PermissionDenied or FileIoError, and with InternalError for a file
/// of more than `limit` bytes.
std::string ReadFile(const std::filesystem::path& path, std::size_t limit);

/// Makes or replaces the file, whole or not at all. Fails with PathNotFound, PermissionDenied, DiskFull or
/// FileIoError; a former file is then as it was.
void WriteFile(const std::filesystem::path& path, std::string_view bytes);

/// Makes the file when it is missing. Fails as WriteFile does, and for a symbolic link; on a full disk a part
/// may have been written.
void AppendToFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace tabulon
