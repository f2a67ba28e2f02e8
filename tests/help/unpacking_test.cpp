#include "help/unpacking.h"

#include <array>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "help/help_book.h"
#include "help/limits.h"
#include "platform/failure_of.h"
#include "platform/files.h"
#include "platform/seeded_random.h"
#include "platform/temporary_directory.h"

namespace tabulon {
namespace {

constexpr std::size_t Most = 16U << 20;

/// How a process ended that unpacked a file, and what it wrote. A killed one has the end -1.
struct Outcome {
    int End = -1;
    std::string Stream;
};

Outcome Unpack(const std::filesystem::path& file, unsigned seconds = help_limits::UnpackingSeconds) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return {};
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(STDERR_FILENO);  // where a sanitizer would tell of the library's faults
        _exit(static_cast<int>(UnpackToOutput(file, seconds)));
    }
    close(ends[1]);
    Outcome outcome;
    std::array<char, 65536> buffer;
    for (ssize_t got = 0; (got = read(ends[0], buffer.data(), buffer.size())) > 0;)
        outcome.Stream.append(buffer.data(), static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) outcome.End = WEXITSTATUS(status);
    return outcome;
}

class UnpackingTest : public testing::Test {
  protected:
    Outcome UnpackBytes(std::string_view bytes, unsigned seconds = help_limits::UnpackingSeconds) {
        WriteFile(file, bytes);
        return Unpack(file, seconds);
    }
    /// Either there is a sound stream, whose files make a book or none, or the end says that there is none.
    static void ExpectNoHarm(const Outcome& outcome) {
        if (outcome.End != static_cast<int>(UnpackingEnd::Done)) return;
        EXPECT_THAT(test::FailureOf([&] { HelpBook book(FromStream(outcome.Stream)); }),
                    testing::AnyOf(0, static_cast<int>(FailureNumber::FileIoError)));
    }

    test::TemporaryDirectory folder;
    std::filesystem::path file = folder / "damaged.chm";
    std::string sound = ReadFile(TABULON_SAMPLE_HELP, Most);
};

TEST_F(UnpackingTest, AFileArrivesWhole) {
    const Outcome outcome = Unpack(TABULON_SAMPLE_HELP);
    ASSERT_EQ(outcome.End, static_cast<int>(UnpackingEnd::Done));
    const HelpBook book(FromStream(outcome.Stream));
    EXPECT_EQ(book.Title(), "Sample Rules");
    EXPECT_EQ(book.Home(), "start.html");
    ASSERT_EQ(book.Contents().size(), 1u);
    EXPECT_EQ(book.Contents()[0].Children.at(0).Title, "Counting penguins");
    EXPECT_EQ(book.Index().at(0).Title, "penguins");
    EXPECT_EQ(book.TextOf("start.html"), ReadFile(TABULON_SOURCE_DIR "/tests/help/sample/start.html", Most));
}

TEST_F(UnpackingTest, WhatIsNoHelpFileIsTold) {
    const std::string noughts(100000, '\0');
    for (const std::string& bytes :
         {std::string(), std::string("Throw the dice"), std::string("ITSF"), noughts})
        EXPECT_EQ(UnpackBytes(bytes).End, static_cast<int>(UnpackingEnd::Damaged)) << bytes.substr(0, 20);
    EXPECT_EQ(Unpack(folder / "missing.chm").End, static_cast<int>(UnpackingEnd::NotThere));
    EXPECT_EQ(Unpack(folder.Path()).End, static_cast<int>(UnpackingEnd::NotThere));
}

TEST_F(UnpackingTest, FilesLargerThanAnyHelpAreNotRead) {
    WriteFile(file, sound);
    std::filesystem::resize_file(file, help_limits::ArchiveBytes + 1);
    EXPECT_EQ(Unpack(file).End, static_cast<int>(UnpackingEnd::TooLarge));
}

