#include "playtest/command.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <ostream>

#include "playtest/arguments.h"
#include "playtest/figures_output.h"
#include "playtest/html_report.h"
#include "playtest/script.h"
#include "playtest/session.h"
#include "playtest/unusable.h"
#include "playtest/workplace.h"

namespace tabulon::playtest {

namespace {

constexpr std::chrono::seconds QuietTime(1);

/// Tells how far a long run is, in one line that goes again.
class ProgressLine {
  public:
    explicit ProgressLine(const Console& console) : m_console(console) {}
    ~ProgressLine() {
        if (m_shown) m_console.Err << "\r\x1b[K" << std::flush;
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(std::int64_t done, std::int64_t games) {
        if (std::chrono::steady_clock::now() - m_start < QuietTime) return;
        m_console.Err << '\r' << done << " of " << games << " games (" << Percent(done, games) << ")\x1b[K"
                      << std::flush;
        m_shown = true;
    }

  private:
    const Console& m_console;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    bool m_shown = false;
};

/// While it lives, the signals that would end the program wait, so that a run can first clear up behind
/// itself. They act when it goes.
class HeldSignals {
  public:
    HeldSignals() {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : Held) sigaddset(&held, signal);
        pthread_sigmask(SIG_BLOCK, &held, &m_before);
    }
    ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    bool AnyWaits() const {
        sigset_t waiting;
        sigpending(&waiting);
        return std::ranges::any_of(Held, [&](int signal) { return sigismember(&waiting, signal) == 1; });
    }

  private:
    static constexpr int Held[] = {SIGINT, SIGTERM, SIGHUP};
    sigset_t m_before{};
};

Statistics PlayWatched(const StatisticsSettings& settings, const Console& console, std::stop_source& stop,
                       const HeldSignals& signals) {
    ProgressLine line(console);
    return PlayStatistics(settings, [&](std::int64_t done) {
        if (console.IsTerminal) line.Show(done, settings.Games);
        if (signals.AnyWaits()) stop.request_stop();
    });
}

ExitStatus RunStatistics(const Arguments& arguments, const Console& console) {
    const HeldSignals signals;
    std::stop_source stop;
    StatisticsSettings settings = arguments.Statistics;
    settings.Stop = stop.get_token();
    const Statistics statistics = PlayWatched(settings, console, stop, signals);
    if (stop.stop_requested()) return CannotBeUsed;
    if (arguments.Json) {
        PrintJson(statistics, console.Out);
    } else {
        PrintReport(statistics, console.Out);
    }
    // Last: the figures of a long run are not lost when it cannot be written.
    if (!arguments.Report.empty()) WriteHtmlReport(statistics, arguments.Report);
    return Done;
}

ExitStatus RunScript(const Arguments& arguments, const Console& console) {
    const HeldSignals signals;
    const SessionEnd end =
        PlaySession(ReadScript(arguments.Script), console.Out, [&signals] { return signals.AnyWaits(); });
    return end == SessionEnd::Stuck ? SessionStuck : Done;
}

ExitStatus RunTask(const Arguments& arguments, const Console& console) {
    switch (arguments.What) {
        case Arguments::Task::Tell:
            console.Out << arguments.Text;
            return Done;
        case Arguments::Task::Script:
            RemoveAbandonedFolders();
            return RunScript(arguments, console);
        case Arguments::Task::Statistics:
            RemoveAbandonedFolders();
            return RunStatistics(arguments, console);
    }
    return WrongUse;
}

/// One line, whatever is in a file's name.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return "tabulon-playtest: " + text + "\n";
}

}  // namespace

ExitStatus Run(const std::vector<std::string>& arguments, const Console& console) {
    try {
        const ExitStatus status = RunTask(ParseArguments(arguments), console);
        if (!console.Out.flush()) throw Unusable("the output cannot be written");
        return status;
    } catch (const WrongArguments& wrong) {
        console.Err << OneLine(wrong.what()) << "Try tabulon-playtest --help.\n";
        return WrongUse;
    } catch (const std::exception& failure) {
        console.Err << OneLine(failure.what());
        return CannotBeUsed;
    }
}

}  // namespace tabulon::playtest
