#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "platform/message_boxes.h"

namespace tabulon {

inline constexpr int TwipsPerInch = 1440;

enum class MousePointer { Default = 0, Hourglass = 11 };

/// In pixels.
struct TextExtent {
    int Width = 0, Height = 0;
};

/// What forms are shown on. Forms are compared with what was last shown, and brought up to date, whenever the
/// screen pumps events, sleeps or waits. Handlers and timers run in pumps and modal waits only.
class Screen : public MessageBoxes {
  public:
    /// The forms that are loaded, in the order of their loading.
    const std::vector<Form*>& LoadedForms() const { return m_loaded; }

    /// Called by Form alone.
    virtual void Loaded(Form& form);
    virtual void Forget(Form& form);
    virtual void Show(Form& form) = 0;
    virtual void ShowModal(Form& form) = 0;
    virtual void Hide(Form& form) = 0;

    /// Delivers all waiting events, input included, and fires the timers that are due.
    virtual void PumpEvents() = 0;
    /// Brings what changed onto the screen and blocks; no handler and no timer runs meanwhile.
    virtual void Sleep(int milliseconds) = 0;
    /// For a game that its content keeps from ever going on: keeps the windows alive until the user closes
    /// the last one, and then ends the program.
    [[noreturn]] virtual void WaitForEver(std::string_view why);
    virtual void Beep() = 0;
    /// Forgets the key presses that wait.
    virtual void FlushKeys() = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;

    /// Reads a picture; fails with FileNotFound, or with InvalidPicture for what is none or too large.
    virtual Picture LoadPicture(const std::filesystem::path& file) = 0;
    /// How much room the text takes, wrapped between words at `width` pixels; a longer word makes it wider.
    virtual TextExtent MeasureText(const Font& font, std::string_view text, int width) = 0;

    virtual int WidthPixels() const = 0;
    virtual int HeightPixels() const = 0;
    virtual int LogicalPixelsPerInch() const = 0;

    float TwipsPerPixelX() const {
        return static_cast<float>(TwipsPerInch) / static_cast<float>(LogicalPixelsPerInch());
    }
    float TwipsPerPixelY() const { return TwipsPerPixelX(); }

  private:
    std::vector<Form*> m_loaded;
};

}  // namespace tabulon
