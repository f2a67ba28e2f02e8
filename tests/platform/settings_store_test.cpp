#include "platform/settings_store.h"

#include <gmock/gmock.h>

#include "platform/files.h"
#include "platform/temporary_directory.h"

namespace tabulon::test {
namespace {

using namespace testing;

constexpr std::uint32_t Root = 0x80000002;

std::string Text(SettingsStore& store, std::string_view key, std::string_view name) {
    const auto found = store.Query(Root, key, name);
    return found ? found->bytes : "(none)";
}

class SettingsStoreTest : public testing::Test {
  protected:
    SettingsStore store{":memory:"};
};

TEST_F(SettingsStoreTest, KeepsTypeAndAllBytes) {
    for (const StoredValue& value :
         {StoredValue{0xFFFFFFFF, std::string("\0a\xFF\0", 4)}, StoredValue{1, ""}}) {
        ASSERT_TRUE(store.Write(Root, "A\\B", "v", value.type, value.bytes));
        EXPECT_EQ(store.Query(Root, "A\\B", "v"), value);
    }
}

TEST_F(SettingsStoreTest, MakesTheKeysAlongThePath) {
    store.Write(Root, "A\\B\\C", "", 1, "x");
    EXPECT_TRUE(store.KeyExists(Root, "A"));
    EXPECT_TRUE(store.KeyExists(Root, "A\\B"));
    EXPECT_FALSE(store.KeyExists(Root, "B"));
    EXPECT_FALSE(store.KeyExists(Root + 1, "A"));
    EXPECT_EQ(Text(store, "A\\B", ""), "(none)");
}

TEST_F(SettingsStoreTest, NamesHaveNoCaseButKeepTheFirst) {
    store.Write(Root, "Games\\{aB}", "Font Size", 1, "old");
    store.Write(Root, "GAMES\\{Ab}", "FONT size", 1, "new");
    EXPECT_EQ(Text(store, "games\\{ab}", "font size"), "new");
    EXPECT_THAT(store.SubKeys(Root, "gAMES"), Optional(ElementsAre("{aB}")));
    EXPECT_FALSE(store.KeyExists(Root, "Games\\{\xC3\xA4}"));
}

TEST_F(SettingsStoreTest, SubKeysComeInOrderOfCreation) {
    for (const char* name : {"z", "a", "m", "Z", "b"}) store.CreateKey(Root, std::string("K\\") + name);
    EXPECT_THAT(store.SubKeys(Root, "K"), Optional(ElementsAre("z", "a", "m", "b")));
    store.DeleteKey(Root, "K\\z");
    store.DeleteKey(Root, "K\\b");
    store.CreateKey(Root, "K\\z\\deeper");
    EXPECT_THAT(store.SubKeys(Root, "K"), Optional(ElementsAre("a", "m", "z")));
    EXPECT_THAT(store.SubKeys(Root, ""), Optional(ElementsAre("K")));
    EXPECT_THAT(store.SubKeys(Root, "K\\a"), Optional(IsEmpty()));
    EXPECT_EQ(store.SubKeys(Root, "K\\b"), std::nullopt);
}

TEST_F(SettingsStoreTest, OnlyAKeyWithoutSubKeysIsDeleted) {
    store.Write(Root, "A\\B", "v", 1, "x");
    store.Write(Root, "A", "v", 1, "x");
    EXPECT_FALSE(store.DeleteKey(Root, "A"));
    EXPECT_EQ(Text(store, "A", "v"), "x");
    EXPECT_TRUE(store.DeleteKey(Root, "A\\B"));
    EXPECT_FALSE(store.DeleteKey(Root, "A\\B"));
    store.CreateKey(Root, "A\\B");
    EXPECT_EQ(Text(store, "A\\B", "v"), "(none)");
    EXPECT_FALSE(store.DeleteKey(Root, ""));
}

TEST_F(SettingsStoreTest, WhatNamesNoKeyIsNotThere) {
    store.Write(Root, "A", "v", 1, "x");
    const struct {
        const char* name;
        std::string key;
    } rows[] = {{"leading separator", "\\A"},
                {"trailing separator", "A\\"},
                {"empty part", "A\\\\B"},
                {"separator alone", "\\"},
                {"NUL", std::string("A\0B", 3)},
                {"NUL behind a key", std::string("A\0", 2)},
                {"too long", std::string(4097, 'x')}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(store.Write(Root, row.key, "v", 1, "y"));
        EXPECT_FALSE(store.CreateKey(Root, row.key));
        EXPECT_FALSE(store.KeyExists(Root, row.key));
        EXPECT_FALSE(store.DeleteKey(Root, row.key));
        EXPECT_EQ(store.Query(Root, row.key, "v"), std::nullopt);
        EXPECT_EQ(store.SubKeys(Root, row.key), std::nullopt);
    }
    EXPECT_FALSE(store.Write(Root, "A", std::string_view("v\0", 2), 1, "y"));
    EXPECT_EQ(Text(store, "A", "v"), "x");
    EXPECT_THAT(store.SubKeys(Root, ""), Optional(ElementsAre("A")));
}

TEST_F(SettingsStoreTest, QuotesAndPatternsInNamesAreJustCharacters) {
    for (const char* name : {"'; DROP TABLE keys; --", "%", "_", "*", "\xC3\xB6", "\xFF"})
        EXPECT_TRUE(store.Write(Root, std::string("K\\") + name, name, 1, name)) << name;
    EXPECT_EQ(Text(store, "K\\%", "%"), "%");
    EXPECT_EQ(Text(store, "K\\_", "_"), "_");
    EXPECT_EQ(store.SubKeys(Root, "K")->size(), 6u);
}

TEST_F(SettingsStoreTest, AnOversizedValueIsRefusedAndLeavesNoKey) {
    EXPECT_FALSE(store.Write(Root, "A\\B", "v", 3, std::string(17 << 20, 'x')));
    EXPECT_FALSE(store.KeyExists(Root, "A"));
    EXPECT_THAT(store.Trouble(), HasSubstr("too big"));
    EXPECT_TRUE(store.Write(Root, "A\\B", "v", 3, "x"));
}

TEST_F(SettingsStoreTest, AnUncommittedTransactionLeavesNothing) {
    store.Write(Root, "A", "v", 1, "old");
    {
        StoreTransaction save(store);
        store.Write(Root, "A", "v", 1, "new");
        store.Write(Root, "A\\B", "v", 1, "new");
        store.DeleteKey(Root, "A\\B");
        store.CreateKey(Root, "C");
        EXPECT_EQ(Text(store, "A", "v"), "new");
    }
    EXPECT_EQ(Text(store, "A", "v"), "old");
    EXPECT_THAT(store.SubKeys(Root, ""), Optional(ElementsAre("A")));
    EXPECT_TRUE(store.Write(Root, "A", "v", 1, "next"));
}

TEST_F(SettingsStoreTest, AnInnerTransactionIsUndoneAloneAndFallsWithTheOuterOne) {
    {
        StoreTransaction outer(store);
        StoreTransaction inner(store);
        store.Write(Root, "A", "v", 1, "x");
        EXPECT_TRUE(inner.Commit());
    }
    EXPECT_FALSE(store.KeyExists(Root, "A"));
    StoreTransaction outer(store);
    store.Write(Root, "A", "1", 1, "outer");
    {
        StoreTransaction undone(store);
        store.Write(Root, "A", "2", 1, "undone");
    }
    EXPECT_TRUE(outer.Commit());
    EXPECT_FALSE(outer.Commit());
    EXPECT_EQ(Text(store, "A", "1"), "outer");
    EXPECT_EQ(Text(store, "A", "2"), "(none)");
}

TEST(SettingsStoreFileTest, KeepsEverythingForTheNextRun) {
    const TemporaryDirectory dir;
    SettingsStore(dir / "settings").Write(Root, "A\\B", "v", 4, "1234");
    SettingsStore again(dir / "settings");
    EXPECT_EQ(again.Query(Root, "a\\b", "V"), (StoredValue{4, "1234"}));
    EXPECT_EQ(again.Trouble(), "");
    EXPECT_THAT(FilesMatching(dir.Path(), "*").size(), 1u);
}

TEST(SettingsStoreFileTest, AStoreThatCannotBeOpenedIsEmpty) {
    const TemporaryDirectory dir;
    WriteFile(dir / "text", std::string(5000, 'x'));
    const std::filesystem::path files[] = {dir.Path(), dir / "no folder/settings", dir / "text"};
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        SettingsStore store(file);
        EXPECT_THAT(store.Trouble(), HasSubstr(file.string() + ": "));
        EXPECT_FALSE(store.Write(Root, "A", "v", 1, "x") || store.CreateKey(Root, "A"));
        EXPECT_FALSE(store.DeleteKey(Root, "A"));
        EXPECT_EQ(store.Query(Root, "A", "v"), std::nullopt);
        EXPECT_EQ(store.SubKeys(Root, ""), std::nullopt);
        StoreTransaction transaction(store);
        EXPECT_FALSE(transaction.Begun() || transaction.Commit());
    }
    EXPECT_EQ(ReadFile(dir / "text", 9999), std::string(5000, 'x'));
}

TEST(SettingsStoreFileTest, AStoreOfAnotherVersionIsLeftAlone) {
    const TemporaryDirectory dir;
    Database(dir / "settings").Execute("PRAGMA user_version=2");
    SettingsStore store(dir / "settings");
    EXPECT_THAT(store.Trouble(), HasSubstr("another version"));
    EXPECT_FALSE(store.Write(Root, "A", "v", 1, "x"));
}

}  // namespace
}  // namespace tabulon::test
