#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "qt/application.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir runtime;  // the socket of the single copy goes here
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    const auto application = tabulon::MakeApplication(argc, argv);
    return RUN_ALL_TESTS();
}
