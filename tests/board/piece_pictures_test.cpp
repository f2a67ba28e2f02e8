#include "board/piece_pictures.h"

#include <gtest/gtest.h>

#include "board/modCharCategories.h"
#include "platform/failure_of.h"

namespace tabulon::test {
namespace {

TEST(PiecePicturesTest, EveryCollectionHoldsItsTwelveKeys) {
    for (const char* collection : {"Aliens", "Animals", "Objects", "Professions"}) {
        const CharCategory range = CharCatRange(collection);
        for (int number = 1; number <= 12; ++number) {
            const std::string key = "(" + std::string(collection) + ") " + std::to_string(number);
            const int index = range.Low.Value() + number - 1;
            EXPECT_EQ(PieceKey(index), key);
            EXPECT_EQ(PieceByKey(key), Picture::Piece(index));
        }
        EXPECT_EQ(range.High - range.Low, 11);
    }
    EXPECT_EQ(CharCatRange("Vegetables").High, 0);
}

TEST(PiecePicturesTest, FailsForWhatIsNotInTheList) {
    for (const char* key : {"", "(Aliens) 13", "(Aliens) 0", "Aliens 1", "(aliens) 1", "((((", ") "})
        EXPECT_EQ(FailureOf([&] { PieceByKey(key); }), 35601) << key;
    for (int index : {0, 49, -1}) EXPECT_EQ(FailureOf([&] { PieceByIndex(index); }), 9) << index;
}

}  // namespace
}  // namespace tabulon::test
