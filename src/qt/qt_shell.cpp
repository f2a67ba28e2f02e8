#include "qt/qt_shell.h"

#include <QCryptographicHash>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QUrl>
#include <csignal>
#include <sys/prctl.h>
#include <utility>

#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int AnswerMilliseconds = 3000;
constexpr int EndingMilliseconds = 1000;
constexpr char Answered = '!';

/// A short name (a socket's path has little room) in the user's own folder.
QString NameFor(const std::filesystem::path& dataDirectory) {
    std::error_code ignored;
    const auto path = ToQt(std::filesystem::weakly_canonical(dataDirectory, ignored).native());
    const auto hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    return folder.filePath("tabulon-player-" + hash);
}

bool IsWebOrMail(const QUrl& url) {
    return url.scheme() == "http" || url.scheme() == "https" || url.scheme() == "mailto";
}

QStringList ToList(const std::vector<std::string>& arguments) {
    QStringList given;
    for (const std::string& argument : arguments) given.append(ToQt(argument));
    return given;
}

bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored);
}

}  // namespace

SingleInstance::SingleInstance(const std::filesystem::path& dataDirectory)
    : m_name(NameFor(dataDirectory)), m_lock(m_name + ".lock") {
    m_lock.setStaleLockTime(0);  // only a dead process gives its lock away
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { Answer(); });
}

bool SingleInstance::Claim() {
    if (m_lock.isLocked()) return true;
    if (!m_lock.tryLock(0)) return m_lock.error() != QLockFile::LockFailedError;
    QLocalServer::removeServer(m_name);
    m_server.listen(m_name);
    return true;
}

void SingleInstance::Release() {
    m_server.close();
    m_lock.unlock();
}

bool SingleInstance::RaiseOther() const {
    QLocalSocket socket;
    socket.connectToServer(m_name);
    return socket.waitForConnected(AnswerMilliseconds) && socket.waitForReadyRead(AnswerMilliseconds);
}

void SingleInstance::Answer() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        socket->write(&Answered, 1);
        socket->flush();
        if (onRaise) onRaise();
    }
}

QtShell::QtShell(std::filesystem::path ownProgram, const std::filesystem::path& dataDirectory)
    : m_ownProgram(std::move(ownProgram)), m_instance(dataDirectory) {
    m_instance.onRaise = [this] {
        if (onRaise) onRaise();
    };
}

QtShell::~QtShell() {
    for (const auto& companion : m_companions) {
        companion->terminate();
        if (!companion->waitForFinished(EndingMilliseconds)) companion->kill();
    }
}

void QtShell::Open(const std::string& target) {
    const QUrl url(ToQt(target));
    if (IsWebOrMail(url))
        QDesktopServices::openUrl(url);
    else if (QFileInfo::exists(ToQt(target)))
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(ToQt(target)).absoluteFilePath()));
}

void QtShell::Start(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    if (IsSameFile(program, m_ownProgram)) m_instance.Release();
    QProcess::startDetached(ToQt(program.native()), ToList(arguments));
}

// The system ends the companion where this program has no time to: after a crash, or a kill.
void QtShell::StartCompanion(const std::filesystem::path& program,
                             const std::vector<std::string>& arguments) {
    std::erase_if(m_companions, [](const auto& each) { return each->state() == QProcess::NotRunning; });
    QProcess& companion = *m_companions.emplace_back(std::make_unique<QProcess>());
    companion.setProcessChannelMode(QProcess::ForwardedChannels);
    companion.setStandardInputFile(QProcess::nullDevice());
    companion.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    companion.start(ToQt(program.native()), ToList(arguments));
}

bool QtShell::PreviousInstance() { return !m_instance.Claim(); }

bool QtShell::RaisePreviousInstance() { return m_instance.RaiseOther(); }

}  // namespace tabulon
