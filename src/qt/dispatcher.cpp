#include "qt/dispatcher.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <memory>
#include <utility>

#include "qt/presses.h"

namespace tabulon {

namespace {

bool IsKeyEvent(QEvent::Type type) { return type == QEvent::KeyPress || type == QEvent::KeyRelease; }

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
            return true;
        default:
            return IsKeyEvent(type);
    }
}

}  // namespace

Dispatcher::Dispatcher(std::function<void()> afterEach) : m_afterEach(std::move(afterEach)) {
    QCoreApplication::instance()->installEventFilter(this);
}

Dispatcher::~Dispatcher() = default;

void Dispatcher::Deliver(std::function<void()> call) {
    if (IsHolding())
        m_held.push_back({[this, call = std::move(call)] { Call(call); }});
    else
        Call(call);
}

bool Dispatcher::FetchInput() {
    const Hold hold(*this);
    return QEventLoop().processEvents(QEventLoop::X11ExcludeTimers);
}

bool Dispatcher::DeliverHeld() {
    bool any = false;
    while (!m_held.empty() && !IsHolding()) {
        const Held next = std::move(m_held.front());
        m_held.pop_front();
        next.deliver();
        any = true;
    }
    return any;
}

void Dispatcher::DropKeys() {
    const Hold hold(*this);
    m_droppingKeys = true;
    QEventLoop().processEvents();
    m_droppingKeys = false;
    std::erase_if(m_held, [](const Held& held) { return held.isKey; });
}

void Dispatcher::Rethrow() {
    if (m_thrown) std::rethrow_exception(std::exchange(m_thrown, nullptr));
}

bool Dispatcher::eventFilter(QObject* receiver, QEvent* event) {
    const bool isKey = IsKeyEvent(event->type());
    if (m_droppingKeys && isKey) return true;
    if (!IsHolding() || !IsInput(event->type())) return false;
    if (IsOfUse(*receiver, *event)) HoldInput(receiver, *event, isKey);
    return true;
}

void Dispatcher::Call(const std::function<void()>& call) {
    ++m_calls;
    try {
        call();
    } catch (...) {
        m_thrown = std::current_exception();
    }
    --m_calls;
    m_afterEach();
}

void Dispatcher::HoldInput(QObject* receiver, const QEvent& event, bool isKey) {
    const std::shared_ptr<QEvent> copy(event.clone());
    const auto send = [to = QPointer<QObject>(receiver), copy] {
        if (to && IsReached(*to)) QCoreApplication::sendEvent(to, copy.get());
    };
    m_held.push_back({send, isKey});
}

}  // namespace tabulon
