#pragma once

#include <QString>
#include <QStringList>

/// Writes the files of one part of a captured machine (see tests/fixtures/machines) below
/// \a directory. \a part is empty for the machine's first moment. False when something could not be
/// read or written.
bool unpackMachine(const QString &machine, const QString &part, const QString &directory);

/// The readings that a captured machine must give, those of its board or the others.
QStringList readingsOf(const QString &machine, bool ofBoard);
