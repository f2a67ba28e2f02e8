#include "sound/ogg_check.h"

#include <gtest/gtest.h>

#include "sound/tone.h"

namespace tabulon::test {
namespace {

TEST(OggCheck, TellsWhatCanBeGivenToTheMixer) {
    const std::string tone = Encode({});
    const std::string longer = Encode({.Seconds = 5});
    const std::size_t headers = Encode({.Seconds = 0, .StatedLength = 1}).size();
    const struct {
        const char* Name;
        std::string File;
        bool Playable;
    } rows[] = {
        {"a tone", tone, true},
        {"in mono", Encode({.Channels = 1, .Rate = 22050}), true},
        {"a comment that is no mark", Encode({.Comment = "TITLE=Loop"}), true},
        {"cut off after some of it", longer.substr(0, longer.size() - 500), true},
        {"shorter than it says", Encode({.Seconds = 5, .StatedLength = 44100 * 500}), true},
        {"nothing", "", false},
        {"text", std::string(5000, 'x'), false},
        {"text behind a first page's name", "OggS" + std::string(5000, '\2'), false},
        {"cut off in the headers", tone.substr(0, 2000), false},
        {"no more than headers", tone.substr(0, headers), false},
        {"no sound, with a length", Encode({.Seconds = 0, .StatedLength = 44100}), false},
        {"too short to repeat", Encode({.Seconds = 0.01}), false},
        {"a length of hours", Encode({.Seconds = 5, .StatedLength = 44100LL * 36000}), false},
        {"three channels", Encode({.Channels = 3}), false},
        {"a rate of 1", Encode({.StatedRate = 1}), false},
        {"a rate of two thousand million", Encode({.StatedRate = 2'000'000'000}), false},
        {"a mark to go back to", Encode({.Comment = "LoopStart=1"}), false},
        {"two streams one after another", tone + tone, false},
        {"a stream behind something else", "x" + tone, false},
        {"more bytes than a sound may have", tone + std::string(limits::SoundBytes, '\0'), false},
    };
    for (const auto& [name, file, playable] : rows) EXPECT_EQ(IsPlayable(file), playable) << name;
}

/// Under a sanitizer a wrong access ends the test.
TEST(OggCheck, SurvivesEachDamagedByte) {
    const std::string tone = Encode({.Seconds = 0.1});
    for (std::size_t at = 0; at < tone.size(); ++at) IsPlayable(Damage(tone, at));
}

}  // namespace
}  // namespace tabulon::test
