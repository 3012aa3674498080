#pragma once

#include <QString>
#include <QVector>

/// The longest of the texts that a key has shown within the last minute.
class WidestText
{
public:
    /// Takes the text that is shown at \a now (milliseconds, never less than before) and returns
    /// the longest, the latest among equals.
    QString with(const QString &text, qint64 now);

private:
    struct Shown
    {
        QString text;
        qint64 time;
    };

    QVector<Shown> m_shown; ///< One of each length.
};
