#include <gmock/gmock.h>
#include <sys/stat.h>

#include "platform/child_process.h"
#include "platform/files.h"
#include "platform/settings_store.h"
#include "platform/temporary_directory.h"

namespace tabulon::test {
namespace {

constexpr std::uint32_t Root = 0x80000002;
constexpr int Values = 20;

bool WriteAll(SettingsStore& store, const std::string& bytes) {
    bool good = true;
    for (int n = 0; n < Values; ++n) good &= store.Write(Root, "Saved", std::to_string(n), 1, bytes);
    return good;
}

bool Save(SettingsStore& store, const std::string& bytes) {
    StoreTransaction whole(store);
    return WriteAll(store, bytes) && whole.Commit();
}

/// What every value holds, or "torn" when they differ.
std::string Saved(SettingsStore& store) {
    const auto first = store.Query(Root, "Saved", "0");
    for (int n = 1; n < Values; ++n)
        if (store.Query(Root, "Saved", std::to_string(n)) != first) return "torn";
    return first ? first->bytes : "none";
}

TEST(SettingsStoreProcessTest, AKillInTheMiddleRestoresTheFormerState) {
    const TemporaryDirectory dir;
    const std::string large(1 << 18, 'n');  // together more than SQLite holds back from the file
    {
        SettingsStore store(dir / "settings");
        ASSERT_TRUE(Save(store, "former"));
    }
    const ChildProcess writer([&](auto progress) {
        SettingsStore store(dir / "settings");
        StoreTransaction whole(store);
        WriteAll(store, large);
        progress();
        pause();
        return true;
    });
    writer.AwaitProgress(1);
    writer.Kill();
    ASSERT_TRUE(FileExists(dir / "settings-journal"));
    SettingsStore store(dir / "settings");
    EXPECT_EQ(Saved(store), "former");
    EXPECT_TRUE(Save(store, "next"));
}

TEST(SettingsStoreProcessTest, TwoProcessesLoseNothing) {
    const TemporaryDirectory dir;
    constexpr int Rounds = 25;
    const auto count = [&](auto) {
        SettingsStore store(dir / "settings");
        for (int n = 0; n < Rounds; ++n) {
            StoreTransaction step(store);
            const auto before = store.Query(Root, "K", "count");
            const int next = before ? std::stoi(before->bytes) + 1 : 1;
            if (!store.Write(Root, "K", "count", 1, std::to_string(next)) || !step.Commit()) return false;
        }
        return true;
    };
    const ChildProcess one(count);
    const ChildProcess other(count);
    EXPECT_TRUE(one.Succeeded());
    EXPECT_TRUE(other.Succeeded());
    EXPECT_EQ(SettingsStore(dir / "settings").Query(Root, "K", "count")->bytes, std::to_string(2 * Rounds));
}

TEST(SettingsStoreProcessTest, AnotherProcessSeesOnlyWhatWasCommitted) {
    const TemporaryDirectory dir;
    SettingsStore writer(dir / "settings");
    SettingsStore reader(dir / "settings");
    Save(writer, "former");
    StoreTransaction whole(writer);
    WriteAll(writer, "next");
    EXPECT_EQ(Saved(reader), "former");
    whole.Commit();
    EXPECT_EQ(Saved(reader), "next");
}

/// Runs the body as a user without any right in the folder. The folder and its file are open for reading.
template <class Body>
bool AsAReader(const TemporaryDirectory& dir, Body&& body) {
    chmod(dir.Path().c_str(), 0555);
    chmod((dir / "settings").c_str(), 0444);
    const ChildProcess reader([&](auto) {
        if (geteuid() == 0 && setuid(65534) != 0) return false;
        return body();
    });
    const bool good = reader.Succeeded();
    chmod(dir.Path().c_str(), 0755);
    return good;
}

TEST(SettingsStoreProcessTest, WithoutTheRightToWriteItIsReadOrEmpty) {
    const TemporaryDirectory empty;
    EXPECT_TRUE(AsAReader(empty, [&] {
        SettingsStore store(empty / "settings");
        return !store.Trouble().empty() && !store.CreateKey(Root, "A");
    }));
    const TemporaryDirectory dir;
    {
        SettingsStore store(dir / "settings");
        Save(store, "former");
    }
    EXPECT_TRUE(AsAReader(dir, [&] {
        SettingsStore store(dir / "settings");
        EXPECT_THAT(store.Trouble(), testing::HasSubstr("not written"));
        EXPECT_EQ(Saved(store), "former");
        EXPECT_FALSE(Save(store, "next") || store.DeleteKey(Root, "Saved"));
        EXPECT_EQ(Saved(store), "former");
        return !testing::Test::HasFailure();
    }));
}

}  // namespace
}  // namespace tabulon::test
