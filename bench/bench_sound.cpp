#define SDL_MAIN_HANDLED
#include <SDL_mixer.h>
#include <atomic>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "headless/headless_screen.h"
#include "headless/no_shell.h"
#include "platform/seeded_random.h"
#include "playtest/workplace.h"
#include "presentation/frmGameMusic.h"
#include "sound/sdl_ogg_player.h"

// From an event of the game to the first sample of its sound that the device is given: unpacking, looking
// through, decoding, and the wait for the next buffer. The device is SDL's that plays to nobody in real time.

namespace {

using namespace tabulon;
using Time = std::chrono::steady_clock;

class Nobody final : public HeadlessUser {
  public:
    bool Act(Form&) override { return false; }
    BoxAnswer AnswerBox(const std::string&, BoxIcon, BoxButtons, const std::string&) override {
        return BoxAnswer::Ok;
    }
};

/// Notes when a sound begins; the device's thread writes, the benchmark reads.
struct Ear {
    std::atomic<bool> Heard = false;
    Time::time_point At;

    static void Listen(int, void* stream, int size, void* ear) {
        Ear& self = *static_cast<Ear*>(ear);
        const auto* bytes = static_cast<const char*>(stream);
        if (self.Heard || std::all_of(bytes, bytes + size, [](char byte) { return byte == 0; })) return;
        self.At = Time::now();
        self.Heard = true;
    }
};

class MusicRoom {
  public:
    MusicRoom() {
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        g.AppDir = m_folder.Path();
        g.MusicPath = MUSIC_FOLDER;
        g.SoundOn = true;
    }
    void WaitForDevice() {
        while (Mix_QuerySpec(nullptr, nullptr, nullptr) == 0) std::this_thread::yield();
    }

  private:
    playtest::TemporaryFolder m_folder;
    Nobody m_user;
    HeadlessScreen m_screen{m_user};
    SystemClock m_clock;
    SeededRandom m_random{1};
    NoShell m_shell;
    SdlOggPlayer m_player;
    SettingsStore m_store{":memory:"};

  public:
    Globals g{{m_screen, m_clock, m_random, m_shell, m_player, m_store, {}, m_folder.Path()}};
    modInstallUninstall packages{g};
    FrmGameMusic music{g, packages};
};

void StartOfASound(benchmark::State& state, const char* event) {
    MusicRoom room;
    room.music.PlayGameMusic("jazz", event, true);
    room.WaitForDevice();
    double longest = 0;
    for (auto _ : state) {
        room.music.StopGameMusic();
        Ear ear;
        Mix_RegisterEffect(MIX_CHANNEL_POST, Ear::Listen, nullptr, &ear);
        const Time::time_point began = Time::now();
        room.music.PlayGameMusic("jazz", event, true);
        while (!ear.Heard) std::this_thread::yield();
        Mix_UnregisterEffect(MIX_CHANNEL_POST, Ear::Listen);
        const double seconds = std::chrono::duration<double>(ear.At - began).count();
        longest = std::max(longest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["longest_ms"] = longest * 1000;
}
BENCHMARK_CAPTURE(StartOfASound, an_answer, "right_answer")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StartOfASound, a_theme, "new_load_game")->UseManualTime()->Unit(benchmark::kMillisecond);

/// How long the program itself stands still for a sound, the first one included, which opens the device.
void CallOfTheFirstSound(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto room = std::make_unique<MusicRoom>();
        state.ResumeTiming();
        room->music.PlayGameMusic("jazz", "new_load_game", true);
        state.PauseTiming();
        room.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(CallOfTheFirstSound)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

}  // namespace
