#include "help/help_files.h"

#include <gmock/gmock.h>

#include "help/limits.h"
#include "platform/failure_of.h"
#include "platform/seeded_random.h"

namespace tabulon::test {
namespace {

HelpFiles TwoFiles() {
    HelpFiles files;
    files.Add("/Rules/Start.HTM", "Throw");
    files.Add("empty.css", "");
    return files;
}

TEST(HelpFilesTest, NamesHaveNoCaseAndNoSlashInFrontAndTheFirstCounts) {
    HelpFiles files = TwoFiles();
    files.Add("rules/START.htm", "second");
    EXPECT_EQ(files.All().size(), 2u);
    for (const char* name : {"/Rules/Start.HTM", "rules/start.htm", "//RULES/START.HTM"}) {
        ASSERT_NE(files.Find(name), nullptr) << name;
        EXPECT_EQ(*files.Find(name), "Throw");
    }
    for (const char* name : {"", "/", "start.htm", "rules"}) EXPECT_EQ(files.Find(name), nullptr) << name;
}

TEST(HelpFilesTest, WhatIsTooMuchFails) {
    const auto expectTooMuch = [](HelpFiles& files, const std::string& name, const std::string& bytes) {
        EXPECT_EQ(FailureOf([&] { files.Add(name, bytes); }), static_cast<int>(FailureNumber::InternalError));
    };
    HelpFiles files;
    expectTooMuch(files, std::string(help_limits::NameBytes + 1, 'n'), "");
    const std::string large(help_limits::FileBytes, 'x');
    expectTooMuch(files, "large", large + "x");
    for (std::uint64_t n = 0; n < help_limits::TotalBytes / help_limits::FileBytes; ++n)
        files.Add("large" + std::to_string(n), large);
    expectTooMuch(files, "one more", "x");
    HelpFiles many;
    for (std::size_t n = 0; n < help_limits::Files; ++n) many.Add(std::to_string(n), "");
    expectTooMuch(many, "one more", "");
}

TEST(HelpStreamTest, BringsTheFilesOver) {
    const HelpFiles files = TwoFiles();
    EXPECT_EQ(FromStream(ToStream(files)).All(), files.All());
    EXPECT_TRUE(FromStream(ToStream({})).All().empty());
}

TEST(HelpStreamTest, EachCutIsNoticed) {
    const std::string stream = ToStream(TwoFiles());
    for (std::size_t size = 0; size < stream.size(); ++size)
        EXPECT_EQ(FailureOf([&] { FromStream(stream.substr(0, size)); }),
                  static_cast<int>(FailureNumber::FileIoError))
            << size;
}

TEST(HelpStreamTest, ChangedBytesGiveOtherFilesOrAFailure) {
    const std::string stream = ToStream(TwoFiles());
    SeededRandom chance(4);
    for (int n = 0; n < 5000; ++n) {
        std::string bytes = stream;
        for (int changes = chance.Draw(4, 1); changes > 0; --changes)
            bytes[static_cast<std::size_t>(chance.Draw(static_cast<int>(bytes.size()), 0))] =
                static_cast<char>(chance.Draw(256, 0));
        EXPECT_THAT(FailureOf([&] { FromStream(bytes); }),
                    testing::AnyOf(0, static_cast<int>(FailureNumber::FileIoError),
                                   static_cast<int>(FailureNumber::InternalError)));
    }
}

}  // namespace
}  // namespace tabulon::test
