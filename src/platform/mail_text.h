#pragma once

#include <string>
#include <string_view>

namespace tabulon {

/// True for "name@host" as it may stand in a command or a header: no blanks, no control characters, ASCII
/// only.
bool IsMailAddress(std::string_view text);

/// True for a host's name or address, with ":port" behind it or without.
bool IsServerName(std::string_view text);

/// True for what may stand in a header once it is encoded: no control characters, valid UTF-8, not too long.
bool IsHeaderText(std::string_view text);

/// A header text as ASCII: words that have other characters are encoded.
std::string EncodedHeaderText(std::string_view text);

/// "name <address>", or the address alone when there is no name.
std::string EncodedMailbox(std::string_view name, std::string_view address);

/// All line ends as CR LF.
std::string WithCrLf(std::string_view text);

}  // namespace tabulon
