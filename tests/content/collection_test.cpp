#include "content/collection.h"

#include <gmock/gmock.h>

#include "platform/failure_of.h"

namespace tabulon {
namespace {

using test::FailureOf;

constexpr int InvalidCall = 5, OutOfRange = 9, DuplicateKey = 457;

class CollectionTest : public testing::Test {
  protected:
    CollectionTest() {
        for (const char* text : {"one", "two", "three"}) texts.Add(std::make_unique<std::string>(text), text);
        texts.Add(std::make_unique<std::string>("keyless"), "");
    }
    std::string Walked() const {
        std::string all;
        for (const std::string& text : texts) all += text + " ";
        return all;
    }

    Collection<std::string> texts;
};

TEST_F(CollectionTest, PositionsCountFromOne) {
    EXPECT_EQ(texts.Item(1), "one");
    EXPECT_EQ(texts.Item(4), "keyless");
    for (const int beyond : {0, -1, 5})
        EXPECT_EQ(FailureOf([&] { texts.Item(beyond); }), OutOfRange) << beyond;
}

TEST_F(CollectionTest, KeysHaveNoCase) {
    EXPECT_EQ(texts.Item("TWO"), "two");
    for (const char* unknown : {"", "four", "keyless"})
        EXPECT_EQ(FailureOf([&] { texts.Item(unknown); }), InvalidCall) << unknown;
}

TEST_F(CollectionTest, AKeyThatIsTakenAddsNothing) {
    EXPECT_EQ(FailureOf([&] { texts.Add(std::make_unique<std::string>("x"), "One"); }), DuplicateKey);
    EXPECT_EQ(texts.Count(), 4);
}

TEST_F(CollectionTest, WhatIsBehindARemovedElementMovesUp) {
    texts.Remove("one");
    texts.Remove(2);
    EXPECT_EQ(Walked(), "two keyless ");
    EXPECT_EQ(FailureOf([&] { texts.Remove("one"); }), InvalidCall);
    EXPECT_EQ(FailureOf([&] { texts.Remove(3); }), OutOfRange);
}

TEST_F(CollectionTest, ElementsStayWhereTheyAre) {
    const std::string* three = &texts.Item("three");
    for (int i = 0; i < 100; ++i) texts.Add(std::make_unique<std::string>(), "");
    texts.Remove(1);
    EXPECT_EQ(&texts.Item(2), three);
}

}  // namespace
}  // namespace tabulon
