#include "forms/screen.h"

#include <algorithm>

namespace tabulon {

void Screen::Loaded(Form& form) {
    m_loaded.push_back(&form);
    for (Timer* timer : form.Timers) timer->DueAt = Timer::NotArmed;
}

void Screen::Forget(Form& form) { std::erase(m_loaded, &form); }

void Screen::WaitForEver(std::string_view /*why*/) {
    constexpr int PollMilliseconds = 50;
    while (std::any_of(m_loaded.begin(), m_loaded.end(), [](const Form* form) { return form->Visible; })) {
        PumpEvents();
        Sleep(PollMilliseconds);
    }
    throw ProgramEnd{};
}

}  // namespace tabulon
