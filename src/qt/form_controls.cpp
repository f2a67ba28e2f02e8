#include "qt/form_controls.h"

#include <QLabel>
#include <algorithm>
#include <ranges>
#include <string_view>
#include <utility>

#include "qt/focus_step.h"
#include "qt/text.h"
#include "qt/view_factory.h"

namespace tabulon {

namespace {

/// The name of the array that the control belongs to, else its own.
std::string_view ArrayOf(const Control& control) {
    const std::string_view name = control.Name;
    return name.substr(0, name.find('('));
}

}  // namespace

FormControls::FormControls(Form& form, ViewHost& host, QWidget& window)
    : m_form(form), m_window(window), m_spoken(form, window) {
    for (Control* control : form.Controls) AddView(*control, host);
    NameInputs();
}

void FormControls::Sync(float twipsPerPixel) {
    Control* const wanted = m_form.ActiveControl;  // a control that is disabled below loses the focus
    m_syncing = true;
    for (const auto& view : m_views) view->Sync(twipsPerPixel);
    Stack();
    m_spoken.Follow();
    if (m_focusRequests.Take(m_form.FocusRequests)) Focus(ViewOf(wanted));
    m_syncing = false;
    FollowFocus();
}

void FormControls::Focus(ControlView* view) {
    if (view)
        view->Widget().setFocus(Qt::OtherFocusReason);
    else if (QWidget* focused = m_window.focusWidget())
        focused->clearFocus();
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

bool FormControls::ActivateAccessKey(QChar key) {
    const auto view = WithAccessKey(key);
    if (view == m_views.cend()) return false;
    if (!(*view)->ActivateByKey()) FocusNext(view);
    return true;
}

FormControls::Views::const_iterator FormControls::WithAccessKey(QChar key) const {
    return std::ranges::find_if(m_views, [key](const auto& view) {
        const bool usable = view->Widget().isVisible() && view->TheControl().Enabled;
        return usable && AccessKey(view->Caption()) == key;
    });
}

bool FormControls::StepFocus(int key) {
    const ControlView* const here = ViewOf(m_form.ActiveControl);
    if (!here || !here->Widget().hasFocus() || !IsStatic(here->TheControl().Kind)) return false;
    const std::string_view array = ArrayOf(here->TheControl());
    std::vector<QWidget*> likes;
    for (const auto& view : m_views)
        if (view->TakesFocus() && ArrayOf(view->TheControl()) == array) likes.push_back(&view->Widget());
    QWidget* const next = StepFrom(here->Widget(), likes, key);
    if (next) next->setFocus(Qt::TabFocusReason);
    return next;
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
