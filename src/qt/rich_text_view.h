#pragma once

#include <QTextEdit>
#include <vector>

#include "qt/control_view.h"

namespace tabulon {

/// A text of a file, to be read: its paragraphs with their looks, or plain.
class RichTextView final : public ViewOf<RichText> {
  public:
    RichTextView(RichText& text, ViewHost& host, QWidget* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void SyncOwn() override;

  private:
    void ShowText();

    QTextEdit& m_edit;
    const QObject* const m_viewport;  // events come also while the two are being destroyed
    Applied<std::string> m_content;
    Applied<std::vector<TextParagraph>> m_paragraphs;
    Applied<Font> m_font;
};

}  // namespace tabulon
