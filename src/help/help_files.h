#pragma once

#include <map>
#include <string>
#include <string_view>

namespace tabulon {

/// The files of an unpacked help file. Names have no case, and no slash at their beginning.
class HelpFiles {
  public:
    /// The first file of a name counts. Fails with InternalError when a limit is broken.
    void Add(std::string_view name, std::string bytes);
    /// Null when there is none.
    const std::string* Find(std::string_view name) const;
    /// By their names in small letters, in alphabetical order.
    const std::map<std::string, std::string>& All() const { return m_files; }

  private:
    std::map<std::string, std::string> m_files;
    std::size_t m_totalBytes = 0;
};

/// The files as a stream of bytes, for the way from one process to another.
std::string ToStream(const HelpFiles& files);
/// Fails with FileIoError for what is no such stream, whole and within the limits.
HelpFiles FromStream(std::string_view stream);

}  // namespace tabulon
