#pragma once

#include <QObject>

namespace deck {

/// Keeps the mouse wheel from changing a field that nobody has clicked: it scrolls what the field
/// lies in.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    /// \a field is guarded from now on, and owns this object.
    explicit WheelGuard(QWidget *field);

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace deck
