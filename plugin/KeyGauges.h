#pragma once

#include "plugin/GaugeHistory.h"
#include "plugin/KeyGaugeState.h"

#include <QString>

#include <unordered_map>

class KeyKind;
class normalAction;

/// Paints keys the way their display settings ask for, and remembers what that takes from pass to
/// pass. Times are milliseconds of one clock that never goes back and counts sleep.
class KeyGauges
{
public:
    /// Samples what keys show; called before the first key of a pass is painted.
    void beginPass(qint64 now);

    /// Paints \a key within a pass and returns the picture as a data URL; \a text is what its kind
    /// shows at present.
    QString paint(normalAction &key, const KeyKind &kind, const QString &text, qint64 now);

    /// The same between two passes: it adds no sample and does not count as a pass.
    QString paintBetweenPasses(normalAction &key, const KeyKind &kind, const QString &text,
                               qint64 now);

    /// \a key, or its dial, goes down and comes up again.
    void press(const normalAction &key, qint64 now);
    void release(const normalAction &key, qint64 now);

    /// \a key has got new settings or is about to go.
    void forget(const normalAction &key);

private:
    enum class Occasion { Pass, BetweenPasses };

    QString paintOn(Occasion occasion, normalAction &key, const KeyKind &kind, const QString &text,
                    qint64 now);
    static bool answersPresses(const normalAction &key);

    GaugeHistory m_history;
    std::unordered_map<const normalAction *, KeyGaugeState> m_states;
};
