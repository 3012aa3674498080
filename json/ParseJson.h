#pragma once

#include <QByteArray>
#include <QJsonDocument>

/// The JSON document \a text, as QJsonDocument::fromJson reads it. Of members of one name in an
/// object the last one counts. The framework says the same, but up to version 5.15 never frees the
/// objects and arrays that it passes over; here they are blanked before it sees them.
QJsonDocument parseJson(const QByteArray &text, QJsonParseError *error = nullptr);
