#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "playtest/statistics.h"

namespace tabulon::playtest {

struct Bar {
    std::string Label;
    std::int64_t Count = 0;
    std::string Note;  // behind the count
};

/// Charts as inline SVG. Each has a name and a description for those who do not see it; texts are escaped
/// here.
std::string BarChart(const std::string& name, const std::vector<Bar>& bars);
std::string LengthChart(const Figures& figures);
/// The board, pale, under its spaces, the darker the more often pieces came there, and a key to the shades.
std::string HeatMap(const Statistics& statistics);

}  // namespace tabulon::playtest