TEST_F(UnpackingTest, ATruncatedFileDoesNoHarm) {
    for (std::size_t size = 0; size < sound.size(); size += sound.size() / 40) {
        SCOPED_TRACE(size);
        ExpectNoHarm(UnpackBytes(sound.substr(0, size)));
    }
}

TEST_F(UnpackingTest, ChangedBytesDoNoHarm) {
    SeededRandom chance(7);
    for (int n = 0; n < 200; ++n) {
        SCOPED_TRACE(n);
        std::string bytes = sound;
        // Half of the changes go where the heads and the directory are.
        const int end =
            static_cast<int>(n % 2 == 0 ? std::min<std::size_t>(bytes.size(), 4600) : bytes.size());
        for (int changes = chance.Draw(12, 1); changes > 0; --changes)
            bytes[static_cast<std::size_t>(chance.Draw(end, 0))] = static_cast<char>(chance.Draw(256, 0));
        ExpectNoHarm(UnpackBytes(bytes, 2));
    }
}

TEST_F(UnpackingTest, ADirectoryThatIsARingEnds) {
    const std::size_t page = sound.find("PMGL");
    ASSERT_NE(page, sound.npos);
    sound.replace(page + 16, 4, 4, '\0');  // the page after this one: itself
    EXPECT_NE(UnpackBytes(sound).End, static_cast<int>(UnpackingEnd::Done));
    sound.replace(page + 4, 4, std::string("\xEC\x0F\0\0", 4));  // all of the page is free
    EXPECT_NE(UnpackBytes(sound, 1).End, static_cast<int>(UnpackingEnd::Done))
        << "no entries, but the time is out";
}

/// Shortens the name of an entry, so that its length has room for a larger number.
std::string WithLength(std::string bytes, std::string_view name, std::string_view length) {
    const std::size_t place = bytes.find(name);
    const std::size_t numbers = place + name.size();
    std::size_t lengthAt = numbers + 1;
    while (bytes[lengthAt] & '\x80') ++lengthAt;  // the offset
    std::size_t end = ++lengthAt;
    while (bytes[end] & '\x80') ++end;
    ++end;
    const std::size_t cut = length.size() - (end - lengthAt);
    const std::string entry = std::string(name.substr(0, name.size() - cut)) +
                              bytes.substr(numbers, lengthAt - numbers) + std::string(length);
    bytes.replace(place, end - place, entry);
    bytes[place - 1] = static_cast<char>(name.size() - cut);
    return bytes;
}

TEST_F(UnpackingTest, DeclaredSizesAreNotBelieved) {
    constexpr char Name[] = "/how-the-penguins-are-counted.html";
    const struct {
        const char* name;
        std::string_view length;
        UnpackingEnd end;
    } rows[] = {{"beyond the content", {"\xC1\x80\x00", 3}, UnpackingEnd::Damaged},
                {"beyond the limit", "\x88\x80\x80\x01", UnpackingEnd::TooLarge},
                {"beyond any machine", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", UnpackingEnd::TooLarge}};
    for (const auto& row : rows) {
        const Outcome outcome = UnpackBytes(WithLength(sound, Name, row.length));
        EXPECT_EQ(outcome.End, static_cast<int>(row.end)) << row.name;
        ExpectNoHarm(outcome);
    }
}

TEST(UnpackingMessageTest, NamesTheFileAndTheReason) {
    EXPECT_EQ(MessageFor(UnpackingEnd::NotThere, "/a/b.chm"), "The help file /a/b.chm is not there.");
    EXPECT_EQ(MessageFor(UnpackingEnd::TooLarge, "/a/b.chm"),
              "The help file /a/b.chm is too large to be shown.");
    for (const auto end : {UnpackingEnd::Damaged, static_cast<UnpackingEnd>(77)})
        EXPECT_EQ(MessageFor(end, "/a/b.chm"),
                  "The help file /a/b.chm is damaged, or it is no help file. It cannot be shown.");
}

}  // namespace
}  // namespace tabulon
