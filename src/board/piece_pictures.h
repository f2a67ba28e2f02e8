#pragma once

#include <string>
#include <string_view>

#include "content/game_words.h"
#include "forms/picture.h"

namespace tabulon {

/// The list of the playing pieces' pictures, with indices from 1. The key of a picture names its collection
/// and its number there: "(Animals) 3".
inline constexpr int PieceCount = static_cast<int>(PieceCollections.size()) * PiecesPerCollection;

/// Fails with SubscriptOutOfRange for an index that is not in the list.
std::string PieceKey(int index);
Picture PieceByIndex(int index);
/// Fails with ElementNotFound for a key that is not in the list.
Picture PieceByKey(std::string_view key);

/// What the picture shows, for who cannot see it: "Cat". Fails with SubscriptOutOfRange.
std::string PieceTitle(int index);

/// The two parts of a key: "Animals" and "3".
std::string_view CollectionOfKey(std::string_view key);
std::string_view NumberOfKey(std::string_view key);

}  // namespace tabulon
