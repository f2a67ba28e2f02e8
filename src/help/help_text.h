#pragma once

#include <string>
#include <string_view>

namespace tabulon {

/// The code page of texts in a language of Windows; 0 when it is not known.
int CodePageOf(int language);

/// A page as UTF-8: by its byte order mark, by the character set that it names, as what it is when it is
/// valid UTF-8, by the code page (0 for none), and else as Windows-1252.
std::string PageAsUtf8(std::string_view bytes, int codePage);

}  // namespace tabulon
