#pragma once

#include <QChar>
#include <memory>
#include <vector>

#include "forms/form.h"
#include "qt/control_view.h"
#include "qt/spoken_texts.h"

namespace tabulon {

/// The views of all controls of one form: their stacking, their focus and their access keys.
class FormControls {
  public:
    FormControls(Form& form, ViewHost& host, QWidget& window);

    void Sync(float twipsPerPixel);
    /// The form learns which control has the focus.
    void FollowFocus();
    void FocusFirst();
    /// Moves the focus from a name, a piece or an answer to another one of its array; false for any other
    /// key.
    bool StepFocus(int key);
    /// Uses the first control that is in view and has this access key; false when there is none.
    bool ActivateAccessKey(QChar key);
    bool HasAccessKey(QChar key) const { return WithAccessKey(key) != m_views.cend(); }

  private:
    using Views = std::vector<std::unique_ptr<ControlView>>;

    /// Null takes the focus from whatever has it.
    void Focus(ControlView* view);
    void AddView(Control& control, ViewHost& host);
    ControlView* ViewOf(const Control* control) const;
    void NameInputs();
    void Stack();
    Views::const_iterator WithAccessKey(QChar key) const;
    void FocusNext(Views::const_iterator from);

    Form& m_form;
    QWidget& m_window;
    SpokenTexts m_spoken;
    Views m_views;
    std::vector<ControlView*> m_stack;  // from the back to the front
    Applied<int> m_focusRequests;
    bool m_syncing = false;
};

}  // namespace tabulon
