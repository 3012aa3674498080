#include "deck_simulator/gui/DeckStatusBar.h"

#include "deck_simulator/gui/ElidedLabel.h"
#include "deck_simulator/host/DeckRunner.h"
#include "deck_simulator/host/DeckStatus.h"

#include <QLabel>

namespace deck {

DeckStatusBar::DeckStatusBar(QWidget *parent)
    : QStatusBar(parent)
    , m_link(new ElidedLabel)
    , m_plugin(new ElidedLabel)
    , m_frames(new ElidedLabel)
    , m_bytes(new ElidedLabel)
{
    for (QLabel *label : {m_link, m_plugin, m_frames, m_bytes}) {
        label->setIndent(fontMetrics().horizontalAdvance(QLatin1Char('0')));
        addPermanentWidget(label);
    }
}

void DeckStatusBar::showState(const DeckRunner &runner)
{
    m_link->setText(tr("Link: %1").arg(runner.stateText()));
    if (runner.pluginPid() > 0)
        m_plugin->setText(tr("Plugin: process %1").arg(runner.pluginPid()));
    else if (!runner.lastExit().isEmpty())
        m_plugin->setText(tr("Plugin: %1").arg(runner.lastExit()));
    else
        m_plugin->setText(tr("Plugin: not started"));
    m_frames->setText(tr("%1 frames/s").arg(runner.framesPerSecond(), 0, 'f', 1));
    m_bytes->setText(tr("%1/s").arg(byteText(runner.bytesPerSecond())));
}

QStringList DeckStatusBar::texts() const
{
    return {m_link->text(), m_plugin->text(), m_frames->text(), m_bytes->text()};
}

} // namespace deck
