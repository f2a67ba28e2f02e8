#pragma once

#include <cstddef>
#include <locale>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"

namespace tabulon {

/// Text of unknown origin as UTF-8: what is valid UTF-8 stays, without its byte order mark; anything else is
/// taken as Windows-1252, where the five bytes without a meaning become control characters.
std::string ToUtf8(std::string_view bytes);

/// What stands before the first NUL, or the whole text.
std::string TrimAtNul(std::string_view text);

/// Replaces from left to right and never looks at what it put in. An empty `from` changes nothing.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// For a caption where "&" would mark an access key.
std::string DoubleAmpersands(std::string_view text);

/// Equal but for the case of ASCII letters.
bool EqualNoCase(std::string_view a, std::string_view b);

/// The first n characters of a UTF-8 text; a byte that belongs to no character counts as one.
std::string Left(std::string_view text, std::size_t n);

/// The lines of a text that ends them with CR LF or LF, without these. The last one may lack its end.
std::vector<std::string> Lines(std::string_view text);

/// The user's locale; the classic one when the machine has not what the user's settings name.
std::locale UserLocale();

/// The locale's short date; a backslash in it becomes "-", so that it can be part of a key's name.
std::string ShortDate(LocalTime time, const std::locale& locale = std::locale::classic());
/// "02:05 PM", in every locale.
std::string MediumTime(LocalTime time);
/// The locale's date and time, to the second.
std::string GeneralDate(LocalTime time, const std::locale& locale = std::locale::classic());

}  // namespace tabulon
