#include "helpwindow/help_window.h"

#include <QAction>
#include <QDesktopServices>
#include <QIcon>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

#include "helpwindow/help_look.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int PreferredWidth = 960;
constexpr int PreferredHeight = 700;
constexpr int NarrowWidth = 660;
constexpr int PaneWidth = 300;
constexpr int TabMargin = 4;
constexpr double ShareOfScreen = 0.92;
constexpr double ShareOfPane = 0.36;
constexpr int IconSide = 28;

struct Command {
    const char* Text;
    const char* Picture;  // of the program's buttons
    const char* ToolTip;
    QList<QKeySequence> Keys;
};

QAction* AddCommand(QToolBar& bar, const Command& command, const std::filesystem::path& pictures) {
    const std::filesystem::path file = pictures / "buttons" / (std::string(command.Picture) + ".svg");
    QAction* action = bar.addAction(QIcon(ToQt(file.native())), command.Text);
    action->setToolTip(command.ToolTip);
    action->setShortcuts(command.Keys);
    return action;
}

}  // namespace

HelpWindow::HelpWindow(HelpBook book, const std::filesystem::path& pictures)
    : OpenInBrowser([](const QString& address) { QDesktopServices::openUrl(QUrl(address)); }),
      m_book(std::move(book)) {
    const QString title = m_book.Title().empty() ? QString("Help") : ToQt(m_book.Title());
    setWindowTitle(title);
    setAccessibleName(title);
    setStyleSheet(HelpStyleSheet());
    BuildPanes();
    BuildToolBar(pictures);
    BuildKeys();
    statusBar()->setSizeGripEnabled(true);
    connect(m_page, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) { PageChanged(url); });
    connect(m_page, &QTextBrowser::highlighted, this, [this](const QUrl& url) {
        statusBar()->showMessage(url.scheme() == "help" ? QString() : url.toString());
    });
    Place();
}

void HelpWindow::BuildPanes() {
    m_splitter = new QSplitter(this);
    m_tabs = new QTabWidget(m_splitter);
    m_page = new HelpPage(m_book);
    m_contents = new TopicTree(m_book.Contents());
    m_index = new IndexPane(m_book.Index());
    m_search = new SearchPane(m_book);
    // Without marks for access keys: a tab bar's own would only turn the page, and leave the focus behind.
    m_tabs->setTabToolTip(m_tabs->addTab(m_contents, "Contents"), "All pages in their order (Alt+C)");
    m_tabs->setTabToolTip(m_tabs->addTab(m_index, "Index"), "Keywords from A to Z (Alt+N)");
    m_tabs->setTabToolTip(m_tabs->addTab(m_search, "Search"), "Find words in all pages (Alt+S)");
    m_tabs->tabBar()->setAccessibleName("Ways to find a page");
    m_splitter->addWidget(m_tabs);
    m_splitter->addWidget(m_page);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    setCentralWidget(m_splitter);
    m_contents->onLink = m_index->onLink = [this](const QString& link) { Follow(link); };
    m_page->onOutside = [this](const HelpLink& link) { FollowOutside(link); };
    m_search->onHit = [this](const QString& file, const QStringList& words) {
        m_page->ShowPage(file);
        m_page->Mark(words);
    };
    const bool hasIndex = !m_book.Index().empty();
    m_tabs->setTabVisible(m_tabs->indexOf(m_index), hasIndex);
    if (hasIndex)
        ShowTab(m_index, m_index->Input());
    else
        ShowTab(m_contents, *m_contents);
}

void HelpWindow::BuildToolBar(const std::filesystem::path& pictures) {
    m_bar = new QToolBar("Buttons", this);
    QToolBar* const bar = m_bar;
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize({IconSide, IconSide});
    addToolBar(bar);
    QAction* back =
        AddCommand(*bar, {"Back", "back", "The page before (Alt+Left)", {Qt::ALT | Qt::Key_Left}}, pictures);
    QAction* forward = AddCommand(
        *bar, {"Forward", "forward", "Forward again (Alt+Right)", {Qt::ALT | Qt::Key_Right}}, pictures);
    QAction* home =
        AddCommand(*bar, {"Home", "home", "The first page (Alt+Home)", {Qt::ALT | Qt::Key_Home}}, pictures);
    QAction* smaller = AddCommand(
        *bar, {"Smaller", "smaller", "Smaller letters (Ctrl+-)", {Qt::CTRL | Qt::Key_Minus}}, pictures);
    QAction* larger = AddCommand(
        *bar,
        {"Larger", "larger", "Larger letters (Ctrl++)", {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}},
        pictures);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(back, &QAction::triggered, m_page, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_page, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { Follow(ToQt(m_book.Home())); });
    connect(smaller, &QAction::triggered, this, [this] { m_page->zoomOut(); });
    connect(larger, &QAction::triggered, this, [this] { m_page->zoomIn(); });
}

