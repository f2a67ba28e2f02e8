#pragma once

#include <array>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tabulon::test {

/// A copy of the test that runs a body of its own and ends. It can tell its parent how far it is.
class ChildProcess {
  public:
    /// `body` gets a function that sends one signal of progress to the parent. The child ends with status 0
    /// when the body returns true.
    template <class Body>
    explicit ChildProcess(Body&& body) {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0) return;
        m_id = fork();
        if (m_id == 0) Run(body, ends[1]);
        close(ends[1]);
        m_progress = ends[0];
    }
    ~ChildProcess() { close(m_progress); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Also returns when the child has ended.
    void AwaitProgress(int times) const {
        char signal = 0;
        while (times-- > 0) (void)!read(m_progress, &signal, 1);
    }
    void Kill() const {
        kill(m_id, SIGKILL);
        Succeeded();
    }
    /// Waits for its end.
    bool Succeeded() const {
        int status = -1;
        waitpid(m_id, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

  private:
    // An exception must not take the child back into the parent's tests.
    template <class Body>
    [[noreturn]] static void Run(Body& body, int progress) noexcept {
        const bool good = body([progress] { (void)!write(progress, "x", 1); });
        _exit(good ? 0 : 1);
    }

    pid_t m_id = -1;
    int m_progress = -1;
};

}  // namespace tabulon::test
