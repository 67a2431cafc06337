#include "Oakfen/Widgets/Shell/MainWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>
#include <QUrl>
#include <QWindow>
#include <utility>

#include "Oakfen/FileActions.h"
#include "Oakfen/Views/Shell/WindowTitle.h"
#include "Oakfen/Widgets/Components/CrossFade.h"
#include "Oakfen/Widgets/Components/MessageBox.h"
#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Gate/GateWidget.h"
#include "Oakfen/Widgets/Lines/LinesPanel.h"
#include "Oakfen/Widgets/Register/FindWidget.h"
#include "Oakfen/Widgets/Shell/AlertPresenter.h"
#include "Oakfen/Widgets/Shell/BusyPill.h"
#include "Oakfen/Widgets/Shell/ContextMenuKey.h"
#include "Oakfen/Widgets/Shell/DetailWidget.h"
#include "Oakfen/Widgets/Shell/EventApplication.h"
#include "Oakfen/Widgets/Shell/HistoryButtons.h"
#include "Oakfen/Widgets/Shell/MenuBar.h"
#include "Oakfen/Widgets/Shell/MnemonicKeys.h"
#include "Oakfen/Widgets/Shell/NoticeWidget.h"
#include "Oakfen/Widgets/Shell/OneLineFields.h"
#include "Oakfen/Widgets/Shell/PanelHost.h"
#include "Oakfen/Widgets/Shell/SheetHost.h"
#include "Oakfen/Widgets/Shell/SheetPresenter.h"
#include "Oakfen/Widgets/Shell/SidebarWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"

