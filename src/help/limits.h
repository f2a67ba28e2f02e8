#pragma once

#include <cstddef>
#include <cstdint>

/// What the viewer takes from a help file: far above any real one, and small enough that none can hang or
/// exhaust the machine.
namespace tabulon::help_limits {

/// The compiled file as it lies on the disk.
inline constexpr std::uint64_t ArchiveBytes = 128ULL << 20;
inline constexpr std::size_t Files = 20000;
inline constexpr std::size_t NameBytes = 512;
/// One file, and all of them, unpacked.
inline constexpr std::uint64_t FileBytes = 16ULL << 20;
inline constexpr std::uint64_t TotalBytes = 96ULL << 20;

/// What the process that unpacks may use.
inline constexpr std::uint64_t UnpackingMemory = 512ULL << 20;
inline constexpr unsigned UnpackingSeconds = 10;

/// Entries of the contents or of the index, and how deep they stand in one another.
inline constexpr std::size_t Topics = 20000;
inline constexpr int TopicDepth = 16;
inline constexpr std::size_t TitleBytes = 1000;
inline constexpr std::size_t TargetsOfATopic = 100;

/// A page with more than this is shown as plain text, a larger one is cut.
inline constexpr int Nesting = 200;
inline constexpr int NestedTables = 12;
inline constexpr std::size_t PageBytes = 2U << 20;

/// Characters of all pages that the search looks through, and the pages that it names.
inline constexpr std::size_t SearchedCharacters = 8U << 20;
inline constexpr std::size_t Hits = 200;

}  // namespace tabulon::help_limits
