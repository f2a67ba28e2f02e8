#pragma once

#include <filesystem>
#include <stdlib.h>
#include <string>

namespace tabulon::test {

/// An empty folder for one test, deleted with all that is in it.
class TemporaryDirectory {
  public:
    TemporaryDirectory() {
        std::string path = (std::filesystem::temp_directory_path() / "tabulon-XXXXXX").string();
        m_path = mkdtemp(path.data());
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

  private:
    std::filesystem::path m_path;
};

}  // namespace tabulon::test
