#include "helpwindow/help_look.h"

#include "qt/look.h"

namespace tabulon {

/// Ink, cream, yellow, navy, teal, plates under the mouse and pressed: %1 to %7.
QString HelpStyleSheet() {
    return QString(
               "QToolBar { background: %5; border: none; border-bottom: 3px solid %4; padding: 6px; spacing: "
               "6px; }"
               "QToolButton { background: %2; color: %1; border: 2px solid %1; border-radius: 8px;"
               " padding: 3px 10px 3px 6px; font-weight: bold; }"
               "QToolButton:hover { background: %6; }"
               "QToolButton:pressed { background: %7; }"
               "QToolButton:focus { border: 3px solid %3; padding: 2px 9px 2px 5px; }"
               "QToolButton:disabled { background: transparent; color: %2; border: 1px solid %2; }"
               "QTabWidget::pane { border: none; border-top: 3px solid %4; background: %5; }"
               "QTabBar::tab { background: %4; color: %2; border: 2px solid %1; border-bottom: none;"
               " border-top-left-radius: 8px; border-top-right-radius: 8px; padding: 6px 10px; margin-right: "
               "2px; }"
               "QTabBar::tab:selected { background: %3; color: %1; }"
               "QTabBar::tab:focus { border-color: %2; }"
               "QTreeWidget, QTextBrowser { background: %2; color: %1; border: 2px solid %1; border-radius: "
               "4px; }"
               "QTreeWidget:focus, QTextBrowser:focus { border-color: %3; }"
               "QTreeWidget::item, QListWidget::item { padding: 4px 2px; }"
               "QTreeWidget::item:selected { background: %3; color: %1; }"
               "QTreeWidget::item:hover:!selected, QListWidget::item:hover:!selected { background: %6; }"
               "QSplitter::handle { background: %5; width: 6px; }"
               "QStatusBar { background: %4; color: %2; }")
        .arg(Look::Ink.name(), Look::Cream.name(), Look::Yellow.name(), Look::Navy.name(), Look::Teal.name(),
             Look::PlateHover.name(), Look::PlatePressed.name());
}

}  // namespace tabulon
