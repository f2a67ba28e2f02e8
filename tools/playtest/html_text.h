#pragma once

#include <string>
#include <string_view>

#include "forms/picture.h"

namespace tabulon::playtest {

/// Text of unknown origin as it may stand between tags and inside quoted attributes.
std::string Escaped(std::string_view text);

/// The picture as a data: address; empty for a kind that no browser shows.
std::string DataAddress(const FilePicture& picture);

/// The first characters of a long text, with an ellipsis.
std::string Shortened(const std::string& text, std::size_t length);

}  // namespace tabulon::playtest
