#include <gmock/gmock.h>

#include "platform/failure_of.h"
#include "platform/modRegistry.h"

namespace tabulon::test {
namespace {

using namespace testing;

using Bytes = std::vector<std::uint8_t>;
const RegistryValue NoValue;

class BoxLog : public MessageBoxes {
  public:
    BoxAnswer MsgBox(const std::string& text, BoxIcon, BoxButtons buttons,
                     const std::string& title) override {
        EXPECT_EQ(buttons, BoxButtons::Ok);
        shown.push_back(title + ": " + text);
        return BoxAnswer::Ok;
    }
    std::vector<std::string> shown;
};

class ModRegistryTest : public testing::Test {
  protected:
    RegistryValue Get(const std::string& name) {
        return registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, GamesKey, name);
    }
    void Set(const std::string& name, const RegistryValue& value, std::uint32_t type) {
        registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, GamesKey, name, value, type);
    }
    /// Puts bytes into the store that no program of ours writes.
    void Put(const std::string& name, std::uint32_t type, std::string_view bytes) {
        store.Write(HKEY_LOCAL_MACHINE, GamesKey, name, type, bytes);
    }
    std::string Raw(const std::string& name) {
        return store.Query(HKEY_LOCAL_MACHINE, GamesKey, name)->bytes;
    }

    SettingsStore store{":memory:"};
    BoxLog boxes;
    modRegistry registry{store, boxes};
};

