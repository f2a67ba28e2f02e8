#pragma once

#include <filesystem>

#include "playtest/statistics.h"

namespace tabulon::playtest {

/// The whole page as HTML: it needs nothing but itself.
std::string HtmlReport(const Statistics& statistics);
/// Fails with Unusable when the file cannot be written.
void WriteHtmlReport(const Statistics& statistics, const std::filesystem::path& file);

}  // namespace tabulon::playtest
