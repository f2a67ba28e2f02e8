#include "info/HTMLHelp.h"
#include "info/dlgHelp.h"
#include "info_run.h"

namespace tabulon::test {
namespace {

using namespace testing;

constexpr char Missing[] =
    " does not exist.\r\nPlease make sure the correct path and file name have been specified.";

class HelpTest : public testing::Test {
  protected:
    HelpTest() {
        game->GameDirectory = frmMain.GameDirectory = "{A-1}";
        game->GameName = "Test";
        game->Font = "DejaVu Sans";
        game->FontSize = 12;
        WriteFile(run.Share() / "tips.txt", "one\ntwo\n");
    }

    void PackHelp(const std::string& name, const std::string& content) {
        game->HelpFile = name;
        WriteZip(run.AppDir() / "{A-1}.gam", {{name, content}});
    }
    /// Opens the dialog, does this, and closes it at the end.
    void Open(std::function<void()> act) {
        run.Then(std::move(act));
        run.Then([this] { dlgHelp.cmdFakeClose.Click(); });
        dlgHelp.SetUp(game);
        EXPECT_FALSE(dlgHelp.Loaded);
    }
    /// Opens the game's help, and tells the text of the viewer that came up; empty for none.
    std::string TextOfGameHelp() {
        std::string text;
        run.Then([this] { dlgHelp.KeyUp(Key::G, 0); });
        run.Then([&] {
            text = dlgRTF.rtbUserHelp.Content;
            for (const TextParagraph& paragraph : dlgRTF.rtbUserHelp.Paragraphs)
                text += paragraph.Runs.at(0).Text;
            (dlgRTF.Visible ? dlgRTF.cmdClose : dlgHelp.cmdFakeClose).Click();
        });
        run.Then([this] { dlgHelp.cmdFakeClose.Click(); });
        dlgHelp.SetUp(game);
        run.machine.User.Acts.clear();
        return text;
    }

