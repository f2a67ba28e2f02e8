#pragma once

#include <QLabel>

#include "qt/control_view.h"
#include "qt/scaled_picture.h"

namespace tabulon {

/// What a screen reader presses.
struct Pressable {
    std::function<void()> press;  // empty where nothing can be clicked
};

/// A control that the user looks at, and may click. Its widget is Pressable.
template <class Data>
class StaticView : public ViewOf<Data> {
  public:
    using ViewOf<Data>::ViewOf;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// What can be clicked and shows something is reached by Tab, and clicked by Enter and Space.
    void SetReachable(bool showsSomething);
    /// What can be clicked is held down, or no longer.
    virtual void ShowPressed(bool /*pressed*/) {}

  private:
    bool ClickByKey(const QEvent& event);

    bool m_pressed = false;
};

/// Text over what stands behind it. Its QLabel holds the text as it is read, and paints the caption.
class LabelWidget final : public QLabel, public Pressable {
  public:
    explicit LabelWidget(QWidget* parent);
    void SetCaption(const std::string& caption);
    void SetPressed(bool pressed);
    /// A label outside of its window is there to be heard: a screen reader reads each new caption.
    bool IsOnlyHeard() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::Alignment VerticalPlace() const;
    void PaintCaption(QPainter& painter, const QRect& room) const;

    QString m_caption;
    bool m_pressed = false;
};

class LabelView final : public StaticView<Label> {
  public:
    LabelView(Label& label, ViewHost& host, QWidget* parent);
    std::string Caption() const override { return TheData().MarkedCaption(); }
    bool ActivateByKey() override;

  protected:
    void SyncOwn() override;
    void ShowPressed(bool pressed) override { m_label.SetPressed(pressed); }
    bool HasNameOfItsOwn() const override { return true; }

  private:
    LabelWidget& m_label;
    Applied<std::string> m_caption;
    Applied<Font> m_font;
    Applied<Colour> m_colour;
    Applied<bool> m_centred;
};

/// A picture stretched over the whole widget.
class PictureWidget final : public QWidget, public Pressable {
  public:
    PictureWidget(PictureStore& store, QWidget* parent);
    void Show(const Picture& picture);
    void SetBorder(bool border);
    bool HasBorder() const { return m_border; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Prepare();

    ScaledPicture m_picture;
    bool m_border = false;
};

class ImageView final : public StaticView<Image> {
  public:
    ImageView(Image& image, ViewHost& host, QWidget* parent);

  protected:
    void SyncOwn() override;

  private:
    PictureWidget& m_picture;
    Applied<Picture> m_shown;
    Applied<bool> m_border;
};

class PictureBoxView final : public StaticView<PictureBox> {
  public:
    PictureBoxView(PictureBox& box, ViewHost& host, QWidget* parent);

  protected:
    void SyncOwn() override;

  private:
    PictureWidget& m_picture;
    Applied<Picture> m_shown;
};

/// A rectangle in one colour, whole or as a frame; the mouse goes through it.
class ShapeWidget final : public QWidget {
  public:
    explicit ShapeWidget(QWidget* parent);
    void SetColour(Colour colour, bool filled);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour m_colour;
    bool m_filled = true;
};

class ShapeView final : public ViewOf<Shape> {
  public:
    ShapeView(Shape& shape, ViewHost& host, QWidget* parent);

  protected:
    void SyncOwn() override;

  private:
    ShapeWidget& m_shape;
    Applied<Colour> m_colour;
    Applied<bool> m_filled;
};

}  // namespace tabulon
