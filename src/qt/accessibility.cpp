#include "qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPushButton>

#include "qt/form_window.h"
#include "qt/static_views.h"

namespace tabulon {

namespace {

/// What can be clicked has a Press action.
class Clickable : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    QStringList actionNames() const override {
        const QStringList others = QAccessibleWidget::actionNames();
        return CanBePressed() ? QStringList(pressAction()) + others : others;
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        if (CanBePressed()) Target().press();
    }

  private:
    Pressable& Target() const { return dynamic_cast<Pressable&>(*widget()); }
    bool CanBePressed() const { return widget()->isEnabled() && Target().press; }
};

/// Named by its text. One that is only heard is a notification: a screen reader reads it out when it is
/// shown.
class AccessibleLabel final : public Clickable {
  public:
    explicit AccessibleLabel(LabelWidget* label) : Clickable(label), m_label(*label) {}
    QAccessible::Role role() const override {
        return m_label.IsOnlyHeard() ? QAccessible::Notification : QAccessible::StaticText;
    }
    QString text(QAccessible::Text kind) const override {
        const bool isText = kind == QAccessible::Name && m_label.accessibleName().isEmpty();
        return isText ? m_label.text() : Clickable::text(kind);
    }
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        auto found = Clickable::relations(match);
        if ((match & QAccessible::Labelled) && m_label.buddy())
            found.append({QAccessible::queryAccessibleInterface(m_label.buddy()), QAccessible::Labelled});
        return found;
    }

  private:
    const LabelWidget& m_label;
};

/// A picture with a border is the chosen one.
class AccessiblePicture final : public Clickable {
  public:
    explicit AccessiblePicture(PictureWidget* picture) : Clickable(picture, QAccessible::Graphic) {}
    QAccessible::State state() const override {
        QAccessible::State state = Clickable::state();
        state.selected = static_cast<PictureWidget*>(widget())->HasBorder();
        return state;
    }
};

/// A keyboard twin stands outside of its window, and the button that it stands for is there already.
bool IsTwin(const QObject& object) {
    const auto* button = qobject_cast<const QPushButton*>(&object);
    return button && !button->geometry().intersects(button->parentWidget()->rect());
}

class AccessibleForm final : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    int childCount() const override { return static_cast<int>(Children().size()); }
    QAccessibleInterface* child(int index) const override { return Children().value(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(Children().indexOf(const_cast<QAccessibleInterface*>(child)));
    }

  private:
    QList<QAccessibleInterface*> Children() const {
        QList<QAccessibleInterface*> children;
        for (int i = 0; i < QAccessibleWidget::childCount(); ++i) {
            QAccessibleInterface* const child = QAccessibleWidget::child(i);
            if (child && !IsTwin(*child->object())) children.append(child);
        }
        return children;
    }
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    if (auto* picture = dynamic_cast<PictureWidget*>(object)) return new AccessiblePicture(picture);
    if (auto* label = dynamic_cast<LabelWidget*>(object)) return new AccessibleLabel(label);
    auto* window = dynamic_cast<FormWindow*>(object);
    if (!window) return nullptr;
    const bool isMain = window->Frame() == WindowFrame::FullScreen;
    return new AccessibleForm(window, isMain ? QAccessible::Window : QAccessible::Dialog);
}

}  // namespace

void InstallAccessibleRoles() { QAccessible::installFactory(MakeInterface); }

}  // namespace tabulon
