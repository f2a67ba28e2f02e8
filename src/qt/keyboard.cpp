#include "qt/keyboard.h"

#include <QKeyEvent>

#include "forms/form.h"

namespace tabulon {

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Key::Enter;
        case Qt::Key_Escape:
            return Key::Escape;
        case Qt::Key_Space:
            return Key::Space;
        case Qt::Key_F6:
            return Key::F6;
        default:
            return 0;
    }
}

int ShiftOf(const QKeyEvent& event) {
    const auto held = event.modifiers();
    return (held & Qt::ShiftModifier ? Key::Shift : 0) | (held & Qt::ControlModifier ? Key::Control : 0) |
           (held & Qt::AltModifier ? Key::Alt : 0);
}

HeldKeys::Repeat HeldKeys::Press(const QKeyEvent& event) {
    const int key = event.key();
    if (event.isAutoRepeat()) {
        if (m_taken.contains(key)) return Repeat::OfTaken;
        return m_down.contains(key) ? Repeat::OfOpen : Repeat::OfUnseen;
    }
    m_down.insert(key);
    m_taken.remove(key);
    return Repeat::First;
}

void HeldKeys::Take(const QKeyEvent& event) { m_taken.insert(event.key()); }

bool HeldKeys::Release(const QKeyEvent& event) {
    m_taken.remove(event.key());
    return m_down.remove(event.key());
}

void HeldKeys::Clear() {
    m_down.clear();
    m_taken.clear();
}

}  // namespace tabulon
