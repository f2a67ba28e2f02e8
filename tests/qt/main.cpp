#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "qt/qt_screen.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir runtime;  // the socket of the single copy goes here
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    tabulon::QtScreen::PrepareDensity();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
