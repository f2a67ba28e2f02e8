#include "qt/static_views.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "qt/look.h"
#include "qt/text.h"
#include "qt/wrapped_text.h"

namespace tabulon {

namespace {

constexpr int FrameWidth = 3;
constexpr int FrameRadius = 8;
constexpr int HighestLine = 90;  // pixels
constexpr int FocusMargin = 8;

}  // namespace

/// A press stays with the control, as if it were a window of its own: nothing behind it is clicked.
template <class Data>
bool StaticView<Data>::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::KeyPress && ClickByKey(*event)) return true;
    const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!isPress && type != QEvent::MouseButtonRelease) return ControlView::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton) return true;
    const bool clicked = !isPress && m_pressed && this->Widget().rect().contains(mouse->position().toPoint());
    m_pressed = isPress && this->Widget().isEnabled();
    ShowPressed(m_pressed && this->TheData().Click);
    if (clicked) this->DeliverClick();
    return true;
}

template <class Data>
bool StaticView<Data>::ClickByKey(const QEvent& event) {
    const auto& press = static_cast<const QKeyEvent&>(event);
    const int key = press.key();
    const bool clicks = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!clicks || press.isAutoRepeat() || !this->TheData().Click) return false;
    this->DeliverClick();
    return true;
}

template <class Data>
void StaticView<Data>::SetReachable(bool showsSomething) {
    const bool clickable = showsSomething && this->TheData().Click;
    const bool reachable = clickable && this->TheData().TabStop;
    auto& pressable = dynamic_cast<Pressable&>(this->Widget());
    if (clickable != bool{pressable.press})
        pressable.press = clickable ? [this] { this->DeliverClick(); } : std::function<void()>();
    this->Widget().setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
    this->Widget().setFocusPolicy(reachable ? Qt::TabFocus : Qt::NoFocus);
}

LabelWidget::LabelWidget(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void LabelWidget::SetCaption(const std::string& caption) {
    m_caption = ToQt(caption);
    setText(PlainCaption(caption));
    if (m_caption.isEmpty() || !IsOnlyHeard()) return;
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

void LabelWidget::SetPressed(bool pressed) {
    m_pressed = pressed;
    update();
}

bool LabelWidget::IsOnlyHeard() const {
    return !geometry().isEmpty() && !geometry().intersects(parentWidget()->rect());
}

void LabelWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Room for the ring.
    const int margin = focusPolicy() == Qt::NoFocus || (alignment() & Qt::AlignHCenter) ? 0 : FocusMargin;
    PaintCaption(painter, rect().adjusted(margin, 0, -margin, 0));
    if (hasFocus() || m_pressed) Look::DrawFocusRing(painter, rect());
}

/// The size of the letters was chosen by height alone, so a word may be wider than the label. It gets smaller
/// letters, and is broken when these would be too small to read; what has no room then ends in an ellipsis.
void LabelWidget::PaintCaption(QPainter& painter, const QRect& room) const {
    const QFont fitting = FittingFont(font(), m_caption, room.size());
    QString shown = m_caption;
    if (!FitsRoom(fitting, m_caption, room.size()))
        shown = CutText(text(), fitting, room.size()).replace("&", "&&");
    const WrappedText wrapped(shown, fitting, room.width(), alignment() & Qt::AlignHorizontal_Mask);
    const int above = VerticalPlace() == Qt::AlignTop ? 0 : (room.height() - wrapped.Size().height()) / 2;
    painter.setPen(palette().color(QPalette::WindowText));
    wrapped.Draw(painter, room.topLeft() + QPoint(0, above));
}

/// Only a text with much room stands at its top, as on a page.
Qt::Alignment LabelWidget::VerticalPlace() const {
    const bool isPage = height() > HighestLine && !(alignment() & Qt::AlignHCenter);
    return isPage ? Qt::AlignTop : Qt::AlignVCenter;
}

LabelView::LabelView(Label& label, ViewHost& host, QWidget* parent)
    : StaticView(label, host, new LabelWidget(parent)), m_label(static_cast<LabelWidget&>(Widget())) {}

bool LabelView::ActivateByKey() {
    if (TheData().Click) DeliverClick();
    return TheData().Click != nullptr;
}

void LabelView::SyncOwn() {
    const Label& label = TheData();
    SetReachable(!label.Caption.empty());
    if (m_font.Take(label.Font)) m_label.setFont(ToQt(label.Font));
    if (m_centred.Take(label.Centred)) m_label.setAlignment(label.Centred ? Qt::AlignHCenter : Qt::AlignLeft);
    if (m_caption.Take(label.MarkedCaption())) m_label.SetCaption(label.MarkedCaption());
    if (!m_colour.Take(label.ForeColor)) return;
    QPalette palette = m_label.palette();
    palette.setColor(QPalette::WindowText, ToQt(label.ForeColor));
    m_label.setPalette(palette);
}

PictureWidget::PictureWidget(PictureStore& store, QWidget* parent) : QWidget(parent), m_picture(store) {}

void PictureWidget::Show(const Picture& picture) {
    m_picture.Show(picture);
    Prepare();
    update();
}

/// What is behind a picture without holes needs no painting.
void PictureWidget::Prepare() {
    const QPixmap& pixmap = m_picture.For(*this);
    setAttribute(Qt::WA_OpaquePaintEvent, !pixmap.isNull() && !pixmap.hasAlphaChannel());
}

void PictureWidget::SetBorder(bool border) {
    m_border = border;
    update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap& pixmap = m_picture.For(*this);
    if (!pixmap.isNull()) painter.drawPixmap(0, 0, pixmap);
    if (m_border) {
        painter.setRenderHint(QPainter::Antialiasing);
        for (const auto& [colour, width] :
             {std::pair{Look::Ink, FrameWidth + 2}, {Look::Yellow, FrameWidth}}) {
            painter.setPen(QPen(colour, width));
            painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), FrameRadius, FrameRadius);
        }
    }
    if (hasFocus()) Look::DrawFocusRing(painter, rect());
}

