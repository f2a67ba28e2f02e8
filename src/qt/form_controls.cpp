#include "qt/form_controls.h"

#include <QLabel>
#include <QStringList>
#include <algorithm>
#include <ranges>
#include <utility>

#include "qt/text.h"
#include "qt/view_factory.h"

namespace tabulon {

FormControls::FormControls(Form& form, ViewHost& host, QWidget& window) : m_form(form), m_window(window) {
    for (Control* control : form.Controls) AddView(*control, host);
    NameInputs();
}

void FormControls::Sync(float twipsPerPixel) {
    Control* const wanted = m_form.ActiveControl;  // a control that is disabled below loses the focus
    m_syncing = true;
    for (const auto& view : m_views) view->Sync(twipsPerPixel);
    Stack();
    if (!m_hasTabOrder) SetTabOrder();
    ControlView* const view = ViewOf(wanted);
    if (m_focusRequests.Take(m_form.FocusRequests) && view) view->Widget().setFocus(Qt::OtherFocusReason);
    m_syncing = false;
    FollowFocus();
}

void FormControls::FollowFocus() {
    if (m_syncing) return;
    for (QWidget* at = m_window.focusWidget(); at && at != &m_window; at = at->parentWidget()) {
        const auto isHere = [at](const auto& view) { return &view->Widget() == at; };
        const auto found = std::find_if(m_views.begin(), m_views.end(), isHere);
        if (found == m_views.end()) continue;
        m_form.ActiveControl = &(*found)->TheControl();
        return;
    }
}

/// A text or picture that can be clicked waits until the user comes to it: a key that is pressed once too
/// often must not choose what just came up.
void FormControls::FocusFirst() {
    QWidget* first = nullptr;
    for (const auto& view : m_views | std::views::reverse)
        if (view->TakesFocus() && !IsStatic(view->TheControl().Kind)) first = &view->Widget();
    const auto takesFocus = [](const auto& view) { return view->TakesFocus(); };
    if (!first && std::ranges::any_of(m_views, takesFocus)) first = &m_window;
    if (first && !m_window.focusWidget()) first->setFocus(Qt::ActiveWindowFocusReason);
    FollowFocus();
}

QString FormControls::TextsToRead() const {
    std::vector<const Control*> labels;
    for (const auto& view : m_views) {
        const Control& control = view->TheControl();
        if (control.Kind == ControlKind::Label && control.Visible && !control.Withheld)
            labels.push_back(&control);
    }
    std::ranges::stable_sort(labels, {},
                             [](const Control* label) { return std::pair(label->Top, label->Left); });
    QStringList texts;
    for (const Control* label : labels)
        texts << PlainCaption(static_cast<const Label*>(label)->MarkedCaption()).simplified();
    texts.removeAll(QString());
    return texts.join('\n');
}

bool FormControls::ActivateAccessKey(QChar key) {
    for (auto view = m_views.cbegin(); view != m_views.cend(); ++view) {
        const bool usable = (*view)->Widget().isVisible() && (*view)->TheControl().Enabled;
        if (!usable || AccessKey((*view)->Caption()) != key) continue;
        if (!(*view)->ActivateByKey()) FocusNext(view);
        return true;
    }
    return false;
}

void FormControls::AddView(Control& control, ViewHost& host) {
    const ControlView* container = ViewOf(control.Container);
    m_views.push_back(MakeView(control, host, container ? &container->Widget() : &m_window));
    m_stack.push_back(m_views.back().get());
}

ControlView* FormControls::ViewOf(const Control* control) const {
    const auto shows = [control](const auto& view) { return &view->TheControl() == control; };
    const auto found = std::find_if(m_views.begin(), m_views.end(), shows);
    return found == m_views.end() ? nullptr : found->get();
}

void FormControls::SetTabOrder() {
    m_hasTabOrder = true;
    QWidget* before = nullptr;
    for (const auto& view : m_views) {
        if (view->Widget().focusPolicy() == Qt::NoFocus) continue;
        if (before) QWidget::setTabOrder(before, &view->Widget());
        before = &view->Widget();
    }
}

/// A label tells a screen reader what the input behind it is for.
void FormControls::NameInputs() {
    QLabel* label = nullptr;
    for (const auto& view : m_views) {
        const ControlKind kind = view->TheControl().Kind;
        if (kind == ControlKind::Label)
            label = static_cast<QLabel*>(&view->Widget());
        else if (label && IsInput(kind) && !label->buddy())
            label->setBuddy(&view->Widget());
    }
}

void FormControls::Stack() {
    const auto isBehind = [](const ControlView* a, const ControlView* b) {
        return a->TheControl().ZOrder < b->TheControl().ZOrder;
    };
    if (std::is_sorted(m_stack.begin(), m_stack.end(), isBehind)) return;
    std::stable_sort(m_stack.begin(), m_stack.end(), isBehind);
    for (const ControlView* view : m_stack) view->Widget().raise();
}

void FormControls::FocusNext(Views::const_iterator from) {
    const auto next = std::find_if(from, m_views.cend(), [](const auto& view) { return view->TakesFocus(); });
    if (next != m_views.cend()) (*next)->Widget().setFocus(Qt::ShortcutFocusReason);
}

}  // namespace tabulon
