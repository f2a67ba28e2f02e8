#pragma once

#include <QString>
#include <vector>

#include "forms/form.h"

class QWidget;

namespace tabulon {

class LabelWidget;

/// The labels of a form as a screen reader tells them: all of them describe the window, and a text that
/// changes while the window of a dialog shows is read out.
class SpokenTexts {
  public:
    SpokenTexts(const Form& form, QWidget& window);

    /// To be called when the labels show what the form says.
    void Follow();

  private:
    struct Text {
        const Label* Of;
        QString Words;
        bool operator==(const Text&) const = default;
    };
    using Texts = std::vector<Text>;

    Texts Collect() const;
    bool IsNews(const Text& text) const;
    void MakeAnnouncement();

    const Form& m_form;
    QWidget& m_window;
    LabelWidget* m_announcement = nullptr;  // out of sight; none but in a dialog
    Texts m_texts;
};

}  // namespace tabulon
