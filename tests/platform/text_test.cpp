#include "platform/text.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using namespace testing;

TEST(TextTest, ToUtf8KeepsUtf8AndReadsTheRestAsWindows1252) {
    const struct {
        const char* name;
        std::string bytes, text;
    } rows[] = {
        {"ASCII", "a&b\r\n", "a&b\r\n"},
        {"UTF-8 of 2, 3 and 4 bytes", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB2",
         "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xB2"},
        {"byte order mark", "\xEF\xBB\xBFx", "x"},
        {"only a byte order mark", "\xEF\xBB\xBF", ""},
        {"byte order mark before Windows-1252", "\xEF\xBB\xBF\xE9", "\xC3\xA9"},
        {"NUL", std::string("a\0b", 3), std::string("a\0b", 3)},
        {"accent", "caf\xE9", "caf\xC3\xA9"},
        {"euro", "\x80", "\xE2\x82\xAC"},
        {"last of the special range", "\x9F", "\xC5\xB8"},
        {"no meaning", "\x81", "\xC2\x81"},
        {"last byte", "\xFF", "\xC3\xBF"},
        {"one bad byte makes all Windows-1252", "\xC3\xA9\xE9", "\xC3\x83\xC2\xA9\xC3\xA9"},
        {"long form", "\xC0\xAF", "\xC3\x80\xC2\xAF"},
        {"long form of 3", "\xE0\x9F\xBF", "\xC3\xA0\xC5\xB8\xC2\xBF"},
        {"surrogate", "\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},
        {"beyond Unicode", "\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"},
        {"cut character", "\xE2\x82", "\xC3\xA2\xE2\x80\x9A"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(ToUtf8(row.bytes), row.text);
    }
}

TEST(TextTest, LeftCutsBetweenCharacters) {
    const std::string text = "\xC3\xA9\xE2\x82\xAC!\xF0\x9F\x8E\xB2";
    EXPECT_EQ(Left(text, 0), "");
    EXPECT_EQ(Left(text, 1), "\xC3\xA9");
    EXPECT_EQ(Left(text, 3), "\xC3\xA9\xE2\x82\xAC!");
    EXPECT_EQ(Left(text, 4), text);
    EXPECT_EQ(Left(text, 255), text);
    EXPECT_EQ(Left("\xE2\x82!", 2), "\xE2\x82");
    EXPECT_EQ(Left("", 3), "");
}

TEST(TextTest, LinesEndWithCrLfOrLf) {
    EXPECT_THAT(Lines("a\r\nb\nc"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Lines("a\r\n\r\n"), ElementsAre("a", ""));
    EXPECT_THAT(Lines("a\rb\r\r\nc\r"), ElementsAre("a\rb\r", "c\r"));
    EXPECT_THAT(Lines(""), IsEmpty());
}

TEST(TextTest, ReplacesWithoutLookingBack) {
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(DoubleAmpersands("&A && B"), "&&A &&&& B");
}

TEST(TextTest, TrimsAtTheFirstNul) {
    EXPECT_EQ(TrimAtNul("plain"), "plain");
    EXPECT_EQ(TrimAtNul(std::string_view("a\0b\0", 4)), "a");
    EXPECT_EQ(TrimAtNul(std::string_view("\0b", 2)), "");
}

TEST(TextTest, OnlyAsciiLettersHaveNoCase) {
    EXPECT_TRUE(EqualNoCase("Default.BMP", "dEFAULT.bmp"));
    EXPECT_FALSE(EqualNoCase("a", "ab"));
    EXPECT_FALSE(EqualNoCase("[", "{"));
    EXPECT_FALSE(EqualNoCase("\xC3\x84", "\xC3\xA4"));
}

/// A locale of the tests' own: its short date and its letters are none of UTF-8.
class OddDates : public std::time_put<char> {
    iter_type do_put(iter_type out, std::ios_base& io, char_type fill, const std::tm* time, char format,
                     char modifier) const override {
        if (format != 'x') return std::time_put<char>::do_put(out, io, fill, time, format, modifier);
        for (const char c : std::string("M\xE4r\\") + std::to_string(time->tm_mday)) *out++ = c;
        return out;
    }
};

LocalTime At(std::chrono::sys_days day, std::chrono::seconds time) {
    return LocalTime(day.time_since_epoch() + time);
}

TEST(TextTest, FormatsDatesAndTimes) {
    using namespace std::chrono;
    const sys_days day = 2024y / February / 29;
    const struct {
        const char* name;
        LocalTime time;
        const char *medium, *general;
    } rows[] = {
        {"midnight", At(day, 0s), "12:00 AM", "02/29/24 00:00:00"},
        {"morning", At(day, 9h + 5min + 59s), "09:05 AM", "02/29/24 09:05:59"},
        {"noon", At(day, 12h), "12:00 PM", "02/29/24 12:00:00"},
        {"last second", At(day, 24h - 1s), "11:59 PM", "02/29/24 23:59:59"},
        {"before the epoch", At(1969y / December / 31, 14h + 5min), "02:05 PM", "12/31/69 14:05:00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(MediumTime(row.time), row.medium);
        EXPECT_EQ(GeneralDate(row.time), row.general);
    }
    EXPECT_EQ(ShortDate(rows[0].time), "02/29/24");
}

TEST(TextTest, DatesOfALocaleAreUtf8AndShortOnesHaveNoBackslash) {
    const std::locale odd(std::locale::classic(), new OddDates);
    const LocalTime time = At(std::chrono::sys_days(std::chrono::days(1)), std::chrono::seconds(3));
    EXPECT_EQ(ShortDate(time, odd), "M\xC3\xA4r-2");
    EXPECT_EQ(GeneralDate(time, odd), "M\xC3\xA4r\\2 00:00:03");
}

}  // namespace
}  // namespace tabulon
