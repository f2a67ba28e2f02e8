#include <QApplication>
#include <gtest/gtest.h>

#include "qt/look.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    tabulon::Look::ApplyTo(application);
    return RUN_ALL_TESTS();
}
