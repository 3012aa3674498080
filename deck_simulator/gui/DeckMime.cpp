#include "deck_simulator/gui/DeckMime.h"

#include "deck_simulator/deck/StoredProfile.h"

#include <QStringList>

namespace deck {

namespace {

QString placeMimeType()
{
    return QStringLiteral("application/x-deck-place");
}

QString keyMimeType()
{
    return QStringLiteral("application/x-deck-key");
}

} // namespace

QString actionMimeType()
{
    return QStringLiteral("application/x-deck-action");
}

QMimeData *actionMime(const QString &action)
{
    auto *data = new QMimeData;
    data->setData(actionMimeType(), action.toUtf8());
    return data;
}

QMimeData *placeMime(const DeckPlace &place)
{
    auto *data = new QMimeData;
    const QString text =
        QStringLiteral("%1,%2,%3").arg(place.column).arg(place.row).arg(place.dial ? 1 : 0);
    data->setData(placeMimeType(), text.toLatin1());
    return data;
}

QMimeData *keyMime(const DeckEntry &entry)
{
    auto *data = new QMimeData;
    data->setData(keyMimeType(), keyText(entry));
    return data;
}

std::optional<DeckEntry> keyFrom(const QMimeData &data)
{
    return readKey(data.data(keyMimeType()));
}

QString actionFrom(const QMimeData &data)
{
    return QString::fromUtf8(data.data(actionMimeType()));
}

std::optional<DeckPlace> placeFrom(const QMimeData &data)
{
    const QList<QByteArray> parts = data.data(placeMimeType()).split(',');
    if (parts.size() != 3)
        return std::nullopt;
    bool columnOk = false;
    bool rowOk = false;
    const DeckPlace place{parts.at(0).toInt(&columnOk), parts.at(1).toInt(&rowOk),
                          parts.at(2) == "1"};
    if (!columnOk || !rowOk)
        return std::nullopt;
    return place;
}

} // namespace deck
