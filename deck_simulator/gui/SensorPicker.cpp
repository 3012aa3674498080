#include "deck_simulator/gui/SensorPicker.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace deck {

namespace {

constexpr int indexRole = Qt::UserRole + 1;
constexpr int searchRole = Qt::UserRole + 2;
constexpr int shownRows = 10;

bool sameSensors(const QVector<ListEntry> &left, const QVector<ListEntry> &right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const ListEntry &one, const ListEntry &other) {
                          return one.value == other.value && one.group == other.group;
                      });
}

} // namespace

SensorPicker::SensorPicker(QWidget *parent)
    : QWidget(parent)
    , m_model(new QStandardItemModel(this))
    , m_shown(new QSortFilterProxyModel(this))
    , m_search(new QLineEdit)
    , m_view(new QTreeView)
{
    m_shown->setSourceModel(m_model);
    m_shown->setFilterRole(searchRole);
    m_shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_shown->setRecursiveFilteringEnabled(true);
    m_search->setPlaceholderText(tr("Search sensors"));
    m_search->setClearButtonEnabled(true);
    m_view->setModel(m_shown);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setUniformRowHeights(true);
    m_view->setIndentation(m_view->indentation() / 2);
    m_view->setTextElideMode(Qt::ElideMiddle);
    m_view->setMinimumHeight(shownRows * fontMetrics().lineSpacing() * 5 / 4);
    m_view->setAccessibleName(tr("Sensors"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_search);
    layout->addWidget(m_view);
    setFocusProxy(m_search);
    connect(m_search, &QLineEdit::textChanged, this, &SensorPicker::filter);
    connect(m_search, &QLineEdit::returnPressed, this, &SensorPicker::chooseFound);
    connect(m_view, &QTreeView::clicked, this, &SensorPicker::choose);
    connect(m_view, &QTreeView::activated, this, &SensorPicker::choose);
}

void SensorPicker::setEntries(const QVector<ListEntry> &entries)
{
    const bool same = sameSensors(entries, m_entries);
    m_entries = entries;
    if (same)
        renewReadings();
    else
        rebuild();
}

void SensorPicker::rebuild()
{
    m_model->clear();
    m_model->setHorizontalHeaderLabels({tr("Sensor"), tr("Now")});
    QStandardItem *group = nullptr;
    for (int index = 0; index < m_entries.size(); ++index) {
        const ListEntry &entry = m_entries.at(index);
        if (group == nullptr || group->text() != entry.group) {
            group = new QStandardItem(entry.group);
            group->setFlags(Qt::ItemIsEnabled);
            m_model->appendRow(group);
        }
        auto *label = new QStandardItem(entry.label);
        label->setData(index, indexRole);
        label->setToolTip(entry.group + QLatin1Char('\n') + entry.label);
        label->setData(entry.group + QLatin1Char(' ') + entry.label, searchRole);
        group->appendRow({label, new QStandardItem(entry.reading)});
    }
    m_view->expandAll();
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_view->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    showCurrent();
}

void SensorPicker::renewReadings()
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QStandardItem *group = m_model->item(row);
        for (int child = 0; child < group->rowCount(); ++child) {
            const ListEntry &entry = m_entries.at(group->child(child)->data(indexRole).toInt());
            if (group->child(child, 1)->text() != entry.reading)
                group->child(child, 1)->setText(entry.reading);
        }
    }
}

void SensorPicker::setCurrent(const QString &value)
{
    if (m_current == value)
        return;
    m_current = value;
    showCurrent();
}

void SensorPicker::showCurrent()
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QStandardItem *group = m_model->item(row);
        for (int child = 0; child < group->rowCount(); ++child) {
            const QStandardItem *label = group->child(child);
            if (m_entries.at(label->data(indexRole).toInt()).value != m_current)
                continue;
            const QModelIndex shown = m_shown->mapFromSource(label->index());
            m_view->setCurrentIndex(shown);
            m_view->scrollTo(shown);
            return;
        }
    }
    m_view->setCurrentIndex({});
}

void SensorPicker::filter(const QString &text)
{
    m_shown->setFilterFixedString(text.trimmed());
    m_view->expandAll();
}

void SensorPicker::choose(const QModelIndex &index)
{
    const QVariant number = index.siblingAtColumn(0).data(indexRole);
    if (!number.isValid())
        return;
    m_current = m_entries.at(number.toInt()).value;
    if (!m_search->text().isEmpty()) {
        m_search->clear();
        showCurrent();
    }
    Q_EMIT chosen(m_current);
}

void SensorPicker::chooseFound()
{
    if (!m_search->text().isEmpty())
        choose(m_shown->index(0, 0, m_shown->index(0, 0)));
}

} // namespace deck
