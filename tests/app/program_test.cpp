#include "app/program.h"

#include <gmock/gmock.h>

#include "support/test_machine.h"

namespace tabulon {
namespace {

using namespace testing;

/// A start with settings that cannot be opened, up to the chooser, at which nobody sits.
struct TroubledStart {
    test::TestMachine machine{"/proc/settings.db"};
    Program program{machine.With(machine.TheScreen)};
};

TEST(ProgramTest, TellsOfTroubleWithItsDataBeforeTheChooserOpens) {
    TroubledStart start;
    EXPECT_THROW(start.program.Main(), Stuck);
    ASSERT_FALSE(start.machine.User.Boxes.empty());
    EXPECT_THAT(start.machine.User.Boxes[0].Text, HasSubstr("Games may not start"));
}

TEST(ProgramTest, ASecondCopyHandsOverWithoutAWord) {
    TroubledStart start;
    start.machine.Shell.HasPreviousInstance = true;
    EXPECT_THROW(start.program.Main(), ProgramEnd);
    EXPECT_THAT(start.machine.User.BoxTexts(), IsEmpty());
}

TEST(ProgramTest, LeavingTheFirstChooserEndsItWithoutAWord) {
    test::TestMachine machine;
    Program program{machine.With(machine.TheScreen)};
    machine.Random.Numbers.push_back(0);  // any genre
    machine.User.Acts.push_back([&](Form& waiting) {
        EXPECT_EQ(&waiting, &program.dlgLoadGame);
        EXPECT_TRUE(program.frmTabulonSplash.Visible);
        EXPECT_FALSE(program.frmMain.Visible);
        program.dlgLoadGame.cmdCancel.Click();
    });
    EXPECT_THROW(program.Main(), ProgramEnd);
    EXPECT_FALSE(program.frmTabulonSplash.Loaded || program.frmMain.Visible);
    EXPECT_THAT(machine.User.BoxTexts(), IsEmpty());
}

}  // namespace
}  // namespace tabulon
