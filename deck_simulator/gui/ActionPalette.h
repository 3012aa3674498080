#pragma once

#include <QWidget>

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace deck {

class ActionTreeModel;

/// The searchable list of all actions. An action is dragged to a key, or chosen with a double click
/// or Enter.
class ActionPalette : public QWidget
{
    Q_OBJECT

public:
    explicit ActionPalette(QWidget *parent = nullptr);

    void setLanguage(const QString &language);
    /// Moves the focus to the search field.
    void startSearch();
    [[nodiscard]] QLineEdit *searchField() const { return m_search; }
    [[nodiscard]] QTreeView *view() const { return m_view; }

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void actionChosen(const QString &uuid);
    /// The user has cancelled with Escape.
    void left();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showFont();
    void filter(const QString &text);
    void choose(const QModelIndex &index);
    void selectFirst();
    [[nodiscard]] int widestRow() const;

    ActionTreeModel *m_model;
    QSortFilterProxyModel *m_shown;
    QLineEdit *m_search;
    QTreeView *m_view;
};

} // namespace deck
