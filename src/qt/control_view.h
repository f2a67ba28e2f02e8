#pragma once

#include <QObject>
#include <QRect>
#include <QWidget>
#include <functional>
#include <string>

#include "forms/controls.h"
#include "qt/applied.h"
#include "qt/picture_store.h"

namespace tabulon {

/// True for what the user writes into or chooses from.
bool IsInput(ControlKind kind);

/// True for what is looked at, though it may be clicked.
bool IsStatic(ControlKind kind);

/// What the views of a form's controls need of their window.
class ViewHost {
  public:
    virtual ~ViewHost() = default;
    /// Calls the program as soon as it may be called; never once the form is gone.
    virtual void Deliver(std::function<void()> call) = 0;
    /// The same for a move of the mouse, which is not worth keeping.
    virtual void DeliverMove(const std::function<void()>& call) = 0;
    virtual PictureStore& Pictures() = 0;
};

/// Keeps one widget like the data of one control, and the data like what the user does to the widget.
class ControlView : public QObject {
  public:
    /// The widget belongs to its parent widget.
    ControlView(Control& control, ViewHost& host, QWidget* widget);

    /// Applies what differs from what was last applied.
    void Sync(float twipsPerPixel);

    Control& TheControl() const { return m_control; }
    QWidget& Widget() const { return m_widget; }
    bool TakesFocus() const;

    /// The caption with the mark of its access key, if the control has one.
    virtual std::string Caption() const { return {}; }
    virtual std::string ToolTipText() const { return m_control.ToolTipText; }
    /// What the access key does; false hands the focus to the next control.
    virtual bool ActivateByKey() { return false; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    virtual void SyncOwn() = 0;
    /// The place of the widget; a control may stand elsewhere than it says.
    virtual QRect Place(float twipsPerPixel) const;
    virtual bool HasNameOfItsOwn() const { return false; }

    ViewHost& Host() const { return m_host; }
    /// Stores what the user did with `store`, then calls the handler; neither while the control is disabled.
    void DeliverUse(std::function<void()> store, const std::function<void()>& handler);
    void DeliverClick() {
        DeliverUse([] {}, m_control.Click);
    }
    /// True while a widget is being changed by the program, whose signals mean nothing.
    bool IsSyncing() const { return m_syncing; }

  private:
    void SyncCommon(float twipsPerPixel);
    void LetGoOfFocus();
    /// What the user did reaches the program only while the control is enabled and in view, and no modal form is
    /// in front of it.
    bool IsUsable() const;
    void SyncNames();

    Control& m_control;
    ViewHost& m_host;
    QWidget& m_widget;
    bool m_syncing = false;
    Applied<QRect> m_place;
    Applied<bool> m_visible;
    Applied<bool> m_enabled;
    Applied<std::string> m_toolTip;
    Applied<std::string> m_name;
};

/// A view of the control's own kind of data.
template <class Data>
class ViewOf : public ControlView {
  public:
    ViewOf(Data& data, ViewHost& host, QWidget* widget) : ControlView(data, host, widget), m_data(data) {}

  protected:
    Data& TheData() const { return m_data; }

  private:
    Data& m_data;
};

}  // namespace tabulon
