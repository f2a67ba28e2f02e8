#pragma once

#include <QString>

namespace tabulon {

/// What a help window adds to the look of all windows: its buttons, tabs, tree and page.
QString HelpStyleSheet();

}  // namespace tabulon
