#include "qt/spoken_texts.h"

#include <QStringList>
#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "qt/static_views.h"
#include "qt/text.h"

namespace tabulon {

namespace {

bool IsClicked(const Control& control) { return control.Click != nullptr; }

}  // namespace

SpokenTexts::SpokenTexts(const Form& form, QWidget& window) : m_form(form), m_window(window) {}

void SpokenTexts::Follow() {
    if (m_form.Frame == WindowFrame::Dialog && !m_announcement) MakeAnnouncement();
    Texts texts = Collect();
    if (texts == m_texts) return;
    QStringList all, news;
    for (const Text& text : texts) {
        all << text.Words;
        if (IsNews(text)) news << text.Words;
    }
    m_texts = std::move(texts);
    m_window.setAccessibleDescription(all.join('\n'));
    if (!news.isEmpty()) m_announcement->SetCaption(DoubleAmpersands(FromQt(news.join('\n'))));
}

/// From the top down.
SpokenTexts::Texts SpokenTexts::Collect() const {
    Texts texts;
    for (const Control* control : m_form.Controls) {
        if (control->Kind != ControlKind::Label || !control->Visible || control->Withheld) continue;
        const auto* label = static_cast<const Label*>(control);
        const QString words = PlainCaption(label->MarkedCaption()).simplified();
        if (!words.isEmpty()) texts.push_back({label, words});
    }
    std::ranges::stable_sort(texts, {},
                             [](const Text& text) { return std::pair(text.Of->Top, text.Of->Left); });
    return texts;
}

/// The board speaks for itself, and what can be clicked is told when the focus comes to it.
bool SpokenTexts::IsNews(const Text& text) const {
    const bool mayTell = m_announcement && m_window.isVisible();
    return mayTell && !IsClicked(*text.Of) && std::ranges::find(m_texts, text) == m_texts.end();
}

/// Before the window shows: a label that comes later is announced twice, as a label and with its text.
void SpokenTexts::MakeAnnouncement() {
    m_announcement = new LabelWidget(&m_window);
    m_announcement->setGeometry(-10, -10, 1, 1);
}

}  // namespace tabulon
