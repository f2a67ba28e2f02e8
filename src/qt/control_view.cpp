#include "qt/control_view.h"

#include <QMouseEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "forms/form.h"
#include "qt/presses.h"
#include "qt/text.h"

namespace tabulon {

bool IsInput(ControlKind kind) {
    return kind == ControlKind::TextBox || kind == ControlKind::ComboBox || kind == ControlKind::ListBox ||
           kind == ControlKind::RichText;
}

bool IsStatic(ControlKind kind) {
    return kind == ControlKind::Label || kind == ControlKind::Image || kind == ControlKind::PictureBox;
}

namespace {

/// An input without a name of its own is called what the label before it says.
QString LabelBefore(const Control& control) {
    const auto& all = control.Parent.Controls;
    for (auto at = std::find(all.begin(), all.end(), &control); at != all.begin();) {
        --at;
        if ((*at)->Kind == ControlKind::Label) return PlainCaption(static_cast<Label*>(*at)->MarkedCaption());
    }
    return {};
}

QString NameOf(const Control& control, const std::string& caption) {
    if (!control.AccessibleName.empty()) return ToQt(control.AccessibleName);
    if (!caption.empty()) return PlainCaption(caption);
    if (!control.ToolTipText.empty()) return ToQt(control.ToolTipText);
    return IsInput(control.Kind) ? LabelBefore(control) : QString();
}

}  // namespace

ControlView::ControlView(Control& control, ViewHost& host, QWidget* widget)
    : m_control(control), m_host(host), m_widget(*widget) {
    m_widget.setObjectName(ToQt(control.Name));
    m_widget.setMouseTracking(control.MouseMove != nullptr);
    m_widget.installEventFilter(this);
}

void ControlView::Sync(float twipsPerPixel) {
    m_syncing = true;
    SyncCommon(twipsPerPixel);
    SyncOwn();
    SyncNames();
    m_syncing = false;
}

bool ControlView::TakesFocus() const {
    return m_widget.focusPolicy() != Qt::NoFocus && m_control.Visible && m_control.Enabled;
}

bool ControlView::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseMove && m_control.MouseMove &&
        !m_widget.childAt(static_cast<QMouseEvent*>(event)->position().toPoint()))
        m_host.DeliverMove([this] {
            if (IsUsable()) std::function<void()>(m_control.MouseMove)();
        });
    if (event->type() == QEvent::Leave && m_control.MouseLeave) DeliverUse([] {}, m_control.MouseLeave);
    return false;
}

bool ControlView::IsUsable() const {
    return m_control.Enabled && m_widget.isVisible() && IsReached(*m_widget.window()->windowHandle());
}

QRect ControlView::Place(float twipsPerPixel) const { return ToPixels(m_control, twipsPerPixel); }

void ControlView::DeliverUse(std::function<void()> store, const std::function<void()>& handler) {
    if (m_syncing) return;
    m_host.Deliver([this, store = std::move(store), &handler] {
        store();
        if (!IsUsable()) return;
        const std::function<void()> call = handler;
        if (call) call();
    });
}

void ControlView::SyncCommon(float twipsPerPixel) {
    const QRect place = Place(twipsPerPixel);
    if (m_place.Take(place)) m_widget.setGeometry(place);
    if (!m_control.Enabled || !m_control.Visible) LetGoOfFocus();
    if (m_enabled.Take(m_control.Enabled)) m_widget.setEnabled(m_control.Enabled);
    const bool shows = m_control.Visible && !m_control.Withheld;
    if (m_visible.Take(shows)) m_widget.setVisible(shows);
    const std::string toolTip = ToolTipText();
    if (!m_toolTip.Take(toolTip)) return;
    m_widget.setToolTip(ToolTip(toolTip));
    m_widget.setAccessibleDescription(ToQt(toolTip));
}

/// At the game's table nobody else takes over from a control that cannot be used any more: the next one may save,
/// or quit. In a dialog the user goes on with the next, as everywhere.
void ControlView::LetGoOfFocus() {
    const bool atTable = m_control.Parent.Frame == WindowFrame::FullScreen;
    if (atTable && m_widget.window()->focusWidget() == &m_widget) m_widget.clearFocus();
}

void ControlView::SyncNames() {
    const bool isOwn = HasNameOfItsOwn() && m_control.AccessibleName.empty();
    const QString name = isOwn ? QString() : NameOf(m_control, Caption());
    if (m_name.Take(FromQt(name))) m_widget.setAccessibleName(name);
}

}  // namespace tabulon
