#pragma once

#include <optional>
#include <string>

namespace tabulon {

/// What an operating system of the older kind tells of its version.
struct VersionRecord {
    int Platform = 0;
    int Major = 0;
    int Minor = 0;
    int Build = 0;
    int ProductType = 0;
    int SuiteMask = 0;
};

/// The system's short name; empty for a system without one, and when no record could be had.
std::string WinVer(const std::optional<VersionRecord>& record);
/// The name of this system, which has none.
std::string WinVer();

}  // namespace tabulon
