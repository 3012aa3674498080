#include "deck_simulator/gui/DeckWindow.h"

#include "deck_simulator/deck/DeckName.h"
#include "deck_simulator/deck/PictureFile.h"
#include "deck_simulator/gui/ActionPalette.h"
#include "deck_simulator/gui/DeckBar.h"
#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckMenu.h"
#include "deck_simulator/gui/DeckNameDialog.h"
#include "deck_simulator/gui/DeckStatusBar.h"
#include "deck_simulator/gui/DeckView.h"
#include "deck_simulator/gui/EditActions.h"
#include "deck_simulator/gui/Inspector.h"
#include "deck_simulator/gui/LogView.h"
#include "deck_simulator/gui/MessageBar.h"
#include "deck_simulator/gui/PluginBar.h"
#include "deck_simulator/gui/ScreenRoom.h"
#include "deck_simulator/gui/SettingsForm.h"
#include "deck_simulator/gui/SettingsPanel.h"
#include "deck_simulator/gui/TextScaledStyle.h"
#include "deck_simulator/host/DeckStatus.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>

namespace deck {

namespace {

constexpr QSize usualSize(1320, 820);
constexpr int logHeight = 180;
constexpr int deckMargins = 30;  // beside it
constexpr int panelLetters = 32; // across a panel that need not scroll sideways

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
    , m_shelf(settings.profileFile)
    , m_access(settings.keepsProfile ? ProfileStore::Access::Full : ProfileStore::Access::ReadOnly)
    , m_deckName(settings.deckName.isEmpty() ? defaultDeckName()
                                             : m_shelf.keptName(settings.deckName))
    , m_store(makeStore(m_deckName))
    , m_runner(settings.session, &m_model)
    , m_grid(new DeckGrid(&m_model))
    , m_edits(new EditActions(&m_model, m_grid, this))
    , m_actions(new ActionPalette)
    , m_panel(new SettingsPanel)
    , m_inspector(new Inspector(&m_model, &m_runner, m_panel, settings.dataServerPort, this))
    , m_pluginBar(new PluginBar(&m_runner))
    , m_deckBar(new DeckBar(&m_model))
    , m_deckMenu(new DeckMenu(&m_shelf, this))
    , m_logView(new LogView(&m_log))
    , m_status(new DeckStatusBar)
    , m_messages(new MessageBar)
{
    auto *deck = new QWidget;
    auto *layout = new QVBoxLayout(deck);
    layout->addWidget(m_messages);
    layout->addWidget(new DeckView(m_grid), 1);
    layout->addWidget(m_deckBar);
    setCentralWidget(deck);
    setStatusBar(m_status);
    addToolBar(m_pluginBar);
    addDocks();
    addMenus();
    connectGrid();
    connectRunner();
    m_saveTimer.setSingleShot(true);
    connect(&m_saveTimer, &QTimer::timeout, this, [this] { saveProfile(); });
    resize((QSizeF(usualSize) * textScale(font())).toSize().boundedTo(roomOnScreen(*this)));
    arrangeDocks(size());
    loadProfile(settings.freshDeck.value_or(firstProfile(settings.language)), settings.language);
    connect(&m_model, &DeckModel::changed, this, [this] { m_saveTimer.start(0); });
    onStateChanged();
    m_grid->setFocus();
}

void DeckWindow::addDocks()
{
    makeDock(tr("Actions"), "actions", m_actions)->setParent(this);
    makeDock(tr("Settings"), "settings", m_panel)->setParent(this);
    makeDock(tr("Log"), "log", m_logView)->setParent(this);
    // The log lies below the deck only.
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    connect(m_actions, &ActionPalette::actionChosen, this, &DeckWindow::putOnCurrent);
}

// Where the deck would have no room between them, the lists lie behind each other.
void DeckWindow::arrangeDocks(const QSize &window)
{
    auto *actions = findChild<QDockWidget *>(QStringLiteral("actions"));
    auto *panel = findChild<QDockWidget *>(QStringLiteral("settings"));
    auto *log = findChild<QDockWidget *>(QStringLiteral("log"));
    addDockWidget(Qt::LeftDockWidgetArea, actions);
    addDockWidget(Qt::RightDockWidgetArea, panel);
    addDockWidget(Qt::BottomDockWidgetArea, log);
    const QSize deck = m_grid->minimumSizeHint();
    const int panelWidth = panel->sizeHint().width();
    if (deck.width() + actions->sizeHint().width() + panelWidth > window.width()) {
        tabifyDockWidget(panel, actions);
        const int least = panelLetters * fontMetrics().horizontalAdvance(QLatin1Char('0'));
        const int beside =
            qMax(window.width() - deck.width() - deckMargins, qMin(least, window.width() / 2));
        resizeDocks({panel}, {qMin(beside, panelWidth)}, Qt::Horizontal);
    }
    int others = 0;
    for (const QWidget *bar :
         std::initializer_list<QWidget *>{menuBar(), m_pluginBar, m_deckBar, m_status})
        others += bar->sizeHint().height();
    const int rest = window.height() - deck.height() - others;
    if (rest < log->minimumSizeHint().height())
        tabifyDockWidget(panel, log);
    panel->raise();
    resizeDocks({log}, {qBound(1, rest, logHeight)}, Qt::Vertical);
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
    menuBar()->addMenu(m_deckMenu);
    m_deckMenu->saveAsAction()->setEnabled(m_access == ProfileStore::Access::Full);
    connect(m_deckMenu, &DeckMenu::deckChosen, this, &DeckWindow::openDeck);
    connect(m_deckMenu->saveAsAction(), &QAction::triggered, this, &DeckWindow::askForName);
    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    edit->addActions({m_edits->undoAction(), m_edits->redoAction()});
    edit->addSeparator();
    edit->addActions({m_edits->cutAction(), m_edits->copyAction(), m_edits->pasteAction()});
    edit->addSeparator();
    edit->addAction(m_edits->lookAction());
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
    connect(m_panel, &SettingsPanel::left, this, &DeckWindow::focusDeck);
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
    connect(m_pluginBar, &PluginBar::launchChanged, this, [this] {
        applyLanguage();
        m_saveTimer.start(0);
    });
}

std::unique_ptr<ProfileStore> DeckWindow::makeStore(const QString &name) const
{
    return std::make_unique<ProfileStore>(m_shelf.file(name), m_access);
}

void DeckWindow::loadProfile(const StoredProfile &fresh, const QString &language)
{
    m_profile = m_store->load(fresh);
    if (!language.isEmpty())
        m_profile.launch.language = language;
    rememberDeck();
    showDeck();
    restoreWindow();
}

void DeckWindow::rememberDeck()
{
    if (m_access == ProfileStore::Access::Full && !m_shelf.rememberLast(m_deckName))
        m_log.tell(tr("It cannot be kept which deck was open last."));
}

void DeckWindow::restoreWindow()
{
    restoreGeometry(m_profile.windowGeometry);
    restoreState(m_profile.windowState);
    // The screen may have become smaller since, and the text larger.
    const QSize room = roomOnScreen(*this);
    const QSize least = minimumSizeHint();
    if (least.width() > room.width() || least.height() > room.height())
        arrangeDocks(room);
    layout()->activate(); // else the window stays as large as the docks were
    if (!isMaximized() && !isFullScreen())
        resize(size().boundedTo(room));
}

void DeckWindow::showDeck()
{
    m_model.restore(m_profile.grid, m_profile.dials, m_profile.entries);
    m_runner.setLaunch(m_profile.launch);
    m_pluginBar->showState();
    applyLanguage();
    m_deckMenu->setOpenDeck(m_deckName);
    setWindowTitle(isDefaultDeck(m_deckName) ? tr("Deck simulator")
                                             : tr("%1 - Deck simulator").arg(m_deckName));
    // The user must notice that a deck has been set aside.
    if (!m_store->message().isEmpty()) {
        m_log.tell(m_store->message());
        m_messages->showMessage(m_store->message());
    }
}

// New keys, the list of actions and the settings panel are in the language of the plugin's keys.
void DeckWindow::applyLanguage()
{
    const QString language = m_runner.launch().language;
    m_panel->setLanguage(language, m_runner.launch().quoteStripped);
    if (language == m_model.language())
        return;
    m_model.setLanguage(language);
    m_actions->setLanguage(language);
    m_translator.setLanguage(language);
    QCoreApplication::removeTranslator(&m_translator);
    QCoreApplication::installTranslator(&m_translator);
}

bool DeckWindow::saveProfile()
{
    m_saveTimer.stop();
    m_profile.grid = m_model.grid();
    m_profile.dials = m_model.dials();
    m_profile.entries = m_model.entries();
    m_profile.launch = m_runner.launch();
    m_profile.windowGeometry = saveGeometry();
    m_profile.windowState = saveState();
    const bool saved = m_store->save(m_profile);
    if (!saved && !m_store->message().isEmpty())
        showNotice(m_store->message());
    return saved;
}

void DeckWindow::openDeck(const QString &name)
{
    m_deckMenu->setOpenDeck(m_deckName); // until it is open
    if (name == m_deckName)
        return;
    if (!m_shelf.has(name)) {
        showNotice(tr("There is no deck \"%1\" any more.").arg(name));
        return;
    }
    // What cannot be saved would be lost.
    if (!saveProfile())
        return;
    std::unique_ptr<ProfileStore> store = makeStore(name);
    m_profile = store->load();
    m_messages->clear(); // it was about the deck before
    const LaunchChoices before = m_runner.launch();
    goOnWith(std::move(store), name);
    if (m_runner.isRunning() && !(before == m_runner.launch()))
        m_runner.restart();
}

void DeckWindow::saveDeckAs(const QString &name)
{
    const QString fault = deckNameFault(name);
    if (!fault.isEmpty() || m_shelf.has(name)) {
        showNotice(fault.isEmpty() ? tr("There is a deck \"%1\" already.").arg(name)
                                   : tr("The deck is not saved: its name %1.").arg(fault));
        return;
    }
    saveProfile();
    std::unique_ptr<ProfileStore> store = makeStore(name);
    store->load(m_profile);
    if (!store->keeps() || !store->save(m_profile)) {
        showNotice(store->message());
        return;
    }
    m_messages->clear();
    goOnWith(std::move(store), name);
}

void DeckWindow::goOnWith(std::unique_ptr<ProfileStore> store, const QString &name)
{
    m_store = std::move(store);
    m_deckName = name;
    rememberDeck();
    showDeck();
    m_saveTimer.stop(); // nothing has been changed
}

void DeckWindow::askForName()
{
    auto *dialog = new DeckNameDialog(&m_shelf, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &DeckNameDialog::nameChosen, this, &DeckWindow::saveDeckAs);
    dialog->open();
}

void DeckWindow::start()
{
    m_runner.start();
}

void DeckWindow::takeScreenshot(const QString &file, std::chrono::milliseconds after)
{
    m_awaitsScreenshot = true;
    // The picture need not fit on the screen.
    if (m_profile.windowGeometry.isEmpty()) {
        arrangeDocks(usualSize);
        resize(usualSize);
    }
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
