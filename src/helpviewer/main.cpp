#include <CLI/CLI.hpp>
#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <memory>

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

int main(int argc, char** argv) {
    std::filesystem::path file;
    bool unpack = false;
    CLI::App app("Shows a compiled help file.", "tabulon-help");
    app.set_help_flag("--help", "print this");
    app.add_option("FILE.chm", file)->type_name("")->required();
    app.add_flag("--unpack", unpack,
                 "write what is in the file to the output instead; the program's own use");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : WrongUse;
    }
    if (unpack) return static_cast<int>(UnpackToOutput(file));
    QApplication qt(argc, argv);
    Look::ApplyTo(qt);
    SingleInstance instance(file);
    if (!instance.Claim() && instance.RaiseOther()) return 0;
    instance.onRaise = BringForward;
    const Watchdog watchdog;
    return Show(file, qt);
}
