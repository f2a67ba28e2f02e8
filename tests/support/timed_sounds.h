#pragma once

#include "support/test_machine.h"

namespace tabulon::test {

/// Sounds last as long as a test says, in milliseconds of the screen's clock.
class TimedPlayer final : public OggPlayer {
  public:
    explicit TimedPlayer(const HeadlessScreen& screen) : m_screen(screen) {}

    std::string Status() const override { return m_screen.Milliseconds() < m_end ? "playing" : "done"; }
    void Stop() override { m_end = 0; }
    void SetLoop(bool loop) override { m_loop = loop; }
    void Play(const std::filesystem::path& file) override {
        Played.push_back(file.filename().string() + (m_loop ? " looping" : ""));
        m_end = m_screen.Milliseconds() + Length;
    }

    std::int64_t Length = 0;
    std::vector<std::string> Played;

  private:
    const HeadlessScreen& m_screen;
    bool m_loop = false;
    std::int64_t m_end = 0;
};

/// A user who is asked each time that a form waits, and may leave it to its timers.
class WaitingUser final : public HeadlessUser {
  public:
    bool Act(Form& form) override { return Do && Do(form); }
    BoxAnswer AnswerBox(const std::string&, BoxIcon, BoxButtons, const std::string&) override {
        return BoxAnswer::Ok;
    }
    std::function<bool(Form&)> Do;
};

/// A machine with sounds of a length.
struct SoundingMachine {
    explicit SoundingMachine(int pixelsPerInch = 96) : screen(user, {1024, 768, pixelsPerInch}) {
        machine.SetUp(g);
        g.SoundOn = true;
    }

    TestMachine machine;
    WaitingUser user;
    HeadlessScreen screen;
    TimedPlayer player{screen};
    Globals g{machine.With(screen, player)};
    std::vector<std::string>& errors = machine.Errors;
};

}  // namespace tabulon::test
