#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <iostream>
#include <memory>
#include <string_view>

#include "help/unpacking.h"
#include "helpwindow/help_loader.h"
#include "helpwindow/help_window.h"
#include "helpwindow/watchdog.h"
#include "platform/directories.h"
#include "qt/look.h"
#include "qt/qt_shell.h"
#include "qt/text.h"

namespace {

using namespace tabulon;

constexpr int WrongUse = 1;

void BringForward() {
    QWidget* const window = QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                                              : QApplication::topLevelWidgets().value(0);
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->isWindow()) each->raise();
    if (!window) return;
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->activateWindow();
}

void TellFailure(UnpackingEnd end, const std::filesystem::path& file) {
    QMessageBox box(QMessageBox::Warning, "Help", ToQt(MessageFor(end, file)), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/// Shows the file until its window closes.
int Show(const std::filesystem::path& file, QApplication& qt) {
    const std::filesystem::path program = ExecutablePath();
    const std::filesystem::path pictures = ShareDirectory(program) / "pictures";
    QApplication::setWindowIcon(QIcon(ToQt((pictures / "product/icon.svg").native())));
    QApplication::setQuitOnLastWindowClosed(false);
    std::unique_ptr<HelpWindow> window;
    int result = 0;
    HelpLoader loader(program, file);
    loader.onLoaded = [&](HelpBook book) {
        QApplication::setQuitOnLastWindowClosed(true);
        window = std::make_unique<HelpWindow>(std::move(book), pictures);
        window->show();
    };
    loader.onFailed = [&](UnpackingEnd end) {
        result = static_cast<int>(end);
        TellFailure(end, file);
        QApplication::quit();
    };
    loader.Start();
    qt.exec();
    return result;
}

}  // namespace

/// tabulon-help FILE shows a compiled help file. With --unpack before it, the program writes what is in the
/// file to its output instead.
int main(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string_view("--unpack"))
        return static_cast<int>(UnpackToOutput(argv[2]));
    if (argc != 2) {
        std::cerr << "usage: tabulon-help FILE.chm\n";
        return WrongUse;
    }
    QApplication qt(argc, argv);
    Look::ApplyTo(qt);
    const std::filesystem::path file = argv[1];
    SingleInstance instance(file);
    if (!instance.Claim() && instance.RaiseOther()) return 0;
    instance.onRaise = BringForward;
    const Watchdog watchdog;
    return Show(file, qt);
}
