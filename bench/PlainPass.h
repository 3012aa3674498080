#pragma once

#include "bench/PlainQt.h"

#include <QStringList>
#include <QVector>

class QWebSocket;
class VqSystemMonitorLib;

/// One pass over a deck in plain Qt: the same refresh, log lines, pictures and messages. Its texts
/// are given, so it does not have to make them.
class PlainPass
{
public:
    struct TextsOfKey
    {
        plainqt::Key key;
        QStringList texts; ///< By step.
    };

    /// Neither is owned.
    PlainPass(VqSystemMonitorLib *library, QWebSocket *link, QVector<TextsOfKey> keys);

    void run(int step);

private:
    VqSystemMonitorLib *m_library;
    QWebSocket *m_link;
    QVector<TextsOfKey> m_keys;
};
