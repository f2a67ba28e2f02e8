#include "qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "qt/form_window.h"
#include "qt/static_views.h"

namespace tabulon {

namespace {

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    if (auto* picture = dynamic_cast<PictureWidget*>(object))
        return new QAccessibleWidget(picture, QAccessible::Graphic);
    auto* window = dynamic_cast<FormWindow*>(object);
    if (!window || window->Frame() == WindowFrame::FullScreen) return nullptr;
    return new QAccessibleWidget(window, QAccessible::Dialog);
}

}  // namespace

void InstallAccessibleRoles() { QAccessible::installFactory(MakeInterface); }

}  // namespace tabulon
