#include "helpwindow/key_passing.h"

#include <QApplication>
#include <QKeyEvent>

namespace tabulon {

namespace {

class ArrowFilter final : public QObject {
  public:
    ArrowFilter(QWidget& from, QListWidget& list) : QObject(&from), m_list(list) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            const bool walks =
                key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
            if (walks) return QApplication::sendEvent(&m_list, event);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    QListWidget& m_list;
};

}  // namespace

void PassArrowsTo(QWidget& from, QListWidget& list) { from.installEventFilter(new ArrowFilter(from, list)); }

}  // namespace tabulon
