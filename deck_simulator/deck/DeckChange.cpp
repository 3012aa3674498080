#include "deck_simulator/deck/DeckChange.h"

#include <QHash>
#include <QJsonObject>

#include <algorithm>

namespace deck {

namespace {

QHash<QString, DeckEntry> byContext(const QVector<DeckEntry> &entries)
{
    QHash<QString, DeckEntry> result;
    for (const DeckEntry &entry : entries)
        result.insert(entry.context, entry);
    return result;
}

bool areSame(const DeckEntry &left, const DeckEntry &right)
{
    return left.action == right.action && left.place == right.place &&
           left.settings == right.settings;
}

// Members of other objects have their names behind that of the object.
QJsonObject flattened(const EntrySettings &settings)
{
    QJsonObject flat{{QStringLiteral("fillsKey"), settings.fillsKey}};
    const QJsonObject message = settingsMessage(settings, {});
    for (auto member = message.begin(); member != message.end(); ++member) {
        const QJsonObject inner = member.value().toObject();
        for (auto part = inner.begin(); part != inner.end(); ++part)
            flat.insert(member.key() + QLatin1Char('.') + part.key(), part.value());
        if (!member.value().isObject())
            flat.insert(member.key(), member.value());
    }
    return flat;
}

QStringList changedSettings(const EntrySettings &before, const EntrySettings &after)
{
    const QJsonObject left = flattened(before);
    const QJsonObject right = flattened(after);
    QStringList names;
    for (const QString &name : left.keys() + right.keys()) {
        if (left.value(name) != right.value(name) && !names.contains(name))
            names.append(name);
    }
    return names;
}

void addSubjects(const EntryChange &change, QStringList &subjects)
{
    if (!change.before || !change.after) {
        subjects.append(QStringLiteral("presence"));
        return;
    }
    subjects.append(change.before->context);
    if (change.before->place != change.after->place)
        subjects.append(QStringLiteral("place"));
    subjects += changedSettings(change.before->settings, change.after->settings);
}

} // namespace

bool DeckChange::isEmpty() const
{
    return gridBefore == gridAfter && dialsBefore == dialsAfter && entries.isEmpty();
}

bool DeckChange::isResize() const
{
    return entries.isEmpty() && !isEmpty();
}

bool DeckChange::isOfSettings() const
{
    return gridBefore == gridAfter && dialsBefore == dialsAfter && !entries.isEmpty() &&
           std::all_of(entries.begin(), entries.end(), [](const EntryChange &change) {
               return change.before && change.after && change.before->place == change.after->place;
           });
}

DeckChange DeckChange::reversed() const
{
    DeckChange result{gridAfter, gridBefore, dialsAfter, dialsBefore, {}};
    for (const EntryChange &change : entries)
        result.entries.append({change.after, change.before});
    return result;
}

DeckChange changeBetween(const DeckState &before, const DeckState &after)
{
    DeckChange result{before.grid, after.grid, before.dials, after.dials, {}};
    const QHash<QString, DeckEntry> old = byContext(before.entries);
    QHash<QString, DeckEntry> added = byContext(after.entries);
    for (const DeckEntry &entry : before.entries) {
        const auto still = added.constFind(entry.context);
        if (still == added.constEnd())
            result.entries.append({entry, std::nullopt});
        else if (!areSame(entry, *still))
            result.entries.append({entry, *still});
    }
    for (const DeckEntry &entry : after.entries) {
        if (!old.contains(entry.context))
            result.entries.append({std::nullopt, entry});
    }
    return result;
}

QStringList subjectsOf(const DeckChange &change)
{
    QStringList subjects;
    if (change.gridBefore.width() != change.gridAfter.width())
        subjects.append(QStringLiteral("columns"));
    if (change.gridBefore.height() != change.gridAfter.height())
        subjects.append(QStringLiteral("rows"));
    if (change.dialsBefore != change.dialsAfter)
        subjects.append(QStringLiteral("dials"));
    for (const EntryChange &entry : change.entries)
        addSubjects(entry, subjects);
    return subjects;
}

DeckChange joined(const DeckChange &first, const DeckChange &second)
{
    DeckChange result = second;
    result.gridBefore = first.gridBefore;
    result.dialsBefore = first.dialsBefore;
    result.entries.clear();
    for (int index = 0; index < first.entries.size(); ++index) {
        const EntryChange change{first.entries.at(index).before, second.entries.at(index).after};
        if (!change.before || !change.after || !areSame(*change.before, *change.after))
            result.entries.append(change);
    }
    return result;
}

} // namespace deck
