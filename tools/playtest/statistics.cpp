#include "playtest/statistics.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <latch>
#include <mutex>
#include <optional>
#include <thread>

namespace tabulon::playtest {

namespace {

constexpr std::chrono::milliseconds ProgressInterval(200);

/// The threads of a run, and what they share: the number of the next game. They begin to play together, once
/// each has its Player.
class Workers {
  public:
    Workers(const StatisticsSettings& settings, Simulation& first)
        : m_settings(settings),
          m_first(first),
          m_count(std::min<std::int64_t>(settings.Jobs, settings.Games)),
          m_running(m_count),
          m_ready(m_count + 1) {}

    Figures Play(const Progress& progress) {
        std::vector<std::jthread> threads;
        for (std::int64_t i = 0; i < m_count; ++i) threads.emplace_back([this, i] { Work(i == 0); });
        m_ready.arrive_and_wait();
        const auto start = std::chrono::steady_clock::now();
        Wait(progress);
        m_seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        threads.clear();
        if (m_failure) std::rethrow_exception(m_failure);
        return std::move(m_sum);
    }

    /// That the games took.
    double Seconds() const { return m_seconds; }

  private:
    void Work(bool first) {
        std::optional<Simulation> own;
        Try([&] {
            if (!first) own.emplace(m_settings);
        });
        m_ready.arrive_and_wait();
        Try([&] {
            if (first || own) PlayShare(first ? m_first : *own);
        });
        const std::lock_guard lock(m_mutex);
        --m_running;
        m_ended.notify_one();
    }

    /// A failure ends the run, also for the other threads.
    template <class Action>
    void Try(Action action) {
        try {
            action();
        } catch (...) {
            m_next = m_settings.Games;
            const std::lock_guard lock(m_mutex);
            m_failure = std::current_exception();
        }
    }

    void PlayShare(Simulation& simulation) {
        for (std::int64_t game = m_next++; game < m_settings.Games; game = m_next++) {
            if (m_settings.Stop.stop_requested()) break;
            simulation.Play(game);
        }
        const std::lock_guard lock(m_mutex);
        m_sum.Add(simulation.Counted());
    }

    void Wait(const Progress& progress) {
        std::unique_lock lock(m_mutex);
        while (!m_ended.wait_for(lock, ProgressInterval, [this] { return m_running == 0; })) {
            if (progress) progress(std::min(m_next.load(), m_settings.Games));
        }
    }

    const StatisticsSettings& m_settings;
    Simulation& m_first;
    const std::int64_t m_count;
    std::atomic<std::int64_t> m_next = 0;
    std::mutex m_mutex;
    std::condition_variable m_ended;
    std::int64_t m_running;
    std::latch m_ready;
    double m_seconds = 0;
    Figures m_sum;
    std::exception_ptr m_failure;
};

GameFacts FactsOf(Program& program) {
    GameFacts facts;
    CGame& game = *program.frmMain.Game;
    facts.Name = game.GameName;
    for (const CSpace& space : game.Spaces)
        facts.Spaces.push_back({space.Sequence.Value(), space.Left, space.Top, space.Width, space.Height,
                                space.ActionType.Value(), space.message});
    for (const CDeck& deck : game.Decks)
        for (const CCard& card : deck.Cards)
            facts.Cards.push_back({deck.Index.Value(), card.Index.Value(), deck.Name, card.message});
    facts.Board = program.frmMain.picMainBoard.Picture.File;
    return facts;
}

}  // namespace

double Statistics::TurnsPerSecond() const {
    return Seconds > 0 ? static_cast<double>(Counted.Turns()) / Seconds : 0;
}

Statistics PlayStatistics(const StatisticsSettings& settings, const Progress& progress) {
    Simulation first(settings);
    Statistics statistics{settings, FactsOf(first.ThePlayer()), first.Loading(), 0};
    Workers workers(settings, first);
    statistics.Counted.Add(workers.Play(progress));
    statistics.Seconds = workers.Seconds();
    return statistics;
}

}  // namespace tabulon::playtest
