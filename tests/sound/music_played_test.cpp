#include <gmock/gmock.h>

#include "packages/archive.h"
#include "platform/files.h"
#include "presentation/frmGameMusic.h"
#include "sound/listener.h"
#include "sound/sdl_ogg_player.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon {
namespace {

using test::Decode;
using test::Listener;
using test::Samples;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Music = TABULON_BUILD_DIR "/share/tabulon/music";

/// The game's music from the archives that come along, up to the device.
class MusicPlayed : public testing::Test {
  protected:
    MusicPlayed() {
        g.AppDir = machine.AppDir();
        g.SoundOn = true;
        g.MusicPath = Music;
        g.gErrHandler.ShowDetails = [](const std::string&) {};
        g.gErrHandler.AfterHandlerCalled = [this] { errors.push_back(g.gErrHandler.ErrorProc); };
    }
    Samples Sound(const std::string& genre, const std::string& event) {
        Archive archive(std::filesystem::path(Music) / (genre + ".snd"));
        return Decode(archive.Read(archive.FindFirst(event + ".ogg").value()));
    }
    std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(machine.AppDir()))
            files.push_back(entry.path().filename().string());
        return files;
    }
    void WaitForTheEnd() {
        listener.WaitUntil([&] { return music.Status() != "playing"; });
    }

    test::TestMachine machine;
    Listener listener{machine.Folder.Path()};
    std::unique_ptr<SdlOggPlayer> player = std::make_unique<SdlOggPlayer>();
    Globals g{{machine.TheScreen,
               machine.Clock,
               machine.Random,
               machine.Shell,
               *player,
               machine.Store,
               {},
               machine.AppDir()}};
    modInstallUninstall packages{g};
    FrmGameMusic music{g, packages};
    std::vector<std::string> errors;
};

TEST_F(MusicPlayed, EachEventIsThatOfItsGenre) {
    constexpr std::pair<const char*, const char*> rows[] = {
        {"jazz", "right_answer"}, {"kids", "wrong_answer"}, {"orchestral", "good_roll"},
        {"rock", "bad_point"},    {"techno", "lose_turn"},  {"latin", "good_move"}};
    for (const auto& [genre, event] : rows) {
        music.PlayGameMusic(genre, event, false);
        EXPECT_THAT(Files(), ElementsAre(std::string(event) + ".ogg"));
        WaitForTheEnd();
        EXPECT_THAT(Files(), ElementsAre(std::string(event) + ".ogg")) << "until the next stop";
        music.StopGameMusic();
        EXPECT_THAT(Files(), IsEmpty());
    }
    player.reset();
    const test::Recording heard = listener.Heard();
    for (const auto& [genre, event] : rows) EXPECT_EQ(heard.Count(Sound(genre, event)), 1U) << genre;
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MusicPlayed, AThemeLoopsUntilTheStop) {
    music.PlayGameMusic("latin", "draw_card", true);
    const Samples theme = Sound("latin", "draw_card");
    listener.WaitFor(theme.size() * 2);
    EXPECT_EQ(music.Status(), "playing");
    music.StopGameMusic();
    EXPECT_NE(music.Status(), "playing");
    const std::size_t stopped = listener.Heard().Size();
    listener.WaitForMore();
    player.reset();
    EXPECT_TRUE(listener.Heard().AreTurnsOf(theme));
    EXPECT_TRUE(listener.Heard().IsSilentFrom(stopped + Listener::Unwritten));
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MusicPlayed, WithSoundOffNotEvenTheDeviceOpens) {
    g.SoundOn = false;
    music.PlayGameMusic("jazz", "begin_game", true);
    music.StopGameMusic();
    player.reset();
    EXPECT_FALSE(listener.HasOpened());
    EXPECT_THAT(Files(), ElementsAre());
}

TEST_F(MusicPlayed, WhatCannotBePlayedIsSilentAndNoFailure) {
    const std::string good = test::Encode({});
    g.MusicPath = machine.Folder.Path();
    test::WriteZip(machine.Folder / "polka.snd",
                   {{"text.ogg", "no sound"},
                    {"cut.ogg", good.substr(0, good.size() / 2)},
                    {"endless.ogg", test::Encode({.Seconds = 0, .StatedLength = 44100})},
                    {"good.ogg", good}});
    for (const char* event : {"text", "cut", "endless", "missing"}) {
        music.PlayGameMusic("polka", event, true);
        EXPECT_NE(music.Status(), "playing") << event;
    }
    music.PlayGameMusic("mazurka", "good", true);
    EXPECT_NE(music.Status(), "playing");
    EXPECT_FALSE(listener.HasOpened());
    music.PlayGameMusic("polka", "good", false);
    WaitForTheEnd();
    music.StopGameMusic();
    player.reset();
    EXPECT_TRUE(listener.Heard().IsOnly(Decode(good)));
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MusicPlayed, WithoutADeviceTheGameGoesOn) {
    listener.TakeDeviceAway();
    for (const char* event : {"begin_game", "right_answer"}) {
        music.PlayGameMusic("kids", event, true);
        WaitForTheEnd();
        music.StopGameMusic();
    }
    EXPECT_THAT(errors, IsEmpty());
}

}  // namespace
}  // namespace tabulon
