#pragma once

#include "deck_simulator/deck/DeckShelf.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace deck {

/// Asks for the name of a new deck. A name that cannot be one or is taken cannot be chosen, and the
/// dialog says why.
class DeckNameDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a shelf is not owned and outlives this object.
    explicit DeckNameDialog(const DeckShelf *shelf, QWidget *parent = nullptr);

    [[nodiscard]] QLineEdit *nameField() const { return m_name; }
    [[nodiscard]] QString hint() const;

Q_SIGNALS:
    void nameChosen(const QString &name);

private:
    [[nodiscard]] QString name() const;
    void check();

    const DeckShelf *m_shelf;
    QLineEdit *m_name;
    QLabel *m_hint;
    QDialogButtonBox *m_buttons;
};

} // namespace deck
