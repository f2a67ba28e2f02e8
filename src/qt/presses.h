#pragma once

class QEvent;
class QObject;

namespace tabulon {

/// False for a press that begins where nothing can be used at this moment: on a disabled control, or a key that
/// neither a form nor a control waits for. Everything else is of use, releases among it.
bool IsOfUse(const QObject& receiver, const QEvent& event);

/// False for a window that is gone from the screen or stands behind a modal one.
bool IsReached(const QObject& receiver);

}  // namespace tabulon
