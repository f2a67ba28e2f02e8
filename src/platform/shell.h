#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tabulon {

/// What the desktop and the operating system do for the program. A target that cannot be opened or started
/// is passed over in silence.
class Shell {
  public:
    virtual ~Shell() = default;
    /// Opens a web address or a document with the user's program for it.
    virtual void Open(const std::string& target) = 0;
    /// Starts a program on its own.
    virtual void Start(const std::filesystem::path& program,
                       const std::vector<std::string>& arguments = {}) = 0;
    /// Starts a program that ends with this one, however this one ends.
    virtual void StartCompanion(const std::filesystem::path& program,
                                const std::vector<std::string>& arguments) = 0;
    /// True when another copy of the program runs.
    virtual bool PreviousInstance() = 0;
    /// Asks that copy to come to the foreground; false when it does not answer.
    virtual bool RaisePreviousInstance() = 0;
};

}  // namespace tabulon
