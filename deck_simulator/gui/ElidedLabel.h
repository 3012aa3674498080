#pragma once

#include <QLabel>

namespace deck {

/// A line of plain text that is cut with "…" where there is no room for it; the tool tip then has
/// all of it.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    /// Room for a few letters.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString shownText() const;
};

} // namespace deck
