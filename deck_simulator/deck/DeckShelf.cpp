#include "deck_simulator/deck/DeckShelf.h"

#include "deck_simulator/deck/DeckName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace deck {

namespace {

constexpr qint64 longestName = 1024; // bytes

QString suffix()
{
    return QStringLiteral(".json");
}

} // namespace

DeckShelf::DeckShelf(const QString &profile)
    : m_profile(QFileInfo(profile).absoluteFilePath())
    , m_folder(QFileInfo(m_profile).absoluteDir().filePath(QStringLiteral("decks")))
{
}

QStringList DeckShelf::names() const
{
    QStringList names{defaultDeckName()};
    const QStringList files = QDir(m_folder).entryList({QLatin1Char('*') + suffix()}, QDir::Files,
                                                       QDir::Name | QDir::IgnoreCase);
    for (const QString &file : files) {
        const QString name = file.chopped(suffix().size());
        if (deckNameFault(name).isEmpty() && !isDefaultDeck(name))
            names.append(name);
    }
    return names;
}

bool DeckShelf::has(const QString &name) const
{
    return names().contains(name, Qt::CaseInsensitive);
}

QString DeckShelf::keptName(const QString &name) const
{
    const QStringList kept = names();
    if (kept.contains(name))
        return name;
    const auto found = std::find_if(kept.begin(), kept.end(), [&name](const QString &other) {
        return other.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == kept.end() ? name : *found;
}

QString DeckShelf::file(const QString &name) const
{
    return isDefaultDeck(name) ? m_profile : QDir(m_folder).filePath(name + suffix());
}

QString DeckShelf::last() const
{
    QFile file(lastFile());
    if (!file.open(QIODevice::ReadOnly))
        return defaultDeckName();
    const QString name = QString::fromUtf8(file.read(longestName)).trimmed();
    return names().contains(name) ? name : defaultDeckName();
}

bool DeckShelf::rememberLast(const QString &name) const
{
    if (isDefaultDeck(name))
        return !QFile::exists(lastFile()) || QFile::remove(lastFile());
    const QByteArray text = name.toUtf8() + '\n';
    QSaveFile file(lastFile());
    return QDir().mkpath(m_folder) && file.open(QIODevice::WriteOnly) &&
           file.write(text) == text.size() && file.commit();
}

QString DeckShelf::lastFile() const
{
    return QDir(m_folder).filePath(QStringLiteral("last.txt"));
}

} // namespace deck
