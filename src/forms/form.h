#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/controls.h"

namespace tabulon {

class Screen;

/// Where a form stands when it is shown.
enum class StartUpPosition { Manual, CentreScreen };

enum class WindowFrame {
    Dialog,      // a frame with a title
    FullScreen,  // no frame, over the whole screen, still listed by the desktop
    None,        // no frame
};

enum class WindowState { Normal, Minimised };

/// The numbers of keys and modifiers that handlers get.
namespace Key {
inline constexpr int Enter = 13, Escape = 27, Space = 32, A = 65, B = 66, C = 67, D = 68, G = 71, I = 73,
                     L = 76, M = 77, N = 78, O = 79, P = 80, R = 82, T = 84, U = 85, W = 87, Y = 89, F6 = 117;
inline constexpr int Shift = 1, Control = 2, Alt = 4;
}  // namespace Key

/// A form of the program: controls and handlers as plain data. It knows no toolkit; the Screen shows it.
/// Places and sizes are twips. Unloading takes a form off the screen, its fields outlive that.
class Form {
  public:
    Form(Screen& screen, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    /// Brings the form to its design state and runs Form_Load, unless it is loaded already.
    void Load();
    /// Loads and shows the form, and returns at once.
    void Show();
    /// Loads and shows the form, and returns when it has been hidden or unloaded. Throws ProgramEnd when all forms
    /// have been unloaded meanwhile: who waited has nothing to go on with.
    void ShowModal();
    void Hide();
    /// Asks QueryUnload, which may refuse; then runs Form_Unload and takes the form off the screen.
    void Unload();

    /// Takes the focus from whatever has it, as soon as the form shows.
    void ClearFocus();

    int NextZOrder() { return ++m_lastZOrder; }

    const std::string Name;
    Screen& TheScreen;

    std::string Caption;
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    bool Loaded = false;
    bool Visible = false;
    StartUpPosition Position = StartUpPosition::CentreScreen;
    WindowFrame Frame = WindowFrame::Dialog;
    tabulon::WindowState WindowState = tabulon::WindowState::Normal;
    Picture Background;

    std::vector<Control*> Controls;  // in the form's order, which is also the tab order
    std::vector<Timer*> Timers;
    Control* ActiveControl = nullptr;  // has the focus; the screen follows the user
    int FocusRequests = 0;             // grows when a program moves the focus

    /// Keys pressed and released anywhere in the form, before the control gets them. True: it goes no
    /// further.
    std::function<bool(int KeyCode, int Shift)> KeyDown;
    std::function<bool(int KeyCode, int Shift)> KeyUp;
    std::function<void()> MouseMove;
    std::function<void()> Resize;

  protected:
    /// Sets every property of the controls that a run may change to what it is by design.
    virtual void Design() {}
    virtual void Form_Load() {}
    virtual void Form_QueryUnload(bool& /*Cancel*/) {}
    virtual void Form_Unload() {}

  private:
    int m_lastZOrder = 0;
    bool m_unloading = false;
};

}  // namespace tabulon
