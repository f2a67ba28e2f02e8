#include "qt/qt_screen.h"

#include <QApplication>
#include <QScreen>
#include <QThread>
#include <algorithm>
#include <limits>
#include <utility>

#include "qt/accessibility.h"
#include "qt/look.h"
#include "qt/message_box.h"
#include "qt/picture_reader.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int MostRounds = 64;              // of a pump: events may beget events for ever
constexpr qint64 RepaintMilliseconds = 10;  // how often a sleep looks for what was uncovered
constexpr qint64 NanosecondsPerMillisecond = 1'000'000;

/// The exception that leaves a wait leaves no form behind that would block the others.
class HideOnException {
  public:
    explicit HideOnException(Form& form) : m_form(&form) {}
    ~HideOnException() {
        if (m_form) m_form->Hide();
    }
    HideOnException(const HideOnException&) = delete;
    HideOnException& operator=(const HideOnException&) = delete;
    void Dismiss() { m_form = nullptr; }

  private:
    Form* m_form;
};

}  // namespace

QtScreen::QtScreen(const std::filesystem::path& pictures, std::string title)
    : m_title(std::move(title)), m_pictures(pictures), m_dispatcher([this] { Sync(); }) {
    Look::ApplyTo(*qApp);
    InstallAccessibleRoles();
    qApp->setQuitOnLastWindowClosed(false);
    m_wakeUp.setSingleShot(true);
    m_wakeUp.setTimerType(Qt::PreciseTimer);
    m_clock.start();
}

QtScreen::~QtScreen() {
    for (const auto& [form, window] : m_windows) delete window;
    SetMousePointer(MousePointer::Default);
}

int QtScreen::Run() {
    while (!LoadedForms().empty()) {
        try {
            WaitWhile([this] { return !LoadedForms().empty(); });
        } catch (const std::exception& failure) {
            ShowBox({failure.what(), m_title, BoxIcon::Critical, BoxButtons::Ok});
        } catch (const ProgramEnd&) {
            return 0;
        }
    }
    return 0;
}

void QtScreen::BringForward() {
    for (const auto& [form, window] : m_windows)
        if (form->Visible) window->BringForward();
    if (QWidget* modal = QApplication::activeModalWidget()) modal->activateWindow();
}

void QtScreen::Forget(Form& form) {
    Screen::Forget(form);
    for (Timer* timer : form.Timers) timer->DueAt = Timer::NotArmed;
    const auto found = m_windows.find(&form);
    if (found == m_windows.end()) return;
    found->second->Retire();
    m_retired.emplace_back(found->second);
    m_windows.erase(found);
}

void QtScreen::Show(Form& form) {
    Sync();
    ShowWindow(form, Modality::None);
}

void QtScreen::ShowModal(Form& form) {
    const QPointer<QWidget> before = QApplication::activeWindow();
    HideOnException guard(form);
    Sync();
    ShowWindow(form, Modality::Application);
    WaitWhile([&form] { return form.Visible && form.Loaded; });
    guard.Dismiss();
    if (before && before->isVisible()) before->activateWindow();
}

void QtScreen::Hide(Form& form) {
    if (FormWindow* window = WindowOf(form)) window->hide();
}

void QtScreen::PumpEvents() {
    int rounds = 0;
    while (rounds < MostRounds && ServeOnce(QEventLoop::AllEvents)) ++rounds;
    if (rounds == 0) QThread::msleep(1);  // a loop of pumps must not take a whole processor
}

void QtScreen::Sleep(int milliseconds) {
    m_dispatcher.FetchInput();
    Sync();
    const Dispatcher::Hold hold(m_dispatcher);
    QElapsedTimer slept;
    slept.start();
    QEventLoop loop;
    while (true) {
        loop.processEvents();
        const qint64 left = milliseconds * NanosecondsPerMillisecond - slept.nsecsElapsed();
        if (left <= 0) return;
        const qint64 nap = std::min(left, RepaintMilliseconds * NanosecondsPerMillisecond);
        QThread::usleep(static_cast<unsigned long>(nap / 1000 + 1));
    }
}

void QtScreen::Beep() { QApplication::beep(); }

void QtScreen::FlushKeys() { m_dispatcher.DropKeys(); }

