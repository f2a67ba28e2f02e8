#pragma once

#include <QTimer>

namespace tabulon {

/// Bounds what the process may use: its memory, and the time that it works without a look at its events. A
/// page that hangs ends the program. It lives as long as the event loop.
class Watchdog {
  public:
    Watchdog();

  private:
    QTimer m_beat;
};

}  // namespace tabulon
