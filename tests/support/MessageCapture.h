#pragma once

#include <QStringList>
#include <QtGlobal>

/// Takes every message of the framework's debug stream, of any type, while it exists. One at a
/// time.
class MessageCapture
{
public:
    MessageCapture();
    ~MessageCapture();
    Q_DISABLE_COPY(MessageCapture)

    static QStringList messages();
    static QStringList criticalMessages();
    static int count(const QString &message);
    static void clear();

    /// \a text as the debug stream prints it by LogDebug.
    static QString quoted(const QString &text);

private:
    QtMessageHandler m_previous;
};
