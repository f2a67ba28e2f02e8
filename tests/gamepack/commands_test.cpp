#include "gamepack/commands.h"

#include <gmock/gmock.h>
#include <sstream>

#include "gamepack/game_folder.h"
#include "packages/archive.h"
#include "platform/files.h"
#include "platform/temporary_directory.h"

namespace tabulon::gamepack {
namespace {

using namespace testing;

class CommandsTest : public testing::Test {
  protected:
    CommandsTest() {
        std::filesystem::create_directory(folder);
        for (const PackedFile& file : game.Files().Files) WriteFile(folder / file.Name, file.Bytes);
    }
    int Run(const std::vector<std::string>& arguments) {
        out.str("");
        err.str("");
        return gamepack::Run(arguments, out, err);
    }
    std::vector<std::string> Packed() const { return Archive(package).Names(); }

    test::GameFolder game;
    test::TemporaryDirectory temporary;
    const std::filesystem::path folder = temporary / "game";
    const std::filesystem::path package = temporary / (game.Key + ".gam");
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(CommandsTest, PacksTheSettingsFirstAndTheRestByName) {
    WriteFile(folder / "Art.jpg", "x");
    WriteFile(folder / ".hidden", "x");
    EXPECT_EQ(Run({"pack", folder, package}), 0);
    EXPECT_THAT(Packed(), ElementsAre(game.Key + ".dat", "Art.jpg", "board.bmp", "cards1.xml", "decks.xml",
                                      "spaces.xml"));
    EXPECT_EQ(Archive(package).Read(0), game.Settings);
    EXPECT_THAT(out.str() + err.str(), IsEmpty());
}

TEST_F(CommandsTest, AGameNeedsItsSettings) {
    std::filesystem::remove(folder / (game.Key + ".dat"));
    EXPECT_EQ(Run({"pack", folder, package}), 1);
    EXPECT_THAT(err.str(), HasSubstr(game.Key + ".dat"));
    EXPECT_FALSE(FileExists(package));
    EXPECT_EQ(Run({"pack", folder, temporary / "defobjs.gam"}), 0);
    EXPECT_EQ(Run({"pack", folder, temporary / "kids.snd"}), 0);
}

TEST_F(CommandsTest, RefusesWhatCannotGoIntoAPackage) {
    EXPECT_EQ(Run({"pack", temporary / "missing", package}), 1);
    EXPECT_THAT(err.str(), HasSubstr("There is no folder"));
    WriteFile(folder / "BOARD.bmp", "x");
    EXPECT_EQ(Run({"pack", folder, package}), 1);
    EXPECT_THAT(err.str(), HasSubstr("differ in case only"));
    std::filesystem::remove(folder / "BOARD.bmp");
    std::filesystem::create_directory(folder / "more");
    EXPECT_EQ(Run({"pack", folder, package}), 1);
    EXPECT_THAT(err.str(), HasSubstr("\"more\" is no file"));
    EXPECT_FALSE(FileExists(package));
}

TEST_F(CommandsTest, ListsSizesAndNames) {
    ASSERT_EQ(Run({"pack", folder, package}), 0);
    EXPECT_EQ(Run({"list", package}), 0);
    EXPECT_THAT(out.str(), HasSubstr("        63  board.bmp\n"));
    EXPECT_EQ(Run({"list", temporary / "missing.gam"}), 1);
    EXPECT_EQ(Run({"list", folder / "board.bmp"}), 1);
    EXPECT_THAT(err.str(), HasSubstr("no package"));
}

TEST_F(CommandsTest, ChecksAFolderAndAPackageAlike) {
    ASSERT_EQ(Run({"pack", folder, package}), 0);
    for (const auto& target : {folder, package}) {
        EXPECT_EQ(Run({"check", target}), 0) << target;
        EXPECT_THAT(out.str(), EndsWith("0 errors, 0 warnings\n"));
    }
    WriteFile(folder / "spaces.xml", "no xml");
    EXPECT_EQ(Run({"check", folder}), 1);
    EXPECT_THAT(out.str(), StartsWith("error: spaces.xml: "));
    WriteFile(package, ReadFile(package, 1 << 20).substr(0, 500));
    EXPECT_EQ(Run({"check", package}), 1);
}

TEST_F(CommandsTest, WrongArgumentsShowTheHelp) {
    const std::vector<std::vector<std::string>> lines = {
        {},        {"pack"},        {"pack", folder}, {"list"}, {"list", "a", "b"},
        {"check"}, {"unpack", "a"}, {"--help", "x"}};
    for (const auto& line : lines) {
        EXPECT_EQ(Run(line), 2) << testing::PrintToString(line);
        EXPECT_THAT(err.str(), HasSubstr("tabulon-gamepack pack FOLDER FILE.gam"));
    }
}

TEST_F(CommandsTest, HelpAndVersionGoToTheOutput) {
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("Exit status"));
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_THAT(out.str(), StartsWith("tabulon-gamepack "));
}

}  // namespace
}  // namespace tabulon::gamepack
