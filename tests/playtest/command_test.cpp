#include "playtest/command.h"

#include <gmock/gmock.h>

#include "playtest/tiny_game.h"

namespace tabulon::test {

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::TestWithParam;
using testing::Values;

struct Outcome {
    int Status = -1;
    std::string Out;
    std::string Err;
};

Outcome RunTool(const std::vector<std::string>& arguments) {
    std::ostringstream out, err;
    const int status = playtest::Run(arguments, {out, err});
    return {status, out.str(), err.str()};
}

struct ArgumentCase {
    const char* Name;
    std::vector<std::string> Arguments;
    int Status;
    std::string Err;
};

void PrintTo(const ArgumentCase& arguments, std::ostream* out) { *out << arguments.Name; }

class Arguments : public TestWithParam<ArgumentCase> {};

TEST_P(Arguments, EndWithTheirStatusAndSayWhy) {
    const Outcome outcome = RunTool(GetParam().Arguments);
    EXPECT_EQ(outcome.Status, GetParam().Status);
    EXPECT_THAT(outcome.Err, HasSubstr(GetParam().Err));
    EXPECT_EQ(outcome.Out.empty(), GetParam().Status != 0);
}

INSTANTIATE_TEST_SUITE_P(
    Given, Arguments,
    Values(ArgumentCase{"Help", {"--help"}, 0, ""}, ArgumentCase{"Version", {"--version"}, 0, ""},
           ArgumentCase{"None", {}, 2, "no package"},
           ArgumentCase{"OnlyOptions", {"--json"}, 2, "no package"},
           ArgumentCase{"HelpAndMore", {"--help", "a.gam"}, 2, "alone"},
           ArgumentCase{"UnknownOption", {"a.gam", "--fast"}, 2, "--fast"},
           ArgumentCase{"TwoPackages", {"a.gam", "b.gam"}, 2, "more than one"},
           ArgumentCase{"MissingValue", {"a.gam", "--games"}, 2, "--games needs a value"},
           ArgumentCase{"NoGames", {"a.gam", "--games", "0"}, 2, "--games"},
           ArgumentCase{"NoNumber", {"a.gam", "--seed", "12x"}, 2, "12x"},
           ArgumentCase{"NoDecimalNumber", {"a.gam", "--seed", "0x10"}, 2, "0x10"},
           ArgumentCase{"NegativeNumber", {"a.gam", "--jobs", "-1"}, 2, "-1"},
           ArgumentCase{"SevenSeats", {"a.gam", "--seats", "7"}, 2, "from 1 to 6"},
           ArgumentCase{"NoTurns", {"a.gam", "--max-turns", "0"}, 2, "--max-turns"},
           ArgumentCase{"ReportWithoutName", {"a.gam", "--report", ""}, 2, "--report"},
           ArgumentCase{"ScriptWithoutFile", {"--script"}, 2, "--script"},
           ArgumentCase{"ScriptWithOptions", {"--script", "a.json", "--json"}, 2, "--script"},
           ArgumentCase{"ScriptWithPackage", {"a.gam", "--script", "a.json"}, 2, "--script"},
           ArgumentCase{"ValuesGivenAgain",
                        {"/nowhere/a.gam", "--json", "--json", "--seats", "1", "--seats=2"},
                        1,
                        "No such file"},
           ArgumentCase{"MissingPackage", {"/nowhere/a.gam"}, 1, "/nowhere/a.gam: No such file"},
           ArgumentCase{
               "MissingScript", {"--script", "/nowhere/a.json"}, 1, "/nowhere/a.json: cannot be read"},
           ArgumentCase{"FolderAsScript", {"--script", "/"}, 1, "/: "}),
    CaseName());

struct ScriptCase {
    const char* Name;
    std::string Text;
    std::string Err;
};

void PrintTo(const ScriptCase& script, std::ostream* out) { *out << script.Name; }

class BadScript : public TestWithParam<ScriptCase> {};

TEST_P(BadScript, CannotBeUsedAndSaysWhyInOneLine) {
    const TemporaryDirectory folder;
    std::ofstream(folder / "script.json") << GetParam().Text;
    const Outcome outcome = RunTool({"--script", (folder / "script.json").string()});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_THAT(outcome.Err, HasSubstr(GetParam().Err));
    EXPECT_THAT(outcome.Err, HasSubstr(folder.Path().string()));
    EXPECT_EQ(std::count(outcome.Err.begin(), outcome.Err.end(), '\n'), 1);
}

/// A script that would do but for its package, with one more line.
std::string ScriptWith(const std::string& line) {
    return R"({"package": "none.gam", "clock": "2026-01-05T14:30:00", "players": [], "random": [])" + line +
           "}";
}

INSTANTIATE_TEST_SUITE_P(
    Given, BadScript,
    Values(
        ScriptCase{"NoJson", "roll\nthe dice", "parse error"}, ScriptCase{"Empty", "", "parse error"},
        ScriptCase{"AList", "[]", "no object, but array"}, ScriptCase{"NoPackage", "{}", "package"},
        ScriptCase{"MissingPackage", ScriptWith(""), "none.gam: No such file"},
        ScriptCase{"UnknownControl", ScriptWith(R"(, "steps": [{"click": "cmdJump"}])"),
                   "unknown control \"cmdJump\""},
        ScriptCase{"UnknownStep", ScriptWith(R"(, "steps": [{"click": "cmdRoll"}, {"press": "R"}])"),
                   "step 2: key 'click' not found"},
        ScriptCase{"AnswersThatAreNoList", ScriptWith(R"(, "steps": [{"click": "cmdNew", "yes": true}])"),
                   "step 1: \"yes\" is no list, but boolean"},
        ScriptCase{"HalfASavedGame",
                   ScriptWith(R"(, "steps": [{"click": "cmdLoadGame", "choose": [{"saved": 0.5}]}])"),
                   "a whole number, not 0.5"},
        ScriptCase{"NeitherNewNorSaved",
                   ScriptWith(R"(, "steps": [{"click": "cmdLoadGame", "choose": [{"new": false}]}])"),
                   "neither a new nor a saved game"},
        ScriptCase{"PlayersThatAreNoList",
                   R"({"package": "none.gam", "clock": "2026-01-05T14:30:00", "players": null})",
                   "\"players\" is no list, but null"},
        ScriptCase{
            "FlagAsRandomNumber",
            R"({"package": "none.gam", "clock": "2026-01-05T14:30:00", "players": [], "random": [false]})",
            "no number: false"},
        ScriptCase{"UnknownCardAnswer", ScriptWith(R"(, "steps": [{"click": "cmdRoll", "cards": ["E"]}])"),
                   "unknown card answer"},
        ScriptCase{"NumberBeyondOne",
                   R"({"package": "none.gam", "clock": "2026-01-05T14:30:00", "players": [], "random": [1]})",
                   "not in [0, 1)"},
        ScriptCase{"EmptyPackageName", R"({"package": "", "clock": "2026-01-05T14:30:00", "players": []})",
                   "no package"},
        ScriptCase{"NoSuchDay", R"({"package": "none.gam", "clock": "2026-02-30T14:30:00", "players": []})",
                   "no such day"},
        ScriptCase{"MoreThanATime",
                   R"({"package": "none.gam", "clock": "2026-01-05T14:30:00Z", "players": []})", "14:30:00Z"},
        ScriptCase{"NoTime", R"({"package": "none.gam", "clock": "noon", "players": []})", "noon"},
        ScriptCase{
            "UnknownPiece",
            R"({"package": "none.gam", "clock": "2026-01-05T14:30:00", "players": [{"name": "Ann", "piece": "(Animals) 13"}]})",
            "unknown piece"},
        ScriptCase{
            "NamelessPlayer",
            R"({"package": "none.gam", "clock": "2026-01-05T14:30:00", "players": [{"name": "", "piece": "(Animals) 1"}]})",
            "no name"}),
    CaseName());

struct PackageCase {
    const char* Name;
    std::vector<PackedFile> Files;
    std::string Err;
};

void PrintTo(const PackageCase& package, std::ostream* out) { *out << package.Name; }

class BadPackage : public TestWithParam<PackageCase> {};

TEST_P(BadPackage, CannotBePlayedAndSaysWhy) {
    const TemporaryDirectory folder;
    const std::string file = (folder / "game.gam").string();
    WriteArchive(file, GetParam().Files);
    const Outcome outcome = RunTool({file});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Err, "tabulon-playtest: " + file + ": " + GetParam().Err + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Given, BadPackage,
    Values(PackageCase{"Empty", {}, "this is no package, or there is nothing in it"},
           PackageCase{"Renamed", {{"other.dat", "Game Name=A"}}, "there is no game.dat in it"},
           PackageCase{"Boardless", {{"game.dat", "Game Name=A"}}, "there is no spaces.xml in it"},
           PackageCase{"Nameless", {{"game.dat", ""}, {"spaces.xml", ""}}, "its game has no name"}),
    CaseName());

TEST(DamagedPackage, CannotBePlayed) {
    const TemporaryDirectory folder;
    const std::filesystem::path package = folder / TinyGame{}.WriteTo(folder);
    std::filesystem::resize_file(package, std::filesystem::file_size(package) / 2);
    EXPECT_EQ(RunTool({package.string()}).Status, 1);
    EXPECT_THAT(RunTool({folder.Path().string()}).Err, HasSubstr("this is a folder"));
}

struct StuckCase {
    const char* Name;
    std::string Players;
    std::string Steps;
    std::string Form;
};

void PrintTo(const StuckCase& stuck, std::ostream* out) { *out << stuck.Name; }

class StuckScript : public TestWithParam<StuckCase> {};

TEST_P(StuckScript, HasAStatusOfItsOwn) {
    const TemporaryDirectory folder;
    std::ofstream(folder / "script.json")
        << R"({"package": ")" << TinyGame{}.WriteTo(folder)
        << R"(", "clock": "2026-01-05T14:30:00", "random": [0.5, 0.5],)"
        << R"("players": [)" << GetParam().Players << R"(], "steps": [)" << GetParam().Steps << "]}";
    const Outcome outcome = RunTool({"--script", (folder / "script.json").string()});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_THAT(outcome.Out, HasSubstr(R"({"event":"stuck","form":")" + GetParam().Form));
    EXPECT_THAT(outcome.Out, Not(HasSubstr(R"("event":"error")")));
}

