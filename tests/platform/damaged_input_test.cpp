#include <gmock/gmock.h>
#include <sqlite3.h>

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/seeded_random.h"
#include "platform/settings_store.h"
#include "platform/temporary_directory.h"
#include "platform/text.h"

namespace tabulon {
namespace {

constexpr std::uint32_t Root = 0x80000002;

std::string OddBytes(Random& chance, std::string_view alphabet) {
    std::string bytes;
    for (int length = chance.Draw(12, 0); length > 0; --length)
        bytes += alphabet[static_cast<std::size_t>(chance.Draw(static_cast<int>(alphabet.size()), 0))];
    return bytes;
}

TEST(DamagedInputTest, AnyBytesBecomeUtf8AndAreCutBetweenCharacters) {
    using namespace std::string_view_literals;
    SeededRandom chance(1);
    for (int n = 0; n < 20000; ++n) {
        const std::string bytes = OddBytes(
            chance, "\x00\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC2\xDF\xE0\xE2\xED\xEF\xF0\xF4\xF5\xFF\xBB"sv);
        SCOPED_TRACE(testing::PrintToString(bytes));
        const std::string text = ToUtf8("!" + bytes);
        ASSERT_EQ(ToUtf8(text), text);
        std::string joined;
        while (joined.size() < text.size()) {
            const std::string next = Left(text.substr(joined.size()), 1);
            ASSERT_EQ(ToUtf8("!" + next), "!" + next);
            joined += next;
        }
        ASSERT_EQ(joined, text);
        ASSERT_TRUE(bytes.starts_with(Left(bytes, 3)));
    }
}

TEST(DamagedInputTest, AnyTextIsANumberOrAFailure) {
    SeededRandom chance(2);
    int numbers = 0;
    for (int n = 0; n < 20000; ++n) {
        const std::string text = OddBytes(chance, "0123456789..eE+- ");
        SCOPED_TRACE(text);
        try {
            ASSERT_EQ(ToDouble(text), std::strtod(text.c_str(), nullptr));
            ++numbers;
        } catch (const Failure& failure) {
            ASSERT_THAT(failure.Number(), testing::AnyOf(6, 13));
        }
    }
    EXPECT_GT(numbers, 1000);
}

/// Every operation once; what they answer does not matter.
void UseAll(const std::filesystem::path& file) {
    SettingsStore store(file);
    for (const char* key : {"", "A", "A\\7", "A\\7\\x", "B"}) {
        store.Query(Root, key, "v");
        store.SubKeys(Root, key);
        StoreTransaction whole(store);
        store.Write(Root, key, "v", 1, std::string(3000, 'x'));
        store.Write(Root, std::string(key) + "\\new", "v", 1, "x");
        store.DeleteKey(Root, key);
        whole.Commit();
    }
}

class DamagedStoreTest : public testing::Test {
  protected:
    void SetUp() override {
        SettingsStore store(file);
        StoreTransaction whole(store);
        for (int n = 0; n < 40; ++n)
            store.Write(Root, "A\\" + std::to_string(n), "v", 1,
                        std::string(static_cast<std::size_t>(n) * 20, 'y'));
        store.Write(Root, "A\\large", "v", 3, std::string(20000, 'z'));
        ASSERT_TRUE(whole.Commit());
        sound = ReadFile(file, 1 << 20);
    }

    test::TemporaryDirectory dir;
    std::filesystem::path file = dir / "settings";
    std::string sound;
};

TEST_F(DamagedStoreTest, ATruncatedFileAndAGarbageJournalDoNoHarm) {
    WriteFile(dir / "settings-journal", "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7" + std::string(2000, '\x7F'));
    EXPECT_NO_THROW(UseAll(file));
    const std::size_t all = sound.size();
    for (const std::size_t size :
         {0UL, 1UL, 16UL, 99UL, 100UL, 4095UL, 4096UL, 4097UL, all / 2, all - 4096, all - 1}) {
        SCOPED_TRACE(size);
        WriteFile(file, sound.substr(0, size));
        EXPECT_NO_THROW(UseAll(file));
    }
}

TEST_F(DamagedStoreTest, ChangedBytesDoNoHarm) {
    SeededRandom chance(3);
    for (int n = 0; n < 80; ++n) {
        SCOPED_TRACE(n);
        std::string bytes = sound;
        // The heads of the pages are where the structure is.
        for (int changes = chance.Draw(20, 1); changes > 0; --changes) {
            const int page = chance.Draw(static_cast<int>(bytes.size() / 4096), 0);
            const int place = page * 4096 + chance.Draw(changes % 2 == 0 ? 60 : 4096, 0);
            bytes[static_cast<std::size_t>(place)] = static_cast<char>(chance.Draw(256, 0));
        }
        WriteFile(file, bytes);
        EXPECT_NO_THROW(UseAll(file));
    }
}

TEST_F(DamagedStoreTest, TablesOfAnotherShapeDoNoHarm) {
    const struct {
        const char *name, *sql;
    } rows[] = {
        {"no tables", "DROP TABLE keys; DROP TABLE entries"},
        {"other columns", "DROP TABLE keys; CREATE TABLE keys(a, b)"},
        {"endless view",
         "DROP TABLE keys; CREATE VIEW keys AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM "
         "n)"
         " SELECT i AS id, i AS root, '' AS path, i AS parent, '' AS name FROM n"},
        {"trigger", "CREATE TRIGGER t AFTER INSERT ON entries BEGIN DELETE FROM keys; END"},
        {"a key that is its own parent", "UPDATE keys SET parent = id"},
        {"odd types", "UPDATE keys SET name = 1.5; UPDATE entries SET type = 'x', bytes = 7"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        WriteFile(file, sound);
        sqlite3* raw = nullptr;
        sqlite3_open(file.c_str(), &raw);
        EXPECT_EQ(sqlite3_exec(raw, row.sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
        sqlite3_close(raw);
        EXPECT_NO_THROW(UseAll(file));
    }
}

TEST_F(DamagedStoreTest, ADamagedStoreTellsIt) {
    WriteFile(file, sound.substr(0, sound.size() / 2));
    SettingsStore store(file);
    for (int n = 0; n < 40; ++n) store.Query(Root, "A\\" + std::to_string(n), "v");
    EXPECT_THAT(store.Trouble(), testing::HasSubstr("malformed"));
}

}  // namespace
}  // namespace tabulon
