#include "deck_simulator/gui/DeckWindow.h"

#include "deck_simulator/deck/PictureFile.h"
#include "deck_simulator/gui/ActionPalette.h"
#include "deck_simulator/gui/DeckBar.h"
#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckStatusBar.h"
#include "deck_simulator/gui/Inspector.h"
#include "deck_simulator/gui/LogView.h"
#include "deck_simulator/gui/MessageBar.h"
#include "deck_simulator/gui/PluginBar.h"
#include "deck_simulator/gui/SettingsForm.h"
#include "deck_simulator/gui/SettingsPanel.h"
#include "deck_simulator/host/DeckStatus.h"

#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace deck {

namespace {

constexpr QSize usualSize(1320, 820);

// Within the screen and the frame that windows have on it.
QSize firstSize(const QWidget &window)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const int frame = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return screen == nullptr
               ? usualSize
               : usualSize.boundedTo(screen->availableSize() - QSize(frame, 2 * frame));
}

QDockWidget *makeDock(const QString &title, const char *name, QWidget *content)
{
    auto *dock = new QDockWidget(title);
    dock->setObjectName(QString::fromLatin1(name)); // by which its place is kept
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable |
                      QDockWidget::DockWidgetClosable);
    dock->setWidget(content);
    return dock;
}

// The dock may be closed, or lie behind another.
void bringUp(const QWidget *content)
{
    QWidget *dock = content->parentWidget();
    dock->show();
    dock->raise();
    dock->activateWindow();
}

} // namespace

DeckWindow::DeckWindow(const WindowSettings &settings, QWidget *parent)
    : QMainWindow(parent)
    , m_store(settings.profileFile,
              settings.keepsProfile ? ProfileStore::Access::Full : ProfileStore::Access::ReadOnly)
    , m_runner(settings.session, &m_model)
    , m_grid(new DeckGrid(&m_model))
    , m_actions(new ActionPalette)
    , m_panel(new SettingsPanel)
    , m_inspector(new Inspector(&m_model, &m_runner, m_panel, settings.dataServerPort, this))
    , m_pluginBar(new PluginBar(&m_runner))
    , m_deckBar(new DeckBar(&m_model))
    , m_logView(new LogView(&m_log))
    , m_status(new DeckStatusBar)
    , m_messages(new MessageBar)
{
    setWindowTitle(tr("Deck simulator"));
    auto *deck = new QWidget;
    auto *layout = new QVBoxLayout(deck);
    layout->addWidget(m_messages);
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_deckBar);
    setCentralWidget(deck);
    setStatusBar(m_status);
    addToolBar(m_pluginBar);
    addDocks();
    addMenus();
    connectGrid();
    connectRunner();
    m_saveTimer.setSingleShot(true);
    connect(&m_saveTimer, &QTimer::timeout, this, &DeckWindow::saveProfile);
    resize(firstSize(*this));
    resizeDocks({findChild<QDockWidget *>(QStringLiteral("log"))}, {180}, Qt::Vertical);
    loadProfile(settings.language);
    connect(&m_model, &DeckModel::changed, this, [this] { m_saveTimer.start(0); });
    onStateChanged();
    m_grid->setFocus();
}

void DeckWindow::addDocks()
{
    addDockWidget(Qt::LeftDockWidgetArea, makeDock(tr("Actions"), "actions", m_actions));
    addDockWidget(Qt::RightDockWidgetArea, makeDock(tr("Settings"), "settings", m_panel));
    addDockWidget(Qt::BottomDockWidgetArea, makeDock(tr("Log"), "log", m_logView));
    // The log lies below the deck only.
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    connect(m_actions, &ActionPalette::actionChosen, this, &DeckWindow::putOnCurrent);
}

void DeckWindow::addMenus()
{
    QMenu *plugin = menuBar()->addMenu(tr("&Plugin"));
    plugin->addActions(
        {m_pluginBar->startAction(), m_pluginBar->stopAction(), m_pluginBar->restartAction()});
    plugin->addSeparator();
    plugin->addActions({m_pluginBar->dieAction(), m_pluginBar->portAction()});
    plugin->addSeparator();
    QAction *quit = plugin->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    QMenu *view = menuBar()->addMenu(tr("&View"));
    const QList<QDockWidget *> docks = findChildren<QDockWidget *>();
    for (const QDockWidget *dock : docks)
        view->addAction(dock->toggleViewAction());
    view->addSeparator();
    view->addAction(m_pluginBar->toggleViewAction());
}

void DeckWindow::connectGrid()
{
    connect(m_grid, &DeckGrid::keyPressed, &m_runner, &DeckRunner::press);
    connect(m_grid, &DeckGrid::dialPressed, &m_runner, &DeckRunner::pressDial);
    connect(m_grid, &DeckGrid::dialTurned, &m_runner, &DeckRunner::rotate);
    connect(m_grid, &DeckGrid::currentChanged, m_inspector, &Inspector::select);
    connect(m_grid, &DeckGrid::editRequested, this, [this](const DeckPlace &place) {
        m_grid->setCurrent(place);
        bringUp(m_panel);
        m_panel->form()->focusFirst();
    });
    connect(m_grid, &DeckGrid::actionWanted, this, [this] {
        bringUp(m_actions);
        m_actions->startSearch();
    });
    connect(m_actions, &ActionPalette::left, this, &DeckWindow::focusDeck);
    connect(m_panel->form(), &SettingsForm::left, this, &DeckWindow::focusDeck);
}

