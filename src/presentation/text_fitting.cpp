#include "presentation/text_fitting.h"

#include <algorithm>

#include "platform/numbers.h"

namespace tabulon {

namespace {

/// A label's place in whole pixels. Inside a picture box places are pixels already.
struct PixelPlace {
    PixelPlace(const Globals& g, const Label& label) {
        const float x = label.Container ? 1 : g.TheScreen.TwipsPerPixelX();
        const float y = label.Container ? 1 : g.TheScreen.TwipsPerPixelY();
        Left = ToLong(label.Left / x);
        Width = ToLong(label.Width / x);
        Height = ToLong(label.Height / y);
    }
    int Left, Width, Height;
};

void ApplyFont(Globals& g, const Form& form, Control& control, const std::string& fontName, int fontSize) {
    const bool keepsSize = form.Name == "frmSplash";
    switch (control.Kind) {
        case ControlKind::ListBox:
        case ControlKind::TextBox:
        case ControlKind::ComboBox:
        case ControlKind::Button:
            FontOf(control)->Name = fontName;
            if (!keepsSize) FontOf(control)->Size = fontSize;
            break;
        case ControlKind::Label:
            FontOf(control)->Name = fontName;
            FitLabelText(g, static_cast<Label&>(control));
            break;
        case ControlKind::CheckBox:
            FontOf(control)->Name = fontName;
            FontOf(control)->Size = fontSize;
            break;
        default:
            break;
    }
}

}  // namespace

void SetFormObjectFonts(Globals& g, Form& form, const std::string& fontName, Integer fontSize) {
    Procedure(g.gErrHandler, "modMain:SetFormObjectFonts", [&] {
        for (Control* control : form.Controls) ApplyFont(g, form, *control, fontName, fontSize.Value());
    });
}

void FitLabelText(Globals& g, Label& label) {
    Procedure(g.gErrHandler, "modMain:FitLabelText", [&] {
        const PixelPlace place(g, label);
        // The left edge counts twice, so a label further to the right wraps earlier than its width says.
        int wrapWidth = place.Width - 2 * place.Left;
        const std::string caption = label.MarkedCaption();
        while (true) {
            const TextExtent extent = g.TheScreen.MeasureText(label.Font, caption, wrapWidth);
            if (extent.Height <= place.Height) return;
            if (label.Font.Size <= 1) throw Failure(FailureNumber::InvalidPropertyValue);
            --label.Font.Size;
            // What the longest word needed stays: smaller words find room beside each other.
            wrapWidth = std::max(wrapWidth, extent.Width);
        }
    });
}

Integer TextHeight(Globals& g, const std::string& fontName, int fontSize) {
    constexpr int Unwrapped = 32767;
    Integer height = 0;
    Procedure(g.gErrHandler, "modMain:TextHeight", [&] {
        const int pixels = g.TheScreen.MeasureText({fontName, fontSize, false}, "Gg", Unwrapped).Height;
        height = ToInteger(static_cast<double>(pixels) * g.TheScreen.TwipsPerPixelY());
    });
    return height;
}

bool IsFormLoaded(Globals& g, std::string_view formName) {
    bool loaded = false;
    Procedure(g.gErrHandler, "modMain:IsFormLoaded", [&] {
        for (const Form* form : g.TheScreen.LoadedForms()) loaded = loaded || form->Name == formName;
    });
    return loaded;
}

void SelectItemInDropDownList(Globals& g, ComboBox& list, std::string_view item) {
    Procedure(g.gErrHandler, "SelectItemInDropDownList", [&] {
        for (std::size_t i = 0; i < list.Rows.size(); ++i) {
            if (list.Rows[i].Text != item) continue;
            list.Select(static_cast<int>(i));
            return;
        }
    });
}

std::string_view ScoreCaption(Integer goalType) { return goalType == 1 ? "Money: " : "Points: "; }

}  // namespace tabulon
