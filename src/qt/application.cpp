#include "qt/application.h"

#include <QScreen>
#include <algorithm>
#include <cmath>
#include <vector>

namespace tabulon {

namespace {

constexpr QSize LeastScreen{1024, 768};
constexpr const char* ScaleVariable = "QT_SCALE_FACTOR";

/// Changes a variable of the environment while it lives: programs that are started later have it as it was.
class VariableFor {
  public:
    VariableFor(const char* name, const QByteArray& value) : m_name(name), m_former(qgetenv(name)) {
        qputenv(name, value);
    }
    ~VariableFor() {
        if (m_former.isEmpty())
            qunsetenv(m_name);
        else
            qputenv(m_name, m_former);
    }
    VariableFor(const VariableFor&) = delete;
    VariableFor& operator=(const VariableFor&) = delete;

  private:
    const char* m_name;
    QByteArray m_former;
};

/// What the scale has to be multiplied by.
qreal CorrectionOfScale() {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const qreal asked = screen.devicePixelRatio();
    return ScaleFor(screen.size() * asked, asked) / asked;
}

}  // namespace

qreal ScaleFor(QSize pixels, qreal asked) {
    const auto leavesTooLittle = [pixels](qreal scale) {
        return pixels.width() < scale * LeastScreen.width() || pixels.height() < scale * LeastScreen.height();
    };
    qreal scale = asked;
    while (std::round(scale) == scale && scale > 1 && leavesTooLittle(scale)) --scale;
    return scale;
}

/// The toolkit tells of the screen only once it runs, and takes another scale only before.
std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
    const std::vector<char*> arguments(argv, argv + argc);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    auto application = std::make_unique<QApplication>(argc, argv);
    const qreal correction = CorrectionOfScale();
    if (correction == 1) return application;
    application.reset();
    argc = static_cast<int>(arguments.size());
    std::ranges::copy(arguments, argv);
    bool isSet = false;
    const qreal factor = qgetenv(ScaleVariable).toDouble(&isSet);
    const VariableFor scale(ScaleVariable, QByteArray::number((isSet ? factor : 1) * correction, 'g', 17));
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace tabulon
