#pragma once

#include <vector>

class QWidget;

namespace tabulon {

/// Where an arrow, Home or End leads to from `here` among its likes, which stand in their order: sideways to
/// the next one, up and down in the same column. Null for another key, and where there is nothing further.
QWidget* StepFrom(const QWidget& here, std::vector<QWidget*> likes, int key);

}  // namespace tabulon
