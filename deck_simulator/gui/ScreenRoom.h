#pragma once

#include <QSize>

class QDialog;
class QWidget;

namespace deck {

/// The room for a window on the primary screen, without the frame that windows have; a usual
/// screen's where there is none.
QSize roomOnScreen(const QWidget &window);

/// Makes the text of a dialog smaller until it fits into \a room: for dialogs that can neither
/// scroll nor be made smaller.
void shrinkTextToFit(QDialog *dialog, const QSize &room);

} // namespace deck