void HelpWindow::BuildKeys() {
    const auto key = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    key(Qt::ALT | Qt::Key_C, [this] { ShowTab(m_contents, *m_contents); });
    key(Qt::ALT | Qt::Key_N, [this] { ShowTab(m_index, m_index->Input()); });
    key(Qt::ALT | Qt::Key_S, [this] { ShowTab(m_search, m_search->Input()); });
    key(Qt::CTRL | Qt::Key_F, [this] { ShowTab(m_search, m_search->Input()); });
    key(Qt::Key_F6,
        [this] { m_page->hasFocus() ? m_tabs->currentWidget()->setFocus() : m_page->setFocus(); });
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W),
                                     QKeySequence(Qt::CTRL | Qt::Key_Q)})
        key(keys, [this] { close(); });
}

/// As large as is good to read, and never larger than the screen.
void HelpWindow::Place() {
    const QSize room = screen()->availableSize() * ShareOfScreen;
    resize(std::min(PreferredWidth, room.width()), std::min(PreferredHeight, room.height()));
    const int tabs = m_tabs->tabBar()->sizeHint().width() + TabMargin;
    const int pane = std::max(tabs, std::min(PaneWidth, static_cast<int>(width() * ShareOfPane)));
    m_splitter->setSizes({pane, width() - pane});
}

/// Where there is little room the buttons are pictures only.
void HelpWindow::resizeEvent(QResizeEvent* event) {
    m_bar->setToolButtonStyle(width() < NarrowWidth ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    QMainWindow::resizeEvent(event);
}

// Pictures are fitted to the page, which has its size by now.
void HelpWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (m_page->source().isEmpty()) Follow(ToQt(m_book.Home()));
}

void HelpWindow::Follow(const QString& link) {
    const HelpLink to = ResolveLink({}, FromQt(link));
    if (to.Kind == LinkKind::Page)
        m_page->ShowPage(ToQt(to.File), ToQt(to.Fragment));
    else
        FollowOutside(to);
}

void HelpWindow::FollowOutside(const HelpLink& link) {
    if (link.Kind == LinkKind::Web)
        AskForBrowser(ToQt(link.Address));
    else if (link.Kind == LinkKind::OtherHelp)
        Tell("This link leads to another help file, which is not here.");
    else
        Tell("This link cannot be followed from the help.");
}

void HelpWindow::AskForBrowser(const QString& address) {
    auto* box = new QMessageBox(QMessageBox::Question, windowTitle(), QString(),
                                QMessageBox::Yes | QMessageBox::No, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setText("This link leads out of the help:\n\n" + address +
                 "\n\nDo you want to open it in the browser?");
    box->setDefaultButton(QMessageBox::No);
    connect(box, &QMessageBox::finished, this, [this, address](int answer) {
        if (answer == QMessageBox::Yes) OpenInBrowser(address);
    });
    box->open();
}

void HelpWindow::Tell(const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Information, windowTitle(), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void HelpWindow::ShowTab(QWidget* pane, QWidget& focus) {
    if (!m_tabs->isTabVisible(m_tabs->indexOf(pane))) return;
    m_tabs->setCurrentWidget(pane);
    focus.setFocus();
}

void HelpWindow::PageChanged(const QUrl& url) {
    const HelpLink at = ResolveLink({}, FromQt(url.toString(QUrl::FullyEncoded)));
    m_contents->Select(ToQt(at.File), ToQt(at.Fragment));
    m_page->setAccessibleName(m_page->documentTitle().isEmpty() ? "Help page" : m_page->documentTitle());
}

}  // namespace tabulon
