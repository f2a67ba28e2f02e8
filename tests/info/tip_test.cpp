#include "info/dlgTipOfTheDay.h"
#include "info_run.h"
#include "platform/text.h"

namespace tabulon::test {
namespace {

using namespace testing;

class TipTest : public testing::Test {
  protected:
    TipTest() { WriteFile(run.Share() / "tips.txt", "one\ntwo\nthree\nfour\\nlines\n"); }

    /// Opens the dialog, does this and closes it.
    void Open(std::function<void()> act = [] {}) {
        run.Then([this, act] {
            act();
            dialog.cmdClose.Click();
        });
        bool ok = false;
        dialog.TipOfTheDay(ok);
        EXPECT_TRUE(ok);
    }
    std::string ShownAtOpening() {
        std::string text;
        Open([&] { text = dialog.lblTipText.Caption; });
        return text;
    }

    InfoRun run;
    DlgTipOfTheDay dialog{run.g};
};

TEST_F(TipTest, EachOpeningPassesOverOneTip) {
    EXPECT_EQ(ShownAtOpening(), "two");
    EXPECT_EQ(run.Setting("Last Player Tip"), "2");
    EXPECT_EQ(ShownAtOpening(), "four\r\nlines");
    EXPECT_EQ(ShownAtOpening(), "two") << "after the last tip the first one comes, and is passed over";
    run.Set("Last Player Tip", 30);
    EXPECT_EQ(ShownAtOpening(), "two");
}

TEST_F(TipTest, TipsGoRoundInBothDirections) {
    run.Set("Last Player Tip", 2);
    Open([&] {
        EXPECT_EQ(dialog.lblTipText.Caption, "four\r\nlines");
        dialog.cmdFakeNext.Click();
        EXPECT_EQ(dialog.lblTipText.Caption, "one");
        dialog.cmdBack.Click();
        EXPECT_EQ(dialog.lblTipText.Caption, "four\r\nlines");
        dialog.cmdBack.Click();
        EXPECT_EQ(dialog.lblTipText.Caption, "three");
    });
    EXPECT_EQ(run.Setting("Last Player Tip"), "3");
}

TEST_F(TipTest, CheckedBoxSwitchesOffAndAnOpenBoxSwitchesOn) {
    Open([&] { dialog.chkShowTipsAtStartup.Value = true; });
    EXPECT_EQ(run.Setting("Player Tip Status"), "Off");
    Open([&] { dialog.chkShowTipsAtStartup.Value = false; });
    EXPECT_EQ(run.Setting("Player Tip Status"), "On");
}

TEST_F(TipTest, TipsThatAreOffLeaveAnEmptyDialog) {
    run.Set("Player Tip Status", "Off");
    run.Set("Last Player Tip", 3);
    EXPECT_EQ(ShownAtOpening(), std::string(255, ' '));
    EXPECT_EQ(run.Setting("Player Tip Status"), "On");
    EXPECT_EQ(run.Setting("Last Player Tip"), "1");
}

TEST_F(TipTest, MissingListLeavesAnEmptyDialogWithoutAReport) {
    std::filesystem::remove(run.Share() / "tips.txt");
    EXPECT_EQ(ShownAtOpening(), std::string(255, ' '));
    EXPECT_THAT(run.Errors, IsEmpty());
}

TEST_F(TipTest, SpoiltSettingIsReportedAndShowsNothing) {
    run.Set("Last Player Tip", std::string("many"));
    bool ok = false;
    dialog.TipOfTheDay(ok);
    EXPECT_TRUE(ok);
    EXPECT_THAT(run.Errors, testing::ElementsAre("dlgTipOfTheDay:TipOfTheDay 13"));
}

TEST_F(TipTest, KeysActWhateverIsHeldWithThem) {
    const struct {
        const char* Name;
        int Code;
        bool Acts;
        const char* Text;
        bool Checked, Closes;
    } rows[] = {
        {"M", 77, true, "two", true, false},       {"B", 66, true, "one", false, false},
        {"N", 78, true, "three", false, false},    {"C", 67, true, "two", false, true},
        {"Escape", 27, true, "two", false, true},  {"X", 88, false, "two", false, false},
        {"Enter", 13, false, "two", false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        run.Set("Player Tip Status", std::string("On"));
        run.Set("Last Player Tip", 0);
        dialog.chkShowTipsAtStartup.Value = false;
        Open([&] {
            EXPECT_EQ(dialog.KeyDown(row.Code, Key::Alt), row.Acts);
            EXPECT_EQ(dialog.lblTipText.Caption, row.Text);
            EXPECT_EQ(dialog.chkShowTipsAtStartup.Value, row.Checked);
            EXPECT_EQ(!dialog.Visible, row.Closes);
        });
    }
}

TEST_F(TipTest, TextsAreFoundByTheirNumberAndCut) {
    const std::string file = (run.Share() / "tips.txt").string();
    const struct {
        const char* id;
        int length;
        std::string text;
    } rows[] = {{"101", 255, "one"},
                {"#103", 255, "three"},
                {"103", 2, "th"},
                {"100", 3, "   "},
                {"105", 3, "   "},
                {"-2147483648", 3, "   "},
                {"104", 255, "four\r\nlines"}};
    for (const auto& row : rows) {
        dialog.DisplayString(file, row.id, row.length);
        EXPECT_EQ(dialog.lblTipText.Caption, row.text) << row.id;
    }
    dialog.DisplayString("/nowhere/tips.txt", "101", 3);
    EXPECT_EQ(dialog.lblTipText.Caption, "   ");
}

TEST_F(TipTest, LoneLineFeedsBecomePairs) {
    const struct {
        const char *text, *fixed;
    } rows[] = {{"a\nb", "a\r\nb"},   {"\na", "\r\na"},     {"a\n", "a\r\n"},
                {"a\r\nb", "a\r\nb"}, {"\n\n", "\r\n\r\n"}, {"", ""}};
    for (const auto& row : rows) EXPECT_EQ(dialog.FixLFs(row.text), row.fixed) << row.text;
}

/// Walks again from inside of a walk, and stops after two names.
struct NestedSink : IEnumResources {
    explicit NestedSink(modEnumResources& walker) : resources(walker) {}
    void EnumResourceSink(const ResourceModule&, const std::string& name, const std::string& type,
                          int& cancel) override {
        EXPECT_FALSE(resources.EnumerateResources(*this, file));
        names.push_back(name + " " + type);
        cancel = names.size() == 2 ? 1 : 0;
    }
    modEnumResources& resources;
    std::string file;
    std::vector<std::string> names;
};

TEST_F(TipTest, OneWalkAtATimeAndTheSinkCanEndIt) {
    modEnumResources resources(run.g);
    NestedSink sink(resources);
    sink.file = (run.Share() / "tips.txt").string();
    EXPECT_TRUE(resources.EnumerateResources(sink, sink.file));
    EXPECT_THAT(sink.names, testing::ElementsAre("#101 #6", "#102 #6"));
    EXPECT_TRUE(resources.EnumerateResources(sink, sink.file)) << "the walk is over";
}

TEST(TipListTest, TipsOfTheProductAreManyShortAndPlain) {
    const std::vector<std::string> tips =
        Lines(ReadFile(TABULON_SOURCE_DIR "/assets/tips/tips.txt", 1 << 20));
    EXPECT_GE(tips.size(), 30u);
    for (const std::string& tip : tips) {
        EXPECT_FALSE(tip.empty());
        EXPECT_EQ(Left(tip, 255), tip);
        EXPECT_EQ(tip.find('&'), tip.npos) << "a label would take it for an access key: " << tip;
    }
}

}  // namespace
}  // namespace tabulon::test
