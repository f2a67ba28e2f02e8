#include "packages/archive.h"

#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include "packages/archive_writer.h"
#include "packages/zip_maker.h"
#include "platform/failure_of.h"
#include "platform/files.h"
#include "platform/seeded_random.h"
#include "platform/temporary_directory.h"

namespace tabulon {
namespace {

using namespace std::string_literals;
using test::FailureOf;
using test::PatchHeaders;
using test::TemporaryDirectory;
using test::ZipMaker;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int Unreadable = 57;

std::vector<PackedFile> SmallGame() {
    return {{"{K}.dat", "Game Name=Small\r\n"},
            {"spaces.xml", std::string(3000, 'x') + "end"},
            {"empty.txt", ""},
            {"café €.txt", "one byte is short: x"}};
}

std::vector<PackedFile> ContentOf(const std::filesystem::path& file) {
    Archive archive(file);
    std::vector<PackedFile> files;
    for (std::size_t i = 0; i < archive.Names().size(); ++i)
        files.push_back({archive.Names()[i], archive.Read(i)});
    return files;
}

class ArchiveTest : public testing::Test {
  protected:
    void WriteSmallGame() { WriteArchive(file, SmallGame()); }

    TemporaryDirectory folder;
    std::filesystem::path file = folder / "small.gam";
};

TEST_F(ArchiveTest, WhatIsWrittenReadsBack) {
    WriteSmallGame();
    EXPECT_EQ(ContentOf(file), SmallGame());
}

TEST_F(ArchiveTest, WhatIsWrittenIsNotReadableWithoutThePassword) {
    WriteSmallGame();
    EXPECT_EQ(ReadFile(file, 1 << 20).find("Game Name"), std::string::npos);
}

/// Also against the order and twice, while others are being unpacked.
TEST_F(ArchiveTest, EntriesAreReadInAnyOrder) {
    WriteSmallGame();
    constexpr std::size_t count = 4;
    for (std::size_t order = 0; order < count * count * count * count; ++order) {
        SCOPED_TRACE(order);
        Archive archive(file);
        for (std::size_t rest = order, reads = 0; reads < count; rest /= count, ++reads)
            EXPECT_EQ(archive.Read(rest % count), SmallGame()[rest % count].Bytes);
    }
}

TEST_F(ArchiveTest, WhatIsUnpackedAheadCanBeStoppedAtAnyEntry) {
    std::vector<PackedFile> files;
    for (int i = 0; i < 30; ++i) files.push_back({std::to_string(i), std::string(200'000, 'x')});
    WriteArchive(file, files);
    for (std::size_t stop = 0; stop < files.size(); ++stop) {
        SCOPED_TRACE(stop);
        Archive archive(file);
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (i == stop) archive.StopAhead();
            ASSERT_EQ(archive.Read(i), files[i].Bytes);
        }
    }
}

TEST_F(ArchiveTest, OnlySoundsAreNotDeflated) {
    constexpr std::size_t size = 200'000;
    for (const auto& [name, stored] : {std::pair{"good_move.ogg", true}, {"cards.xml", false}}) {
        WriteArchive(file, std::vector<PackedFile>{{"a.txt", "a"}, {name, std::string(size, 'x')}});
        EXPECT_EQ(std::filesystem::file_size(file) > size, stored) << name;
    }
}

TEST_F(ArchiveTest, AFailedWriteLeavesTheFormerFile) {
    WriteSmallGame();
    EXPECT_NE(FailureOf([&] { WriteArchive(folder / "no" / "such.gam", SmallGame()); }), 0);
    EXPECT_EQ(ContentOf(file), SmallGame());
}

TEST_F(ArchiveTest, WhatIsNoArchiveHasNoEntries) {
    EXPECT_THAT(Archive(folder / "missing.gam").Names(), IsEmpty());
    EXPECT_THAT(Archive(folder.Path()).Names(), IsEmpty());
    EXPECT_THAT(Archive("").Names(), IsEmpty());
    WriteFile(file, "");
    EXPECT_THAT(Archive(file).Names(), IsEmpty());
    WriteFile(file, "PK no zip at all");
    EXPECT_THAT(Archive(file).Names(), IsEmpty());
}

TEST_F(ArchiveTest, NoNameIsNotTheStandardInput) {
    WriteSmallGame();
    const int before = dup(STDIN_FILENO);
    const int package = open(file.c_str(), O_RDONLY);
    dup2(package, STDIN_FILENO);
    EXPECT_THAT(Archive("").Names(), IsEmpty());
    dup2(before, STDIN_FILENO);
    close(package);
    close(before);
}

TEST_F(ArchiveTest, KnowsWhenTheFileIsAnother) {
    WriteSmallGame();
    const Archive archive(file);
    EXPECT_TRUE(archive.IsCurrent(file));
    EXPECT_FALSE(archive.IsCurrent(folder / "other.gam"));
    WriteArchive(file, std::vector<PackedFile>{{"other.txt", "other"}});
    EXPECT_FALSE(archive.IsCurrent(file));
}

TEST_F(ArchiveTest, AFileThatChangesWhileItIsReadFails) {
    WriteSmallGame();
    Archive archive(file);
    WriteArchive(file, std::vector<PackedFile>{{"spaces.xml", "other"}});
    EXPECT_EQ(FailureOf([&] { archive.Read(1); }), Unreadable);
}

struct Writer {
    const char* Name;
    const char* Options;
};
class EncryptionTest : public ArchiveTest, public testing::WithParamInterface<Writer> {};

TEST_P(EncryptionTest, ReadsAlike) {
    ZipMaker{GetParam().Options}.Write(file, SmallGame());
    EXPECT_EQ(ContentOf(file), SmallGame());
}
INSTANTIATE_TEST_SUITE_P(All, EncryptionTest,
                         testing::Values(Writer{"None", ""}, Writer{"Aes128", "zip:encryption=aes128"},
                                         Writer{"Aes256", "zip:encryption=aes256"},
                                         Writer{"Older", "zip:encryption=zipcrypt"},
                                         Writer{"Stored", "zip:compression=store,zip:encryption=aes128"},
                                         Writer{"Zip64", "zip:zip64,zip:encryption=aes128"}),
                         [](const auto& row) { return std::string(row.param.Name); });

struct Program {
    const char* Name;
    const char* Executable;
    std::string Command;  // in the folder of the files; PASSWORD stands for it
};
class OtherProgramTest : public ArchiveTest, public testing::WithParamInterface<Program> {
  protected:
    static int Run(const std::string& command) { return std::system(command.c_str()); }
};

TEST_P(OtherProgramTest, ReadsAlike) {
    if (Run("command -v "s + GetParam().Executable + " >/dev/null") != 0)
        GTEST_SKIP() << GetParam().Executable << " is not installed";
    WriteFile(folder / "a.dat", "Game Name=Other");
    WriteFile(folder / "b.xml", std::string(100'000, 'b'));
    const std::string password = "PASSWORD='"s + PackagePassword + "'; ";
    ASSERT_EQ(Run("cd '" + folder.Path().string() + "' && " + password + GetParam().Command), 0);
    const std::vector<PackedFile> expected = {{"a.dat", "Game Name=Other"},
                                              {"b.xml", std::string(100'000, 'b')}};
    EXPECT_EQ(ContentOf(file), expected);
}
INSTANTIATE_TEST_SUITE_P(
    All, OtherProgramTest,
    testing::Values(
        Program{"Ziptool", "ziptool",
                "ziptool -n -- small.gam add_file a.dat a.dat 0 -1 add_file b.xml b.xml 0 -1 "
                "set_file_encryption 0 AES-128 $PASSWORD set_file_encryption 1 AES-128 $PASSWORD"},
        Program{"ZiptoolStored", "ziptool",
                "ziptool -n -- small.gam add_file a.dat a.dat 0 -1 add_file b.xml b.xml 0 -1 "
                "set_file_compression 1 store 0 "
                "set_file_encryption 0 AES-128 $PASSWORD set_file_encryption 1 AES-128 $PASSWORD"},
        Program{"Bsdtar", "bsdtar",
                "bsdtar --format=zip --options zip:encryption=aes128 --passphrase $PASSWORD "
                "-cf small.gam a.dat b.xml"},
        Program{"ZipWithTheOlderEncryption", "zip",
                "zip -q -P $PASSWORD small.zip a.dat b.xml && "
                "mv small.zip small.gam"}),
    [](const auto& row) { return std::string(row.param.Name); });

struct Search {
    const char* Name;
    const char* Pattern;
    std::optional<std::size_t> Entry;
};
class FindFirstTest : public ArchiveTest, public testing::WithParamInterface<Search> {};

TEST_P(FindFirstTest, Finds) {
    WriteArchive(file, std::vector<PackedFile>{{"cards10.xml", "a"},
                                               {"Cards1.xml.bak", "b"},
                                               {"cards1.xml", "c"},
                                               {"help.TXT", "d"},
                                               {"default.bmp", "e"}});
    EXPECT_EQ(Archive(file).FindFirst(GetParam().Pattern), GetParam().Entry);
}
INSTANTIATE_TEST_SUITE_P(All, FindFirstTest,
                         testing::Values(Search{"TheFirstThatBeginsSo", "cards1.xml", 1},
                                         Search{"ABeginning", "cards", 0},
                                         Search{"WithoutCase", "DEFAULT.BMP", 4},
                                         Search{"AnyText", "*.txt", 3}, Search{"ManyStars", "c*1*.x*", 0},
                                         Search{"StarsInARow", "**help", 3}, Search{"Anything", "", 0},
                                         Search{"Missing", "decks.xml", std::nullopt},
                                         Search{"LongerThanAName", "help.TXT.bak", std::nullopt}),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_F(ArchiveTest, HostileNamesAreNoEntries) {
    ZipMaker{}.Write(file, std::vector<PackedFile>{{"../up.xml", "1"},
                                                   {"/abs.xml", "2"},
                                                   {"a\\..\\b.xml", "3"},
                                                   {"C:x.xml", "4"},
                                                   {"sub/x.xml", "5"},
                                                   {"..", "6"},
                                                   {"CON.xml", "7"},
                                                   {"tab\t.xml", "8"},
                                                   {std::string(300, 'n'), "9"},
                                                   {"good.xml", "fine"}});
    Archive archive(file);
    EXPECT_THAT(archive.Names(), ElementsAre("good.xml"));
    EXPECT_EQ(archive.Read(0), "fine");
}

TEST_F(ArchiveTest, ANameEndsAtItsFirstNul) {
    ZipMaker{}.Write(file, std::vector<PackedFile>{{"good#..#evil", "fine"}});
    std::string bytes = ReadFile(file, 1 << 20);
    for (std::size_t at = bytes.find('#'); at != bytes.npos; at = bytes.find('#')) bytes[at] = '\0';
    WriteFile(file, bytes);
    EXPECT_THAT(Archive(file).Names(), ElementsAre("good"));
}

TEST_F(ArchiveTest, AnotherPasswordFails) {
    for (const char* options : {"zip:encryption=aes128", "zip:encryption=zipcrypt"}) {
        ZipMaker{options, "another"}.Write(file, SmallGame());
        Archive archive(file);
        EXPECT_EQ(FailureOf([&] { archive.Read(1); }), Unreadable) << options;
    }
}

TEST_F(ArchiveTest, ABombStopsAtTheLimitOfAnEntry) {
    WriteArchive(
        file, std::vector<PackedFile>{
                  {"a.xml", "a"}, {"b.xml", "b"}, {"bomb.xml", std::string(limits::EntryBytes + 1, '\0')}});
    Archive archive(file);
    EXPECT_EQ(archive.Read(0) + archive.Read(1), "ab");
    EXPECT_EQ(FailureOf([&] { archive.Read(2); }), Unreadable);
    EXPECT_EQ(archive.Read(0) + archive.Read(1), "ab") << "a failure leaves the others";
}

/// Where the headers of an entry say its unpacked size.
constexpr std::string_view CentralHeader = "PK\1\2", LocalHeader = "PK\3\4";
constexpr std::size_t CentralSize = 24, LocalSize = 22;

TEST_F(ArchiveTest, ASizeThatIsALieFails) {
    for (const std::string& size : {"\x05\0\0\0"s, "\xFF\xFF\x00\0"s}) {
        ZipMaker{"zip:compression=deflate"}.Write(file, SmallGame());
        PatchHeaders(file, CentralHeader, CentralSize, size);
        PatchHeaders(file, LocalHeader, LocalSize, size);
        Archive archive(file);
        EXPECT_EQ(FailureOf([&] { archive.Read(1); }), Unreadable);
    }
}

TEST_F(ArchiveTest, AnArchiveThatHoldsTooMuchFails) {
    const std::vector<PackedFile> files(9, {"a.txt", "a"});
    ZipMaker{}.Write(file, files);
    const auto claim = [&](const std::string& size) {
        PatchHeaders(file, CentralHeader, CentralSize, size);
        PatchHeaders(file, LocalHeader, LocalSize, size);
    };
    claim("\0\0\0\x03"s);
    EXPECT_EQ(Archive(file).Names().size(), files.size());
    claim("\0\0\0\x04"s);
    EXPECT_EQ(FailureOf([&] { Archive{file}; }), Unreadable);
}

TEST_F(ArchiveTest, TooManyEntriesFail) {
    ZipMaker{}.Write(file, std::vector<PackedFile>(limits::ArchiveEntries + 1, {"a.txt", ""}));
    EXPECT_EQ(FailureOf([&] { Archive{file}; }), Unreadable);
}

/// Whatever can be read of a damaged archive is what was written.
void ExpectNothingWrong(const std::filesystem::path& file) {
    const std::vector<PackedFile> whole = SmallGame();
    try {
        Archive archive(file);
        for (std::size_t i = 0; i < archive.Names().size(); ++i) {
            const auto original = std::ranges::find(whole, archive.Names()[i], &PackedFile::Name);
            const std::string bytes = archive.Read(i);
            if (original == whole.end()) continue;
            EXPECT_EQ(bytes, original->Bytes);
        }
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), Unreadable);
    }
}

TEST_F(ArchiveTest, ATruncatedArchiveGivesNothingWrong) {
    WriteSmallGame();
    const std::string whole = ReadFile(file, 1 << 20);
    for (std::size_t size = 0; size < whole.size(); size += 3) {
        SCOPED_TRACE(size);
        WriteFile(file, whole.substr(0, size));
        ExpectNothingWrong(file);
    }
}

TEST_F(ArchiveTest, ADamagedArchiveGivesNothingWrong) {
    WriteSmallGame();
    const std::string whole = ReadFile(file, 1 << 20);
    SeededRandom chance(1);
    for (int n = 0; n < 400; ++n) {
        SCOPED_TRACE(n);
        std::string bytes = whole;
        const auto at = static_cast<std::size_t>(chance.Draw(static_cast<int>(bytes.size()), 0));
        bytes[at] = static_cast<char>(chance.Draw(256, 0));
        WriteFile(file, bytes);
        ExpectNothingWrong(file);
    }
}

}  // namespace
}  // namespace tabulon
