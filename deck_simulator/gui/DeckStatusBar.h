#pragma once

#include <QStatusBar>

class QLabel;

namespace deck {

class DeckRunner;

/// Shows the link, its traffic and how the plugin last ended.
class DeckStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit DeckStatusBar(QWidget *parent = nullptr);

    void showState(const DeckRunner &runner);
    /// The texts of the labels, from left to right.
    [[nodiscard]] QStringList texts() const;

private:
    QLabel *m_link;
    QLabel *m_plugin;
    QLabel *m_frames;
    QLabel *m_bytes;
};

} // namespace deck
