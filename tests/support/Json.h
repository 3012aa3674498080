#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

/// The object that a text literal spells.
inline QJsonObject json(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}
