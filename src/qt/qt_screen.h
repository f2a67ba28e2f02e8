#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/screen.h"
#include "qt/dispatcher.h"
#include "qt/form_window.h"
#include "qt/picture_store.h"

namespace tabulon {

struct MessageBoxText;

/// Forms on a desktop. A QApplication must live as long.
class QtScreen final : public Screen {
  public:
    /// `pictures` is the folder of the program's own pictures, `title` the default title of message boxes.
    QtScreen(const std::filesystem::path& pictures, std::string title);
    ~QtScreen() override;

    /// The main loop: returns when no form is loaded any more, or when the program is to end. A failure that
    /// no procedure has reported is shown in a message box.
    int Run();
    /// Brings the program's windows to the front, out of the task bar when they are minimised.
    void BringForward();

    /// Called before the forms are compared with what was last shown.
    std::function<void()> BeforeSync;

    void Forget(Form& form) override;
    void Show(Form& form) override;
    void ShowModal(Form& form) override;
    void Hide(Form& form) override;

    void PumpEvents() override;
    void Sleep(int milliseconds) override;
    void Beep() override;
    void FlushKeys() override;
    void SetMousePointer(MousePointer pointer) override;

    Picture LoadPicture(const std::filesystem::path& file) override;
    TextExtent MeasureText(const Font& font, std::string_view text, int width) override;

    int WidthPixels() const override;
    int HeightPixels() const override;
    int LogicalPixelsPerInch() const override;

    BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                     const std::string& title) override;

  private:
    void Sync();
    void ArmTimers();
    bool FireDueTimers();
    void Fire(Timer& timer);
    /// Serves events, timers and handlers while the condition holds.
    void WaitWhile(const std::function<bool()>& goesOn);
    bool ServeOnce(QEventLoop::ProcessEventsFlags flags);
    BoxAnswer ShowBox(const MessageBoxText& content);
    void SetWakeUp();
    void DeleteRetired();
    void ShowWindow(Form& form, Modality modality);
    FormWindow* WindowOf(const Form& form) const;
    QWidget* FrontWindow() const;

    std::string m_title;
    PictureStore m_pictures;
    Dispatcher m_dispatcher;
    QElapsedTimer m_clock;
    QTimer m_wakeUp;
    std::map<const Form*, FormWindow*> m_windows;
    std::vector<std::unique_ptr<FormWindow>> m_retired;
    std::vector<const Timer*> m_firing;  // a timer is not entered again while its handler runs
    bool m_hourglass = false;
};

}  // namespace tabulon
