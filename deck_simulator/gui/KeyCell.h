#pragma once

#include "deck_simulator/deck/DeckPlace.h"
#include "deck_simulator/gui/KeyFace.h"
#include "qt/QtVersions.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QTimer>
#include <QWidget>

class QMimeData;

namespace deck {

/// One LCD key on the screen. It shows its face and reports mouse actions. Dragging a key at once
/// must not press it, so a press is reported on release, or once it has lasted for some time; its
/// release is reported as much later as the press was, so that the time between them is that of the
/// mouse. A key that is dragged after that is released first.
class KeyCell : public QWidget
{
    Q_OBJECT

public:
    explicit KeyCell(const DeckPlace &place, QWidget *parent = nullptr);

    [[nodiscard]] const DeckPlace &place() const { return m_place; }
    [[nodiscard]] const KeyFace &face() const { return m_face; }
    [[nodiscard]] bool isOccupied() const { return !m_face.caption.isEmpty(); }
    void setFace(const KeyFace &face);
    /// Marks the key that has the keyboard focus and is shown in the settings panel.
    void setCurrent(bool current);
    [[nodiscard]] bool isDown() const { return m_down; }
    void setDown(bool down);

Q_SIGNALS:
    /// The mouse button was pressed on it.
    void chosen();
    void pressed();
    void released();
    void doubleClicked();
    void menuRequested(const QPoint &globalPosition);
    void actionDropped(const QString &action);
    void keyDropped(const DeckPlace &from);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    /// The part that shows the picture.
    [[nodiscard]] virtual QRect screenRect() const;
    /// Whether pressing at this point presses the key.
    [[nodiscard]] virtual bool pressesAt(const QPoint &point) const;
    /// Paints the background of the key, below its face.
    virtual void paintGround(QPainter &painter);
    void paintScreen(QPainter &painter, const QRect &rect);

private:
    [[nodiscard]] bool takes(const QMimeData &dragged) const;
    void startDrag();
    [[nodiscard]] QPixmap dragPicture();
    void press();
    void release();
    void paintText(QPainter &painter, const QRect &rect);
    void paintCaption(QPainter &painter, const QRect &rect);
    void paintPlus(QPainter &painter, const QRect &rect);

    DeckPlace m_place;
    KeyFace m_face;
    QPoint m_pressPoint;
    QTimer m_holdTimer; // runs while a press may still become a drag
    QTimer m_releaseTimer;
    QElapsedTimer m_sincePress; // of the mouse button
    int m_pressDelay = 0;       // milliseconds between that and the report
    bool m_current = false;
    bool m_down = false;
    bool m_hovered = false;
    bool m_dropTarget = false;
};

} // namespace deck
