#include "gamepack/deck_questions.h"

#include <algorithm>

#include "platform/text.h"

namespace tabulon::gamepack {

namespace {

constexpr int FewCards = 20;

bool HasOneTwice(const std::array<std::string, 4>& answers) {
    for (auto answer = answers.begin(); answer != answers.end(); ++answer)
        if (!IsBlank(*answer) && std::any_of(answers.begin(), answer, [&](const std::string& other) {
                return EqualNoCase(*answer, other);
            }))
            return true;
    return false;
}

std::string RightOn(std::size_t answer, int cards, int of) {
    return "answer " + std::string(1, "ABCD"[answer]) + " is right on " + std::to_string(cards) + " of " +
           std::to_string(of) + " cards";
}

}  // namespace

bool IsBlank(const std::string& text) { return text.empty() || text == " "; }

void DeckQuestions::Add(const Question& question, const std::string& place, Findings& findings) {
    if (!IsBlank(question.Text) && !m_asked.insert(question.Text).second)
        findings.Warning(place, "the deck asks this more than once. Ask something else.");
    if (HasOneTwice(question.Answers))
        findings.Warning(place, "two of its answers are the same. Change one.");
    if (std::ranges::any_of(question.Answers, IsBlank) || question.Right < 0 || question.Right > 3) return;
    ++m_complete;
    ++m_right[static_cast<std::size_t>(question.Right)];
}

void DeckQuestions::CheckBalance(const std::string& file, Findings& findings) const {
    if (m_complete < FewCards) return;
    for (std::size_t answer = 0; answer < m_right.size(); ++answer)
        if (m_right[answer] == 0 || m_right[answer] * 5 > m_complete * 2)
            findings.Warning(file, RightOn(answer, m_right[answer], m_complete) +
                                       ", which players soon know. Let each be right on about a quarter.");
    if (m_right[0] * 4 > m_complete)
        findings.Warning(file, RightOn(0, m_right[0], m_complete) +
                                   ", and no computer ever gives it. Let it be right on a quarter at most.");
}

}  // namespace tabulon::gamepack
