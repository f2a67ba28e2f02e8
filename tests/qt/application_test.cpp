#include "qt/application.h"

#include <QScreen>
#include <gtest/gtest.h>

#include "qt/qt_screen.h"

namespace tabulon {
namespace {

TEST(ApplicationScale, LeavesRoomForTheProgram) {
    const struct {
        const char* Name;
        QSize Pixels;
        qreal Asked, Taken;
    } rows[] = {{"4K", {3840, 2160}, 2, 2},
                {"4K at 3", {3840, 2160}, 3, 2},
                {"full HD at 2", {1920, 1080}, 2, 1},
                {"just enough", {2048, 1536}, 2, 2},
                {"too narrow", {2047, 1536}, 2, 1},
                {"small as it is", {800, 600}, 1, 1},
                {"asked by hand", {1920, 1080}, 1.5, 1.5}};
    for (const auto& row : rows) EXPECT_EQ(ScaleFor(row.Pixels, row.Asked), row.Taken) << row.Name;
}

TEST(ApplicationScale, LeavesTheFormsTheirTwoDensities) {
    const QtScreen screen(TABULON_PICTURES, "Tab Player");
    EXPECT_TRUE(screen.TwipsPerPixelX() == 15 || screen.TwipsPerPixelX() == 12) << screen.TwipsPerPixelX();
}

/// The screen here is small, so no density or scale of the desktop may make it smaller.
TEST(ApplicationScale, IsTheOneOfTheScreen) {
    EXPECT_EQ(QGuiApplication::primaryScreen()->devicePixelRatio(), 1);
    EXPECT_EQ(QGuiApplication::primaryScreen()->size(), QSize(800, 800));
}

}  // namespace
}  // namespace tabulon
