#include "deck_simulator/gui/PluginBar.h"

#include "deck_simulator/gui/ScreenRoom.h"
#include "deck_simulator/gui/WheelGuard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>

namespace deck {

namespace {

constexpr int readingsLetters = 14;

enum Readings { liveReadings, recordedReadings, chooseRecording };

} // namespace

PluginBar::PluginBar(DeckRunner *runner, QWidget *parent)
    : QToolBar(tr("Plugin"), parent)
    , m_runner(runner)
    , m_start(new QAction(tr("&Start"), this))
    , m_stop(new QAction(tr("S&top"), this))
    , m_restart(new QAction(tr("&Restart"), this))
    , m_die(new QAction(tr("Host &dies"), this))
    , m_port(new QAction(tr("Change service &port"), this))
    , m_language(new QComboBox)
    , m_strip(new QCheckBox(tr("Strip quotes")))
    , m_readings(new QComboBox)
{
    setObjectName(QStringLiteral("pluginBar"));
    addActions();
    addChoices();
    connect(m_runner, &DeckRunner::stateChanged, this, &PluginBar::showState);
    showLaunch();
    showState();
}

void PluginBar::addActions()
{
    m_start->setShortcut(Qt::Key_F5);
    m_restart->setShortcut(QStringLiteral("Ctrl+F5"));
    m_stop->setShortcut(QStringLiteral("Shift+F5"));
    m_start->setToolTip(tr("Start the plugin (F5)"));
    m_restart->setToolTip(tr("End the plugin and start it again (Ctrl+F5)"));
    m_stop->setToolTip(tr("Take the keys off and end the plugin (Shift+F5)"));
    m_die->setToolTip(tr("Break the link without a word; the plugin has to end by itself"));
    m_port->setToolTip(
        tr("Move the hardware-information service to another port and tell the plugin"));
    for (QAction *action : {m_start, m_stop, m_restart})
        addAction(action);
    addSeparator();
    addAction(m_die);
    addAction(m_port);
    addSeparator();
    connect(m_start, &QAction::triggered, m_runner, &DeckRunner::start);
    connect(m_stop, &QAction::triggered, m_runner, &DeckRunner::stop);
    connect(m_restart, &QAction::triggered, m_runner, &DeckRunner::restart);
    connect(m_die, &QAction::triggered, m_runner, &DeckRunner::letHostDie);
    connect(m_port, &QAction::triggered, m_runner, &DeckRunner::changeServicePort);
}

void PluginBar::addChoices()
{
    m_language->addItem(QStringLiteral("English"), QStringLiteral("en"));
    m_language->addItem(QStringLiteral("中文"), QStringLiteral("zh_CN"));
    m_language->setToolTip(tr("The host's language"));
    m_language->setAccessibleName(m_language->toolTip());
    m_strip->setToolTip(tr("Pass the -info text without its double quotes, as behind a command "
                           "line that eats them"));
    m_readings->addItem(tr("Live readings"), liveReadings);
    m_readings->addItem(tr("Recording..."), chooseRecording);
    // The name of a file may be longer than the window.
    m_readings->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_readings->setMinimumContentsLength(readingsLetters);
    m_readings->setToolTip(tr("Where the readings come from"));
    m_readings->setAccessibleName(m_readings->toolTip());
    new WheelGuard(m_language);
    new WheelGuard(m_readings);
    // Each by itself, so that those for which there is no room move into the bar's extension.
    auto *strip = new QWidget;
    auto *stripLayout = new QHBoxLayout(strip);
    stripLayout->setContentsMargins(4, 0, 4, 0);
    stripLayout->addWidget(m_strip);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_language, strip, m_readings})
        addWidget(widget);

    connect(m_language, QOverload<int>::of(&QComboBox::activated), this, [this] {
        LaunchChoices launch = m_runner->launch();
        launch.language = m_language->currentData().toString();
        applyLaunch(launch);
    });
    connect(m_strip, &QCheckBox::clicked, this, [this](bool stripped) {
        LaunchChoices launch = m_runner->launch();
        launch.quoteStripped = stripped;
        applyLaunch(launch);
    });
    connect(m_readings, QOverload<int>::of(&QComboBox::activated), this,
            &PluginBar::chooseReadings);
}

void PluginBar::showState()
{
    const bool running = m_runner->isRunning();
    m_start->setEnabled(!running);
    m_stop->setEnabled(running);
    m_restart->setEnabled(running);
    m_die->setEnabled(m_runner->isLinked());
    m_port->setEnabled(m_runner->isLinked());
    showLaunch();
}

void PluginBar::showLaunch()
{
    const LaunchChoices &launch = m_runner->launch();
    int language = m_language->findData(launch.language);
    if (language < 0) {
        m_language->addItem(launch.language, launch.language);
        language = m_language->count() - 1;
    }
    m_language->setCurrentIndex(language);
    m_strip->setChecked(launch.quoteStripped);

    int recording = m_readings->findData(recordedReadings);
    if (!launch.recording.isEmpty()) {
        const QString name = QFileInfo(launch.recording).fileName();
        if (recording < 0) {
            recording = 1;
            m_readings->insertItem(recording, name, recordedReadings);
        }
        m_readings->setItemText(recording, name);
        m_readings->setItemData(recording, launch.recording, Qt::ToolTipRole);
    }
    m_readings->setCurrentIndex(launch.recording.isEmpty() ? 0 : recording);
}

void PluginBar::applyLaunch(const LaunchChoices &launch)
{
    const bool same = launch == m_runner->launch();
    m_runner->setLaunch(launch);
    showLaunch();
    if (same)
        return;
    Q_EMIT launchChanged();
    if (m_runner->isRunning())
        m_runner->restart();
}

void PluginBar::useRecording(const QString &file)
{
    LaunchChoices launch = m_runner->launch();
    launch.recording = file;
    applyLaunch(launch);
}

void PluginBar::chooseReadings(int index)
{
    const int readings = m_readings->itemData(index).toInt();
    if (readings == liveReadings) {
        useRecording({});
    } else if (readings == recordedReadings) {
        useRecording(m_readings->itemData(index, Qt::ToolTipRole).toString());
    } else {
        showLaunch(); // until a file is chosen
        askForRecording();
    }
}

void PluginBar::askForRecording()
{
    auto *dialog = new QFileDialog(this, tr("Recording of sensors"),
                                   QFileInfo(m_runner->launch().recording).path(),
                                   tr("Recordings (*.json);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &PluginBar::useRecording);
    dialog->open();
    dialog->resize(dialog->size().boundedTo(roomOnScreen(*this)));
}

} // namespace deck
