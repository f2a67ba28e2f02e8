#pragma once

#include <QPoint>
#include <QWidget>

#include "qt/dispatcher.h"
#include "qt/form_controls.h"
#include "qt/keyboard.h"
#include "qt/scaled_picture.h"

class QKeyEvent;

namespace tabulon {

enum class Modality { None, Application };

/// The window of one loaded form.
class FormWindow final : public QWidget, public ViewHost {
  public:
    FormWindow(Form& form, Dispatcher& dispatcher, PictureStore& pictures, Modality modality);
    ~FormWindow() override;

    /// Applies what differs between the form and what the window shows.
    void Sync();
    /// Shows the window where the form wants to stand, in front of `above`.
    void ShowAbove(QWidget* above, Modality modality);
    void BringForward();
    /// Forgets the form and leaves the screen. The window must live on until no event of it is on the stack.
    void Retire();
    /// True when the form, or a control that can be used now, would do something at this press.
    bool WaitsFor(const QKeyEvent& press) const;

    WindowFrame Frame() const { return m_frame; }

    void Deliver(std::function<void()> call) override;
    void DeliverMove(const std::function<void()>& call) override;
    PictureStore& Pictures() override { return m_pictures; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void SyncFrame(float twipsPerPixel);
    void SyncState();
    void Centre();
    void FollowScreen();
    void FitScreen();
    void CoverScreen();
    Picture BackgroundOf(const Form& form) const;
    bool TakesPress(const QKeyEvent& event);
    bool TakesAccessKey(const QKeyEvent& event);
    QChar AccessKeyOf(const QKeyEvent& press) const;
    bool AsksProgram(const std::function<bool(int, int)>& handler, const QKeyEvent& event);
    void DeliverResize();

    Form* m_form;
    Dispatcher& m_dispatcher;
    PictureStore& m_pictures;
    const WindowFrame m_frame;
    ScaledPicture m_background;
    HeldKeys m_keys;
    QMetaObject::Connection m_screenChanges;
    FormControls m_controls;
    Applied<std::string> m_caption;
    Applied<QSize> m_size;
    Applied<QPoint> m_place;
    Applied<Picture> m_picture;
    Applied<tabulon::WindowState> m_state;
    bool m_minimised = false;
    bool m_syncing = false;
};

}  // namespace tabulon
