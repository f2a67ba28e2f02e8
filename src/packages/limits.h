#pragma once

#include <cstddef>
#include <cstdint>

/// What the program takes from a package or a content file: far above any real game, and small enough that no
/// file can hang or exhaust the machine. What is beyond a limit fails.
namespace tabulon::limits {

inline constexpr std::size_t ArchiveEntries = 4096;
/// One entry, unpacked.
inline constexpr std::uint64_t EntryBytes = 64ULL << 20;
/// All entries of an archive, unpacked.
inline constexpr std::uint64_t ArchiveBytes = 512ULL << 20;

inline constexpr std::size_t SettingsBytes = 1U << 20;
/// Help as plain or rich text.
inline constexpr std::size_t HelpTextBytes = 4U << 20;
inline constexpr std::size_t ContentFileBytes = 16U << 20;
/// Elements inside one another.
inline constexpr int ContentDepth = 32;
inline constexpr std::ptrdiff_t ElementAttributes = 256;
inline constexpr std::size_t Columns = 256;
inline constexpr std::size_t Rows = 5000;
inline constexpr std::size_t Decks = 500;
/// In all decks of a game together.
inline constexpr std::size_t Cards = 50000;

}  // namespace tabulon::limits
