#pragma once

#include <QMessageBox>
#include <string>

#include "platform/message_boxes.h"

namespace tabulon {

struct MessageBoxText {
    std::string text;
    std::string title;
    BoxIcon icon;
    BoxButtons buttons;
};

/// A message box of the system, open until a button closes it.
class MessageBox {
  public:
    explicit MessageBox(const MessageBoxText& content);

    /// In front of that window, which may go before the box does.
    void Open(const QWidget* above);
    bool IsOpen() const { return m_box.isVisible(); }
    /// Closed without a button, the box counts as answered in the negative (Ok when it has only that).
    BoxAnswer Answer() const;

  private:
    QMessageBox m_box;
    BoxButtons m_buttons;
};

}  // namespace tabulon
