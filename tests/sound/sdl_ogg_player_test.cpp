#include "sound/sdl_ogg_player.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/temporary_directory.h"
#include "sound/listener.h"

namespace tabulon::test {
namespace {

class SdlOggPlayerTest : public testing::Test {
  protected:
    std::filesystem::path Write(const std::string& name, const std::string& bytes) {
        const std::filesystem::path file = folder / name;
        WriteFile(file, bytes);
        return file;
    }
    void Play(const std::filesystem::path& file, bool loop) {
        player->SetLoop(loop);
        player->Play(file);
    }

    /// Until nothing plays; then the player is gone, and all that was heard is written down.
    Recording HeardAtTheEnd() {
        listener.WaitUntil([&] { return player->Status() != "playing"; });
        player.reset();
        return listener.Heard();
    }

    TemporaryDirectory folder;
    Listener listener{folder.Path()};
    std::unique_ptr<SdlOggPlayer> player = std::make_unique<SdlOggPlayer>();
    const std::string low = Encode({.Hertz = 220});
    const std::string high = Encode({.Hertz = 880, .Seconds = 0.3});
};

TEST_F(SdlOggPlayerTest, PlaysASoundOnceAndIsIdleThen) {
    EXPECT_NE(player->Status(), "playing");
    Play(Write("low.ogg", low), false);
    EXPECT_EQ(player->Status(), "playing") << "also while the device opens";
    listener.WaitUntil([&] { return player->Status() != "playing"; });
    listener.WaitForMore();
    player.reset();
    EXPECT_TRUE(listener.Heard().IsOnly(Decode(low)));
}

TEST_F(SdlOggPlayerTest, RepeatsASoundWithoutAGapUntilStopped) {
    Play(Write("high.ogg", high), true);
    const Samples turn = Decode(high);
    listener.WaitUntil([&] { return listener.Heard().Count(turn) >= 3; });
    EXPECT_EQ(player->Status(), "playing");
    player->Stop();
    EXPECT_NE(player->Status(), "playing");
    const std::size_t stopped = listener.Heard().Size();
    listener.WaitForMore();
    player.reset();
    EXPECT_TRUE(listener.Heard().AreTurnsOf(turn));
    EXPECT_TRUE(listener.Heard().IsSilentFrom(stopped + Listener::Unwritten));
}

TEST_F(SdlOggPlayerTest, ASoundTakesThePlaceOfAnother) {
    Play(Write("low.ogg", low), true);
    listener.WaitUntil([&] { return listener.Heard().Count(Decode(low)) >= 1; });
    Play(Write("high.ogg", high), false);
    EXPECT_EQ(HeardAtTheEnd().Count(Decode(high)), 1U);
}

TEST_F(SdlOggPlayerTest, WhatPlaysNeedsItsFileNoMore) {
    const std::filesystem::path file = Write("Sound.OGG", low);
    Play(folder / "sound.ogg", false);
    std::filesystem::remove(file);
    EXPECT_EQ(HeardAtTheEnd().Count(Decode(low)), 1U);
}

TEST_F(SdlOggPlayerTest, AStopBeforeTheDeviceIsOpenIsAStop) {
    Play(Write("low.ogg", low), true);
    player->Stop();
    EXPECT_NE(player->Status(), "playing");
    listener.WaitForMore();
    player.reset();
    EXPECT_TRUE(listener.Heard().IsSilentFrom(0));
}

TEST_F(SdlOggPlayerTest, PassesOverWhatIsNoSoundAndPlaysOn) {
    std::filesystem::create_directory(folder / "folder.ogg");
    const std::filesystem::path rows[] = {folder / "missing.ogg", folder / "folder.ogg",
                                          Write("text.ogg", "not a sound"),
                                          Write("cut.ogg", low.substr(0, 3000)), Write("empty.ogg", "")};
    for (const std::filesystem::path& row : rows) {
        Play(row, true);
        EXPECT_NE(player->Status(), "playing") << row;
    }
    Play(Write("low.ogg", low), false);
    EXPECT_TRUE(HeardAtTheEnd().IsOnly(Decode(low)));
}

TEST_F(SdlOggPlayerTest, OutlivesDamagedSounds) {
    constexpr std::size_t stride = 61;
    Play(Write("low.ogg", low), false);
    for (std::size_t at = 0; at < high.size(); at += stride) {
        Play(Write("damaged.ogg", Damage(high, at)), true);
        listener.WaitForMore();
        player->Stop();
    }
    Play(folder.Path() / "low.ogg", false);
    EXPECT_EQ(HeardAtTheEnd().Count(Decode(low)), 1U);
}

TEST_F(SdlOggPlayerTest, IsSilentWithoutADevice) {
    listener.TakeDeviceAway();
    for (const char* name : {"first.ogg", "second.ogg"}) {
        Play(Write(name, low), true);
        listener.WaitUntil([&] { return player->Status() != "playing"; });
    }
    player->Stop();
    EXPECT_NE(player->Status(), "playing");
}

TEST_F(SdlOggPlayerTest, EndsWhileTheDeviceOpensOrASoundPlays) {
    Play(Write("low.ogg", low), true);
    player = std::make_unique<SdlOggPlayer>();
    Play(folder / "low.ogg", true);
    listener.WaitForMore();
    player.reset();
}

}  // namespace
}  // namespace tabulon::test
