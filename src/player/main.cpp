#include <cstdlib>
#include <iostream>

#include "app/program.h"
#include "board/board_reader.h"
#include "platform/directories.h"
#include "platform/seeded_random.h"
#include "platform/smtp_mail.h"
#include "platform/text.h"
#include "player/terminal_game.h"
#include "qt/application.h"
#include "qt/look.h"
#include "qt/qt_screen.h"
#include "qt/qt_shell.h"
#include "sound/sdl_ogg_player.h"

namespace {

using namespace tabulon;

ApplicationInfo Application() {
    ApplicationInfo application;
    application.Major = TABULON_VERSION_MAJOR;
    application.Minor = TABULON_VERSION_MINOR;
    application.Revision = TABULON_VERSION_PATCH;
    application.Executable = ExecutablePath();
    application.ShareDir = ShareDirectory(application.Executable);
    return application;
}

bool HasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

int PlayInTerminal() {
    const ApplicationInfo application = Application();
    const std::filesystem::path dataDirectory = DataDirectory(application.Executable);
    SettingsStore store(dataDirectory / SettingsFile);
    return PlayInTerminal(application, dataDirectory, store);
}

/// A display that is named may not be there. The toolkit tells so with a fatal message, behind which it would
/// abort: nothing of it can be used any more, and there is nothing to return to.
void PlayInTerminalInstead(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) {
        std::cerr << text.toStdString() << '\n';
        return;
    }
    const int status = PlayInTerminal();
    std::cout.flush();
    std::_Exit(status);
}

int PlayInWindow(int argc, char** argv) {
    const QtMessageHandler usual = qInstallMessageHandler(PlayInTerminalInstead);
    const std::unique_ptr<QApplication> qt = MakeApplication(argc, argv);
    qInstallMessageHandler(usual);
    const ApplicationInfo application = Application();
    const std::filesystem::path dataDirectory = DataDirectory(application.Executable);
    SettingsStore store(dataDirectory / SettingsFile);
    Look::ApplyTo(*qt);
    QtScreen screen(application.ShareDir / "pictures", application.Title);
    QtShell shell(application.Executable, dataDirectory);
    shell.onRaise = [&screen] { screen.BringForward(); };
    SystemClock clock;
    ClockSeededRandom random;
    SdlOggPlayer player;
    SmtpMail mail;
    try {
        Program program(
            {screen, clock, random, shell, player, store, application, dataDirectory, UserLocale(), &mail});
        BoardReader reader(program.frmMain);
        screen.BeforeSync = [&reader] { reader.Follow(); };
        program.Main();
        return screen.Run();
    } catch (const ProgramEnd&) {
        return 0;
    }
}

}  // namespace

int main(int argc, char** argv) { return HasDisplay() ? PlayInWindow(argc, argv) : PlayInTerminal(); }
