#pragma once

#include "tests/unit/system_monitor_lib/files.h"

#include <QStringList>

/// Writes the files of one part of a captured machine (see tests/fixtures/machines) below
/// \a directory. \a part is empty for the machine's first moment.
inline bool unpackMachine(const QString &machine, const QString &part, const QString &directory)
{
    const QStringList lines =
        QString::fromUtf8(fixture(QStringLiteral("machines/%1.machine").arg(machine)))
            .split(QLatin1Char('\n'));
    const QString isFile = QStringLiteral(" = ");
    const QString isLink = QStringLiteral(" -> ");
    const QString isBlock = QStringLiteral(" <<");
    const auto path = [&directory](const QString &name) {
        return directory + QLatin1Char('/') + name;
    };
    QString current;
    bool good = lines.size() > 1;
    for (int index = 0; index < lines.size(); ++index) {
        const QString &line = lines.at(index);
        if (line.startsWith(QLatin1Char('@')))
            current = line.mid(1);
        if (current != part || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.endsWith(isBlock)) {
            QByteArray content;
            while (++index < lines.size() && lines.at(index) != QLatin1String("."))
                content += lines.at(index).toUtf8() + '\n';
            good = writeFile(path(line.chopped(isBlock.size())), content) && good;
        } else if (line.contains(isFile)) {
            const int at = line.indexOf(isFile);
            good = writeFile(path(line.left(at)), line.mid(at + isFile.size()).toUtf8() + '\n') &&
                   good;
        } else if (line.contains(isLink)) {
            const QString link = path(line.section(isLink, 0, 0));
            good = QDir().mkpath(QFileInfo(link).path()) &&
                   QFile::link(line.section(isLink, 1), link) && good;
        }
    }
    return good;
}

/// The readings that a captured machine must give, those of its board or the others.
inline QStringList readingsOf(const QString &machine, bool ofBoard)
{
    const QString board = QStringLiteral("board ");
    QStringList readings;
    for (const QString &line :
         QString::fromUtf8(fixture(QStringLiteral("machines/%1.readings").arg(machine)))
             .split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (line.startsWith(board) == ofBoard)
            readings += ofBoard ? line.mid(board.size()) : line;
    }
    return readings;
}