    InfoRun run;
    modInstallUninstall packages{run.g};
    MainForm frmMain{run.g};
    DlgRTF dlgRTF{run.g, packages};
    DlgTipOfTheDay dlgTipOfTheDay{run.g};
    DlgHelp dlgHelp{run.g, frmMain, packages, dlgRTF, dlgTipOfTheDay};
    std::shared_ptr<CGame> game = std::make_shared<CGame>(run.g, packages);
};

TEST_F(HelpTest, TextsOpenInTheViewerAndAreDeletedAfterwards) {
    const struct {
        const char *file, *content, *text;
    } rows[] = {{"help.txt", "Throw the dice \xE4", "Throw the dice \u00E4"},
                {"HELP.RTF", "{\\rtf1 Throw {\\b the} dice}", "Throw "},
                {"rules.rtf", "No rich text at all", "No rich text at all"}};
    for (const auto& row : rows) {
        PackHelp(row.file, row.content);
        EXPECT_EQ(TextOfGameHelp(), row.text) << row.file;
        EXPECT_FALSE(run.HasFile(row.file));
    }
    EXPECT_THAT(run.Errors, IsEmpty());
}

TEST_F(HelpTest, GameWithoutHelpShowsTheCommonText) {
    WriteZip(run.Share() / "defobjs.gam", {{"DEFAULT.BMP", "BM"}, {"DEFAULT.TXT", "Have fun"}});
    for (const char* file : {"DEFAULT", " "}) {
        game->HelpFile = file;
        EXPECT_EQ(TextOfGameHelp(), "Have fun") << file;
        EXPECT_EQ(game->HelpFile, "DEFAULT");
        EXPECT_FALSE(run.HasFile("DEFAULT.TXT"));
    }
}

TEST_F(HelpTest, FailuresOfTheViewerAreReportedAndShowNothing) {
    game->HelpFile = "missing.txt";
    EXPECT_EQ(TextOfGameHelp(), "");
    EXPECT_THAT(run.Errors, ElementsAre("dlgRTF:ShowGameHelp 53"));
    run.Errors.clear();
    PackHelp("damaged.rtf", "{\\rtf1 {\\b Throw");
    EXPECT_EQ(TextOfGameHelp(), "");
    EXPECT_THAT(run.Errors, ElementsAre("dlgRTF:ShowGameHelp 57"));
    EXPECT_FALSE(run.HasFile("damaged.rtf"));
}

TEST_F(HelpTest, LogOfFailuresIsNoHelpThatGoes) {
    for (const char* file : {"ERRORS.TXT", "errors.txt"}) {
        WriteFile(run.AppDir() / "ERRORS.TXT", "older reports");
        game->HelpFile = file;
        EXPECT_EQ(TextOfGameHelp(), "older reports") << file;
        EXPECT_TRUE(run.HasFile("ERRORS.TXT")) << file;
    }
}

TEST_F(HelpTest, OtherExtensionDoesNothing) {
    PackHelp("help.exe", "MZ");
    EXPECT_EQ(TextOfGameHelp(), "");
    EXPECT_THAT(run.machine.Shell.Companions, IsEmpty());
    EXPECT_THAT(run.machine.User.Boxes, IsEmpty());
}

TEST_F(HelpTest, EmptyHelpFileDisablesTheButtonAndItsKey) {
    Open([&] { EXPECT_FALSE(dlgHelp.cmdHelp[0].Enabled || dlgHelp.KeyUp(Key::G, 0)); });
}

TEST_F(HelpTest, CompiledHelpOpensInTheViewerProgram) {
    PackHelp("Rules.CHM", "ITSF");
    Open([&] { dlgHelp.cmdHelp[0].Click(); });
    EXPECT_THAT(run.machine.Shell.Companions, ElementsAre(run.Viewer()));
    EXPECT_THAT(run.machine.Shell.Arguments,
                ElementsAre(ElementsAre((run.AppDir() / "{A-1}/Rules.CHM").string())));
    EXPECT_TRUE(run.HasFile("{A-1}/Rules.CHM"));
}

TEST_F(HelpTest, GameKeyThatIsAPathUnpacksNothing) {
    game->HelpFile = "help.chm";
    game->GameDirectory = "../outside";
    WriteZip(run.machine.Folder / "outside.gam", {{"help.chm", "ITSF"}});
    Open([&] { dlgHelp.cmdHelp[0].Click(); });
    EXPECT_THAT(run.Errors, ElementsAre("dlgHelp:ShowHTMLHelp 76"));
    EXPECT_FALSE(std::filesystem::exists(run.machine.Folder / "outside"));
    EXPECT_THAT(run.machine.Shell.Companions, IsEmpty());
}

TEST_F(HelpTest, OldBinaryHelpGetsAPlainWord) {
    PackHelp("rules.hlp", "?_");
    Open([&] { dlgHelp.cmdHelp[0].Click(); });
    EXPECT_THAT(run.machine.User.BoxTexts(), ElementsAre(HasSubstr("older format")));
}

TEST_F(HelpTest, PlayersHelpLiesBesideTheProgram) {
    PackHelp("rules.txt", "Throw");
    Open([&] { dlgHelp.cmdHelp[2].Click(); });
    EXPECT_THAT(run.machine.User.BoxTexts(),
                ElementsAre("The file " + (run.Share() / "TabPlayer.chm").string() + Missing));
    EXPECT_EQ(run.machine.User.Boxes[0].Title, "HTML Help Class");
    WriteFile(run.Share() / "TABPLAYER.CHM", "ITSF");
    Open([&] { dlgHelp.cmdHelp[2].Click(); });
    EXPECT_THAT(run.machine.Shell.Arguments,
                ElementsAre(ElementsAre((run.Share() / "TABPLAYER.CHM").string())));
}

TEST_F(HelpTest, PlayersHelpLeavesNothingOfTheGameBehind) {
    WriteFile(run.Share() / "TabPlayer.chm", "ITSF");
    WriteFile(run.AppDir() / "settings.db", "ours");
    for (const char* file : {"help.rtf", "hel", "TabPlayer.chm", "settings.db"}) {
        SCOPED_TRACE(file);
        game->HelpFile = file;
        WriteZip(run.AppDir() / "{A-1}.gam", {{"help.rtf", "{\\rtf1}"}, {"TabPlayer.chm", "hostile"}});
        Open([&] { dlgHelp.cmdHelp[2].Click(); });
        EXPECT_FALSE(run.HasFile("help.rtf") || FileExists(run.Share() / "help.rtf"));
        EXPECT_FALSE(run.HasFile("TabPlayer.chm") || std::filesystem::exists(run.AppDir() / "unread"));
        EXPECT_TRUE(run.HasFile("settings.db"));
        EXPECT_EQ(ReadFile(run.Share() / "TabPlayer.chm", 100), "ITSF");
    }
    EXPECT_THAT(run.Errors, IsEmpty());
}

TEST_F(HelpTest, KeysAreNotTheAccessKeysOfAllCaptions) {
    const std::tuple<char, int, const char*> rows[] = {
        {'R', 0, "https://makers.example/scripts/review01.php?gid={A-1}"},
        {'U', 0, "https://makers.example/download.php"},
        {'T', 0, "https://makers.example/index.html"},
        {'W', 0, ""},
        {'H', 0, ""},
        {'R', Key::Alt, ""},  // went down in the window before
    };
    for (const auto& [key, shift, page] : rows) {
        SCOPED_TRACE(key);
        run.machine.Shell.Opened.clear();
        Open(
            [&, key = key, shift = shift, acts = *page != 0] { EXPECT_EQ(dlgHelp.KeyUp(key, shift), acts); });
        const std::vector<std::string> opened(*page != 0, page);
        EXPECT_EQ(run.machine.Shell.Opened, opened);
    }
}

TEST_F(HelpTest, EscapeAndCClose) {
    for (const int code : {27, 67}) {
        run.Then([&] { dlgHelp.KeyUp(code, 0); });
        dlgHelp.SetUp(game);
        EXPECT_FALSE(dlgHelp.Loaded);
    }
}

TEST_F(HelpTest, WebSiteCanBeNamedByTheInstallation) {
    run.Set("WebSite", "https://family.example");
    Open([&] { dlgHelp.cmdHelp[5].Click(); });
    EXPECT_THAT(run.machine.Shell.Opened, ElementsAre("https://family.example/index.html"));
}

TEST_F(HelpTest, AskingForATipTurnsTheTipsOn) {
    run.Set("Player Tip Status", "Off");
    run.Then([&] { dlgHelp.KeyUp(Key::I, 0); });
    run.Then([&] {
        EXPECT_FALSE(dlgHelp.Visible);
        EXPECT_EQ(run.Setting("Player Tip Status"), "On");
        EXPECT_EQ(dlgTipOfTheDay.lblTipText.Caption, "two");
        dlgTipOfTheDay.cmdClose.Click();
    });
    run.Then([&] {
        EXPECT_TRUE(dlgHelp.Visible);
        dlgHelp.cmdHelp[6].Click();
    });
    dlgHelp.SetUp(game);
    EXPECT_THAT(run.machine.User.Acts, IsEmpty());
}

TEST_F(HelpTest, KeysOfTheViewerCloseIt) {
    game->HelpFile = "a.txt";
    for (const int code : {27, 13, 32, 67, 88}) {
        WriteFile(run.AppDir() / "a.txt", "Throw");
        run.Then([&] {
            EXPECT_EQ(dlgRTF.ActiveControl, &dlgRTF.cmdDummy);
            EXPECT_EQ(dlgRTF.KeyDown(code, 0), code != 88);
            dlgRTF.Hide();
        });
        bool ok = false;
        dlgRTF.ShowGameHelp(game, ok);
        EXPECT_TRUE(ok);
    }
}

class HtmlHelpTest : public Test {
  protected:
    /// What a message box tells of a file; empty when it is opened.
    std::string Display(const char* file) {
        run.machine.User.Boxes.clear();
        help.CHMFile = file;
        help.HHDisplayIndex();
        if (run.machine.User.Boxes.empty()) return "";
        EXPECT_EQ(run.machine.User.Boxes.at(0).Title, "HTML Help Class");
        return run.machine.User.Boxes[0].Text;
    }

    InfoRun run;
    HTMLHelp help{run.g};
};

TEST_F(HtmlHelpTest, ABareNameMeansAFileOfTheProgram) {
    WriteFile(run.Share() / "TabPlayer.chm", "ITSF");
    EXPECT_EQ(Display("tabplayer.CHM"), "");
    EXPECT_THAT(run.machine.Shell.Arguments, ElementsAre(ElementsAre(run.Share() / "TabPlayer.chm")));
    std::filesystem::remove(run.Viewer());
    EXPECT_THAT(Display("TabPlayer.chm"), HasSubstr("viewer is not installed"));
    EXPECT_THAT(run.machine.Shell.Companions, SizeIs(1));
}

TEST_F(HtmlHelpTest, OnlyCompiledHelpIsOpened) {
    WriteFile(run.Share() / "notes.txt", "");
    for (const std::string file : {"notes.txt", "chm", ""})
        EXPECT_EQ(Display(file.c_str()), file + " is not a valid HTML Help file.");
    EXPECT_EQ(Display("missing.chm"), std::string("The file missing.chm") + Missing);
    EXPECT_THAT(run.machine.Shell.Companions, IsEmpty());
}

}  // namespace
}  // namespace tabulon::test
