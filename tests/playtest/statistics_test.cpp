#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <regex>

#include "playtest/figures_output.h"
#include "playtest/html_charts.h"
#include "playtest/html_report.h"
#include "playtest/tiny_game.h"

namespace tabulon::test {

namespace {

using nlohmann::json;
using playtest::Statistics;
using playtest::StatisticsSettings;
using testing::Each;
using testing::Gt;
using testing::HasSubstr;
using testing::Not;

Statistics Play(const TinyGame& game, StatisticsSettings settings) {
    const TemporaryDirectory folder;
    settings.Package = folder / game.WriteTo(folder);
    return PlayStatistics(settings, {});
}

/// The figures without the times.
json FiguresOf(const Statistics& statistics) {
    std::ostringstream out;
    PrintJson(statistics, out);
    json figures = json::parse(out.str());
    figures.erase("seconds");
    figures.erase("turns_per_second");
    return figures;
}

/// Every kind of leftover: cards, lost turns with their button, a card that lets a computer stop.
TinyGame LivelyGame() {
    return {.Settings = {{"Finish Condition", "10"},
                         {"Tries", "2"},
                         {"Music Genre", "random"},
                         {"Dice Used", "2"}},
            .Rows = {{2, 9, 2}, {3, 6, 5}, {4, 0, 1}, {5, 10, 1}, {6, 11}, {7, 5, 3}, {8, 12, 7}, {9, 2, 3}},
            .Cards = {{1, 3, 0, 6, 4, "Yes"}, {9, 2, 0, 3, 6, "Yes"}, {6, 9, 1, 10, 1, "Yes"}}};
}

TEST(StatisticsFigures, DoNotHangOnTheNumberOfThreads) {
    const StatisticsSettings settings{.Games = 60, .Seats = 3, .Seed = 7, .MaxTurns = 300};
    const json one = FiguresOf(Play(LivelyGame(), settings));
    for (const int jobs : {2, 3}) {
        StatisticsSettings several = settings;
        several.Jobs = jobs;
        EXPECT_EQ(FiguresOf(Play(LivelyGame(), several)), one) << jobs << " threads";
    }
    EXPECT_EQ(one.at("games"), 60);
    EXPECT_GT(one.at("finished"), 0);
    EXPECT_GT(one.at("actions").at("atDrawCard"), 0);
}

TEST(StatisticsFigures, OfAGameDoNotHangOnTheGamesBefore) {
    const Statistics two = Play(LivelyGame(), {.Games = 2, .Seats = 3, .MaxTurns = 300});
    const Statistics one = Play(LivelyGame(), {.Games = 1, .Seats = 3, .MaxTurns = 300});
    const TemporaryDirectory folder;
    playtest::Simulation backwards(
        {.Package = folder / LivelyGame().WriteTo(folder), .Seats = 3, .MaxTurns = 300});
    backwards.Play(1);
    backwards.Play(0);
    EXPECT_EQ(backwards.Counted().Lengths(), two.Counted.Lengths());
    EXPECT_EQ(backwards.Counted().Turns(), two.Counted.Turns());
    EXPECT_LT(one.Counted.Turns(), two.Counted.Turns());
}

TEST(StatisticsFigures, OfARaceOfOneMoveAreTheFirstSeats) {
    // Two spaces: whatever is rolled, the first turn wins.
    const TinyGame race{.Settings = {{"Goal Type", "2"}, {"Finish Condition", "0"}}, .Spaces = 2};
    const json figures = FiguresOf(Play(race, {.Games = 10, .Seats = 2}));
    EXPECT_EQ(figures.at("finished"), 10);
    EXPECT_EQ(figures.at("turns"), 10);
    EXPECT_EQ(figures.at("turns_per_game"), json({{"mean", 1.0}, {"median", 1}, {"p5", 1}, {"p95", 1}}));
    EXPECT_EQ(figures.at("wins"), json({10, 0}));
    EXPECT_EQ(figures.at("landings"), json({{"1", 0}, {"2", 10}}));
    EXPECT_EQ(figures.at("failures"), json::object());
}

TEST(StatisticsFigures, OfAGameThatAllFinishNameNoWinner) {
    const TinyGame together{.Settings = {{"Goal Type", "2"}, {"Finish Condition", "1"}}, .Spaces = 2};
    const json figures = FiguresOf(Play(together, {.Games = 5, .Seats = 3}));
    EXPECT_EQ(figures.at("finished"), 5);
    EXPECT_EQ(figures.at("turns"), 15);
    EXPECT_EQ(figures.at("wins"), json({0, 0, 0}));
}

TEST(StatisticsFigures, StopAtTheMostTurnsExactly) {
    const TinyGame endless{.Settings = {{"Goal Type", "2"}, {"Loop Board", "1"}}};
    for (const int most : {1, 7, 8}) {
        const Statistics statistics = Play(endless, {.Games = 3, .Seats = 2, .MaxTurns = most});
        EXPECT_EQ(statistics.Unfinished(), 3);
        EXPECT_EQ(statistics.Counted.Turns(), 3 * most);
        EXPECT_THAT(TroublesInWords(statistics), testing::ElementsAre("3 of 3 games did not end within " +
                                                                      playtest::CountOf(most, "turn") + "."));
    }
}

struct LoopCase {
    const char* Name;
    TinyGame Game;
    std::string Words;
};

void PrintTo(const LoopCase& loop, std::ostream* out) { *out << loop.Name; }

class Loop : public testing::TestWithParam<LoopCase> {};

TEST_P(Loop, IsNamedAndItsGameUnfinished) {
    const Statistics statistics = Play(GetParam().Game, {.Games = 4, .Seats = 2, .Jobs = 2, .MaxTurns = 500});
    EXPECT_EQ(statistics.Counted.Games(), 4);
    EXPECT_EQ(statistics.Unfinished(), 4);
    const std::vector<std::string> words = TroublesInWords(statistics);
    ASSERT_FALSE(words.empty());
    EXPECT_THAT(words.front(), HasSubstr(GetParam().Words));
    EXPECT_THAT(words.front(), HasSubstr("4 of 4 games could not go on"));
    EXPECT_THAT(words.front(), HasSubstr("first in game 1"));
}

INSTANTIATE_TEST_SUITE_P(
    Given, Loop,
    testing::Values(LoopCase{"NoTurnDevice", {.Settings = {{"Turn Device", "2"}}}, "no turn button"},
                    LoopCase{"PointsBoardOfOneSpace", {.Spaces = 1}, "past the end of the board"},
                    LoopCase{"CardWithoutTries",
                             {.Settings = {{"Tries", "0"}},
                              .Rows = {{2, 0, 1}, {3, 0, 1}, {4, 0, 1}, {5, 0, 1}, {6, 0, 1}, {7, 0, 1}},
                              .Cards = {{6, 1}}},
                             "dlgDrawCard"}),
    CaseName());

TEST(StatisticsFailures, AreCountedByProcedure) {
    const TinyGame reels{
        .Settings = {{"Goal Type", "2"}, {"Finish Condition", "0"}, {"Turn Device", "1"}, {"Dice Used", "6"}},
        .Spaces = 2};
    const json figures = FiguresOf(Play(reels, {.Games = 3, .Seats = 2, .Jobs = 2}));
    EXPECT_EQ(figures.at("failures"), json({{"frmMain:RunSlots", 3}}));
    EXPECT_EQ(figures.at("finished"), 3);
}

TEST(HtmlReport, StandsAloneAndShowsTextsAsTexts) {
    TinyGame game = LivelyGame();
    game.Settings["Game Name"] = "<b onload='x'>Tea & Cake</b>";
    const std::string page = HtmlReport(Play(game, {.Games = 5, .Seats = 2, .MaxTurns = 50}));
    EXPECT_THAT(page, HasSubstr("<h1>&lt;b onload=&#39;x&#39;&gt;Tea &amp; Cake&lt;/b&gt;</h1>"));
    EXPECT_THAT(page, HasSubstr("<image href=\"data:image/bmp;base64,Qk"));
    for (const char* outside : {"http://", "https://", "<script", "src=", "@import", "url("})
        EXPECT_THAT(page, Not(HasSubstr(outside)));
}

TEST(HtmlReport, HasATextForEveryChart) {
    const std::string page = HtmlReport(Play(LivelyGame(), {.Games = 5, .Seats = 2, .MaxTurns = 50}));
    std::size_t charts = 0;
    for (std::size_t at = page.find("<svg"); at != page.npos; at = page.find("<svg", at + 1)) {
        ++charts;
        EXPECT_THAT(page.substr(at, page.find('>', at) - at), HasSubstr("role=\"img\""));
        EXPECT_THAT(page.substr(at, page.find("</svg>", at) - at), HasSubstr("<desc>"));
    }
    EXPECT_EQ(charts, 4u);
    EXPECT_THAT(page, HasSubstr("<h2>Cards</h2>"));
}

TEST(HtmlReport, HasRoomForTheLastLengthOfGames) {
    constexpr double HalfADigit = 4.5;
    constexpr double Width = 720;
    const std::regex label("<text x=\"([0-9.]+)\" y=\"[0-9]+\" text-anchor=\"middle\">([0-9]+)</text>");
    playtest::Figures figures;
    for (int columns = 1; columns <= 50; ++columns) {
        figures.CountGame(9900 + columns, true);
        const std::string chart = LengthChart(figures);
        ASSERT_THAT(chart, HasSubstr("viewBox=\"0 0 720 "));
        for (std::sregex_iterator at(chart.begin(), chart.end(), label), end; at != end; ++at)
            EXPECT_LE(std::stod((*at)[1]) + HalfADigit * static_cast<double>((*at)[2].length()), Width)
                << (*at)[2] << " of " << columns;
    }
}

TEST(HtmlReport, OfABoardWithoutAPictureTakesItsSizeFromTheSpaces) {
    TinyGame game;
    game.Settings["Board Image"] = "none.bmp";
    EXPECT_THAT(HtmlReport(Play(game, {.Games = 1, .Seats = 1, .MaxTurns = 1})),
                HasSubstr("viewBox=\"0 0 600 150\""));
}

TEST(HtmlReport, TellsFirstWhatWentWrong) {
    const TinyGame endless{.Settings = {{"Goal Type", "2"}, {"Loop Board", "1"}}};
    const std::string page = HtmlReport(Play(endless, {.Games = 3, .Seats = 2, .MaxTurns = 9}));
    const std::size_t words = page.find("3 of 3 games did not end within 9 turns.");
    ASSERT_NE(words, page.npos);
    EXPECT_LT(words, page.find("<svg"));
}

}  // namespace

}  // namespace tabulon::test
