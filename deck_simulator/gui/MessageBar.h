#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;
class QToolButton;

namespace deck {

/// A message above the deck, in as many lines as it needs. It can be closed; without a message it
/// takes no place.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget *parent = nullptr);

    /// Shows it until another one comes or it is closed.
    void showMessage(const QString &text);
    /// Likewise, but not for long.
    void showBriefly(const QString &text);
    void clear();
    /// What is shown; empty for nothing.
    [[nodiscard]] const QString &message() const { return m_message; }
    [[nodiscard]] QToolButton *closeButton() const { return m_close; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeRoom();

    QLabel *m_label;
    QToolButton *m_close;
    QString m_message;
    QTimer m_timer;
};

} // namespace deck
