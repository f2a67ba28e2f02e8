#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QPushButton>
#include <QToolButton>

#include "qt/control_view.h"
#include "qt/scaled_picture.h"

namespace tabulon {

class ButtonView final : public ViewOf<Button> {
  public:
    ButtonView(Button& button, ViewHost& host, QWidget* parent);
    std::string Caption() const override { return TheData().Caption; }
    bool ActivateByKey() override;

  protected:
    void SyncOwn() override;
    QRect Place(float twipsPerPixel) const override;
    bool HasNameOfItsOwn() const override { return true; }

  private:
    QPushButton& m_button;
    Applied<std::string> m_caption;
    Applied<Font> m_font;
    Applied<bool> m_outOfSight;
};

/// A button painted from a picture: the caption stands beside it on a wide button, else below.
class PictureButtonWidget final : public QAbstractButton {
  public:
    PictureButtonWidget(PictureStore& store, QWidget* parent);
    void Show(const Picture& picture);
    void SetCaption(const std::string& caption);
    QSize sizeHint() const override { return {48, 48}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    QRect IconRoom(const QRect& room) const;
    QRect TextRoom(const QRect& room) const;
    bool IsWide() const;
    QColor PlateColour() const;
    void PaintIcon(QPainter& painter, const QRect& room);

    ScaledPicture m_picture;
    QString m_caption;
};

class PictureButtonView final : public ViewOf<PictureButton> {
  public:
    PictureButtonView(PictureButton& button, ViewHost& host, QWidget* parent);
    std::string Caption() const override { return TheData().Caption; }
    /// Names the key of the twin too.
    std::string ToolTipText() const override;
    bool ActivateByKey() override;

  protected:
    void SyncOwn() override;

  private:
    PictureButtonWidget& m_button;
    Applied<std::string> m_caption;
    Applied<Font> m_font;
    Applied<Picture> m_picture;
};

class CheckBoxView final : public ViewOf<CheckBox> {
  public:
    CheckBoxView(CheckBox& box, ViewHost& host, QWidget* parent);
    std::string Caption() const override { return TheData().Caption; }
    bool ActivateByKey() override;

  protected:
    void SyncOwn() override;
    bool HasNameOfItsOwn() const override { return true; }

  private:
    QCheckBox& m_box;
    Applied<std::string> m_caption;
    Applied<Font> m_font;
    Applied<bool> m_value;
};

/// Two arrows, one above the other.
class UpDownView final : public ViewOf<UpDown> {
  public:
    UpDownView(UpDown& upDown, ViewHost& host, QWidget* parent);

  protected:
    void SyncOwn() override;

  private:
    QToolButton* MakeArrow(Qt::ArrowType arrow, const std::function<void()>& handler);

    QToolButton* m_up;
    QToolButton* m_down;
    Applied<std::string> m_names;
};

}  // namespace tabulon
