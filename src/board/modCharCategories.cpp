#include "board/modCharCategories.h"

#include <algorithm>

#include "content/game_words.h"

namespace tabulon {

CharCategory CharCatRange(std::string_view Collection) {
    const auto found = std::ranges::find(PieceCollections, Collection);
    if (found == PieceCollections.end()) return {0, 0};
    const int before = static_cast<int>(found - PieceCollections.begin()) * PiecesPerCollection;
    return {before + 1, before + PiecesPerCollection};
}

}  // namespace tabulon
