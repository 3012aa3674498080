#pragma once

#include <QStandardItemModel>

namespace deck {

/// All actions in their groups, for a tree view; actions can be dragged out.
class ActionTreeModel : public QStandardItemModel
{
    Q_OBJECT

public:
    /// The role of an action's uuid; groups have none.
    static constexpr int uuidRole = Qt::UserRole + 1;

    /// The role of the text that is searched; groups have none.
    static constexpr int searchRole = Qt::UserRole + 2;

    explicit ActionTreeModel(QObject *parent = nullptr);

    /// In which the actions are named; both languages are searched.
    void setLanguage(const QString &language);
    /// Colours the pictures.
    void setIconColor(const QColor &color);

    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData *mimeData(const QModelIndexList &indexes) const override;
};

} // namespace deck
