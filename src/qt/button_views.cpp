#include "qt/button_views.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/form.h"
#include "qt/look.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int Margin = 4;
constexpr int TextGap = 4;
constexpr double Radius = 8;
constexpr QSize ButtonFrame{20, 6};

/// The window looks after access keys itself, so that they work alike for all kinds of control.
void SetText(QAbstractButton& button, const std::string& caption) {
    button.setText(ToQt(caption));
    button.setShortcut(QKeySequence());
}

void SetFocusPolicy(QWidget& widget, const Control& control) {
    widget.setFocusPolicy(control.TabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

/// Focuses and clicks, as a mouse would.
bool Press(QAbstractButton& button) {
    if (button.focusPolicy() != Qt::NoFocus) button.setFocus(Qt::ShortcutFocusReason);
    button.click();
    return true;
}

}  // namespace

ButtonView::ButtonView(Button& button, ViewHost& host, QWidget* parent)
    : ViewOf(button, host, new QPushButton(parent)), m_button(static_cast<QPushButton&>(Widget())) {
    m_button.setAutoDefault(true);
    connect(&m_button, &QAbstractButton::clicked, this, [this] { DeliverClick(); });
}

bool ButtonView::ActivateByKey() { return Press(m_button); }

void ButtonView::SyncOwn() {
    if (m_caption.Take(TheData().Caption)) SetText(m_button, TheData().Caption);
    if (m_font.Take(TheData().Font))
        m_button.setFont(FittingFont(ToQt(TheData().Font), m_button.text(), m_button.size() - ButtonFrame));
    if (!m_outOfSight.Take(TheData().OutOfSight)) return;
    SetFocusPolicy(m_button, TheData());
    if (TheData().OutOfSight) m_button.setFocusPolicy(Qt::NoFocus);
}

QRect ButtonView::Place(float twipsPerPixel) const {
    return TheData().OutOfSight ? QRect(-10, -10, 1, 1) : ControlView::Place(twipsPerPixel);
}

PictureButtonWidget::PictureButtonWidget(PictureStore& store, QWidget* parent)
    : QAbstractButton(parent), m_picture(store) {}

void PictureButtonWidget::Show(const Picture& picture) {
    m_picture.Show(picture);
    update();
}

void PictureButtonWidget::SetCaption(const std::string& caption) {
    m_caption = ToQt(caption);
    SetText(*this, caption);
    update();
}

void PictureButtonWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isEnabled() ? Look::Ink : Look::Cream, 1));
    painter.setBrush(PlateColour());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    QRect room = rect().adjusted(Margin, Margin, -Margin, -Margin);
    if (isDown()) room.translate(1, 1);
    PaintIcon(painter, IconRoom(room));
    painter.setPen(isEnabled() ? Look::Ink : Look::Cream);
    painter.drawText(TextRoom(room), Qt::AlignCenter | LabelTextFlags, m_caption);
    if (hasFocus()) Look::DrawFocusRing(painter, rect());
}

void PictureButtonWidget::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void PictureButtonWidget::enterEvent(QEnterEvent*) { update(); }

void PictureButtonWidget::leaveEvent(QEvent*) { update(); }

bool PictureButtonWidget::IsWide() const { return width() >= 2 * height(); }

QRect PictureButtonWidget::IconRoom(const QRect& room) const {
    if (m_picture.IsEmpty()) return {};
    if (m_caption.isEmpty()) return room;
    if (IsWide()) return {room.topLeft(), QSize(room.height(), room.height())};
    return room.adjusted(0, 0, 0, -fontMetrics().height());
}

QRect PictureButtonWidget::TextRoom(const QRect& room) const {
    if (m_picture.IsEmpty()) return room;
    if (IsWide()) return room.adjusted(room.height() + TextGap, 0, 0, 0);
    return room.adjusted(0, room.height() - fontMetrics().height(), 0, 0);
}

QColor PictureButtonWidget::PlateColour() const {
    if (!isEnabled()) return Qt::transparent;
    if (isDown()) return Look::PlatePressed;
    return underMouse() ? Look::PlateHover : Look::Plate;
}

