#pragma once

#include <string>
#include <vector>

namespace tabulon::gamepack {

/// What is wrong with a game, for its author: where it is, what it is, and how to mend it.
class Findings {
  public:
    /// The game, or a part of it, cannot be used.
    void Error(const std::string& place, const std::string& text);
    /// It works, but hardly as its author means it.
    void Warning(const std::string& place, const std::string& text);

    bool HasErrors() const { return m_errors > 0; }
    /// "error: spaces.xml:12: …", one finding a line, without a summary.
    const std::vector<std::string>& Lines() const { return m_lines; }
    /// "1 error, 2 warnings"
    std::string Summary() const;

  private:
    std::vector<std::string> m_lines;
    int m_errors = 0;
};

}  // namespace tabulon::gamepack
