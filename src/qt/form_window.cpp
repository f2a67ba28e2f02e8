#include "qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "forms/screen.h"
#include "qt/text.h"

namespace tabulon {

namespace {

Qt::WindowFlags FlagsOf(WindowFrame frame, Modality modality) {
    switch (frame) {
        case WindowFrame::FullScreen:
            return Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowSystemMenuHint;
        case WindowFrame::None:
            return Qt::FramelessWindowHint | (modality == Modality::None ? Qt::SplashScreen : Qt::Dialog);
        case WindowFrame::Dialog:
            break;
    }
    return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowCloseButtonHint;
}

QRect PrimaryScreen() { return QGuiApplication::primaryScreen()->geometry(); }

}  // namespace

FormWindow::FormWindow(Form& form, Dispatcher& dispatcher, PictureStore& pictures, Modality modality)
    : QWidget(nullptr, FlagsOf(form.Frame, modality)),
      m_form(&form),
      m_dispatcher(dispatcher),
      m_pictures(pictures),
      m_frame(form.Frame),
      m_background(pictures),
      m_controls(form, *this, *this) {
    setObjectName(ToQt(form.Name));
    setMouseTracking(form.MouseMove != nullptr);
    connect(qApp, &QApplication::focusChanged, this, [this] {
        if (m_form) m_controls.FollowFocus();
    });
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, [this] { FollowScreen(); });
    FollowScreen();
}

/// Widgets go before their views: a widget may still signal when it is destroyed.
FormWindow::~FormWindow() {
    m_form = nullptr;
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

void FormWindow::Sync() {
    const Dispatcher::Hold hold(m_dispatcher);
    m_syncing = true;
    const float twipsPerPixel = m_form->TheScreen.TwipsPerPixelX();
    SyncFrame(twipsPerPixel);
    m_controls.Sync(twipsPerPixel);
    m_syncing = false;
}

void FormWindow::ShowAbove(QWidget* above, Modality modality) {
    setWindowModality(modality == Modality::Application ? Qt::ApplicationModal : Qt::NonModal);
    if (m_form->Position == StartUpPosition::CentreScreen && m_frame != WindowFrame::FullScreen) Centre();
    Sync();
    winId();
    windowHandle()->installEventFilter(this);
    if (above && m_frame != WindowFrame::FullScreen)
        windowHandle()->setTransientParent(above->windowHandle());
    show();
    raise();
    activateWindow();
    m_controls.FocusFirst();
}

void FormWindow::BringForward() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void FormWindow::Retire() {
    m_form = nullptr;
    hide();
}

bool FormWindow::WaitsFor(const QKeyEvent& press) const {
    if (!m_form) return false;
    const QWidget* focused = focusWidget();
    const bool isOpen = focused && focused->isEnabled();
    const QChar accessKey = AccessKeyOf(press);
    if (accessKey.isNull()) return isOpen;
    return m_controls.HasAccessKey(accessKey) || (isOpen && m_form->KeyDown);
}

void FormWindow::Deliver(std::function<void()> call) {
    m_dispatcher.Deliver([window = QPointer<FormWindow>(this), call = std::move(call)] {
        if (window && window->m_form) call();
    });
}

/// Where the mouse was while calls are held is soon forgotten.
void FormWindow::DeliverMove(const std::function<void()>& call) {
    if (!m_dispatcher.IsHolding()) Deliver(call);
}

/// Keys are seen once, at the native window, before they go to the widget that has the focus.
bool FormWindow::eventFilter(QObject*, QEvent* event) {
    if (!m_form || QApplication::activePopupWidget()) return false;
    if (event->type() == QEvent::KeyPress) return TakesPress(*static_cast<QKeyEvent*>(event));
    if (event->type() != QEvent::KeyRelease) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    return !key.isAutoRepeat() && m_keys.Release(key) && AsksProgram(m_form->KeyUp, key);
}

/// The form decides whether it goes.
void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Deliver([this] { m_form->Unload(); });
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) m_keys.Clear();
    if (event->type() != QEvent::WindowStateChange || !m_form || m_minimised == isMinimized()) return;
    m_minimised = isMinimized();
    m_form->WindowState = m_minimised ? WindowState::Minimised : WindowState::Normal;
    m_state.Take(m_form->WindowState);
    if (!m_minimised) DeliverResize();
}

void FormWindow::moveEvent(QMoveEvent* event) {
    if (!m_form || m_syncing || !event->spontaneous() || !isVisible() || !m_place.Take(pos())) return;
    const float twipsPerPixel = m_form->TheScreen.TwipsPerPixelX();
    m_form->Left = static_cast<float>(pos().x()) * twipsPerPixel;
    m_form->Top = static_cast<float>(pos().y()) * twipsPerPixel;
}

void FormWindow::resizeEvent(QResizeEvent*) {
    m_background.For(*this);
    if (isVisible() && !m_syncing && m_size.Take(size())) DeliverResize();
}

