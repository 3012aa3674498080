#include "deck_simulator/gui/FormSection.h"

#include "deck_simulator/gui/FormControls.h"

#include <QFormLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace deck {

FormSection::FormSection(const QString &title, const char *name, QWidget *parent)
    : QWidget(parent)
    , m_title(title)
    , m_heading(named(new QToolButton, name))
    , m_body(new QWidget)
    , m_rows(new QFormLayout(m_body))
{
    m_heading->setCheckable(true);
    m_heading->setAutoRaise(true);
    m_heading->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_heading->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_heading);
    layout->addWidget(m_body);
    connect(m_heading, &QToolButton::toggled, this, [this](bool open) {
        m_body->setVisible(open);
        showTitle();
    });
    m_body->hide();
    showTitle();
}

void FormSection::layOut()
{
    m_rows.layOut();
    setVisible(!m_rows.isEmpty());
}

void FormSection::setChanged(bool changed)
{
    m_changed = changed;
    showTitle();
}

void FormSection::showTitle()
{
    const bool open = m_heading->isChecked();
    m_heading->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    m_heading->setText(m_changed && !open ? tr("%1, changed").arg(m_title) : m_title);
}

} // namespace deck
