#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "packages/archive.h"
#include "sound/loudness.h"
#include "sound/ogg_check.h"
#include "sound/tone.h"

namespace tabulon::test {
namespace {

constexpr const char* Folder = TABULON_BUILD_DIR "/share/tabulon/music";
constexpr const char* Genres[] = {"jazz", "kids", "orchestral", "rock", "techno", "latin"};
constexpr double Rate = 44100;

struct Event {
    const char* Name;
    bool Loops;
    double Shortest, Longest;  // seconds
};
constexpr Event Events[] = {
    {"new_load_game", true, 60, 120}, {"player_icon", true, 60, 120},  {"begin_game", true, 60, 120},
    {"draw_card", true, 30, 60},      {"right_answer", false, 0.8, 2}, {"wrong_answer", false, 0.8, 2},
    {"good_roll", false, 0.8, 2},     {"bad_roll", false, 0.8, 2},     {"good_move", false, 0.8, 2},
    {"bad_move", false, 0.8, 2},      {"good_point", false, 0.8, 2},   {"bad_point", false, 0.8, 2},
    {"lose_turn", false, 0.8, 2},     {"extra_turn", false, 0.8, 2},   {"won_game", false, 4, 12},
};

int Jump(const Samples& samples, std::size_t at) {
    const std::size_t size = samples.size();
    return std::abs(samples[at % size] - samples[(at + size - 2) % size]);
}

/// Whether the end goes over into the beginning without a click: no step that the millisecond around it does
/// not have too.
bool IsSeamless(const Samples& samples) {
    constexpr std::size_t around = 2 * 44;
    constexpr int inaudible = 150;
    int usual = inaudible;
    for (std::size_t back = 2; back <= around; ++back)
        usual = std::max({usual, Jump(samples, samples.size() - back), Jump(samples, back)});
    return Jump(samples, 0) <= 3 * usual / 2 && Jump(samples, 1) <= 3 * usual / 2;
}

double Power(Samples::const_iterator from, Samples::const_iterator to) {
    double sum = 0;
    for (auto at = from; at != to; ++at) sum += static_cast<double>(*at) * *at;
    return sum / static_cast<double>(to - from);
}

/// Whether the music goes on up to its very end.
bool SoundsToTheEnd(const Samples& samples) {
    constexpr std::ptrdiff_t end = 2 * 44100 / 5;
    constexpr double faint = 1e-3;
    return Power(samples.end() - end, samples.end()) > faint * Power(samples.begin(), samples.end());
}

class MusicArchive : public testing::TestWithParam<const char*> {};

TEST_P(MusicArchive, HasEachEventAsItShouldSound) {
    Archive archive(std::filesystem::path(Folder) / (GetParam() + std::string(".snd")));
    EXPECT_EQ(archive.Names().size(), std::size(Events));
    for (const Event& event : Events) {
        const auto entry = archive.FindFirst(std::string(event.Name) + ".ogg");
        ASSERT_TRUE(entry) << event.Name;
        const std::string ogg = archive.Read(*entry);
        EXPECT_TRUE(IsPlayable(ogg)) << event.Name;
        const Samples samples = Decode(ogg);
        const double seconds = static_cast<double>(samples.size()) / 2 / Rate;
        EXPECT_TRUE(event.Shortest <= seconds && seconds < event.Longest) << event.Name << seconds;
        const Loudness loudness = Measure(samples);
        EXPECT_NEAR(loudness.Whole, -18, 1) << event.Name;
        EXPECT_NEAR(loudness.Above200Hertz, -18, 2) << event.Name;
        EXPECT_LT(loudness.Peak, -1) << event.Name;
        if (!event.Loops) continue;
        EXPECT_TRUE(IsSeamless(samples)) << event.Name;
        EXPECT_TRUE(SoundsToTheEnd(samples)) << event.Name;
    }
}

INSTANTIATE_TEST_SUITE_P(Genres, MusicArchive, testing::ValuesIn(Genres),
                         [](const auto& row) { return std::string(row.param); });

TEST(MusicArchives, AreSmallTogether) {
    constexpr std::uintmax_t most = 24'000'000;
    std::uintmax_t size = 0;
    for (const auto& file : std::filesystem::directory_iterator(Folder)) size += file.file_size();
    EXPECT_LT(size, most);
}

}  // namespace
}  // namespace tabulon::test
