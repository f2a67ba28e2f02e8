#include "platform/modWinVer.h"

namespace tabulon {

namespace {

constexpr int ServerOrWorkstation = 3;
constexpr int Personal = 0x200;

std::string Name(const VersionRecord& is) {
    const auto version = [&](int platform, int major, int minor) {
        return is.Platform == platform && is.Major == major && is.Minor == minor;
    };
    if (version(1, 4, 10) && is.Build >= 2222) return "Win98SE";
    if (version(1, 4, 90) && is.Build >= 3000) return "WinME";
    // A workstation's type is 1, so it counts as a server too.
    if (version(2, 4, 0) && is.Build >= 1381)
        return (is.ProductType & ServerOrWorkstation) != 0 ? "WinNT4 Server" : "";
    if (version(2, 5, 0) && is.Build >= 2195) return "Win2K";
    if (version(2, 5, 2) && is.Build == 3790) return "Win2003 Server";
    if (version(2, 5, 1) && is.Build >= 2600)
        return (is.SuiteMask & Personal) != 0 ? "WinXP Home" : "WinXP Pro";
    return "";
}

}  // namespace

std::string WinVer(const std::optional<VersionRecord>& record) { return record ? Name(*record) : ""; }

std::string WinVer() { return WinVer(std::nullopt); }

}  // namespace tabulon