void PictureWidget::resizeEvent(QResizeEvent*) { Prepare(); }

ImageView::ImageView(Image& image, ViewHost& host, QWidget* parent)
    : StaticView(image, host, new PictureWidget(host.Pictures(), parent)),
      m_picture(static_cast<PictureWidget&>(Widget())) {}

void ImageView::SyncOwn() {
    SetReachable(TheData().Picture.Set != PictureSet::None);
    if (m_border.Take(TheData().Border)) m_picture.SetBorder(TheData().Border);
    if (m_shown.Take(TheData().Picture)) m_picture.Show(TheData().Picture);
}

PictureBoxView::PictureBoxView(PictureBox& box, ViewHost& host, QWidget* parent)
    : StaticView(box, host, new PictureWidget(host.Pictures(), parent)),
      m_picture(static_cast<PictureWidget&>(Widget())) {}

/// A picture that has a name is there to be read in words: Tab comes to it.
void PictureBoxView::SyncOwn() {
    const bool readable = TheData().TabStop && !TheData().AccessibleName.empty();
    Widget().setFocusPolicy(readable ? Qt::TabFocus : Qt::NoFocus);
    if (m_shown.Take(TheData().Picture)) m_picture.Show(TheData().Picture);
}

ShapeWidget::ShapeWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ShapeWidget::SetColour(Colour colour, bool filled) {
    m_colour = colour;
    m_filled = filled;
    update();
}

void ShapeWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_filled) {
        painter.fillRect(rect(), ToQt(m_colour));
        return;
    }
    painter.setPen(QPen(ToQt(m_colour), FrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5));
}

ShapeView::ShapeView(Shape& shape, ViewHost& host, QWidget* parent)
    : ViewOf(shape, host, new ShapeWidget(parent)), m_shape(static_cast<ShapeWidget&>(Widget())) {}

void ShapeView::SyncOwn() {
    const bool newColour = m_colour.Take(TheData().FillColor);
    const bool newKind = m_filled.Take(TheData().Filled);
    if (newColour || newKind) m_shape.SetColour(TheData().FillColor, TheData().Filled);
}

}  // namespace tabulon
