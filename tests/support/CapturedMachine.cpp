#include "tests/support/CapturedMachine.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

QStringList linesOf(const QString &fileName)
{
    QFile file(QStringLiteral(FIXTURES_DIRECTORY "/machines/") + fileName);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))
               : QStringList();
}

bool makeFolderOf(const QString &path)
{
    return QDir().mkpath(QFileInfo(path).path());
}

bool write(const QString &path, const QString &content)
{
    const QByteArray bytes = content.toUtf8() + '\n';
    QFile file(path);
    return makeFolderOf(path) && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

bool unpackMachine(const QString &machine, const QString &part, const QString &directory)
{
    const QStringList lines = linesOf(machine + QStringLiteral(".machine"));
    const QString isFile = QStringLiteral(" = ");
    const QString isLink = QStringLiteral(" -> ");
    const QString isBlock = QStringLiteral(" <<");
    const auto path = [&directory](const QString &name) {
        return directory + QLatin1Char('/') + name;
    };
    QString current;
    bool good = lines.size() > 1;
    for (QStringList::size_type index = 0; index < lines.size(); ++index) {
        const QString &line = lines.at(index);
        if (line.startsWith(QLatin1Char('@')))
            current = line.mid(1);
        if (current != part || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.endsWith(isBlock)) {
            const auto end = lines.indexOf(QStringLiteral("."), index);
            good = end > index &&
                   write(path(line.chopped(isBlock.size())),
                         lines.mid(index + 1, end - index - 1).join(QLatin1Char('\n'))) &&
                   good;
            index = std::max(end, index);
        } else if (line.contains(isFile)) {
            const auto at = line.indexOf(isFile);
            good = write(path(line.left(at)), line.mid(at + isFile.size())) && good;
        } else if (line.contains(isLink)) {
            const QString link = path(line.section(isLink, 0, 0));
            good = makeFolderOf(link) && QFile::link(line.section(isLink, 1), link) && good;
        }
    }
    return good;
}

QStringList readingsOf(const QString &machine, bool ofBoard)
{
    const QString board = QStringLiteral("board ");
    QStringList readings;
    for (const QString &line : linesOf(machine + QStringLiteral(".readings"))) {
        if (!line.isEmpty() && line.startsWith(board) == ofBoard)
            readings += ofBoard ? line.mid(board.size()) : line;
    }
    return readings;
}
