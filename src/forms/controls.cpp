#include "forms/controls.h"

#include <utility>

#include "forms/form.h"
#include "platform/text.h"

namespace tabulon {

Control::Control(ControlKind kind, Form& form, std::string name, Control* container)
    : Kind(kind), Parent(form), Container(container), Name(std::move(name)) {
    form.Controls.push_back(this);
    ZOrder = form.NextZOrder();
}

void Control::Move(float left, float top, float width, float height) {
    Left = left;
    Top = top;
    Width = width;
    Height = height;
}

void Control::Raise() { ZOrder = Parent.NextZOrder(); }

void Control::SetFocus() {
    Parent.ActiveControl = this;
    ++Parent.FocusRequests;
}

std::string Label::MarkedCaption() const { return UseMnemonic ? Caption : DoubleAmpersands(Caption); }

void TextBox::SetText(std::string text) {
    Text = std::move(text);
    if (Change) Change();
}

void RowList::Clear() {
    Rows.clear();
    ListIndex = -1;
}

void RowList::AddItem(std::string text, std::int32_t itemData, std::string toolTip) {
    Rows.push_back({std::move(text), itemData, std::move(toolTip)});
}

void RowList::Select(int index) {
    if (index < -1 || index >= static_cast<int>(Rows.size()))
        throw Failure(FailureNumber::InvalidPropertyValue);
    ListIndex = index;
    if (Click) Click();
}

const ListRow& RowList::SelectedRow() const {
    if (ListIndex < 0 || ListIndex >= static_cast<int>(Rows.size()))
        throw Failure(FailureNumber::SubscriptOutOfRange);
    return Rows[static_cast<std::size_t>(ListIndex)];
}

Font* FontOf(Control& control) {
    switch (control.Kind) {
        case ControlKind::Label:
            return &static_cast<Label&>(control).Font;
        case ControlKind::Button:
            return &static_cast<Button&>(control).Font;
        case ControlKind::PictureButton:
            return &static_cast<PictureButton&>(control).FontTextCaption;
        case ControlKind::TextBox:
            return &static_cast<TextBox&>(control).Font;
        case ControlKind::CheckBox:
            return &static_cast<CheckBox&>(control).Font;
        case ControlKind::ComboBox:
        case ControlKind::ListBox:
            return &static_cast<RowList&>(control).Font;
        case ControlKind::RichText:
            return &static_cast<RichText&>(control).Font;
        case ControlKind::Image:
        case ControlKind::PictureBox:
        case ControlKind::Shape:
        case ControlKind::UpDown:
            return nullptr;
    }
    return nullptr;
}

Timer::Timer(Form& form, std::string name, int interval, bool enabled)
    : Name(std::move(name)), Interval(interval), Enabled(enabled) {
    form.Timers.push_back(this);
}

}  // namespace tabulon
