#pragma once

#include <string>

namespace tabulon {

enum class BoxIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class BoxButtons { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4 };
enum class BoxAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// The system's own message boxes, for faults of the system; messages of play have dialogs.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    /// Shows the box modally and tells which button closed it. An empty title stands for the application's.
    virtual BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                             const std::string& title) = 0;
};

}  // namespace tabulon
