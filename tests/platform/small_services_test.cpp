#include <gmock/gmock.h>

#include "platform/directories.h"
#include "platform/modBrowser.h"
#include "platform/modSingleInstance.h"
#include "platform/modWinVer.h"
#include "platform/stack_log.h"

namespace tabulon::test {
namespace {

class ScriptedShell : public Shell {
  public:
    void Open(const std::string& target) override {
        if (target == "broken") throw Failure(FailureNumber::FileNotFound);
        opened += target;
    }
    void Start(const std::filesystem::path&, const std::vector<std::string>&) override {}
    void StartCompanion(const std::filesystem::path&, const std::vector<std::string>&) override {}
    bool PreviousInstance() override { return true; }
    bool RaisePreviousInstance() override { return answers; }

    bool answers = false;
    std::string opened;
};

TEST(ModWinVerTest, FirstMatchingRuleNamesTheSystem) {
    const std::pair<VersionRecord, const char*> rows[] = {{{1, 4, 10, 2222, 0, 0}, "Win98SE"},
                                                          {{1, 4, 10, 2221, 0, 0}, ""},
                                                          {{1, 4, 90, 3000, 0, 0}, "WinME"},
                                                          {{1, 4, 90, 2999, 0, 0}, ""},
                                                          {{2, 4, 0, 1381, 1, 0}, "WinNT4 Server"},
                                                          {{2, 4, 0, 1381, 2, 0}, "WinNT4 Server"},
                                                          {{2, 4, 0, 1381, 3, 0}, "WinNT4 Server"},
                                                          {{2, 4, 0, 1381, 4, 0}, ""},
                                                          {{2, 4, 0, 1380, 1, 0}, ""},
                                                          {{2, 5, 0, 2195, 1, 0}, "Win2K"},
                                                          {{2, 5, 0, 2194, 1, 0}, ""},
                                                          {{2, 5, 2, 3790, 3, 0}, "Win2003 Server"},
                                                          {{2, 5, 2, 3791, 3, 0}, ""},
                                                          {{2, 5, 1, 2600, 1, 0x200}, "WinXP Home"},
                                                          {{2, 5, 1, 2601, 1, 0xD00}, "WinXP Pro"},
                                                          {{2, 5, 1, 2599, 1, 0x200}, ""},
                                                          {{2, 6, 1, 7601, 1, 0}, ""},
                                                          {{1, 5, 1, 2600, 1, 0}, ""}};
    for (const auto& [is, name] : rows)
        EXPECT_EQ(WinVer(is), name) << is.Platform << ' ' << is.Major << '.' << is.Minor << '.' << is.Build;
    EXPECT_EQ(WinVer(std::nullopt), "");
    EXPECT_EQ(WinVer(), "");
}

TEST(ModSingleInstanceTest, EndsOnlyWhenTheEarlierCopyAnswers) {
    ScriptedShell shell;
    EXPECT_NO_THROW(ActivateEarlierInstance(shell));
    shell.answers = true;
    EXPECT_THROW(ActivateEarlierInstance(shell), ProgramEnd);
}

TEST(ModBrowserTest, OpensTheTargetAsAProcedure) {
    ScriptedShell shell;
    StackLog stack;
    OpenInBrowser(shell, stack, "http://x/");
    OpenInBrowser(shell, stack, "broken");
    EXPECT_EQ(shell.opened, "http://x/");
    EXPECT_EQ(stack.log, "+modBrowser:RunShellExecute-+modBrowser:RunShellExecute!53 File not found-");
}

TEST(DirectoriesTest, FollowThePrefix) {
    const struct {
        const char *executable, *data, *share;
    } rows[] = {
        {"/usr/bin/tabulon-player", "/var/games/tabulon", "/usr/share/tabulon"},
        {"/usr/local/bin/x", "/usr/local/var/games/tabulon", "/usr/local/share/tabulon"},
        {"/home/me/my games/bin/x", "/home/me/my games/var/games/tabulon", "/home/me/my games/share/tabulon"},
        {"/usr/lib/../bin/x", "/var/games/tabulon", "/usr/share/tabulon"},
        {"/bin/x", "/var/games/tabulon", "/share/tabulon"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DataDirectory(row.executable), row.data);
        EXPECT_EQ(ShareDirectory(row.executable), row.share);
    }
}

TEST(DirectoriesTest, TheExecutableIsThisTest) {
    EXPECT_EQ(ExecutablePath().filename(), "test_platform");
    EXPECT_TRUE(ExecutablePath().is_absolute());
}

}  // namespace
}  // namespace tabulon::test
