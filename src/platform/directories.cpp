#include "platform/directories.h"

#include <system_error>

namespace tabulon {

namespace {

std::filesystem::path Prefix(const std::filesystem::path& executable) {
    return executable.lexically_normal().parent_path().parent_path();
}

}  // namespace

std::filesystem::path ExecutablePath() {
    std::error_code trouble;
    return std::filesystem::read_symlink("/proc/self/exe", trouble);
}

std::filesystem::path DataDirectory(const std::filesystem::path& executable) {
    const std::filesystem::path prefix = Prefix(executable);
    return (prefix == "/usr" ? "/" : prefix) / "var/games/tabulon";
}

std::filesystem::path ShareDirectory(const std::filesystem::path& executable) {
    return Prefix(executable) / "share/tabulon";
}

}  // namespace tabulon