void QtScreen::SetMousePointer(MousePointer pointer) {
    const bool hourglass = pointer == MousePointer::Hourglass;
    if (m_hourglass == hourglass) return;
    m_hourglass = hourglass;
    if (hourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

Picture QtScreen::LoadPicture(const std::filesystem::path& file) {
    return {PictureSet::File, 0, {}, ReadPictureFile(file)};
}

TextExtent QtScreen::MeasureText(const Font& font, std::string_view text, int width) {
    return WrappedTextExtent(font, text, width);
}

int QtScreen::WidthPixels() const { return QGuiApplication::primaryScreen()->geometry().width(); }

int QtScreen::HeightPixels() const { return QGuiApplication::primaryScreen()->geometry().height(); }

int QtScreen::LogicalPixelsPerInch() const { return LayoutDensity(); }

BoxAnswer QtScreen::MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                           const std::string& title) {
    const bool isRunning = !LoadedForms().empty();
    const BoxAnswer answer = ShowBox({text, title.empty() ? m_title : title, icon, buttons});
    if (isRunning && LoadedForms().empty()) throw ProgramEnd{};
    return answer;
}

BoxAnswer QtScreen::ShowBox(const MessageBoxText& content) {
    MessageBox box(content);
    box.Open(FrontWindow());
    WaitWhile([&box] { return box.IsOpen(); });
    return box.Answer();
}

void QtScreen::Sync() {
    if (BeforeSync) BeforeSync();
    ArmTimers();
    const Dispatcher::Hold hold(m_dispatcher);
    for (const auto& [form, window] : m_windows)
        if (form->Visible) window->Sync();
}

void QtScreen::ArmTimers() {
    for (const Form* form : LoadedForms()) {
        for (Timer* timer : form->Timers) {
            const bool runs = timer->Enabled && timer->Interval > 0;
            if (!runs)
                timer->DueAt = Timer::NotArmed;
            else if (timer->DueAt == Timer::NotArmed)
                timer->DueAt = m_clock.elapsed() + timer->Interval;
        }
    }
}

/// A handler may load and unload forms, so each timer is looked for again after it.
bool QtScreen::FireDueTimers() {
    bool any = false;
    const std::int64_t now = m_clock.elapsed();
    const auto isDue = [this, now](const Timer* timer) {
        const bool armed = timer->Enabled && timer->DueAt != Timer::NotArmed && timer->DueAt <= now;
        return armed && std::find(m_firing.begin(), m_firing.end(), timer) == m_firing.end();
    };
    const auto nextDue = [this, &isDue]() -> Timer* {
        for (const Form* form : LoadedForms())
            for (Timer* timer : form->Timers)
                if (isDue(timer)) return timer;
        return nullptr;
    };
    while (Timer* timer = m_dispatcher.IsHolding() ? nullptr : nextDue()) {
        Fire(*timer);
        any = true;
    }
    return any;
}

void QtScreen::Fire(Timer& timer) {
    timer.DueAt = m_clock.elapsed() + timer.Interval;
    m_firing.push_back(&timer);
    m_dispatcher.Deliver([tick = timer.Tick] {
        if (tick) tick();
    });
    m_firing.pop_back();
}

void QtScreen::WaitWhile(const std::function<bool()>& goesOn) {
    while (goesOn()) ServeOnce(QEventLoop::WaitForMoreEvents);
}

bool QtScreen::ServeOnce(QEventLoop::ProcessEventsFlags flags) {
    m_dispatcher.Rethrow();
    DeleteRetired();
    bool any = m_dispatcher.FetchInput();
    Sync();
    any = m_dispatcher.DeliverHeld() || any;
    any = FireDueTimers() || any;
    m_dispatcher.Rethrow();
    if (any) flags = QEventLoop::AllEvents;
    SetWakeUp();
    any = QEventLoop().processEvents(flags) || any;
    m_dispatcher.Rethrow();
    return any;
}

/// Qt, and what called the program, go on using a window after its event; only between two events at the bottom of
/// the stack nobody does.
void QtScreen::DeleteRetired() {
    if (!m_dispatcher.IsCalling()) m_retired.clear();
}

/// A wait without events ends in time for the next timer.
void QtScreen::SetWakeUp() {
    std::int64_t next = std::numeric_limits<std::int64_t>::max();
    for (const Form* form : LoadedForms())
        for (const Timer* timer : form->Timers)
            if (timer->Enabled && timer->DueAt != Timer::NotArmed) next = std::min(next, timer->DueAt);
    m_wakeUp.stop();
    if (next == std::numeric_limits<std::int64_t>::max()) return;
    const std::int64_t wait = std::max<std::int64_t>(0, next - m_clock.elapsed());
    m_wakeUp.start(static_cast<int>(std::min<std::int64_t>(wait, std::numeric_limits<int>::max())));
}

void QtScreen::ShowWindow(Form& form, Modality modality) {
    FormWindow*& window = m_windows[&form];
    if (!window) window = new FormWindow(form, m_dispatcher, m_pictures, modality);
    if (window->isVisible())
        window->BringForward();
    else
        window->ShowAbove(FrontWindow(), modality);
}

FormWindow* QtScreen::WindowOf(const Form& form) const {
    const auto found = m_windows.find(&form);
    return found == m_windows.end() ? nullptr : found->second;
}

/// The window that a dialog belongs in front of.
QWidget* QtScreen::FrontWindow() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    QWidget* front = nullptr;
    for (const auto& [form, window] : m_windows)
        if (window->isVisible() && (!front || window->Frame() == WindowFrame::FullScreen)) front = window;
    return front;
}

}  // namespace tabulon
