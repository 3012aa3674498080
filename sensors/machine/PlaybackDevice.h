#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// One sink as a sound server describes it.
struct PlaybackDevice
{
    QByteArray id;       ///< The server's own name for it.
    QString name;        ///< What people call it; empty when the server does not say.
    float volume = -1.0; ///< Of the loudest channel, 0 to 100; -1 when the server does not say.
    bool active = true;  ///< False when nothing is plugged into it.
};

/// What a sound server said last.
struct PlaybackState
{
    bool connected = false;
    bool listed = false;             ///< Whether `devices` is what this server has.
    QVector<PlaybackDevice> devices; ///< The active ones, the default one first.
};

/// The volume of the device at \a index; -1 with a logged line when it is not known.
float volumeAt(const PlaybackState &state, int index);

/// The devices of \a all that are active and have a name, in their order but for the default one,
/// which comes first.
QVector<PlaybackDevice> activeDevices(const QVector<PlaybackDevice> &all,
                                      const QByteArray &defaultId);
