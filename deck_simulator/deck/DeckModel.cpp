#include "deck_simulator/deck/DeckModel.h"

#include "deck_simulator/deck/ActionList.h"

#include <QUuid>

#include <algorithm>

namespace deck {

namespace {

EntrySettings newSettings(const QString &action, const QString &language)
{
    EntrySettings settings;
    settings.text = newTitle(action, language);
    settings.fillsKey = true;
    settings.showTitle = !settings.text.isEmpty();
    return settings;
}

DeckEntry newEntry(const DeckPlace &place, const QString &action, const EntrySettings &settings)
{
    return {QUuid::createUuid().toString(QUuid::WithoutBraces), action, place, settings};
}

} // namespace

DeckModel::DeckModel(QObject *parent)
    : QObject(parent)
{
}

void DeckModel::setLanguage(const QString &language)
{
    if (language == m_language)
        return;
    m_language = language;
    Q_EMIT languageChanged(language);
}

void DeckModel::setGrid(const QSize &grid)
{
    const QSize bounded(qBound(1, grid.width(), mostColumns), qBound(1, grid.height(), mostRows));
    if (bounded == m_grid)
        return;
    m_grid = bounded;
    announceLayout();
}

void DeckModel::setDials(int dials)
{
    const int bounded = qBound(0, dials, mostDials);
    if (bounded == m_dials)
        return;
    m_dials = bounded;
    announceLayout();
}

bool DeckModel::contains(const DeckPlace &place) const
{
    if (place.column < 0 || place.row < 0)
        return false;
    if (place.dial)
        return place.column < m_dials && place.row == 0;
    return place.column < m_grid.width() && place.row < m_grid.height();
}

int DeckModel::indexAt(const DeckPlace &place) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(),
                     [&place](const DeckEntry &entry) { return entry.place == place; });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

int DeckModel::indexOf(const QString &context) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(),
                     [&context](const DeckEntry &entry) { return entry.context == context; });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

const DeckEntry *DeckModel::at(const DeckPlace &place) const
{
    const int index = indexAt(place);
    return index < 0 ? nullptr : &m_entries.at(index);
}

const DeckEntry *DeckModel::find(const QString &context) const
{
    const int index = indexOf(context);
    return index < 0 ? nullptr : &m_entries.at(index);
}

DeckPlace DeckModel::firstEmptyKey() const
{
    for (int row = 0; row < m_grid.height(); ++row) {
        for (int column = 0; column < m_grid.width(); ++column) {
            if (at({column, row}) == nullptr)
                return {column, row};
        }
    }
    return {-1, -1};
}

bool DeckModel::put(const DeckPlace &place, const QString &action)
{
    return put(place, action, newSettings(action, m_language));
}

bool DeckModel::put(const DeckPlace &place, const QString &action, const EntrySettings &settings)
{
    if (!contains(place) || action.isEmpty() || indexAt(place) >= 0)
        return false;
    m_entries.append(newEntry(place, action, settings));
    announceLayout();
    return true;
}

bool DeckModel::replace(const DeckPlace &place, const QString &action)
{
    return replace(place, action, newSettings(action, m_language));
}

bool DeckModel::replace(const DeckPlace &place, const QString &action,
                        const EntrySettings &settings)
{
    if (!contains(place) || action.isEmpty())
        return false;
    const DeckEntry entry = newEntry(place, action, settings);
    const int index = indexAt(place);
    if (index >= 0)
        m_entries.removeAt(index); // what the caller gave may be a part of it
    m_entries.append(entry);
    announceLayout();
    return true;
}

bool DeckModel::remove(const DeckPlace &place)
{
    const int index = indexAt(place);
    if (index < 0)
        return false;
    m_entries.removeAt(index);
    announceLayout();
    return true;
}

bool DeckModel::move(const DeckPlace &from, const DeckPlace &to)
{
    if (from == to || !contains(to) || indexAt(from) < 0)
        return false;
    // The caller's may be those of the entries that change.
    const DeckPlace left = from;
    const DeckPlace taken = to;
    for (DeckEntry &entry : m_entries) {
        if (entry.place == left)
            entry.place = taken;
        else if (entry.place == taken)
            entry.place = left;
    }
    announceLayout();
    return true;
}

bool DeckModel::replaceSettings(const QString &context, const EntrySettings &settings)
{
    const int index = indexOf(context);
    if (index < 0 || m_entries.at(index).settings == settings)
        return false;
    m_entries[index].settings = settings;
    return true;
}

bool DeckModel::changeSettings(const QString &context, const EntrySettings &settings)
{
    const bool isPresent = indexOf(context) >= 0;
    if (replaceSettings(context, settings)) {
        // An entry's own may go when listeners drop old states.
        Q_EMIT settingsChanged(QString(context));
        Q_EMIT changed();
    }
    return isPresent;
}

bool DeckModel::adoptSettings(const QString &context, const EntrySettings &settings)
{
    const bool isPresent = indexOf(context) >= 0;
    if (replaceSettings(context, settings)) {
        // An entry's own may go when listeners drop old states.
        Q_EMIT settingsAdopted(QString(context));
        Q_EMIT changed();
    }
    return isPresent;
}

void DeckModel::clear()
{
    if (m_entries.isEmpty())
        return;
    m_entries.clear();
    announceLayout();
}

void DeckModel::restore(const QSize &grid, int dials, const QVector<DeckEntry> &entries)
{
    m_entries.clear();
    m_grid = {mostColumns, mostRows};
    m_dials = mostDials;
    for (const DeckEntry &entry : entries) {
        if (contains(entry.place) && indexAt(entry.place) < 0 && !entry.action.isEmpty())
            m_entries.append(entry);
    }
    m_grid = {qBound(1, grid.width(), mostColumns), qBound(1, grid.height(), mostRows)};
    m_dials = qBound(0, dials, mostDials);
    announceLayout();
    Q_EMIT restored();
}

void DeckModel::apply(const DeckChange &change)
{
    m_grid = change.gridAfter;
    m_dials = change.dialsAfter;
    QStringList changedSettings;
    for (const EntryChange &entry : change.entries)
        applyTo(entry, changedSettings);
    if (!change.isOfSettings())
        Q_EMIT layoutChanged();
    for (const QString &context : qAsConst(changedSettings))
        Q_EMIT settingsChanged(context);
    Q_EMIT changed();
}

void DeckModel::applyTo(const EntryChange &change, QStringList &changedSettings)
{
    const QString context = change.before ? change.before->context : change.after->context;
    const int index = indexOf(context);
    if (!change.before && index < 0)
        m_entries.append(*change.after);
    if (!change.after && index >= 0)
        m_entries.removeAt(index);
    if (!change.before || !change.after || index < 0)
        return;
    for (DeckEntry &entry : m_entries) {
        if (entry.context == context)
            entry.place = change.after->place;
    }
    if (change.before->settings == change.after->settings)
        return;
    m_entries[index].settings = change.after->settings;
    changedSettings.append(context);
}

void DeckModel::announceLayout()
{
    Q_EMIT layoutChanged();
    Q_EMIT changed();
}

} // namespace deck
