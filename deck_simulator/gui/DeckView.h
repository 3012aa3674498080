#pragma once

#include <QScrollArea>

namespace deck {

class DeckGrid;

/// The place of the deck in the window: it scrolls where the keys would become too small, and keeps
/// the current one in view.
class DeckView : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes \a grid.
    explicit DeckView(DeckGrid *grid, QWidget *parent = nullptr);

    /// Room for one key and a half.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showCurrent();

    DeckGrid *m_grid;
};

} // namespace deck
