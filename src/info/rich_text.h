#pragma once

#include <string_view>
#include <vector>

#include "forms/controls.h"

namespace tabulon {

namespace limits {
/// Of a help file, plain or rich text. A larger one is not shown.
inline constexpr std::size_t HelpTextBytes = 4U << 20;
}  // namespace limits

/// True for what begins as rich text (RTF) does.
bool IsRichText(std::string_view bytes);

/// Reads rich text: characters, fonts, colours, alignment, bullets and tabs; tables come as tabs, links as
/// their text. What it does not know it leaves out. Fails with FileIoError for a text that is cut off, and
/// for one that is beyond all measure.
std::vector<TextParagraph> ReadRichText(std::string_view bytes);

}  // namespace tabulon
