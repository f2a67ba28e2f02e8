#include "platform/files.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/child_process.h"
#include "platform/failure_of.h"
#include "platform/temporary_directory.h"

namespace tabulon::test {
namespace {

namespace fs = std::filesystem;
using namespace testing;

class FilesTest : public testing::Test {
  protected:
    void Make(const std::string& name, std::string_view bytes = "x") { WriteFile(dir / name, bytes); }
    std::vector<std::string> Matching(std::string_view pattern) const {
        std::vector<std::string> names;
        for (const auto& file : FilesMatching(dir.Path(), pattern)) names.push_back(file.filename().string());
        return names;
    }

    TemporaryDirectory dir;
};

TEST(FileNameTest, OnlyABareNameIsTaken) {
    const std::string longest(255, 'x');
    for (const char* name : {"DEFAULT.BMP", "{7C6EC008}.dat", "a b.txt", "...", ".x", "a..b", "\xE9.txt",
                             "CONSOLE", "com10", "xNUL"})
        EXPECT_TRUE(IsBareFileName(name)) << name;
    EXPECT_TRUE(IsBareFileName(longest));
    EXPECT_FALSE(IsBareFileName(longest + "x"));
    EXPECT_FALSE(IsBareFileName(std::string("a\0.txt", 6)));
    for (const char* name : {"",      ".",        "..",       "../x",     "a/b",   "/etc/passwd", "a\\b",
                             "..\\x", "C:x",      "x:stream", "a\nb",     "a\x7F", "NUL",         "nul.txt",
                             "Con",   "CON .txt", "com1",     "LPT9.a.b", "aux.",  "PRN",         "conin$"})
        EXPECT_FALSE(IsBareFileName(name)) << name;
}

TEST_F(FilesTest, FindsTheExactNameBeforeOthers) {
    Make("Board.bmp");
    EXPECT_EQ(FindFile(dir.Path(), "BOARD.BMP"), dir / "Board.bmp");
    Make("BOARD.BMP");
    EXPECT_EQ(FindFile(dir.Path(), "BOARD.BMP"), dir / "BOARD.BMP");
    EXPECT_EQ(FindFile(dir.Path(), "Board.bmp"), dir / "Board.bmp");
    EXPECT_EQ(FindFile(dir.Path(), "board"), fs::path());
}

TEST_F(FilesTest, FindsNoFoldersAndNothingElsewhere) {
    fs::create_directory(dir / "sub");
    Make("sub/x");
    for (const char* name : {"sub", "SUB", "sub/x"})
        EXPECT_EQ(FindFile(dir.Path(), name), fs::path()) << name;
    EXPECT_EQ(FindFile(dir / "sub", "../sub/x"), fs::path());
    EXPECT_EQ(FindFile(dir / "missing", "x"), fs::path());
}

TEST_F(FilesTest, MatchesPatternsWithoutCase) {
    for (const char* name : {"a.gam", "B.GAM", ".gam", "a.gamx", "agam", "{1}.dat", "{}.DAT", "{1.dat"})
        Make(name);
    EXPECT_THAT(Matching("*.gam"), UnorderedElementsAre("a.gam", "B.GAM", ".gam"));
    EXPECT_THAT(Matching("{*}.dat"), UnorderedElementsAre("{1}.dat", "{}.DAT"));
    EXPECT_THAT(Matching("A.gam"), UnorderedElementsAre("a.gam"));
    EXPECT_THAT(Matching("*gam.gam"), IsEmpty());
    EXPECT_THAT(FilesMatching(dir / "missing", "*"), IsEmpty());
    EXPECT_THAT(FilesMatching(dir / "a.gam", "*"), IsEmpty());
}

TEST_F(FilesTest, DeletesOnlyFilesOfTheFolderItself) {
    const TemporaryDirectory elsewhere;
    WriteFile(elsewhere / "x.txt", "x");
    fs::create_symlink(elsewhere / "x.txt", dir / "link.txt");
    fs::create_symlink(elsewhere.Path(), dir / "folder.txt");
    fs::create_directory(dir / "sub.txt");
    Make("1.txt");
    Make("2.TXT");
    Make("keep.dat");
    DeleteMatching(dir.Path(), "*.txt");
    EXPECT_TRUE(FileExists(elsewhere / "x.txt"));
    EXPECT_TRUE(fs::exists(dir / "sub.txt"));
    EXPECT_THAT(Matching("*"), UnorderedElementsAre("keep.dat"));
    DeleteMatching(dir / "missing", "*");
}

TEST_F(FilesTest, ReadsWhatWasWritten) {
    const std::string bytes = std::string("\0\xFF\r\n", 4) + std::string(100000, 'x');
    Make("f", bytes);
    EXPECT_EQ(ReadFile(dir / "f", bytes.size()), bytes);
    EXPECT_EQ(FailureOf([&] { ReadFile(dir / "f", bytes.size() - 1); }), 51);
    Make("f", "");
    EXPECT_EQ(ReadFile(dir / "f", 0), "");
    EXPECT_FALSE(ReadFile("/proc/self/status", 1 << 20).empty()) << "which tells no size beforehand";
    AppendToFile(dir / "f", "ab");
    AppendToFile(dir / "f", "cd");
    AppendToFile(dir / "new", "ef");
    EXPECT_EQ(ReadFile(dir / "f", 9), "abcd");
    EXPECT_EQ(ReadFile(dir / "new", 9), "ef");
}

TEST_F(FilesTest, FailsByWhatIsWrong) {
    Make("file");
    fs::create_directory(dir / "folder");
    mkfifo((dir / "pipe").c_str(), 0666);
    const struct {
        const char* name;
        int read, append, write;  // failure numbers
    } rows[] = {{"missing", 53, 0, 0},
                {"no folder/x", 53, 76, 76},
                {"file/x", 76, 76, 76},
                {"folder", 57, 70, 70},
                {"pipe", 57, 57, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(FailureOf([&] { ReadFile(dir / row.name, 99); }), row.read);
        EXPECT_EQ(FailureOf([&] { AppendToFile(dir / row.name, "x"); }), row.append);
        EXPECT_EQ(FailureOf([&] { WriteFile(dir / row.name, "y"); }), row.write);
    }
    EXPECT_EQ(ReadFile(dir / "pipe", 99), "y");
    fs::create_symlink(dir / "file", dir / "link");
    EXPECT_EQ(FailureOf([&] { AppendToFile(dir / "link", "y"); }), 70);
    EXPECT_EQ(ReadFile(dir / "file", 99), "x");
    EXPECT_THAT(Matching(".*"), IsEmpty());
}

TEST_F(FilesTest, AFullDiskLeavesTheFormerFile) {
    Make("file", "former");
    const ChildProcess child([&](auto) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit most{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &most);
        return FailureOf([&] { WriteFile(dir / "file", std::string(5000, 'y')); }) == 61;
    });
    EXPECT_TRUE(child.Succeeded());
    EXPECT_EQ(ReadFile(dir / "file", 99), "former");
    EXPECT_THAT(Matching("*"), UnorderedElementsAre("file"));
}

TEST_F(FilesTest, WithoutTheRightToWriteNothingChanges) {
    Make("1.txt", "former");
    Make("2.txt", "former");
    chmod((dir / "1.txt").c_str(), 0);
    chmod(dir.Path().c_str(), 0555);
    const ChildProcess child([&](auto) {
        if (geteuid() == 0 && setuid(65534) != 0) return false;
        EXPECT_EQ(FailureOf([&] { ReadFile(dir / "1.txt", 99); }), 70);
        EXPECT_EQ(FailureOf([&] { WriteFile(dir / "2.txt", "y"); }), 70);
        EXPECT_EQ(FailureOf([&] { AppendToFile(dir / "3.txt", "y"); }), 70);
        EXPECT_EQ(FailureOf([&] { DeleteMatching(dir.Path(), "*.txt"); }), 70);
        return !testing::Test::HasFailure();
    });
    EXPECT_TRUE(child.Succeeded());
    chmod(dir.Path().c_str(), 0755);
    EXPECT_THAT(Matching("*"), UnorderedElementsAre("1.txt", "2.txt"));
    EXPECT_EQ(ReadFile(dir / "2.txt", 99), "former");
}

}  // namespace
}  // namespace tabulon::test
