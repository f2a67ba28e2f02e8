#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "forms/picture.h"
#include "platform/failure.h"
#include "platform/integer.h"

namespace tabulon {

class Form;

struct Font {
    std::string Name = "Comic Neue";
    int Size = 8;  // points
    bool Bold = false;
    bool operator==(const Font&) const = default;
};

/// The usual colour of text on the ground of a form.
inline constexpr Colour TextOnForms{255, 246, 227};
/// And on the light ground of cards and notes.
inline constexpr Colour TextOnPaper{27, 42, 65};

enum class ControlKind : std::uint8_t {
    Label,
    Button,
    PictureButton,
    TextBox,
    CheckBox,
    ComboBox,
    ListBox,
    Image,
    PictureBox,
    Shape,
    UpDown,
    RichText,
};

/// What every control has. Plain data: nothing signals a change, the screen compares when it shows.
/// Places are twips of the form, or pixels inside a picture box.
struct Control {
    Control(ControlKind kind, Form& form, std::string name, Control* container = nullptr);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    void Move(float left, float top, float width, float height);
    /// Brings the control in front of its siblings.
    void Raise();
    /// Asks for the input focus as soon as the form shows.
    void SetFocus();

    const ControlKind Kind;
    Form& Parent;
    Control* const Container;
    const std::string Name;

    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    bool Visible = true;
    bool Withheld = false;  // shows nothing, whatever Visible says
    bool Enabled = true;
    bool TabStop = true;
    int ZOrder = 0;  // the higher is in front
    std::string ToolTipText;
    std::string AccessibleName;  // for a screen reader, where the caption does not say it
    std::string Tag;

    std::function<void()> Click;
    std::function<void()> MouseMove;
    std::function<void()> MouseLeave;
};

struct Label : Control {
    Label(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::Label, form, std::move(name), container) {}

    /// The caption with access keys marked, whatever UseMnemonic says.
    std::string MarkedCaption() const;

    std::string Caption;      // "&" makes the next character an access key, "&&" shows one ampersand
    bool UseMnemonic = true;  // unless this is false: then all shows as it stands
    tabulon::Font Font;
    Colour ForeColor = TextOnForms;
    bool Centred = false;
};

struct Button : Control {
    Button(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::Button, form, std::move(name), container) {}

    std::string Caption;
    tabulon::Font Font;
    /// A keyboard twin stands out of sight: only its access key counts.
    bool OutOfSight = false;
};

/// A button that is drawn from a picture, with its caption below or beside it.
struct PictureButton : Control {
    PictureButton(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::PictureButton, form, std::move(name), container) {}

    std::string Caption;
    tabulon::Font FontTextCaption;
    tabulon::Picture Picture;
    const Button* Twin = nullptr;  // out of sight; its access key does the same
};

struct TextBox : Control {
    TextBox(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::TextBox, form, std::move(name), container) {}

    /// Sets the text as a program does, and tells of the change.
    void SetText(std::string text);
    void SelectAll() { SelectAllRequested = true; }

    std::string Text;
    tabulon::Font Font;
    int MaxLength = 0;  // characters; 0 for no limit
    bool MultiLine = false;
    bool Marked = false;  // one line only: what it holds cannot be used as it is
    bool SelectAllRequested = false;  // taken back by the screen
    std::function<void()> Change;
};

struct CheckBox : Control {
    CheckBox(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::CheckBox, form, std::move(name), container) {}

    std::string Caption;
    tabulon::Font Font;
    bool Value = false;  // Click comes after a user's change
};

struct ListRow {
    std::string Text;
    std::int32_t ItemData = 0;
    std::string ToolTipText;
    bool operator==(const ListRow&) const = default;
};

/// Rows of which one may be selected: a drop-down list or a list.
struct RowList : Control {
    using Control::Control;

    void Clear();
    void AddItem(std::string text, std::int32_t itemData = 0, std::string toolTip = {});
    /// Selects a row as a program does; Click follows.
    void Select(int index);
    /// The selected row; fails with SubscriptOutOfRange when there is none.
    const ListRow& SelectedRow() const;

