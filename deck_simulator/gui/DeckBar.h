#pragma once

#include "deck_simulator/deck/DeckModel.h"

#include <QWidget>

class QSpinBox;

namespace deck {

/// The size of the deck.
class DeckBar : public QWidget
{
    Q_OBJECT

public:
    /// \a model is not owned and outlives this object.
    explicit DeckBar(DeckModel *model, QWidget *parent = nullptr);

    [[nodiscard]] QSpinBox *columnsField() const { return m_columns; }
    [[nodiscard]] QSpinBox *rowsField() const { return m_rows; }
    [[nodiscard]] QSpinBox *dialsField() const { return m_dials; }

private:
    void showSize();

    DeckModel *m_model;
    QSpinBox *m_columns;
    QSpinBox *m_rows;
    QSpinBox *m_dials;
};

} // namespace deck
