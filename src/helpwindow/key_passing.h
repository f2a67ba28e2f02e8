#pragma once

#include <QListWidget>
#include <QWidget>

namespace tabulon {

/// Lets the up and down keys walk through the list while one types above it.
void PassArrowsTo(QWidget& from, QListWidget& list);

}  // namespace tabulon
