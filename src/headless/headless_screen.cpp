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
    ArmTimers();
    FireDueTimers();
}

void HeadlessScreen::Sleep(int milliseconds) {
    ArmTimers();
    m_now += milliseconds;
}

void HeadlessScreen::WaitForEver(std::string_view why) { throw Stuck{"frmMain", std::string(why)}; }

void HeadlessScreen::ArmTimers() {
    for (const Form* form : LoadedForms()) {
        for (Timer* timer : form->Timers) {
            if (!timer->Enabled) {
                timer->DueAt = Timer::NotArmed;
            } else if (timer->DueAt == Timer::NotArmed) {
                timer->DueAt = m_now + timer->Interval;
            }
        }
    }
}

// A handler may load and unload forms, so each one that fires begins the search anew.
void HeadlessScreen::FireDueTimers() {
    const auto due = [this](const Timer* timer) {
        return timer->Enabled && timer->DueAt != Timer::NotArmed && timer->DueAt <= m_now;
    };
    for (std::size_t i = 0; i < LoadedForms().size(); ++i) {
        const std::vector<Timer*>& timers = LoadedForms()[i]->Timers;
        const auto timer = std::find_if(timers.begin(), timers.end(), due);
        if (timer == timers.end()) continue;
        (*timer)->DueAt = m_now + (*timer)->Interval;
        if ((*timer)->Tick) (*timer)->Tick();
        i = std::numeric_limits<std::size_t>::max();
    }
}

bool HeadlessScreen::JumpToNextTimer(const Form& waiting) {
    if (!HasRunningTimer(waiting)) return false;
    std::int64_t next = std::numeric_limits<std::int64_t>::max();
    for (const Form* form : LoadedForms()) {
        for (const Timer* timer : form->Timers) {
            if (timer->Enabled && timer->DueAt != Timer::NotArmed) next = std::min(next, timer->DueAt);
        }
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
