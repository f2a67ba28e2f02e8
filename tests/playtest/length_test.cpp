#include <cmath>
#include <gmock/gmock.h>

#include "platform/files.h"
#include "playtest/statistics.h"

namespace tabulon::test {

namespace {

using testing::HasSubstr;

struct LengthCase {
    int Seats;
    const char* Before;  // the number of turns
    const char* Behind;
};

constexpr LengthCase LanternRace[] = {{2, "two players take about ", " turns together"},
                                      {4, "four about ", " and six"},
                                      {6, "six about ", ", with"}};

TEST(LanternRace, TakesAsManyTurnsAsItsHelpSays) {
    const std::filesystem::path package =
        TABULON_BUILD_DIR "/var/games/tabulon/{4329823B-C888-406D-B263-DFDC9898627C}.gam";
    const std::string help = ReadFile(TABULON_SOURCE_DIR "/games/lantern-race/help.txt", 1 << 20);
    for (const LengthCase& row : LanternRace) {
        const auto played = playtest::PlayStatistics({.Package = package, .Seats = row.Seats}, {});
        const long turns = std::lround(played.Counted.MedianLength());
        EXPECT_THAT(help, HasSubstr(row.Before + std::to_string(turns) + row.Behind));
    }
}

}  // namespace

}  // namespace tabulon::test
