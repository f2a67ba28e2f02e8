#include "qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

#include "qt/form_window.h"
#include "qt/static_views.h"

namespace tabulon {

namespace {

/// Named by its text, like a label; a screen reader reads it out when it is shown.
class HeardLabel final : public QAccessibleWidget {
  public:
    explicit HeardLabel(LabelWidget* label) : QAccessibleWidget(label, QAccessible::Notification) {}
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? static_cast<QLabel*>(widget())->text()
                                         : QAccessibleWidget::text(kind);
    }
};

/// A picture with a border is the chosen one.
class SeenPicture final : public QAccessibleWidget {
  public:
    explicit SeenPicture(PictureWidget* picture) : QAccessibleWidget(picture, QAccessible::Graphic) {}
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selected = static_cast<PictureWidget*>(widget())->HasBorder();
        return state;
    }
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    if (auto* picture = dynamic_cast<PictureWidget*>(object)) return new SeenPicture(picture);
    auto* label = dynamic_cast<LabelWidget*>(object);
    if (label && label->IsOnlyHeard()) return new HeardLabel(label);
    auto* window = dynamic_cast<FormWindow*>(object);
    if (!window || window->Frame() == WindowFrame::FullScreen) return nullptr;
    return new QAccessibleWidget(window, QAccessible::Dialog);
}

}  // namespace

void InstallAccessibleRoles() { QAccessible::installFactory(MakeInterface); }

}  // namespace tabulon
