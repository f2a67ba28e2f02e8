#include "board/modCharCategories.h"

namespace tabulon {

CharCategory CharCatRange(std::string_view Collection) {
    if (Collection == "Aliens") return {1, 12};
    if (Collection == "Animals") return {13, 24};
    if (Collection == "Objects") return {25, 36};
    if (Collection == "Professions") return {37, 48};
    return {0, 0};
}

}  // namespace tabulon
