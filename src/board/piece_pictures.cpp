#include "board/piece_pictures.h"

#include "platform/failure.h"

namespace tabulon {

namespace {

constexpr const char* Titles[PieceCount] = {
    "One-eyed alien",
    "Three-eyed alien",
    "Flying saucer",
    "Spiky alien",
    "Pink squid",
    "Eyes on stalks",
    "Robot",
    "Jellyfish",
    "Grey alien",
    "Two-headed alien",
    "Star creature",
    "Crystal creature",
    "Cat",
    "Dog",
    "Fox",
    "Rabbit",
    "Owl",
    "Frog",
    "Elephant",
    "Bear",
    "Penguin",
    "Lion",
    "Turtle",
    "Pig",
    "Rocket",
    "Teapot",
    "Car",
    "Sailing boat",
    "Crown",
    "Key",
    "Star",
    "Umbrella",
    "Boot",
    "Balloon",
    "Book",
    "Bell",
    "Chef",
    "Pilot",
    "Doctor",
    "Firefighter",
    "Police officer",
    "Astronaut",
    "Builder",
    "Farmer",
    "Painter",
    "Scientist",
    "Pirate",
    "Musician",
};

int CheckedIndex(int index) {
    if (index < 1 || index > PieceCount) throw Failure(FailureNumber::SubscriptOutOfRange);
    return index;
}

}  // namespace

std::string PieceKey(int index) {
    const int place = CheckedIndex(index) - 1;
    return "(" + std::string(PieceCollections.at(static_cast<std::size_t>(place / PiecesPerCollection))) +
           ") " + std::to_string(place % PiecesPerCollection + 1);
}

Picture PieceByIndex(int index) { return Picture::Piece(CheckedIndex(index)); }

Picture PieceByKey(std::string_view key) {
    for (int index = 1; index <= PieceCount; ++index)
        if (PieceKey(index) == key) return Picture::Piece(index);
    throw Failure(FailureNumber::ElementNotFound);
}

std::string PieceTitle(int index) { return Titles[CheckedIndex(index) - 1]; }

std::string_view CollectionOfKey(std::string_view key) {
    const std::size_t close = key.find(')');
    return close == key.npos ? std::string_view() : key.substr(1, close - 1);
}

std::string_view NumberOfKey(std::string_view key) {
    const std::size_t close = key.find(") ");
    return close == key.npos ? std::string_view() : key.substr(close + 2);
}

}  // namespace tabulon
