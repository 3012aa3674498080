#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;
class QScrollArea;
class QToolButton;

namespace deck {

/// A message above the deck; one of many lines scrolls. It can be closed; without a message it
/// takes no space.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget *parent = nullptr);

    /// Shows a message until another one is shown or the user closes it.
    void showMessage(const QString &text);
    /// The same, but only for a short time.
    void showBriefly(const QString &text);
    void clear();
    /// The message that is shown; empty when there is none.
    [[nodiscard]] const QString &message() const { return m_message; }
    [[nodiscard]] QToolButton *closeButton() const { return m_close; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeRoom();

    QLabel *m_label;
    QScrollArea *m_scroll;
    QToolButton *m_close;
    QString m_message;
    QTimer m_timer;
};

} // namespace deck