void DeckWindow::connectRunner()
{
    connect(&m_runner, &DeckRunner::stateChanged, this, &DeckWindow::onStateChanged);
    connect(&m_runner, &DeckRunner::keyChanged, this, &DeckWindow::showKey);
    connect(&m_runner, &DeckRunner::stalledChanged, this, &DeckWindow::onStalled);
    connect(&m_runner, &DeckRunner::notice, this, [this](const QString &text) {
        showNotice(text);
        m_tellsOfRun = true;
    });
    connect(&m_runner, &DeckRunner::aboutToStart, this, [this] {
        if (m_tellsOfRun)
            m_messages->clear();
    });
    connect(&m_runner, &DeckRunner::started, &m_log, &PluginLog::follow);
    connect(m_pluginBar, &PluginBar::launchChanged, this, [this] { m_saveTimer.start(0); });
}

void DeckWindow::loadProfile(const QString &language)
{
    m_profile = m_store.load();
    if (!language.isEmpty())
        m_profile.launch.language = language;
    m_model.restore(m_profile.grid, m_profile.dials, m_profile.entries);
    m_runner.setLaunch(m_profile.launch);
    m_pluginBar->showState();
    restoreGeometry(m_profile.windowGeometry);
    restoreState(m_profile.windowState);
    // The user must notice that a deck has been set aside.
    if (!m_store.message().isEmpty()) {
        m_log.tell(m_store.message());
        m_messages->showMessage(m_store.message());
    }
}

void DeckWindow::saveProfile()
{
    m_profile.grid = m_model.grid();
    m_profile.dials = m_model.dials();
    m_profile.entries = m_model.entries();
    m_profile.launch = m_runner.launch();
    m_profile.windowGeometry = saveGeometry();
    m_profile.windowState = saveState();
    if (!m_store.save(m_profile) && !m_store.message().isEmpty())
        showNotice(m_store.message());
}

void DeckWindow::start()
{
    m_runner.start();
}

void DeckWindow::takeScreenshot(const QString &file, std::chrono::milliseconds after)
{
    m_awaitsScreenshot = true;
    // The picture need not fit on the screen.
    if (m_profile.windowGeometry.isEmpty())
        resize(usualSize);
    connect(&m_runner, &DeckRunner::linked, this, [this, file, after] {
        QTimer::singleShot(after, this, [this, file] { writeScreenshot(file); });
    });
    connect(&m_runner, &DeckRunner::ended, this, [this](const QString &failure) {
        if (!m_awaitsScreenshot)
            return;
        m_awaitsScreenshot = false;
        m_failure =
            failure.isEmpty() ? tr("The plugin ended before the screenshot was taken.") : failure;
        QTimer::singleShot(0, this, &QWidget::close);
    });
}

void DeckWindow::writeScreenshot(const QString &file)
{
    if (!m_awaitsScreenshot)
        return;
    m_awaitsScreenshot = false;
    const QString fault =
        writePicture(grab().toImage().convertToFormat(QImage::Format_RGB32), file);
    if (!fault.isEmpty())
        m_failure = tr("The screenshot %1 cannot be written: %2.")
                        .arg(QDir::toNativeSeparators(file), fault);
    close();
}

void DeckWindow::onStateChanged()
{
    m_status->showState(m_runner);
    if (m_runner.isRunning())
        return;
    m_grid->clearLive();
    m_log.finish();
    if (m_closing)
        close();
}

void DeckWindow::onStalled(bool stalled)
{
    m_grid->setDimmed(stalled);
    if (m_messages->message() == stallText(true))
        m_messages->clear();
    if (!m_runner.isLinked())
        return;
    m_log.tell(stallText(stalled));
    if (stalled)
        m_messages->showMessage(stallText(stalled));
    m_tellsOfRun = true;
}

void DeckWindow::showKey(const QString &context)
{
    if (const DeckKey *key = m_runner.key(context))
        m_grid->showLive(context, key->title(), key->picture());
}

void DeckWindow::putOnCurrent(const QString &action)
{
    DeckPlace place = m_grid->current();
    if (m_model.at(place) != nullptr)
        place = m_model.firstEmptyKey();
    if (!m_model.put(place, action)) {
        showNotice(tr("No key is free."));
        return;
    }
    m_grid->setCurrent(place);
    focusDeck();
}

void DeckWindow::focusDeck()
{
    activateWindow(); // a dock may be a window of its own
    m_grid->setFocus();
}

void DeckWindow::showNotice(const QString &text)
{
    m_log.tell(text);
    m_messages->showBriefly(text.section(QLatin1Char('\n'), 0, 0));
    m_tellsOfRun = false;
}

void DeckWindow::closeEvent(QCloseEvent *event)
{
    saveProfile();
    if (!m_runner.isRunning()) {
        event->accept();
        return;
    }
    // The plugin is given the time to end by itself; closing again does not wait.
    event->ignore();
    m_closing = true;
    m_runner.stop();
}

} // namespace deck
