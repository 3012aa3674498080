#pragma once

#include "deck_simulator/panel/SettingsLists.h"

#include <QVector>
#include <QWidget>

class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTreeView;

namespace deck {

/// A searchable list of sensors in their groups, with their readings.
class SensorPicker : public QWidget
{
    Q_OBJECT

public:
    explicit SensorPicker(QWidget *parent = nullptr);

    /// If the sensors are the same as before, only the readings are updated.
    void setEntries(const QVector<ListEntry> &entries);
    /// The chosen sensor.
    void setCurrent(const QString &value);
    [[nodiscard]] QLineEdit *searchField() const { return m_search; }
    [[nodiscard]] QTreeView *view() const { return m_view; }

Q_SIGNALS:
    void chosen(const QString &value);

private:
    void rebuild();
    void renewReadings();
    void showCurrent();
    void filter(const QString &text);
    void choose(const QModelIndex &index);
    /// The first match of the search.
    void chooseFound();

    QStandardItemModel *m_model;
    QSortFilterProxyModel *m_shown;
    QLineEdit *m_search;
    QTreeView *m_view;
    QVector<ListEntry> m_entries;
    QString m_current;
};

} // namespace deck
