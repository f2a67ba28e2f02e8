#pragma once

#include <QSet>

class QKeyEvent;

namespace tabulon {

/// The program's number of a key (capital letters and digits by their ASCII code); 0 for a key that it does
/// not know.
int KeyCodeOf(const QKeyEvent& event);
/// 1 Shift, 2 Ctrl, 4 Alt.
int ShiftOf(const QKeyEvent& event);

/// Which keys are down in one window, and which of them the program has taken for itself.
class HeldKeys {
  public:
    enum class Repeat { First, OfTaken, OfUnseen, OfOpen };

    /// Tells a first press from a repeat, and whose repeat it is.
    Repeat Press(const QKeyEvent& event);
    void Take(const QKeyEvent& event);
    /// False for a key that went down elsewhere.
    bool Release(const QKeyEvent& event);
    void Clear();

  private:
    QSet<int> m_down;
    QSet<int> m_taken;
};

}  // namespace tabulon
