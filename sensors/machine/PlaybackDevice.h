#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// One sink as a sound server describes it.
struct PlaybackDevice
{
    QByteArray id;       ///< The server's identifier.
    QString name;        ///< The name shown to users; empty when the server gives none.
    float volume = -1.0; ///< Of the loudest channel, 0 to 100; -1 when unknown.
    bool active = true;  ///< False when nothing is plugged into it.
};

/// The last report of a sound server.
struct PlaybackState
{
    bool connected = false;
    bool listed = false;             ///< Whether `devices` has been received from this server.
    QVector<PlaybackDevice> devices; ///< The active ones, the default one first.
};

/// The volume of the device at \a index; -1 with a logged line when it is not known.
float volumeAt(const PlaybackState &state, int index);

/// The devices of \a all that are active and have a name: the default one first, the others in
/// their order.
QVector<PlaybackDevice> activeDevices(const QVector<PlaybackDevice> &all,
                                      const QByteArray &defaultId);