std::string Players(int count) {
    std::string list;
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        list +=
            (i > 1 ? ", " : "") + (R"({"name": "P)" + number + R"(", "piece": "(Animals) )" + number + "\"}");
    }
    return list;
}

INSTANTIATE_TEST_SUITE_P(
    Given, StuckScript,
    Values(StuckCase{"RandomUsedUp", Players(1), R"({"click": "cmdRoll"})", "frmMain"},
           StuckCase{"SevenPlayers", Players(7), "", "dlgPlayers"},
           StuckCase{"UnknownSavedGame", Players(1), R"({"click": "cmdLoadGame", "choose": [{"saved": 1}]})",
                     "dlgLoadGame"},
           StuckCase{"NegativeSavedGame", Players(1),
                     R"({"click": "cmdLoadGame", "choose": [{"saved": -1}]})", "dlgLoadGame"}),
    CaseName());

TEST(Report, ThatCannotBeWrittenLosesNoFigures) {
    const TemporaryDirectory folder;
    const Outcome outcome = RunTool({(folder / TinyGame{}.WriteTo(folder)).string(), "--games", "1",
                                     "--report", (folder / "none" / "report.html").string()});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_THAT(outcome.Err, HasSubstr("report.html: the report cannot be written"));
    EXPECT_THAT(outcome.Out, HasSubstr("Turns a game"));
}

TEST(FullDisk, IsTold) {
    const TemporaryDirectory folder;
    std::ostringstream out, err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(playtest::Run({(folder / TinyGame{}.WriteTo(folder)).string(), "--games", "1"}, {out, err}), 1);
    EXPECT_THAT(err.str(), HasSubstr("cannot be written"));
}

}  // namespace

}  // namespace tabulon::test