TEST_F(ModRegistryTest, ReadsBackWhatItWrote) {
    const struct {
        const char* name;
        RegistryValue value;
        std::uint32_t type;
        RegistryValue read;
        std::string stored;
    } rows[] = {
        {"text", std::string("Zoë"), REG_SZ, std::string("Zoë"), std::string("Zo\xC3\xAB\0", 5)},
        {"empty text", std::string(), REG_SZ, std::string(), std::string(1, '\0')},
        {"text with NUL", std::string("a\0b", 3), REG_SZ, std::string("a"), std::string("a\0", 2)},
        {"number as text", -12, REG_SZ, std::string("-12"), std::string("-12\0", 4)},
        {"no value as text", NoValue, REG_SZ, std::string(), std::string(1, '\0')},
        {"number", -2, REG_DWORD, -2, "\xFE\xFF\xFF\xFF"},
        {"byte order", 0x01020304, REG_DWORD, 0x01020304, "\4\3\2\1"},
        {"text as number", std::string(" 2.5 "), REG_DWORD, 2, std::string("\2\0\0\0", 4)},
        {"no value as number", NoValue, REG_DWORD, 0, std::string(4, '\0')},
        {"bytes", Bytes{0, 255, 0}, REG_BINARY, Bytes{0, 255, 0}, std::string("\0\xFF\0", 3)},
        {"no bytes", Bytes{}, REG_BINARY, Bytes{}, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Set(row.name, row.value, row.type);
        EXPECT_EQ(Get(row.name), row.read);
        EXPECT_EQ(Raw(row.name), row.stored);
    }
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(ModRegistryTest, ReadsWhatOthersWrote) {
    const struct {
        const char* name;
        std::uint32_t type;
        std::string bytes;
        RegistryValue read;
    } rows[] = {
        {"text of no size is a text", REG_SZ, "", std::string()},
        {"text without NUL", REG_SZ, "abc", std::string("abc")},
        {"text beyond NUL", REG_SZ, std::string("ab\0cd\0", 6), std::string("ab")},
        {"bytes of no size are bytes", REG_BINARY, "", Bytes{}},
        {"short number", REG_DWORD, "\1\2", 0x0201},
        {"number of no size", REG_DWORD, "", 0},
        {"long number", REG_DWORD, "\1\2\3\4\5", 0},
        {"another type", 2, "abc", NoValue},
        {"type 0", 0, "abc", NoValue},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Put(row.name, row.type, row.bytes);
        EXPECT_EQ(Get(row.name), row.read);
    }
}

TEST_F(ModRegistryTest, WhatDoesNotConvertEndsInABoxAndWritesNothing) {
    const struct {
        const char* name;
        RegistryValue value;
        std::uint32_t type;
        const char* box;
    } rows[] = {
        {"words as number", std::string("12 apples"), REG_DWORD, "Error: 13. Type mismatch"},
        {"empty text as number", std::string(), REG_DWORD, "Error: 13. Type mismatch"},
        {"INF as number", std::string("INF"), REG_DWORD, "Error: 13. Type mismatch"},
        {"too big a number", std::string("2147483648"), REG_DWORD, "Error: 6. Overflow"},
        {"bytes as number", Bytes{1}, REG_DWORD, "Error: 13. Type mismatch"},
        {"bytes as text", Bytes{1}, REG_SZ, "Error: 13. Type mismatch"},
        {"text as bytes", std::string("a"), REG_BINARY, "Error: 13. Type mismatch"},
        {"no value as bytes", NoValue, REG_BINARY, "Error: 13. Type mismatch"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        boxes.shown.clear();
        Put(row.name, REG_SZ, "before");
        Set(row.name, row.value, row.type);
        EXPECT_THAT(boxes.shown, ElementsAre(std::string("RegistrySetKeyValue: ") + row.box));
        EXPECT_EQ(Get(row.name), RegistryValue("before"));
    }
}

TEST_F(ModRegistryTest, WhatIsNotThereIsNoValueThoughItsKeyIs) {
    EXPECT_EQ(Get("x"), NoValue);
    Set("x", std::string("words"), 2);
    EXPECT_TRUE(store.KeyExists(HKEY_LOCAL_MACHINE, GamesKey)) << "though nothing is written";
    EXPECT_EQ(Get("x"), NoValue);
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(ModRegistryTest, EnumeratingTouchesOnlyWhatItFinds) {
    std::vector<std::string> names{"old"};
    std::int32_t count = 7;
    registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, GamesKey, names, count);
    EXPECT_THAT(names, ElementsAre("old"));
    EXPECT_EQ(count, 7);

    Set("x", 1, REG_DWORD);
    registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, GamesKey, names, count);
    EXPECT_THAT(names, ElementsAre("old"));
    EXPECT_EQ(count, 0);

    registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, "SOFTWARE", names, count);
    EXPECT_THAT(names, ElementsAre("Corvane Software"));
    EXPECT_EQ(count, 1);
}

TEST_F(ModRegistryTest, DeletingAKeyWithSubKeysIsPassedOver) {
    Set("x", 1, REG_DWORD);
    registry.RegistryDeleteKey(HKEY_LOCAL_MACHINE, ProductKey);
    EXPECT_EQ(Get("x"), RegistryValue(1));
    registry.RegistryDeleteKey(HKEY_LOCAL_MACHINE, GamesKey);
    registry.RegistryDeleteKey(HKEY_LOCAL_MACHINE, GamesKey);
    EXPECT_EQ(Get("x"), NoValue);
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST(RegistryValueTest, ConvertsOrFails) {
    const struct {
        const char* name;
        RegistryValue value;
        int text, number, integer, truth;  // failure numbers
    } rows[] = {
        {"nothing", NoValue, 0, 0, 0, 0},
        {"number", 32767, 0, 0, 0, 0},
        {"number beyond 16 bits", 32768, 0, 0, 6, 0},
        {"text of a number", std::string("-1"), 0, 0, 0, 0},
        {"text beyond 32 bits", std::string("1e10"), 0, 6, 6, 0},
        {"empty text", std::string(), 0, 13, 13, 13},
        {"words", std::string("yes"), 0, 13, 13, 13},
        {"bytes", Bytes{1}, 13, 13, 13, 13},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(FailureOf([&] { ToText(row.value); }), row.text);
        EXPECT_EQ(FailureOf([&] { ToLong(row.value); }), row.number);
        EXPECT_EQ(FailureOf([&] { ToInteger(row.value); }), row.integer);
        EXPECT_EQ(FailureOf([&] { ToBoolean(row.value); }), row.truth);
    }
}

TEST(RegistryValueTest, NothingIsTheDefaultOfEachType) {
    EXPECT_EQ(ToText(NoValue), "");
    EXPECT_EQ(ToLong(NoValue), 0);
    EXPECT_EQ(ToInteger(NoValue), Integer(0));
    EXPECT_FALSE(ToBoolean(NoValue));
    EXPECT_TRUE(ToBoolean(RegistryValue("0.4")));
    EXPECT_EQ(ToLong(RegistryValue("0.4")), 0);
}

}  // namespace
}  // namespace tabulon::test
