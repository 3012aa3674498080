#include "SDK/Action.h"

Action::Action(ConnectionManager *connectionManager, const QString &action, const QString &context)
    : mAction(action)
    , mContext(context)
    , mConnectionManager(connectionManager)
{
}

Action::~Action() = default;

void Action::DidReceiveSettings(const QJsonObject & /*payload*/) {}
void Action::KeyDown(const QJsonObject & /*payload*/) {}
void Action::KeyUp(const QJsonObject & /*payload*/) {}
void Action::DialUp(const QJsonObject & /*payload*/) {}
void Action::DialDown(const QJsonObject & /*payload*/) {}
void Action::SendToPlugin(const QJsonObject & /*payload*/) {}
void Action::WillAppear(const QJsonObject & /*payload*/) {}
void Action::WillDisappear(const QJsonObject & /*payload*/) {}

void Action::RotateClockwise(const QJsonObject & /*payload*/, int /*ticks*/, bool /*pressed*/) {}

void Action::RotateCounterClockwise(const QJsonObject & /*payload*/, int /*ticks*/,
                                    bool /*pressed*/)
{
}
