#pragma once

#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/deck/StoredProfile.h"
#include "deck_simulator/host/DeckSession.h"
#include "deck_simulator/host/TrafficMeter.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace deck {

/// Runs the plugin repeatedly on the deck of a model: changes in the model are sent to the plugin
/// at once, and the settings that the plugin returns are stored in the model.
class DeckRunner : public QObject
{
    Q_OBJECT

public:
    /// \a settings gives the program, the fonts and the working folder; the rest comes from
    /// setLaunch. \a model is not owned and outlives this object.
    DeckRunner(const SessionSettings &settings, DeckModel *model, QObject *parent = nullptr);

    /// Takes effect at the next start.
    void setLaunch(const LaunchChoices &launch) { m_launch = launch; }
    [[nodiscard]] const LaunchChoices &launch() const { return m_launch; }

    void start();
    /// When called a second time, it does not wait for the plugin.
    void stop();
    void restart();
    void letHostDie();
    bool changeServicePort();

    [[nodiscard]] bool isRunning() const { return m_session != nullptr; }
    /// Whether a plugin is registered on the deck.
    [[nodiscard]] bool isLinked() const;
    [[nodiscard]] QString stateText() const;
    /// How the plugin last ended; empty before that.
    [[nodiscard]] const QString &lastExit() const { return m_lastExit; }
    /// The folder in which the plugin runs, or last ran.
    [[nodiscard]] const QString &workFolder() const { return m_workFolder; }
    [[nodiscard]] double framesPerSecond() const { return m_meter.framesPerSecond(); }
    [[nodiscard]] double bytesPerSecond() const { return m_meter.bytesPerSecond(); }
    [[nodiscard]] qint64 pluginPid() const;

    /// What the plugin last sent for a key; null without a plugin.
    [[nodiscard]] const DeckKey *key(const QString &context) const;

    /// Sends an event about a key; false without a plugin or such a key.
    bool sendKeyEvent(const QString &event, const QString &context, const QJsonObject &extra = {});
    void press(const QString &context, bool down);
    /// Clockwise if \a ticks is positive.
    void rotate(const QString &context, int ticks, bool pressed);
    void pressDial(const QString &context, bool down);
    /// Tells the plugin which key the settings panel shows; empty for none.
    void inspect(const QString &context);

Q_SIGNALS:
    void stateChanged();
    /// Messages about an earlier run are no longer valid.
    void aboutToStart();
    /// The plugin has been started in this folder.
    void started(const QString &workFolder);
    /// The plugin has registered and its keys have been sent.
    void linked();
    /// The plugin has ended for good; \a failure is empty on success.
    void ended(const QString &failure);
    void keyChanged(const QString &context);
    /// The plugin stands still, or no longer does.
    void stalledChanged(bool stalled);
    /// New lists for the settings panel.
    void settingsReplied(const QString &context, const QJsonObject &reply);
    void notice(const QString &text);

private:
    [[nodiscard]] QJsonObject message(const DeckEntry &entry) const;
    void onRegistered();
    void onLayoutChanged();
    void onSettingsChanged(const QString &context);
    void onSettingsReplied(const QString &context);
    void onSessionEnded();
    void fit(const QString &context);
    void send(const DeckEntry &entry);
    void measure();
    void takeOffMissing();
    void putOnNew();

    SessionSettings m_settings;
    DeckModel *m_model;
    LaunchChoices m_launch;
    QPointer<DeckSession> m_session;
    QHash<QString, int> m_awaitedReplies; // by context
    // Keys that were told something, and how many pictures each had then: the next one shows
    // whether the text fills the key.
    QHash<QString, quint64> m_unfitted;
    QString m_inspected;
    QString m_lastExit;
    QString m_workFolder;
    QTimer m_meterTimer;
    TrafficMeter m_meter;
    bool m_startAgain = false;
};

} // namespace deck
