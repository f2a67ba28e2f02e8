#pragma once

#include <memory>

#include "qt/control_view.h"

namespace tabulon {

/// The view of the control's kind, with its widget inside `parent`.
std::unique_ptr<ControlView> MakeView(Control& control, ViewHost& host, QWidget* parent);

}  // namespace tabulon
