#pragma once

#include <iosfwd>
#include <string>

#include "playtest/statistics.h"

namespace tabulon::playtest {

/// A report for people, as plain text.
void PrintReport(const Statistics& statistics, std::ostream& out);
/// One JSON object.
void PrintJson(const Statistics& statistics, std::ostream& out);

/// What did not go well, one plain sentence each; empty when all games ended and nothing failed.
std::vector<std::string> TroublesInWords(const Statistics& statistics);

/// "41.2", at most one place.
std::string ShortNumber(double value);
/// "1 game", "2 games".
std::string CountOf(std::int64_t count, const std::string& thing);
/// "26.1 %"; nothing of nothing is "0 %".
std::string Percent(std::int64_t part, std::int64_t whole);

}  // namespace tabulon::playtest
