#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

/// The object in a JSON text.
inline QJsonObject json(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}
