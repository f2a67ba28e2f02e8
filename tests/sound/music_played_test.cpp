#include <gmock/gmock.h>

#include "packages/archive.h"
#include "platform/files.h"
#include "presentation/frmGameMusic.h"
#include "sound/listener.h"
#include "sound/sdl_ogg_player.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon::test {
namespace {

using namespace testing;

constexpr const char* Music = TABULON_BUILD_DIR "/share/tabulon/music";

/// The game's music from the archives that come along, up to the device.
class MusicPlayed : public testing::Test {
  protected:
    MusicPlayed() {
        machine.SetUp(g);
        g.SoundOn = true;
        g.MusicPath = Music;
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

    TestMachine machine;
    Listener listener{machine.Folder.Path()};
    std::unique_ptr<SdlOggPlayer> player = std::make_unique<SdlOggPlayer>();
    Globals g{machine.With(*player)};
    modInstallUninstall packages{g};
    FrmGameMusic music{g, packages};
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
    const Recording heard = listener.Heard();
    for (const auto& [genre, event] : rows) EXPECT_EQ(heard.Count(Sound(genre, event)), 1U) << genre;
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(MusicPlayed, WhatCannotBePlayedIsSilentAndNoFailure) {
    g.MusicPath = machine.Folder.Path();
    WriteZip(machine.Folder / "polka.snd", {{"text.ogg", "no sound"}});
    for (const auto& [genre, event] :
         {std::pair{"polka", "text"}, {"polka", "missing"}, {"mazurka", "good"}}) {
        music.PlayGameMusic(genre, event, true);
        EXPECT_NE(music.Status(), "playing") << event;
    }
    EXPECT_FALSE(listener.HasOpened());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

}  // namespace
}  // namespace tabulon::test
