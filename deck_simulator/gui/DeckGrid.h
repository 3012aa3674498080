#pragma once

#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/gui/DialCell.h"

#include <QHash>
#include <QVector>
#include <QWidget>

namespace deck {

/// The deck on the screen: keys in rows, dials below them, one of them the current one. Arrows
/// move, Enter and Space press, Delete removes, F2 asks for the settings, Page Up and Page Down
/// turn a dial. Changes of the layout go into the model; presses and turns are reported. The menus
/// of keys have the actions that are added to the grid.
class DeckGrid : public QWidget
{
    Q_OBJECT

public:
    /// \a model is not owned and outlives this object.
    explicit DeckGrid(DeckModel *model, QWidget *parent = nullptr);

    [[nodiscard]] DeckPlace current() const { return m_current; }
    /// Does nothing for a place that the deck does not have.
    void setCurrent(const DeckPlace &place);
    /// Null for a place that the deck does not have.
    [[nodiscard]] KeyCell *cell(const DeckPlace &place) const;

    /// What the plugin has sent for the key.
    void showLive(const QString &context, const QString &title, const QImage &picture);
    /// Shows what the plugin has sent as out of date.
    void setDimmed(bool dimmed);
    /// Without a plugin the keys show their captions.
    void clearLive();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// Keys are not smaller than this, in pixels; it grows with the text.
    [[nodiscard]] int leastSide() const;

Q_SIGNALS:
    void currentChanged(const DeckPlace &place);
    void keyPressed(const QString &context, bool down);
    void dialPressed(const QString &context, bool down);
    void dialTurned(const QString &context, int ticks, bool pressed);
    void editRequested(const DeckPlace &place);
    /// The user asks for an action on an empty place.
    void actionWanted(const DeckPlace &place);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Live
    {
        QString title;
        QImage picture;
    };

    void rebuild();
    void showFaces();
    void showFace(KeyCell *cell);
    void addCell(KeyCell *cell);
    void placeCells();
    void reportPress(const DeckPlace &place, bool down);
    void pressCurrent(bool down);
    void moveCurrent(int columns, int rows);
    void turnCurrent(int ticks);
    void showMenu(KeyCell *cell, const QPoint &globalPosition);
    [[nodiscard]] QSize sizeFor(int keySide) const;

    DeckModel *m_model;
    QVector<KeyCell *> m_cells;
    QHash<QString, Live> m_live; // by context
    DeckPlace m_current;
    QRect m_body;
    bool m_dimmed = false;
};

} // namespace deck
