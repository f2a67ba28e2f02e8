#include "helpwindow/help_loader.h"

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <optional>

#include "helpwindow/help_window.h"
#include "platform/files.h"
#include "platform/temporary_directory.h"

namespace tabulon {
namespace {

/// Loads a file with a program, and waits for the one answer.
struct Load {
    Load(const std::filesystem::path& program, const std::filesystem::path& file) {
        HelpLoader loader(program, file);
        loader.onLoaded = [this](HelpBook loaded) { Book = std::move(loaded); };
        loader.onFailed = [this](UnpackingEnd end) { End = end; };
        loader.Start();
        while (!Book && !End) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::optional<HelpBook> Book;
    std::optional<UnpackingEnd> End;
};

TEST(HelpLoaderTest, TheOwnHelpOpens) {
    Load load(TABULON_HELP_PROGRAM, TABULON_OWN_HELP);
    ASSERT_TRUE(load.Book);
    HelpWindow window(std::move(*load.Book), TABULON_PICTURES);
    window.show();
    EXPECT_EQ(window.windowTitle(), "Tabulon Player Help");
    EXPECT_THAT(window.Page().toPlainText().toStdString(),
                testing::HasSubstr("Welcome to the Tabulon Player"));
}

TEST(HelpLoaderTest, EachFailureIsOneEnd) {
    const test::TemporaryDirectory folder;
    WriteFile(folder / "damaged.chm", ReadFile(TABULON_OWN_HELP, 1 << 24).substr(0, 60'000));
    WriteFile(folder / "text.chm", "Throw");
    const struct {
        const char *name, *program;
        std::filesystem::path file;
        UnpackingEnd end;
    } rows[] = {
        {"damaged", TABULON_HELP_PROGRAM, folder / "damaged.chm", UnpackingEnd::Damaged},
        {"no help file", TABULON_HELP_PROGRAM, folder / "text.chm", UnpackingEnd::Damaged},
        {"not there", TABULON_HELP_PROGRAM, folder / "missing.chm", UnpackingEnd::NotThere},
        {"a program that writes something else", "/bin/echo", folder / "text.chm", UnpackingEnd::Damaged},
        {"a program that is missing", "/nowhere/program", folder / "text.chm", UnpackingEnd::Damaged}};
    for (const auto& row : rows) {
        const Load load(row.program, row.file);
        EXPECT_FALSE(load.Book) << row.name;
        EXPECT_EQ(load.End, row.end) << row.name;
    }
}

}  // namespace
}  // namespace tabulon
