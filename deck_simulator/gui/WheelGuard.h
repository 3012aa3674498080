#pragma once

#include <QObject>

namespace deck {

/// Keeps the mouse wheel from changing a field that the user has not clicked: the wheel scrolls the
/// area that contains the field instead.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    /// Protects \a field, which owns this object.
    explicit WheelGuard(QWidget *field);

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace deck
