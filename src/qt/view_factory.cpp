#include "qt/view_factory.h"

#include "platform/failure.h"
#include "qt/button_views.h"
#include "qt/input_views.h"
#include "qt/rich_text_view.h"
#include "qt/static_views.h"

namespace tabulon {

namespace {

template <class View, class Data>
std::unique_ptr<ControlView> Make(Control& control, ViewHost& host, QWidget* parent) {
    return std::make_unique<View>(static_cast<Data&>(control), host, parent);
}

std::unique_ptr<ControlView> MakeTextBox(Control& control, ViewHost& host, QWidget* parent) {
    if (static_cast<TextBox&>(control).MultiLine) return Make<TextEditView, TextBox>(control, host, parent);
    return Make<LineEditView, TextBox>(control, host, parent);
}

}  // namespace

std::unique_ptr<ControlView> MakeView(Control& control, ViewHost& host, QWidget* parent) {
    switch (control.Kind) {
        case ControlKind::Label:
            return Make<LabelView, Label>(control, host, parent);
        case ControlKind::Button:
            return Make<ButtonView, Button>(control, host, parent);
        case ControlKind::PictureButton:
            return Make<PictureButtonView, PictureButton>(control, host, parent);
        case ControlKind::TextBox:
            return MakeTextBox(control, host, parent);
        case ControlKind::CheckBox:
            return Make<CheckBoxView, CheckBox>(control, host, parent);
        case ControlKind::ComboBox:
            return Make<ComboBoxView, ComboBox>(control, host, parent);
        case ControlKind::ListBox:
            return Make<ListBoxView, ListBox>(control, host, parent);
        case ControlKind::Image:
            return Make<ImageView, Image>(control, host, parent);
        case ControlKind::PictureBox:
            return Make<PictureBoxView, PictureBox>(control, host, parent);
        case ControlKind::Shape:
            return Make<ShapeView, Shape>(control, host, parent);
        case ControlKind::UpDown:
            return Make<UpDownView, UpDown>(control, host, parent);
        case ControlKind::RichText:
            return Make<RichTextView, RichText>(control, host, parent);
    }
    throw Failure(FailureNumber::InternalError);
}

}  // namespace tabulon
