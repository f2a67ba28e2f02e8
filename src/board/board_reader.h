#pragma once

#include <string>

#include "board/main_form.h"

namespace tabulon {

/// Who stands on which space of how many, with how much, and whose turn it is; empty before a game.
std::string DescribeBoard(const MainForm& form);

/// Gives the focus to the board, so that its description is read, and from there to the button of the turn.
void GoToBoardOrBack(MainForm& form);

/// Keeps the board's description and the last roll in words, for those who hear the board and do not see it.
class BoardReader {
  public:
    explicit BoardReader(MainForm& form) : m_form(form) {}

    /// To be called whenever the form is about to be shown.
    void Follow();

  private:
    void FollowRoll();

    MainForm& m_form;
    Integer m_roll;
    std::string m_roller;
};

}  // namespace tabulon
