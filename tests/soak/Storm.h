#pragma once

#include "tests/support/MountFolder.h"
#include "tests/support/SoundServer.h"

#include <QObject>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <memory>

class DataServerClient;
class TallyHost;

/// What months bring, in minutes: keys that come, change and go, settings panels that ask and
/// leave, a sound server that restarts, drives that are mounted and unmounted. The same each time.
class Storm : public QObject
{
    Q_OBJECT

public:
    explicit Storm(TallyHost &host);
    ~Storm() override;

    void start();

    /// Ends it: no key, no panel, no drive of its own, the sound server up.
    void calm();

    /// What this machine cannot do, one line each.
    QStringList missing() const { return m_missing; }

private:
    void changeAKey();
    void visit();
    void restartTheSoundServer();
    void mountOrUnmount();
    QString anyAction();
    QJsonObject anySettings();
    void every(int milliseconds, void (Storm::*step)());

    static constexpr int mostKeys = 32;

    TallyHost &m_host;
    QRandomGenerator m_random{20210401};
    QList<QTimer *> m_timers;
    QVector<QString> m_actions = QVector<QString>(mostKeys); ///< By key; empty where there is none.
    std::unique_ptr<DataServerClient> m_panel;
    SoundServer m_sound;
    bool m_hasSound = false;
    MountFolder m_folder;
    bool m_canMount = false;
    bool m_isMounted = false;
    QStringList m_missing;
};
