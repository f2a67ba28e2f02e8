#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace tabulon {

namespace {

/// What Windows-1252 has for the bytes 80 to 9F.
constexpr std::array<char16_t, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// How a character of several bytes begins: its length, and what its second byte may be.
struct Lead {
    std::size_t length;
    unsigned char second_low;
    unsigned char second_high;
};

/// The narrower second bytes keep out long forms, surrogates and what is beyond U+10FFFF.
Lead LeadOf(unsigned char first) {
    if (first >= 0xC2 && first <= 0xDF) return {2, 0x80, 0xBF};
    if (first == 0xE0) return {3, 0xA0, 0xBF};
    if (first == 0xED) return {3, 0x80, 0x9F};
    if (first >= 0xE1 && first <= 0xEF) return {3, 0x80, 0xBF};
    if (first == 0xF0) return {4, 0x90, 0xBF};
    if (first >= 0xF1 && first <= 0xF3) return {4, 0x80, 0xBF};
    if (first == 0xF4) return {4, 0x80, 0x8F};
    return {0, 0, 0};
}

bool Continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// How many bytes the first character has; 0 when the text does not begin with a valid one.
std::size_t CharacterLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) return 1;
    const Lead lead = LeadOf(first);
    if (lead.length == 0 || text.size() < lead.length) return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    const bool rest =
        std::all_of(text.begin() + 2, text.begin() + static_cast<std::ptrdiff_t>(lead.length), Continues);
    return second >= lead.second_low && second <= lead.second_high && rest ? lead.length : 0;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

void AppendCharacter(std::string& text, char16_t character) {
    const auto byte = [&](unsigned value) { text += static_cast<char>(value); };
    if (character >= 0x800) {
        byte(0xE0u | (character >> 12));
        byte(0x80u | ((character >> 6) & 0x3Fu));
    } else {
        byte(0xC0u | (character >> 6));
    }
    byte(0x80u | (character & 0x3Fu));
}

std::string FromWindows1252(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            text += c;
        else
            AppendCharacter(text, byte < 0xA0 ? Windows1252[byte - 0x80u] : byte);
    }
    return text;
}

char Lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::tm CalendarOf(LocalTime time) {
    using namespace std::chrono;
    const local_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    std::tm calendar{};
    calendar.tm_year = static_cast<int>(date.year()) - 1900;
    calendar.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    calendar.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    calendar.tm_wday = static_cast<int>(weekday(day).c_encoding());
    calendar.tm_yday = static_cast<int>((day - local_days(date.year() / January / 1)).count());
    calendar.tm_hour = static_cast<int>(clock.hours().count());
    calendar.tm_min = static_cast<int>(clock.minutes().count());
    calendar.tm_sec = static_cast<int>(clock.seconds().count());
    return calendar;
}

/// The locale may have a character set of its own.
std::string Formatted(LocalTime time, const char* format, const std::locale& locale) {
    const std::tm calendar = CalendarOf(time);
    std::ostringstream out;
    out.imbue(locale);
    out << std::put_time(&calendar, format);
    return ToUtf8(out.str());
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return IsUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::string TrimAtNul(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    for (std::size_t at = from.empty() ? text.npos : text.find(from); at != text.npos; at = text.find(from)) {
        result.append(text.substr(0, at)).append(to);
        text.remove_prefix(at + from.size());
    }
    return result.append(text);
}

std::string DoubleAmpersands(std::string_view text) { return ReplaceAll(text, "&", "&&"); }

bool EqualNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lowered(x) == Lowered(y); });
}

std::string Left(std::string_view text, std::size_t n) {
    std::size_t end = 0;
    for (; n > 0 && end < text.size(); --n)
        end += std::max<std::size_t>(1, CharacterLength(text.substr(end)));
    return std::string(text.substr(0, end));
}

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (end != text.npos && line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return lines;
}

std::locale UserLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic();
    }
}

std::string ShortDate(LocalTime time, const std::locale& locale) {
    return ReplaceAll(Formatted(time, "%x", locale), "\\", "-");
}

std::string MediumTime(LocalTime time) {
    // The classic locale, since many a locale has no word for AM and PM.
    return Formatted(time, "%I:%M %p", std::locale::classic());
}

std::string GeneralDate(LocalTime time, const std::locale& locale) {
    return Formatted(time, "%x %X", locale);
}

}  // namespace tabulon
