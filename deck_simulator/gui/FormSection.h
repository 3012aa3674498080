#pragma once

#include "deck_simulator/gui/FormRows.h"

#include <QWidget>

class QToolButton;

namespace deck {

/// A part of a form under a heading, which opens and closes it. It begins closed.
class FormSection : public QWidget
{
    Q_OBJECT

public:
    /// \a name is the object name of the heading.
    FormSection(const QString &title, const char *name, QWidget *parent = nullptr);

    [[nodiscard]] FormRows &rows() { return m_rows; }
    /// Shows the rows that apply, or nothing at all if none does.
    void layOut();
    /// Marks that something in it is not as usual, so that this can be seen while it is closed.
    void setChanged(bool changed);

private:
    void showTitle();

    QString m_title;
    QToolButton *m_heading;
    QWidget *m_body;
    FormRows m_rows;
    bool m_changed = false;
};

} // namespace deck
