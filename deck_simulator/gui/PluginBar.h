#pragma once

#include "deck_simulator/host/DeckRunner.h"

#include <QToolBar>

class QCheckBox;
class QComboBox;

namespace deck {

/// Controls the plugin: start and stop, faults of the host, and launch settings. Changing a launch
/// setting restarts a running plugin.
class PluginBar : public QToolBar
{
    Q_OBJECT

public:
    /// \a runner is not owned and outlives this object.
    explicit PluginBar(DeckRunner *runner, QWidget *parent = nullptr);

    /// Shows the runner's state and launch settings.
    void showState();
    void useRecording(const QString &file);
    /// Lets the user choose one.
    void askForRecording();

    [[nodiscard]] QAction *startAction() const { return m_start; }
    [[nodiscard]] QAction *stopAction() const { return m_stop; }
    [[nodiscard]] QAction *restartAction() const { return m_restart; }
    [[nodiscard]] QAction *dieAction() const { return m_die; }
    [[nodiscard]] QAction *portAction() const { return m_port; }
    [[nodiscard]] QComboBox *languageField() const { return m_language; }
    [[nodiscard]] QCheckBox *stripField() const { return m_strip; }
    [[nodiscard]] QComboBox *readingsField() const { return m_readings; }

Q_SIGNALS:
    void launchChanged();

private:
    void addActions();
    void addChoices();
    void showLaunch();
    void applyLaunch(const LaunchChoices &launch);
    void chooseReadings(int index);

    DeckRunner *m_runner;
    QAction *m_start;
    QAction *m_stop;
    QAction *m_restart;
    QAction *m_die;
    QAction *m_port;
    QComboBox *m_language;
    QCheckBox *m_strip;
    QComboBox *m_readings;
};

} // namespace deck
