#include "playtest/html_charts.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "playtest/figures_output.h"
#include "playtest/html_text.h"

namespace tabulon::playtest {

namespace {

constexpr int ChartWidth = 720;
constexpr int BarHeight = 22;
constexpr int BarLeft = 170;
constexpr int LongestBar = 400;
constexpr int HistogramHeight = 180;
constexpr int HistogramLeft = 60;
constexpr int HistogramRight = 30;  // half of the last length stands beyond its column
constexpr std::int64_t MostColumns = 50;

/// A chart with its text alternative.
std::string Svg(double width, double height, const std::string& name, const std::string& description,
                const std::string& content) {
    std::ostringstream svg;
    svg << "<svg role=\"img\" viewBox=\"0 0 " << width << ' ' << height << "\" aria-label=\"" << Escaped(name)
        << ". " << Escaped(description) << "\"><title>" << Escaped(name) << "</title><desc>"
        << Escaped(description) << "</desc>" << content << "</svg>\n";
    return svg.str();
}

std::string Text(double x, double y, const std::string& text, const std::string& anchor = "start") {
    std::ostringstream svg;
    svg << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\">" << Escaped(text)
        << "</text>";
    return svg.str();
}

/// A rectangle that tells its meaning when it is pointed at.
std::string Box(double x, double y, double width, double height, const std::string& style,
                const std::string& meaning) {
    std::ostringstream svg;
    svg << "<rect x=\"" << x << "\" y=\"" << y << "\" width=\"" << width << "\" height=\"" << height << "\" "
        << style << "><title>" << Escaped(meaning) << "</title></rect>";
    return svg.str();
}

std::string Listed(const std::vector<Bar>& bars) {
    std::string list;
    for (const Bar& bar : bars)
        list += (list.empty() ? "" : ", ") + bar.Label + " " + std::to_string(bar.Count);
    return list;
}

struct Column {
    std::int64_t First = 0;
    std::int64_t Last = 0;
    std::int64_t Games = 0;
};

/// Lengths in columns of equal width, no more than fit.
std::vector<Column> Columns(const std::map<std::int64_t, std::int64_t>& lengths) {
    std::vector<Column> columns;
    if (lengths.empty()) return columns;
    const std::int64_t first = lengths.begin()->first;
    const std::int64_t width = (lengths.rbegin()->first - first) / MostColumns + 1;
    for (const auto& [length, games] : lengths) {
        const auto index = static_cast<std::size_t>((length - first) / width);
        while (columns.size() <= index) {
            const std::int64_t from = first + static_cast<std::int64_t>(columns.size()) * width;
            columns.push_back({from, from + width - 1, 0});
        }
        columns[index].Games += games;
    }
    return columns;
}

std::string Range(const Column& column) {
    if (column.First == column.Last) return CountOf(column.First, "turn");
    return std::to_string(column.First) + " to " + std::to_string(column.Last) + " turns";
}

/// The lengths at which some of the columns begin.
std::string LengthLabels(const std::vector<Column>& columns, double width) {
    constexpr std::size_t MostLabels = 10;
    const std::size_t step = columns.size() / MostLabels + 1;
    std::string labels;
    for (std::size_t i = 0; i < columns.size(); i += step)
        labels += Text(HistogramLeft + (static_cast<double>(i) + 0.5) * width, HistogramHeight + 28,
                       std::to_string(columns[i].First), "middle");
    return labels;
}

std::int64_t MostLandings(const Statistics& statistics) {
    std::int64_t most = 1;
    for (const GameFacts::Space& space : statistics.Game.Spaces)
        most = std::max(most, statistics.Counted.Landings(space.Number));
    return most;
}

/// From pale yellow over orange to dark red.
std::string HeatColour(double heat) {
    const auto mixed = [heat](int pale, int middle, int dark) {
        const double way =
            heat < 0.5 ? pale + (middle - pale) * 2 * heat : middle + (dark - middle) * (2 * heat - 1);
        return std::to_string(std::lround(way));
    };
    return "rgb(" + mixed(255, 240, 130) + "," + mixed(245, 135, 10) + "," + mixed(205, 60, 20) + ")";
}

std::string SpaceMeaning(const GameFacts::Space& space, std::int64_t landings) {
    return "Space " + std::to_string(space.Number) + ": " + CountOf(landings, "landing") +
           (space.Message.empty() ? "" : ". " + space.Message);
}

/// The landings, with the space's number small in its corner.
std::string SpaceBox(const GameFacts::Space& space, std::int64_t landings, double heat) {
    constexpr double Dark = 0.7;  // from here on white is easier to read
    const double size = std::max(8.0, std::min(space.Height * 0.36, space.Width * 0.28));
    std::ostringstream svg;
    svg << Box(space.Left, space.Top, space.Width, space.Height,
               "fill=\"" + HeatColour(heat) + "\" stroke=\"#5a1400\"", SpaceMeaning(space, landings))
        << "<g class=\"" << (heat > Dark ? "dark" : "pale") << "\" font-size=\"" << size * 0.7 << "\">"
        << Text(space.Left + size * 0.2, space.Top + size * 0.75, std::to_string(space.Number))
        << "<g font-size=\"" << size << "\" font-weight=\"600\">"
        << Text(space.Left + space.Width / 2.0, space.Top + space.Height * 0.5 + size * 0.6,
                std::to_string(landings), "middle")
        << "</g></g>";
    return svg.str();
}

std::string KeyToShades(std::int64_t most) {
    constexpr int Shades = 8;
    std::string key = "<p class=\"key\">0 ";
    for (int i = 0; i < Shades; ++i)
        key += "<i style=\"background:" + HeatColour(i / (Shades - 1.0)) + "\"></i>";
    return key + " " + CountOf(most, "landing") + "</p>\n";
}

/// The board's picture, or the size that the spaces need.
std::pair<double, double> BoardSize(const GameFacts& game) {
    if (game.Board) return {game.Board->Width, game.Board->Height};
    double width = 1, height = 1;
    for (const GameFacts::Space& space : game.Spaces) {
        width = std::max(width, static_cast<double>(space.Left) + space.Width);
        height = std::max(height, static_cast<double>(space.Top) + space.Height);
    }
    return {width, height};
}

std::string Busiest(const Statistics& statistics) {
    std::vector<Bar> spaces;
    for (const GameFacts::Space& space : statistics.Game.Spaces)
        spaces.push_back(
            {"space " + std::to_string(space.Number), statistics.Counted.Landings(space.Number), {}});
    std::ranges::stable_sort(spaces, std::greater<>(), &Bar::Count);
    if (spaces.size() > 5) spaces.resize(5);
    return "Most landings: " + Listed(spaces);
}

}  // namespace

std::string BarChart(const std::string& name, const std::vector<Bar>& bars) {
    std::int64_t most = 1;
    for (const Bar& bar : bars) most = std::max(most, bar.Count);
    std::string content;
    int y = 0;
    for (const Bar& bar : bars) {
        const double length = LongestBar * static_cast<double>(bar.Count) / static_cast<double>(most);
        const std::string count = std::to_string(bar.Count) + (bar.Note.empty() ? "" : " (" + bar.Note + ")");
        content += Text(BarLeft - 8, y + 15, bar.Label, "end");
        content += Box(BarLeft, y + 2, length, BarHeight - 5, "class=\"bar\"", bar.Label + ": " + count);
        content += Text(BarLeft + length + 6, y + 15, count);
        y += BarHeight;
    }
    return Svg(ChartWidth, y, name, Listed(bars), content);
}

std::string LengthChart(const Figures& figures) {
    const std::vector<Column> columns = Columns(figures.Lengths());
    std::int64_t most = 1;
    for (const Column& column : columns) most = std::max(most, column.Games);
    const double width = static_cast<double>(ChartWidth - HistogramLeft - HistogramRight) /
                         static_cast<double>(std::max<std::size_t>(columns.size(), 1));
    std::string content;
    double x = HistogramLeft;
    for (const Column& column : columns) {
        const double height = HistogramHeight * static_cast<double>(column.Games) / static_cast<double>(most);
        content += Box(x, HistogramHeight + 10 - height, std::max(width - 1, 1.0), height, "class=\"bar\"",
                       Range(column) + ": " + CountOf(column.Games, "game"));
        x += width;
    }
    content += Text(HistogramLeft - 6, 18, std::to_string(most), "end");
    content += Text(HistogramLeft - 6, 34, "games", "end");
    content += Text(HistogramLeft - 6, HistogramHeight + 10, "0", "end");
    content += Text(HistogramLeft - 6, HistogramHeight + 28, "turns", "end");
    content += LengthLabels(columns, width);
    return Svg(ChartWidth, HistogramHeight + 36, "How long games take",
               "Half of the games take at most " + ShortNumber(figures.MedianLength()) + " turns", content);
}

std::string HeatMap(const Statistics& statistics) {
    const GameFacts& game = statistics.Game;
    const auto [width, height] = BoardSize(game);
    std::ostringstream content;
    const std::string address = game.Board ? DataAddress(*game.Board) : std::string();
    if (!address.empty())
        content << "<image href=\"" << address << "\" width=\"" << width << "\" height=\"" << height
                << "\" opacity=\"0.4\"/>";
    const std::int64_t most = MostLandings(statistics);
    for (const GameFacts::Space& space : game.Spaces) {
        const std::int64_t landings = statistics.Counted.Landings(space.Number);
        content << SpaceBox(space, landings, static_cast<double>(landings) / static_cast<double>(most));
    }
    return "<div class=\"map\">" +
           Svg(width, height, "The board with the landings on each space", Busiest(statistics),
               content.str()) +
           KeyToShades(most) + "</div>\n";
}

}  // namespace tabulon::playtest
