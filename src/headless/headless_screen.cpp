#include "headless/headless_screen.h"

#include <algorithm>
#include <limits>

#include "headless/picture_size.h"
#include "platform/files.h"

namespace tabulon {

namespace {

constexpr std::size_t LargestPictureFile = 64u << 20;

bool HasRunningTimer(const Form& form) {
    return std::any_of(form.Timers.begin(), form.Timers.end(),
                       [](const Timer* timer) { return timer->Enabled; });
}

}  // namespace

void HeadlessScreen::ShowModal(Form& form) {
    while (form.Visible) {
        ArmTimers();
        if (m_user.Act(form)) continue;
        if (!JumpToNextTimer(form)) throw Stuck{form.Name, "no answer"};
    }
}

void HeadlessScreen::PumpEvents() {
    if (ArmTimers()) FireDueTimers();
}

void HeadlessScreen::Sleep(int milliseconds) {
    ArmTimers();
    m_now += milliseconds;
}

void HeadlessScreen::WaitForEver(std::string_view why) { throw Stuck{"frmMain", std::string(why)}; }

void HeadlessScreen::Loaded(Form& form) {
    Screen::Loaded(form);
    ListTimers();
}

void HeadlessScreen::Forget(Form& form) {
    Screen::Forget(form);
    ListTimers();
}

void HeadlessScreen::ListTimers() {
    m_timers.clear();
    for (const Form* form : LoadedForms())
        m_timers.insert(m_timers.end(), form->Timers.begin(), form->Timers.end());
}

bool HeadlessScreen::ArmTimers() {
    bool due = false;
    for (Timer* timer : m_timers) {
        if (!timer->Enabled) {
            timer->DueAt = Timer::NotArmed;
            continue;
        }
        if (timer->DueAt == Timer::NotArmed) timer->DueAt = m_now + timer->Interval;
        due |= timer->DueAt <= m_now;
    }
    return due;
}

Timer* HeadlessScreen::DueTimer() const {
    for (Timer* timer : m_timers)
        if (timer->Enabled && timer->DueAt != Timer::NotArmed && timer->DueAt <= m_now) return timer;
    return nullptr;
}

// A handler may load and unload forms, so each one that fires begins the search anew.
void HeadlessScreen::FireDueTimers() {
    while (Timer* timer = DueTimer()) {
        timer->DueAt = m_now + timer->Interval;
        if (timer->Tick) timer->Tick();
    }
}

bool HeadlessScreen::JumpToNextTimer(const Form& waiting) {
    if (!HasRunningTimer(waiting)) return false;
    std::int64_t next = std::numeric_limits<std::int64_t>::max();
    for (const Timer* timer : m_timers) {
        if (timer->Enabled && timer->DueAt != Timer::NotArmed) next = std::min(next, timer->DueAt);
    }
    m_now = std::max(m_now, next);
    FireDueTimers();
    return true;
}

Picture HeadlessScreen::LoadPicture(const std::filesystem::path& file) {
    auto picture = std::make_shared<FilePicture>();
    picture->Bytes = ReadFile(file, LargestPictureFile);
    const PictureSize size = SizeOfPicture(picture->Bytes);
    picture->Width = size.Width;
    picture->Height = size.Height;
    if (PictureLoaded) PictureLoaded(*picture);
    return {PictureSet::File, 0, {}, std::move(picture)};
}

LocalTime VirtualClock::Now() const { return m_start + std::chrono::seconds(m_screen.Milliseconds() / 1000); }

}  // namespace tabulon
