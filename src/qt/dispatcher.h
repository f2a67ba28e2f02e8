#pragma once

#include <QObject>
#include <deque>
#include <exception>
#include <functional>

namespace tabulon {

/// The one road from Qt into the program: every handler is called here, so that none runs while calls are
/// held and no exception crosses Qt.
class Dispatcher final : public QObject {
  public:
    /// `afterEach` runs when a call has returned, whether it failed or not.
    explicit Dispatcher(std::function<void()> afterEach);
    ~Dispatcher() override;

    /// While one lives, calls and the user's input wait for the next delivery.
    class Hold {
      public:
        explicit Hold(Dispatcher& dispatcher) : m_dispatcher(dispatcher) { ++m_dispatcher.m_holds; }
        ~Hold() { --m_dispatcher.m_holds; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        Dispatcher& m_dispatcher;
    };

    /// Calls the program now, or at the next delivery when calls are held.
    void Deliver(std::function<void()> call);
    bool IsHolding() const { return m_holds > 0 || m_thrown; }
    /// True while the program is called, and so while Qt is delivering an event further down the stack.
    bool IsCalling() const { return m_calls > 0; }
    /// Fetches the input that waits in the window system, and holds it. So a press is judged by what the
    /// user saw when he pressed: call it before changes are shown. False when there was nothing.
    bool FetchInput();
    /// Delivers what was held, in its order; false when there was nothing.
    bool DeliverHeld();

    /// Forgets the keys that wait, here and in the window system.
    void DropKeys();

    /// Throws what a handler threw since the last time, to the procedure that waits.
    void Rethrow();

    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    struct Held {
        std::function<void()> deliver;
        bool isKey = false;
    };

    void Call(const std::function<void()>& call);
    void HoldInput(QObject* receiver, const QEvent& event, bool isKey);

    std::function<void()> m_afterEach;
    std::deque<Held> m_held;
    std::exception_ptr m_thrown;
    int m_holds = 0;
    int m_calls = 0;
    bool m_droppingKeys = false;
};

}  // namespace tabulon
