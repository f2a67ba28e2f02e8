#include <gmock/gmock.h>

#include "platform/files.h"
#include "presentation/frmGameMusic.h"
#include "support/test_machine.h"
#include "support/zip_file.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down what it is told.
class RecordingPlayer final : public OggPlayer {
  public:
    std::string Status() const override { return status; }
    void Stop() override { calls.emplace_back("stop"); }
    void SetLoop(bool loop) override { calls.emplace_back(loop ? "loop" : "once"); }
    void Play(const std::filesystem::path& file) override { calls.push_back(file.string()); }

    std::string status;
    std::vector<std::string> calls;
};

class FrmGameMusicTest : public testing::Test {
  protected:
    FrmGameMusicTest() {
        machine.SetUp(g);
        g.SoundOn = true;
        g.MusicPath = machine.Folder / "music";
        std::filesystem::create_directory(g.MusicPath);
        for (const char* genre : {"jazz", "kids", "orchestral", "rock", "techno", "latin"}) {
            test::WriteZip(g.MusicPath / (std::string(genre) + ".snd"),
                           {{"begin_game.ogg", std::string(genre) + " begins"}, {"good_roll.ogg", "rolled"}});
        }
    }
    std::string Sound(const char* name) const { return (machine.AppDir() / name).string(); }
    std::string Content(const char* name) const {
        return FileExists(Sound(name)) ? ReadFile(Sound(name), 1000) : "";
    }
    std::vector<std::string> TakeCalls() { return std::exchange(player.calls, {}); }
    std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(machine.AppDir()))
            files.push_back(entry.path().filename().string());
        return files;
    }

    test::TestMachine machine;
    RecordingPlayer player;
    Globals g{machine.With(player)};
    modInstallUninstall packages{g};
    FrmGameMusic music{g, packages};
};

TEST_F(FrmGameMusicTest, UnpacksAndPlaysTheEventOfAGenre) {
    music.PlayGameMusic("latin", "begin_game", true);
    EXPECT_THAT(TakeCalls(), ElementsAre("loop", Sound("begin_game.ogg")));
    EXPECT_EQ(Content("begin_game.ogg"), "latin begins");
    music.PlayGameMusic("rock", "begin_game", false);
    EXPECT_THAT(TakeCalls(), ElementsAre("once", Sound("begin_game.ogg")));
    EXPECT_EQ(Content("begin_game.ogg"), "rock begins") << "written over";
    EXPECT_EQ(music.Genre, "rock");
    EXPECT_EQ(music.File, "begin_game");
    EXPECT_FALSE(music.LoopIt);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(FrmGameMusicTest, StopsWhatIsPlayingAndNothingElse) {
    player.status = "playing";
    music.PlayGameMusic("jazz", "good_roll", false);
    EXPECT_THAT(TakeCalls(), ElementsAre("stop", "once", Sound("good_roll.ogg")));
    EXPECT_EQ(music.Status(), "playing");
    player.status = "Playing";
    music.PlayGameMusic("jazz", "good_roll", false);
    EXPECT_THAT(TakeCalls(), ElementsAre("once", Sound("good_roll.ogg")));
}

TEST_F(FrmGameMusicTest, WithSoundOffNothingIsStoredOrDrawn) {
    g.SoundOn = false;
    music.Genre = "before";
    music.PlayGameMusic("random", "begin_game", true);
    EXPECT_THAT(player.calls, IsEmpty());
    EXPECT_EQ(music.Genre, "before");
    EXPECT_EQ(music.File, "");
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(FrmGameMusicTest, AnEmptyGenreIsStoredAndSilent) {
    music.PlayGameMusic("", "begin_game", true);
    EXPECT_THAT(player.calls, IsEmpty());
    EXPECT_TRUE(music.File == "begin_game" && music.LoopIt);
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(FrmGameMusicTest, AMissingArchiveOrSoundIsNoFailure) {
    for (const char* genre : {"polka", "../music/jazz/.."}) music.PlayGameMusic(genre, "begin_game", true);
    music.PlayGameMusic("jazz", "bad_move", true);
    g.MusicPath.clear();
    music.PlayGameMusic("jazz", "begin_game", true);
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(FrmGameMusicTest, RandomIsDrawnForEachSoundAndNeverLatin) {
    const std::pair<float, const char*> rows[] = {
        {0, "jazz"},     {0.19f, "jazz"}, {0.21f, "kids"},   {0.41f, "orchestral"},
        {0.61f, "rock"}, {0.79f, "rock"}, {0.81f, "techno"}, {0.99999994f, "techno"}};
    for (const auto& [number, genre] : rows) {
        machine.Random.Numbers = {number};
        music.PlayGameMusic("random", "begin_game", true);
        EXPECT_EQ(music.Genre, genre) << number;
        EXPECT_EQ(Content("begin_game.ogg"), std::string(genre) + " begins");
        EXPECT_THAT(machine.Random.Numbers, IsEmpty());
    }
}

TEST_F(FrmGameMusicTest, StoppingTakesFiftyMillisecondsAndTheFiles) {
    for (const char* left : {"former.ogg", "FORMER.OGG", "other.txt"}) AppendToFile(Sound(left), "left");
    std::int64_t stoppedAt = -1;
    music.SoundStops = [&] { stoppedAt = machine.TheScreen.Milliseconds(); };
    music.StopGameMusic();
    EXPECT_EQ(stoppedAt, 0);
    EXPECT_EQ(machine.TheScreen.Milliseconds(), 50);
    EXPECT_THAT(TakeCalls(), ElementsAre("stop"));
    EXPECT_THAT(Files(), ElementsAre("other.txt"));
    music.PlayGameMusic("jazz", "begin_game", true);
    music.PlayGameMusic("jazz", "good_roll", true);
    music.StopGameMusic();
    EXPECT_THAT(Files(), ElementsAre("other.txt"));
    g.SoundOn = false;
    music.StopGameMusic();
    EXPECT_EQ(machine.TheScreen.Milliseconds(), 150);
}

TEST_F(FrmGameMusicTest, UnloadingStopsThePlayerAndLeavesTheFiles) {
    music.Load();
    music.PlayGameMusic("jazz", "begin_game", true);
    TakeCalls();
    music.Unload();
    EXPECT_THAT(player.calls, ElementsAre("stop"));
    EXPECT_THAT(Files(), ElementsAre("begin_game.ogg"));
    EXPECT_EQ(machine.TheScreen.Milliseconds(), 0);
}

}  // namespace
}  // namespace tabulon
