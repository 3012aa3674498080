#pragma once

#include <QStatusBar>

class QLabel;

namespace deck {

class DeckRunner;

/// The link, its traffic and how the plugin ended last.
class DeckStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit DeckStatusBar(QWidget *parent = nullptr);

    void showState(const DeckRunner &runner);
    /// What the labels say, from the left.
    [[nodiscard]] QStringList texts() const;

private:
    QLabel *m_link;
    QLabel *m_plugin;
    QLabel *m_frames;
    QLabel *m_bytes;
};

} // namespace deck
