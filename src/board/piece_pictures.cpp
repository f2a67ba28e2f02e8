#include "board/piece_pictures.h"

#include "platform/failure.h"

namespace tabulon {

namespace {

constexpr const char* Collections[] = {"Aliens", "Animals", "Objects", "Professions"};
constexpr int PiecesPerCollection = 12;

int CheckedIndex(int index) {
    if (index < 1 || index > PieceCount) throw Failure(FailureNumber::SubscriptOutOfRange);
    return index;
}

}  // namespace

std::string PieceKey(int index) {
    const int place = CheckedIndex(index) - 1;
    return "(" + std::string(Collections[place / PiecesPerCollection]) + ") " +
           std::to_string(place % PiecesPerCollection + 1);
}

Picture PieceByIndex(int index) { return Picture::Piece(CheckedIndex(index)); }

Picture PieceByKey(std::string_view key) {
    for (int index = 1; index <= PieceCount; ++index)
        if (PieceKey(index) == key) return Picture::Piece(index);
    throw Failure(FailureNumber::ElementNotFound);
}

std::string_view CollectionOfKey(std::string_view key) {
    const std::size_t close = key.find(')');
    return close == key.npos ? std::string_view() : key.substr(1, close - 1);
}

std::string_view NumberOfKey(std::string_view key) {
    const std::size_t close = key.find(") ");
    return close == key.npos ? std::string_view() : key.substr(close + 2);
}

}  // namespace tabulon
