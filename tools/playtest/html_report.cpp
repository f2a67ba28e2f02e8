#include "playtest/html_report.h"

#include <fstream>
#include <sstream>

#include "playtest/figures_output.h"
#include "playtest/html_charts.h"
#include "playtest/html_text.h"
#include "playtest/unusable.h"

namespace tabulon::playtest {

namespace {

constexpr const char* Head =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta name=\"viewport\" content=\"width=device-width\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" "
    "content=\"default-src 'none'; img-src data:; style-src 'unsafe-inline'\">\n";

constexpr const char* Style =
    "<style>\n"
    "body{font:16px/1.5 system-ui,sans-serif;color:#222;background:#fff;max-width:60rem;margin:2rem auto;"
    "padding:0 1rem}\n"
    "h1,h2,h3{line-height:1.2;color:#5a1400}h2{margin-top:2.5rem;border-bottom:2px solid #e8d9c8}\n"
    "svg{display:block;width:100%;height:auto;font:13px system-ui,sans-serif}\n"
    ".bar{fill:#c4581e}.pale{fill:#1b0700}.dark{fill:#fff}\n"
    ".key i{display:inline-block;width:2rem;height:1rem;vertical-align:-.15rem}\n"
    ".good,.bad{padding:.2rem 1rem;border-left:.4rem solid #3c7a3c;background:#f1f7f1}\n"
    ".bad{border-color:#b3261e;background:#fbf0ef}\n"
    "table{border-collapse:collapse;width:100%;font-size:.9rem}th,td{text-align:left;padding:.15rem .6rem;"
    "border-bottom:1px solid #e8d9c8;vertical-align:top;overflow-wrap:anywhere}\n"
    "td.n,th.n{text-align:right;white-space:nowrap;width:4.5rem}\n"
    "@media "
    "print{body{margin:0;max-width:none;font-size:11pt}h2,h3,p{break-after:avoid}.key{break-after:auto}"
    ".map,svg,tr{break-inside:avoid}"
    "*{print-color-adjust:exact;-webkit-print-color-adjust:exact}}\n"
    "</style>\n";

constexpr std::size_t LongestQuestion = 160;

std::string Sentence(const std::string& text) { return "<p>" + Escaped(text) + "</p>\n"; }

std::string Heading(const std::string& text) { return "<h2>" + Escaped(text) + "</h2>\n"; }

std::string Cell(const std::string& text) { return "<td>" + Escaped(text) + "</td>"; }
std::string Cell(std::int64_t number) { return "<td class=\"n\">" + std::to_string(number) + "</td>"; }

/// A table from its heads (those that begin with "#" stand over numbers) and its rows, which are escaped.
std::string Table(const std::vector<std::string>& heads, const std::string& rows) {
    std::string table = "<table><thead><tr>";
    for (const std::string& head : heads) {
        const bool number = head.starts_with('#');
        table += (number ? "<th class=\"n\">" : "<th>") + Escaped(head.substr(number ? 1 : 0)) + "</th>";
    }
    return table + "</tr></thead><tbody>\n" + rows + "</tbody></table>\n";
}

std::string InWords(const Statistics& statistics) {
    const std::vector<std::string> troubles = TroublesInWords(statistics);
    const std::int64_t games = statistics.Counted.Games();
    std::string words = troubles.empty() ? "<div class=\"good\">" : "<div class=\"bad\">";
    if (statistics.Unfinished() == 0)
        words += Sentence(games == 1 ? "The game ended." : "All " + CountOf(games, "game") + " ended.");
    for (const std::string& trouble : troubles) words += Sentence(trouble);
    if (statistics.Counted.Failures().empty()) words += Sentence("Nothing failed.");
    return words + "</div>\n";
}

std::string LengthsInWords(const Figures& figures) {
    return Sentence("A game takes " + ShortNumber(figures.MeanLength()) +
                    " turns on average. Half of the games take at most " +
                    ShortNumber(figures.MedianLength()) + ", nine of ten between " +
                    std::to_string(figures.LengthBelow(0.05)) + " and " +
                    std::to_string(figures.LengthBelow(0.95)) + ".");
}

std::string Wins(const Statistics& statistics) {
    std::vector<Bar> bars;
    for (int seat = 1; seat <= statistics.Settings.Seats; ++seat) {
        const std::int64_t wins = statistics.Counted.Wins(seat);
        bars.push_back({"Seat " + std::to_string(seat), wins, Percent(wins, statistics.Counted.Finished())});
    }
    return Sentence("If every seat had the same chance, each would win " +
                    Percent(1, statistics.Settings.Seats) + " of the games.") +
           BarChart("Wins by seat", bars);
}

std::string Actions(const Figures& figures) {
    std::vector<Bar> bars;
    for (int code = 0; code < ActionCount; ++code)
        bars.push_back({ActionsInWords[static_cast<std::size_t>(code)], figures.Actions(code), {}});
    return Sentence("Actions of spaces and cards together.") + BarChart("How often each action ran", bars);
}

std::string ActionInWords(int code) {
    return code >= 0 && code < ActionCount ? ActionsInWords[static_cast<std::size_t>(code)] : "";
}

std::string Spaces(const Statistics& statistics) {
    std::string rows;
    for (const GameFacts::Space& space : statistics.Game.Spaces) {
        const std::int64_t landings = statistics.Counted.Landings(space.Number);
        rows += "<tr>" + Cell(space.Number) + Cell(landings) + Cell(ActionInWords(space.Action)) +
                Cell(Shortened(space.Message, LongestQuestion)) + "</tr>\n";
    }
    return Table({"#Space", "#Landings", "Action", "Message"}, rows);
}

/// A table for each deck, in the order of the decks.
std::string Cards(const Statistics& statistics) {
    std::vector<std::pair<std::string, std::string>> decks;  // name and rows
    int deck = 0;
    for (const GameFacts::Card& card : statistics.Game.Cards) {
        if (decks.empty() || card.Deck != deck) decks.push_back({card.DeckName, ""});
        deck = card.Deck;
        decks.back().second += "<tr>" + Cell(card.Number) +
                               Cell(statistics.Counted.Cards(card.Deck, card.Number)) +
                               Cell(Shortened(card.Question, LongestQuestion)) + "</tr>\n";
    }
    std::string tables = decks.empty() ? "" : Heading("Cards");
    for (const auto& [name, rows] : decks)
        tables += "<h3>" + Escaped(name) + "</h3>\n" + Table({"#Card", "#Drawn", "Question"}, rows);
    return tables;
}

std::string Failures(const Figures& figures) {
    if (figures.Failures().empty()) return {};
    std::string rows;
    for (const auto& [procedure, trouble] : figures.Failures())
        rows += "<tr>" + Cell(procedure) + Cell(trouble.Count) + Cell(trouble.FirstGame + 1) +
                Cell(trouble.Words) + "</tr>\n";
    return Heading("Failures") + Table({"Procedure", "#Times", "#First in game", "What failed"}, rows);
}

}  // namespace

std::string HtmlReport(const Statistics& statistics) {
    const Figures& figures = statistics.Counted;
    const std::string name = Escaped(statistics.Game.Name);
    std::ostringstream page;
    page << Head << "<title>" << name << ": playtest</title>\n"
         << Style << "</head>\n<body>\n<h1>" << name << "</h1>\n"
         << Sentence(CountOf(figures.Games(), "game") + " of " +
                     CountOf(statistics.Settings.Seats, "computer") + ", from the seed " +
                     std::to_string(statistics.Settings.Seed) + ".")
         << InWords(statistics) << Heading("The board") << HeatMap(statistics)
         << Heading("How long games take") << LengthsInWords(figures) << LengthChart(figures)
         << Heading("Who wins") << Wins(statistics) << Heading("Actions") << Actions(figures)
         << Failures(figures) << Cards(statistics) << Heading("Spaces") << Spaces(statistics)
         << "</body>\n</html>\n";
    return page.str();
}

void WriteHtmlReport(const Statistics& statistics, const std::filesystem::path& file) {
    std::ofstream stream(file, std::ios::binary);
    stream << HtmlReport(statistics) << std::flush;
    if (!stream) throw Unusable(file.string() + ": the report cannot be written");
}

}  // namespace tabulon::playtest
