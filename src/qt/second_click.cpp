#include "qt/second_click.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <utility>

namespace tabulon {

SecondClick::SecondClick(std::function<void()> doubleClicked) : m_doubleClicked(std::move(doubleClicked)) {
    m_waiting.setSingleShot(true);
    connect(&m_waiting, &QTimer::timeout, this, [this] { Stop(); });
}

void SecondClick::Await(QPointF place) {
    m_place = place;
    m_pressed = false;
    m_waiting.start(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    qApp->installEventFilter(this);
}

bool SecondClick::eventFilter(QObject*, QEvent* event) {
    const auto type = event->type();
    const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (m_pressed && type == QEvent::MouseButtonRelease) {
        Stop();
        m_doubleClicked();
        return true;
    }
    if (!isPress || m_pressed) return isPress;
    const QPointF place = static_cast<QMouseEvent*>(event)->globalPosition();
    m_pressed =
        (place - m_place).manhattanLength() < QGuiApplication::styleHints()->mouseDoubleClickDistance();
    if (!m_pressed) Stop();
    m_waiting.stop();
    return m_pressed;
}

void SecondClick::Stop() {
    m_waiting.stop();
    m_pressed = false;
    qApp->removeEventFilter(this);
}

}  // namespace tabulon