void PictureButtonWidget::PaintIcon(QPainter& painter, const QRect& room) {
    if (room.isEmpty()) return;
    const int side = std::min(room.width(), room.height());
    const QPixmap& icon = m_picture.For(*this, QSize(side, side), Qt::KeepAspectRatio);
    painter.setOpacity(isEnabled() ? 1 : 0.4);
    painter.drawPixmap(
        QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(side, side), room).topLeft(), icon);
    painter.setOpacity(1);
}

PictureButtonView::PictureButtonView(PictureButton& button, ViewHost& host, QWidget* parent)
    : ViewOf(button, host, new PictureButtonWidget(host.Pictures(), parent)),
      m_button(static_cast<PictureButtonWidget&>(Widget())) {
    SetFocusPolicy(m_button, button);
    // A click at the table leaves the focus where it was: on the button of the turn.
    if (button.Parent.Frame == WindowFrame::FullScreen) m_button.setFocusPolicy(Qt::TabFocus);
    connect(&m_button, &QAbstractButton::clicked, this, [this] { DeliverClick(); });
}

bool PictureButtonView::ActivateByKey() { return Press(m_button); }

void PictureButtonView::SyncOwn() {
    const PictureButton& button = TheData();
    if (m_caption.Take(button.Caption)) m_button.SetCaption(button.Caption);
    if (m_font.Take(button.FontTextCaption)) m_button.setFont(ToQt(button.FontTextCaption));
    if (m_picture.Take(button.Picture)) m_button.Show(button.Picture);
}

/// Where two twins claim one key, the first has it.
std::string PictureButtonView::ToolTipText() const {
    const Button* const twin = TheData().Twin;
    const QChar key = twin ? AccessKey(twin->Caption) : QChar();
    const auto hasKey = [key](const Control* control) {
        return control->Kind == ControlKind::Button &&
               AccessKey(static_cast<const Button*>(control)->Caption) == key;
    };
    const auto first = std::ranges::find_if(TheData().Parent.Controls, hasKey);
    if (key.isNull() || *first != twin) return TheData().ToolTipText;
    return TheData().ToolTipText + " (Alt+" + FromQt(key) + ")";
}

CheckBoxView::CheckBoxView(CheckBox& box, ViewHost& host, QWidget* parent)
    : ViewOf(box, host, new Ringed<QCheckBox>(parent)), m_box(static_cast<QCheckBox&>(Widget())) {
    SetFocusPolicy(m_box, box);
    connect(&m_box, &QAbstractButton::toggled, this, [this](bool ticked) {
        DeliverUse(
            [this, ticked] {
                TheData().Value = ticked;
                m_value.Take(ticked);
            },
            TheData().Click);
    });
}

bool CheckBoxView::ActivateByKey() { return Press(m_box); }

void CheckBoxView::SyncOwn() {
    if (m_caption.Take(TheData().Caption)) SetText(m_box, TheData().Caption);
    if (m_font.Take(TheData().Font)) m_box.setFont(ToQt(TheData().Font));
    if (m_value.Take(TheData().Value)) m_box.setChecked(TheData().Value);
}

UpDownView::UpDownView(UpDown& upDown, ViewHost& host, QWidget* parent)
    : ViewOf(upDown, host, new QWidget(parent)) {
    auto* layout = new QVBoxLayout(&Widget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_up = MakeArrow(Qt::UpArrow, upDown.UpClick);
    m_down = MakeArrow(Qt::DownArrow, upDown.DownClick);
}

void UpDownView::SyncOwn() {
    const UpDown& data = TheData();
    const std::string name = data.AccessibleName.empty() ? data.ToolTipText : data.AccessibleName;
    if (!m_names.Take(name)) return;
    m_up->setAccessibleName(ToQt(name) + (name.empty() ? "Up" : ": up"));
    m_down->setAccessibleName(ToQt(name) + (name.empty() ? "Down" : ": down"));
}

QToolButton* UpDownView::MakeArrow(Qt::ArrowType arrow, const std::function<void()>& handler) {
    auto* button = new Ringed<QToolButton>(&Widget());
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setFocusPolicy(TheData().TabStop ? Qt::StrongFocus : Qt::ClickFocus);
    connect(button, &QAbstractButton::clicked, this, [this, &handler] { DeliverUse([] {}, handler); });
    Widget().layout()->addWidget(button);
    return button;
}

}  // namespace tabulon
