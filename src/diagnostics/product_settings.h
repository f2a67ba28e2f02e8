#pragma once

#include <string>

#include "diagnostics/globals.h"

namespace tabulon {

/// What the product's key in the settings says under the name, or else what the program was built with.
std::string ProductSetting(Globals& g, const std::string& name, const std::string& builtIn);

}  // namespace tabulon
