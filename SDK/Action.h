#pragma once

#include <QJsonObject>
#include <QString>

class ConnectionManager;

/// One visible key instance. Every operation does nothing here; each takes the event's payload.
class Action
{
public:
    /// \a connectionManager is not owned and may be null.
    Action(ConnectionManager *connectionManager, const QString &action, const QString &context);
    virtual ~Action();
    Q_DISABLE_COPY(Action)

    virtual void DidReceiveSettings(const QJsonObject &payload);
    virtual void KeyDown(const QJsonObject &payload);
    virtual void KeyUp(const QJsonObject &payload);
    virtual void DialUp(const QJsonObject &payload);
    virtual void DialDown(const QJsonObject &payload);
    virtual void SendToPlugin(const QJsonObject &payload);
    virtual void WillAppear(const QJsonObject &payload);
    virtual void WillDisappear(const QJsonObject &payload);
    /// \a ticks is 0 or more; \a pressed tells whether the dial is held down while it turns.
    virtual void RotateClockwise(const QJsonObject &payload, int ticks, bool pressed);
    /// \a ticks is positive.
    virtual void RotateCounterClockwise(const QJsonObject &payload, int ticks, bool pressed);

    QString GetAction() const { return mAction; }
    QString GetContext() const { return mContext; }

protected:
    QString mAction;  ///< Action UUID, such as "com.quellor.stream.system.cpu".
    QString mContext; ///< The host's identifier of the key instance.
    ConnectionManager *mConnectionManager;
};