void FormWindow::paintEvent(QPaintEvent*) {
    const QPixmap& pixmap = m_background.For(*this);
    if (!pixmap.isNull()) QPainter(this).drawPixmap(0, 0, pixmap);
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!m_form || !m_form->MouseMove || childAt(event->position().toPoint())) return;
    DeliverMove([this] { m_form->MouseMove(); });
}

/// What the control with the focus had no use for.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!m_form || !plain || !m_controls.StepFocus(event->key())) QWidget::keyPressEvent(event);
}

void FormWindow::SyncFrame(float twipsPerPixel) {
    if (m_caption.Take(m_form->Caption)) setWindowTitle(ToQt(m_form->Caption));
    if (m_picture.Take(m_form->Background)) {
        m_background.Show(BackgroundOf(*m_form));
        update();
    }
    SyncState();
    if (m_frame == WindowFrame::FullScreen) return;
    const QSize size(ToPixels(m_form->Width, twipsPerPixel), ToPixels(m_form->Height, twipsPerPixel));
    if (m_size.Take(size)) setFixedSize(size.expandedTo({1, 1}));
    const QPoint place(ToPixels(m_form->Left, twipsPerPixel), ToPixels(m_form->Top, twipsPerPixel));
    if (m_place.Take(place)) move(place);
}

void FormWindow::SyncState() {
    if (m_frame == WindowFrame::FullScreen && m_size.Take(PrimaryScreen().size())) CoverScreen();
    if (!m_state.Take(m_form->WindowState)) return;
    const bool minimise = m_form->WindowState == WindowState::Minimised;
    setWindowState(minimise ? windowState() | Qt::WindowMinimized : windowState() & ~Qt::WindowMinimized);
}

void FormWindow::Centre() {
    const float twipsPerPixel = m_form->TheScreen.TwipsPerPixelX();
    const QRect screen = PrimaryScreen();
    const auto middle = [](int start, int room, int length) {
        return static_cast<float>(start + (room - length) / 2);
    };
    const int width = ToPixels(m_form->Width, twipsPerPixel);
    const int height = ToPixels(m_form->Height, twipsPerPixel);
    m_form->Left = middle(screen.left(), screen.width(), width) * twipsPerPixel;
    m_form->Top = middle(screen.top(), screen.height(), height) * twipsPerPixel;
}

/// The primary screen may become another one, and its size may change.
void FormWindow::FollowScreen() {
    disconnect(m_screenChanges);
    m_screenChanges = connect(QGuiApplication::primaryScreen(), &QScreen::geometryChanged, this,
                              [this] { FitScreen(); });
    FitScreen();
}

/// Only a dialog that would lie outside is moved: the others stand where the user put them.
void FormWindow::FitScreen() {
    if (!m_form || !isVisible()) return;
    if (m_frame == WindowFrame::FullScreen)
        CoverScreen();
    else if (m_form->Position == StartUpPosition::CentreScreen && !PrimaryScreen().contains(geometry()))
        Centre();
}

/// The place is set besides the state: a desktop without a window manager knows no full-screen state.
void FormWindow::CoverScreen() {
    setGeometry(PrimaryScreen());
    setWindowState(windowState() | Qt::WindowFullScreen);
}

Picture FormWindow::BackgroundOf(const Form& form) const {
    const Picture usual = Picture::Product("product/background");
    const bool takesUsual = form.Background.Set == PictureSet::None && m_frame == WindowFrame::Dialog;
    return takesUsual && m_pictures.HasFile(usual) ? usual : form.Background;
}

bool FormWindow::TakesPress(const QKeyEvent& event) {
    const HeldKeys::Repeat repeat = m_keys.Press(event);
    if (repeat != HeldKeys::Repeat::First) return repeat != HeldKeys::Repeat::OfOpen;
    const bool taken = AsksProgram(m_form->KeyDown, event) || TakesAccessKey(event);
    if (taken) m_keys.Take(event);
    return taken;
}

bool FormWindow::TakesAccessKey(const QKeyEvent& event) {
    const QChar key = AccessKeyOf(event);
    return m_form && !key.isNull() && m_controls.ActivateAccessKey(key);
}

/// The letter that is pressed together with Alt; null for any other press.
QChar FormWindow::AccessKeyOf(const QKeyEvent& press) const {
    constexpr int beyondCharacters = 0x10000;
    const auto modifiers = press.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers != Qt::AltModifier || press.key() >= beyondCharacters) return {};
    return QChar(press.key()).toUpper();
}

bool FormWindow::AsksProgram(const std::function<bool(int, int)>& handler, const QKeyEvent& event) {
    const int code = KeyCodeOf(event);
    if (!handler || code == 0) return false;
    const auto taken = std::make_shared<bool>(true);  // a handler that throws has taken the key
    Deliver([handler, taken, code, shift = ShiftOf(event)] { *taken = handler(code, shift); });
    return *taken || !m_form;
}

void FormWindow::DeliverResize() {
    Deliver([this] {
        if (m_form->Resize) m_form->Resize();
    });
}

}  // namespace tabulon
