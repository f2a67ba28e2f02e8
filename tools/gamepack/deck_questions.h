#pragma once

#include <array>
#include <set>
#include <string>

#include "gamepack/findings.h"

namespace tabulon::gamepack {

/// The questions of one deck, beside one another.
class DeckQuestions {
  public:
    struct Question {
        std::string Text;
        std::array<std::string, 4> Answers;
        int Right = 0;  // 0 for the first answer
    };

    /// Reports a question that was there before, and an answer that is there twice.
    void Add(const Question& question, const std::string& place, Findings& findings);
    /// Reports answers that are right too often, or never. A few cards, and those with fewer than four
    /// answers, say nothing about that.
    void CheckBalance(const std::string& file, Findings& findings) const;

  private:
    std::set<std::string> m_asked;
    std::array<int, 4> m_right{};
    int m_complete = 0;  // have four answers
};

/// Nothing to read.
bool IsBlank(const std::string& text);

}  // namespace tabulon::gamepack
