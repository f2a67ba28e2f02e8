#include "qt/presses.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

#include "qt/form_window.h"

namespace tabulon {

namespace {

QWidget* WidgetOf(const QWindow& window) {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->windowHandle() == &window) return top;
    return nullptr;
}

bool IsEnabledAt(const QWidget& top, QPointF place) {
    const QWidget* control = top.childAt(place.toPoint());
    return (control ? control : &top)->isEnabled();
}

}  // namespace

bool IsOfUse(const QObject& receiver, const QEvent& event) {
    const auto* window = qobject_cast<const QWindow*>(&receiver);
    const QWidget* top = window ? WidgetOf(*window) : nullptr;
    if (!top) return true;  // what came through a window was judged there
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return IsEnabledAt(*top, static_cast<const QMouseEvent&>(event).position());
        case QEvent::KeyPress: {
            const auto* form = dynamic_cast<const FormWindow*>(top);
            return !form || form->WaitsFor(static_cast<const QKeyEvent&>(event));
        }
        default:
            return true;
    }
}

bool IsReached(const QObject& receiver) {
    const auto* window = qobject_cast<const QWindow*>(&receiver);
    if (!window) return true;
    const QWindow* modal = QGuiApplication::modalWindow();
    return window->isVisible() && (!modal || modal == window || window->type() == Qt::Popup);
}

}  // namespace tabulon
