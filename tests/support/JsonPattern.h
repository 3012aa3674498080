#pragma once

#include <QJsonValue>
#include <QString>

/// Compares what comes with what a page says that comes.
namespace jsonpattern {

/// Whether \a text is \a pattern, in which each "…" stands for any text.
bool matches(const QString &pattern, const QString &text);

/// The place in \a value that differs from \a pattern, and how; empty when none does. In the
/// pattern "…" stands for any text or part of one, "#" for any number, a member "…" for any other
/// members, and a last element "…" for any number of elements like the one before it, itself
/// included.
QString difference(const QJsonValue &pattern, const QJsonValue &value);

} // namespace jsonpattern
