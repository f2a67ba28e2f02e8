#include "info/frmSplash.h"
#include "info_run.h"

namespace tabulon::test {
namespace {

using namespace testing;

constexpr char Gif[] = "GIF89a\x03\0\x02\0\0\0\0";

class SplashTest : public testing::Test {
  protected:
    SplashTest() {
        game.GameDirectory = "{A-1}";
        game.Font = "Quicksand";
        game.FontSize = 12;
        const std::string gif(Gif, sizeof Gif - 1);
        WriteZip(run.AppDir() / "{A-1}.gam", {{"own.gif", gif}, {"note.txt", "stays"}});
        WriteZip(run.Share() / "defobjs.gam", {{"DEFAULT.BMP", gif + "longer"}});
    }

    InfoRun run;
    modInstallUninstall packages{run.g};
    CGame game{run.g, packages};
    FrmSplash splash{run.g, packages};
};

TEST_F(SplashTest, TellsWhatIsKnownOfTheGame) {
    const struct {
        const char *name, *lower, *upper, *resolution;  // of the game
        const char *nameShown, *ages, *best;            // empty when hidden
    } rows[] = {
        {"Cats", "0", "12", "", "Cats", "", ""},
        {"A & B", "8", "0", "1024 x 768", "A && B", "Recommended for ages 8 and up.",
         "Best viewed with 1024 x 768 resolution."},
        {"A && B", "8", "12", "", "A && B", "Recommended for ages 8 to 12.", ""},
        {"A&&&&B&", "-1", "-1", "", "A&&B&&", "", ""},
        {"&&&", "1", "-1", "x", "&&", "Recommended for ages 1 and up.", "Best viewed with x resolution."},
    };
    const auto shown = [](const Label& label) { return label.Visible ? label.Caption : std::string(); };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        game.GameName = row.name;
        game.Author = "Jim & Joe";
        game.SetLowerAgeRange(row.lower);
        game.SetUpperAgeRange(row.upper);
        game.PreferredResolution = row.resolution;
        splash.SetUp(game);
        EXPECT_EQ(splash.lblGameName.Caption, row.nameShown);
        EXPECT_EQ(splash.lblAuthor.Caption, "Jim & Joe");
        EXPECT_EQ(shown(splash.lblAgeRange), row.ages);
        EXPECT_EQ(shown(splash.lblPreferredResolution), row.best);
        EXPECT_EQ(splash.lblAuthor.Font, (Font{"Quicksand", 30}));
        EXPECT_TRUE(splash.Visible);
    }
    EXPECT_THAT(run.Errors, IsEmpty());
}

TEST_F(SplashTest, ShowsThePictureThatTheGameNames) {
    const struct {
        const char* splash;
        std::size_t size;  // of the picture's file; 0 for the one of the design
        bool shows;
    } rows[] = {{"", 0, true},
                {"own.gif", sizeof Gif - 1, true},
                {"DEFAULT", sizeof Gif + 5, true},
                {"missing.gif", 0, false},
                {"note.txt", 0, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.splash);
        game.Splash = row.splash;
        splash.Unload();
        run.Errors.clear();
        splash.SetUp(game);
        const Picture& picture = splash.imgUserSplash.Picture;
        EXPECT_EQ(picture.File ? picture.File->Bytes.size() : 0, row.size);
        EXPECT_EQ(splash.Visible, row.shows);
        EXPECT_EQ(run.Errors.empty(), row.shows);
        EXPECT_FALSE(run.HasFile("own.gif") || run.HasFile("DEFAULT.BMP"));
    }
}

}  // namespace
}  // namespace tabulon::test
