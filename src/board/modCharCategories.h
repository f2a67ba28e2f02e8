#pragma once

#include <string_view>

#include "platform/integer.h"

namespace tabulon {

/// The lowest and the highest index of a collection's pictures.
struct CharCategory {
    Integer Low;
    Integer High;
};

/// Both 0 for a collection that does not exist.
CharCategory CharCatRange(std::string_view Collection);

}  // namespace tabulon