    std::vector<ListRow> Rows;
    int ListIndex = -1;
    tabulon::Font Font;
    std::function<void()> DblClick;
};

struct ComboBox : RowList {
    ComboBox(Form& form, std::string name, Control* container = nullptr)
        : RowList(ControlKind::ComboBox, form, std::move(name), container) {}

    int TopIndex = 0;  // the first row that the open list shows
    std::function<void()> DropDown;
    std::function<void()> Scroll;
};

struct ListBox : RowList {
    ListBox(Form& form, std::string name, Control* container = nullptr)
        : RowList(ControlKind::ListBox, form, std::move(name), container) {}
};

struct Image : Control {
    Image(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::Image, form, std::move(name), container) {}

    tabulon::Picture Picture;
    bool Border = false;
};

/// A frame with a picture of its own and controls inside, whose places are pixels.
struct PictureBox : Control {
    PictureBox(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::PictureBox, form, std::move(name), container) {}

    tabulon::Picture Picture;  // stretched over the whole box
};

struct Shape : Control {
    Shape(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::Shape, form, std::move(name), container) {
        TabStop = false;
    }

    Colour FillColor;
    bool Filled = true;
};

struct UpDown : Control {
    UpDown(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::UpDown, form, std::move(name), container) {}

    std::function<void()> UpClick;
    std::function<void()> DownClick;
};

/// A piece of text in one look.
struct TextRun {
    std::string Text;  // "\n" is a new line of the same paragraph
    tabulon::Font Font;
    bool Italic = false;
    bool Underline = false;
    Colour ForeColor;
    bool operator==(const TextRun&) const = default;
};

enum class TextAlignment : std::uint8_t { Left, Centre, Right, Justified };

struct TextParagraph {
    TextAlignment Alignment = TextAlignment::Left;
    bool Bullet = false;
    int Indent = 0;  // of its left edge, in points
    std::vector<TextRun> Runs;
    bool operator==(const TextParagraph&) const = default;
};

/// A read-only text of a file: rich text or plain.
struct RichText : Control {
    RichText(Form& form, std::string name, Control* container = nullptr)
        : Control(ControlKind::RichText, form, std::move(name), container) {}

    std::string Content;
    tabulon::Font Font;
    std::vector<TextParagraph> Paragraphs;  // shown in place of Content, unless it is empty
};

/// The font that a control shows its text with; null for a kind without text.
Font* FontOf(Control& control);

/// Fires in event pumps and modal waits, each `Interval` milliseconds while it is enabled.
struct Timer {
    Timer(Form& form, std::string name, int interval, bool enabled);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    static constexpr std::int64_t NotArmed = -1;

    const std::string Name;
    int Interval;  // milliseconds
    bool Enabled;
    std::function<void()> Tick;
    std::int64_t DueAt = NotArmed;  // milliseconds of the screen's own clock; the screen's to use
};

/// Controls of one name with indices from 0; another index fails with SubscriptOutOfRange.
template <class T, int Count>
class ControlArray {
  public:
    ControlArray(Form& form, std::string_view name, Control* container = nullptr)
        : ControlArray(form, name, [container](int) { return container; }) {}

    /// For controls that stand in several containers.
    template <class ContainerOf>
    requires std::is_invocable_r_v<Control*, ContainerOf, int> ControlArray(Form& form, std::string_view name,
                                                                            ContainerOf containerOf)
        : m_controls(Make(form, name, containerOf, std::make_integer_sequence<int, Count>())) {}

    T& operator[](int index) {
        if (index < 0 || index >= Count) throw Failure(FailureNumber::SubscriptOutOfRange);
        return m_controls[static_cast<std::size_t>(index)];
    }
    T& operator[](Integer index) { return (*this)[index.Value()]; }

    auto begin() { return m_controls.begin(); }
    auto end() { return m_controls.end(); }
    static constexpr int UBound() { return Count - 1; }

  private:
    // Controls do not move, so each is made where it stays.
    template <class ContainerOf, int... Index>
    static std::array<T, Count> Make(Form& form, std::string_view name, ContainerOf containerOf,
                                     std::integer_sequence<int, Index...>) {
        return {{T(form, std::string(name) + "(" + std::to_string(Index) + ")", containerOf(Index))...}};
    }

    std::array<T, Count> m_controls;
};

}  // namespace tabulon
