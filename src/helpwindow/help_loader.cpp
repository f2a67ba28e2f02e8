#include "helpwindow/help_loader.h"

#include <optional>

#include "help/limits.h"
#include "platform/failure.h"
#include "qt/text.h"

namespace tabulon {

namespace {

// Longer than the process may work, which has its own bound: this one is for a process that waits.
constexpr int PatienceMilliseconds = 30'000;
constexpr qint64 StreamBytes =
    static_cast<qint64>(help_limits::TotalBytes + help_limits::Files * (help_limits::NameBytes + 8));

std::optional<HelpBook> BookFrom(const QByteArray& stream) {
    try {
        return HelpBook(FromStream({stream.constData(), static_cast<std::size_t>(stream.size())}));
    } catch (const Failure&) {
        return std::nullopt;
    }
}

}  // namespace

HelpLoader::HelpLoader(const std::filesystem::path& program, const std::filesystem::path& file) {
    m_process.setProgram(ToQt(program.native()));
    m_process.setArguments({"--unpack", ToQt(file.native())});
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_patience.setSingleShot(true);
    connect(&m_process, &QProcess::readyReadStandardOutput, this, [this] { Read(); });
    connect(&m_process, &QProcess::finished, this,
            [this](int code, QProcess::ExitStatus status) { Finish(code, status == QProcess::CrashExit); });
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Fail(UnpackingEnd::Damaged);
    });
    connect(&m_patience, &QTimer::timeout, this, [this] { Fail(UnpackingEnd::Damaged); });
}

HelpLoader::~HelpLoader() {
    m_over = true;
    m_process.kill();
    m_process.waitForFinished();
}

void HelpLoader::Start() {
    m_process.start(QIODevice::ReadOnly);
    m_patience.start(PatienceMilliseconds);
}

void HelpLoader::Read() {
    m_stream += m_process.readAllStandardOutput();
    if (m_stream.size() > StreamBytes) Fail(UnpackingEnd::TooLarge);
}

void HelpLoader::Finish(int code, bool crashed) {
    if (m_over) return;
    Read();
    const auto end = crashed ? UnpackingEnd::Damaged : static_cast<UnpackingEnd>(code);
    if (end != UnpackingEnd::Done) return Fail(end);
    std::optional<HelpBook> book = BookFrom(m_stream);
    if (!book) return Fail(UnpackingEnd::Damaged);
    m_over = true;
    m_patience.stop();
    if (onLoaded) onLoaded(std::move(*book));
}

void HelpLoader::Fail(UnpackingEnd end) {
    if (m_over) return;
    m_over = true;
    m_patience.stop();
    m_process.kill();
    if (onFailed) onFailed(end);
}

}  // namespace tabulon
