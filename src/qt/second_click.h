#pragma once

#include <QObject>
#include <QPointF>
#include <QTimer>
#include <functional>

namespace tabulon {

/// Makes a double click of two clicks in a list that closes at the first one: the second would otherwise hit
/// whatever lies below.
class SecondClick final : public QObject {
  public:
    explicit SecondClick(std::function<void()> doubleClicked);

    /// The first click was at this place of the screen.
    void Await(QPointF place);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Stop();

    std::function<void()> m_doubleClicked;
    QTimer m_waiting;
    QPointF m_place;
    bool m_pressed = false;
};

}  // namespace tabulon