namespace oakfen {

namespace {

constexpr QSize defaultSize(1280, 820);
constexpr QSize minimumContentSize(980, 620);
constexpr int minimumSidebarWidth = 220;
constexpr int idealSidebarWidth = 250;
constexpr int maximumSidebarWidth = 340;

const QString geometryKey = QStringLiteral("mainWindow/geometry");
const QString splitterKey = QStringLiteral("mainWindow/splitter");
const QString sidebarKey = QStringLiteral("mainWindow/sidebarShown");

} // namespace

MainWindow::MainWindow(AppEnvironment& environment, std::function<void()> requestQuit)
    : environment_(environment), requestQuit_(std::move(requestQuit)) {
    EventApplication::setHistory(&environment.undoManager);
    setAcceptDrops(true);
    buildContent();
    buildMenuBar();
    sheets_ = new SheetHost(*this, *centralWidget());
    new SheetPresenter(environment_, *sheets_);
    alerts_ = new AlertPresenter(environment_, this);
    new ContextMenuKey(this);
    new OneLineFields(this);
    new HistoryButtons(environment_, *this);
    new MnemonicKeys(this);
    fitScreen();
    restoreState();

    AppState& state = environment_.appState;
    subscriptions_.push_back(environment_.store.statusChanged.observe([this] { refreshCover(); }));
    subscriptions_.push_back(state.lockChanged.observe([this] { refreshCover(); }));
    subscriptions_.push_back(
        environment_.defaults.observe(settings::requireAuthentication, [this] { refreshCover(); }));
    subscriptions_.push_back(state.busyChanged.observe(
        [this] { pill_->setMessage(environment_.appState.busyMessage()); }));
    subscriptions_.push_back(state.selectionChanged.observe([this] { panels_->closePanel(); }));
    subscriptions_.push_back(state.entryWanted.observe([this](const UUID& /*id*/) {
        panels_->closePanel();
        detail_->focusScreen();
    }));
    subscriptions_.push_back(state.linesWanted.observe([this](const FigureLines& figure) {
        panels_->open(*new LinesPanel(environment_, figure));
    }));
    const auto lookChanged = [this] {
        sheets_->refreshLater();
        panels_->refreshLater();
    };
    for (Observers<>* observers : {&environment_.store.libraryChanged, &state.selectionChanged,
                                   &state.noticeChanged, &state.busyChanged}) {
        subscriptions_.push_back(observers->observe(lookChanged));
    }
    subscriptions_.push_back(state.selectionChanged.observe([this] { refreshTitle(); }));
    subscriptions_.push_back(environment_.store.libraryChanged.observe([this] { refreshTitle(); }));
    refreshCover();
    if (splitter_->isEnabled()) {
        sidebar_->setFocus();
    }
}

MainWindow::~MainWindow() {
    if (EventApplication::history() == &environment_.undoManager) {
        EventApplication::setHistory(nullptr);
    }
    saveState();
}

void MainWindow::buildContent() {
    auto* root = new QWidget(this);
    splitter_ = new QSplitter(root);
    splitter_->setHandleWidth(1);
    splitter_->setChildrenCollapsible(false);
    sidebar_ = new SidebarWidget(environment_, splitter_);
    sidebar_->setMinimumWidth(minimumSidebarWidth);
    sidebar_->setMaximumWidth(maximumSidebarWidth);
    splitter_->addWidget(sidebar_);
    detail_ = new DetailWidget(environment_, splitter_);
    splitter_->addWidget(detail_);
    // The splitter puts what comes later before what came earlier, for screen readers.
    sidebar_->lower();
    splitter_->setStretchFactor(0, 0);
    splitter_->setStretchFactor(1, 1);
    splitter_->setSizes({idealSidebarWidth, defaultSize.width() - idealSidebarWidth});

    panels_ = new PanelHost(*splitter_, root);
    pill_ = new BusyPill(root);
    notice_ = new NoticeWidget(environment_.appState, root);
    gate_ = new GateWidget(environment_, requestQuit_, *splitter_, root);
    // One cell for all: the later ones lie over the earlier.
    auto* grid = new QGridLayout(root);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(splitter_, 0, 0);
    grid->addWidget(panels_, 0, 0);
    grid->addWidget(pill_, 0, 0, Qt::AlignHCenter | Qt::AlignTop);
    grid->addWidget(gate_, 0, 0);
    // Over the gate too: what it says of the data file matters there as well. Clear of the figures
    // at the foot of a screen.
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(0, 0, 2 * Theme::grid, 6 * Theme::grid);
    foot->addWidget(notice_);
    grid->addLayout(foot, 0, 0, Qt::AlignRight | Qt::AlignBottom);
    setCentralWidget(root);
}

void MainWindow::buildMenuBar() {
    menu_ = new MenuBar(environment_,
                        {.quit = requestQuit_,
                         .showAbout = [this] { showAbout(); },
                         .isSidebarShown = [this] { return !sidebar_->isHidden(); },
                         .toggleSidebar = [this] { setSidebarShown(sidebar_->isHidden()); },
                         .findInAllAccounts = [this] { findInAllAccounts(); },
                         .goToPane = [this](bool forward) { goToPane(*this, forward); }},
                        *menuBar());
    menuBar()->lower();
}

QSize MainWindow::roomOnScreen() const {
    return screen()->availableSize() - QSize(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

void MainWindow::fitScreen() {
    // What reaches below a small screen, such as the buttons of a sheet, nobody could press.
    const QSize room = roomOnScreen() - QSize(0, menuBar()->sizeHint().height());
    centralWidget()->setMinimumSize(minimumContentSize.boundedTo(room));
}

void MainWindow::restoreState() {
    resize(defaultSize);
    restoreGeometry(windowState::value(geometryKey).toByteArray());
    splitter_->restoreState(windowState::value(splitterKey).toByteArray());
    const QVariant shown = windowState::value(sidebarKey);
    setSidebarShown(!shown.isValid() || shown.toBool());
}

void MainWindow::saveState() const {
    windowState::setValue(geometryKey, saveGeometry());
    windowState::setValue(splitterKey, splitter_->saveState());
    windowState::setValue(sidebarKey, !sidebar_->isHidden());
}

void MainWindow::setSidebarShown(bool shown) {
    sidebar_->setVisible(shown);
    panels_->refreshLater();
    menu_->refresh();
}

void MainWindow::refreshCover() {
    const Cover cover = oakfen::cover(environment_);
    const bool isObscured = cover != Cover::none;
    const bool isRevealed = !isObscured && !splitter_->isEnabled();
    if (isVisible() && cover != cover_) {
        // A sheet lies over the menus too.
        new CrossFade(environment_.appState.sheet() ? static_cast<QWidget&>(*this)
                                                    : *centralWidget());
    }
    cover_ = cover;
    refreshTitle();
    notice_->setScreenHidden(isObscured);
    splitter_->setEnabled(!isObscured);
    if (isObscured) {
        sheets_->setObscured(true);
    }
    panels_->setObscured(isObscured);
    gate_->refresh();
    if (!isObscured) {
        // Once the cover is gone, of which the sheet would else show a picture.
        sheets_->setObscured(false);
    }
    if (isRevealed && !environment_.appState.sheet() && panels_->panel() == nullptr) {
        sidebar_->setFocus();
    }
}

void MainWindow::refreshTitle() {
    setWindowTitle(qt(oakfen::windowTitle(environment_)));
}

void MainWindow::present() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::findInAllAccounts() {
    if (auto* open = qobject_cast<FindWidget*>(panels_->panel())) {
        open->startSearch();
        return;
    }
    panels_->open(*new FindWidget(environment_, findTerm_));
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::fitScreen,
            Qt::UniqueConnection);
    // Not before the window is there: the alert belongs in front of it.
    QMetaObject::invokeMethod(alerts_, &AlertPresenter::start, Qt::QueuedConnection);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        // The person is back, perhaps from a night for which the machine slept.
        environment_.dayChange.check();
    }
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (!isReturn || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier ||
        button == nullptr) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat()) {
        // What the first press did may have led to the next button, and so on.
        return;
    }
    auto* tool = qobject_cast<QToolButton*>(button);
    if (tool != nullptr && tool->menu() != nullptr) {
        tool->showMenu();
    } else {
        button->click();
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (canClose(environment_)) {
        requestQuit_();
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() && FileActions::canTakeDroppedFiles(environment_)) {
        // A copy, whatever the other program proposes: its file stays where it is.
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    std::vector<std::string> paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        paths.push_back(utf8(url.toLocalFile()));
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    FileActions::takeDroppedFiles(environment_, paths);
}

void MainWindow::showAbout() {
    QMessageBox* box = makeMessageBox(
        this, QStringLiteral("Oakfen ") + QCoreApplication::applicationVersion(),
        QStringLiteral("Accounts, bills, budgets and investments, kept on your own computer."));
    box->setStandardButtons(QMessageBox::Ok);
    box->open();
}

} // namespace oakfen
