#include "deck_simulator/deck/DeckName.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace deck {

namespace {

constexpr int mostLetters = 64;
constexpr int mostBytes = 200; // file systems allow 255, and endings follow

bool canBeShown(const QString &name)
{
    const QVector<uint> letters = name.toUcs4();
    // Unpaired surrogates become replacement characters.
    return !letters.contains(QChar::ReplacementCharacter) &&
           std::all_of(letters.begin(), letters.end(),
                       [](uint letter) { return QChar::isPrint(letter); });
}

// Names of devices on Windows, also with an ending.
bool isReserved(const QString &name)
{
    static const QRegularExpression devices(
        QStringLiteral("^(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[0-9¹²³])\\s*(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

} // namespace

QString defaultDeckName()
{
    return QStringLiteral("default");
}

bool isDefaultDeck(const QString &name)
{
    return name.compare(defaultDeckName(), Qt::CaseInsensitive) == 0;
}

QString deckNameFault(const QString &name)
{
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
    const QChar dot = QLatin1Char('.');
    if (name.trimmed().isEmpty())
        return QStringLiteral("must not be empty");
    if (name.size() > 2 * mostLetters || name.toUcs4().size() > mostLetters ||
        name.toUtf8().size() > mostBytes)
        return QStringLiteral("is too long");
    if (std::any_of(name.begin(), name.end(),
                    [](QChar letter) { return forbidden.contains(letter); }))
        return QStringLiteral("must have none of %1").arg(forbidden);
    if (!canBeShown(name))
        return QStringLiteral("must not have letters that cannot be shown");
    if (name.startsWith(dot) || name.endsWith(dot) || name != name.trimmed())
        return QStringLiteral("must not begin or end with a dot or a space");
    if (isReserved(name))
        return QStringLiteral("is that of a device on Windows");
    return {};
}

} // namespace deck
