#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/screen.h"
#include "platform/clock.h"

namespace tabulon {

/// Thrown when nobody and nothing can close the form that waits. No procedure catches it.
struct Stuck {
    std::string Form;
    std::string Why;
};

/// Sits in front of a screen without a window.
class HeadlessUser {
  public:
    virtual ~HeadlessUser() = default;
    /// A form waits. True when the user did something with it; false leaves it to its timers.
    virtual bool Act(Form& form) = 0;
    virtual BoxAnswer AnswerBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                                const std::string& title) = 0;
};

/// Plays forms without a window. Its clock stands still but for sleeps and for waits, which jump to the next
/// timer.
class HeadlessScreen final : public Screen {
  public:
    struct Size {
        int Width = 1024;
        int Height = 768;
        int PixelsPerInch = 96;
    };

    explicit HeadlessScreen(HeadlessUser& user) : HeadlessScreen(user, Size{}) {}
    HeadlessScreen(HeadlessUser& user, const Size& size) : m_user(user), m_size(size) {}

    /// Since the screen was made.
    std::int64_t Milliseconds() const { return m_now; }

    void Loaded(Form& form) override;
    void Forget(Form& form) override;
    void Show(Form&) override {}
    void ShowModal(Form& form) override;
    void Hide(Form&) override {}
    void PumpEvents() override;
    void Sleep(int milliseconds) override;
    [[noreturn]] void WaitForEver(std::string_view why) override;
    void Beep() override {}
    void FlushKeys() override {}
    void SetMousePointer(MousePointer pointer) override { m_pointer = pointer; }
    MousePointer Pointer() const { return m_pointer; }
    Picture LoadPicture(const std::filesystem::path& file) override;
    /// Every text fits.
    TextExtent MeasureText(const Font&, std::string_view, int) override { return {}; }
    int WidthPixels() const override { return m_size.Width; }
    int HeightPixels() const override { return m_size.Height; }
    int LogicalPixelsPerInch() const override { return m_size.PixelsPerInch; }
    BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                     const std::string& title) override {
        return m_user.AnswerBox(text, icon, buttons, title);
    }

    /// A picture was read and is about to be used.
    std::function<void(const FilePicture&)> PictureLoaded;

  private:
    void ListTimers();
    /// Begins the intervals of the timers that were enabled since the last look. True when one is over.
    bool ArmTimers();
    Timer* DueTimer() const;
    void FireDueTimers();
    bool JumpToNextTimer(const Form& waiting);

    HeadlessUser& m_user;
    Size m_size;
    std::int64_t m_now = 0;
    std::vector<Timer*> m_timers;  // of the loaded forms, in their order
    MousePointer m_pointer = MousePointer::Default;
};

/// The date and time of a headless screen: it moves with the waits.
class VirtualClock final : public Clock {
  public:
    VirtualClock(const HeadlessScreen& screen, LocalTime start) : m_screen(screen), m_start(start) {}
    LocalTime Now() const override;

  private:
    const HeadlessScreen& m_screen;
    LocalTime m_start;
};

}  // namespace tabulon
