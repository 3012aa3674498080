#pragma once

#include "deck_simulator/host/DeckSession.h"
#include "deck_simulator/script/Script.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace deck {

/// Plays a script on a session whose keys have appeared. Steps run at their times or, after an
/// expectation that had to wait, as soon as possible.
class ScriptPlayer : public QObject
{
    Q_OBJECT

public:
    /// \a session is not owned and outlives this object.
    ScriptPlayer(const QVector<ScriptStep> &steps, DeckSession *session, QObject *parent = nullptr);

    void start();

Q_SIGNALS:
    /// The next step has to write a picture of the deck.
    void snapshotWanted(const QString &file);
    /// The last step has been played, or one has failed: then \a failure says why.
    void finished(const QString &failure);

private:
    void playDue();
    [[nodiscard]] QString play(const ScriptStep &step);
    [[nodiscard]] QString playOnKey(const ScriptStep &step);
    [[nodiscard]] QString change(const ScriptStep &step, const DeckKey &key);
    void put(const ScriptStep &step);
    void press(const ScriptStep &step, const QString &context);
    void sendPress(const DeckPlace &place, const QString &context, bool down);
    void move(const ScriptStep &step, const QString &context);
    void beginToWait(const ScriptStep &step);
    [[nodiscard]] bool isFulfilled(const ScriptStep &step) const;
    void checkExpectation();
    void onPatienceEnd();
    void end(const QString &failure);
    [[nodiscard]] const DeckKey *keyOf(const ScriptStep &step) const;

    QVector<ScriptStep> m_steps;
    DeckSession *m_session;
    QElapsedTimer m_clock;
    QTimer m_stepTimer;
    QTimer m_patience;
    int m_next = 0;
    int m_made = 0; // keys put by the script
    quint64 m_picturesBefore = 0;
    bool m_waiting = false;
    bool m_holding = false;
    bool m_ended = false;
};

} // namespace deck
