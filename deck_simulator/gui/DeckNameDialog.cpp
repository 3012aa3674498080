#include "deck_simulator/gui/DeckNameDialog.h"

#include "deck_simulator/deck/DeckName.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace deck {

DeckNameDialog::DeckNameDialog(const DeckShelf *shelf, QWidget *parent)
    : QDialog(parent)
    , m_shelf(shelf)
    , m_name(new QLineEdit)
    , m_hint(new QLabel)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("Save the deck as"));
    m_name->setPlaceholderText(tr("Name"));
    m_name->setAccessibleName(tr("Name of the deck"));
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_name);
    layout->addWidget(m_hint, 1);
    layout->addWidget(m_buttons);
    connect(m_name, &QLineEdit::textChanged, this, &DeckNameDialog::check);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_buttons, &QDialogButtonBox::accepted, this, [this] {
        accept();
        Q_EMIT nameChosen(name());
    });
    check();
}

QString DeckNameDialog::hint() const
{
    return m_hint->text();
}

QString DeckNameDialog::name() const
{
    return m_name->text().trimmed().normalized(QString::NormalizationForm_C);
}

void DeckNameDialog::check()
{
    const QString fault = deckNameFault(name());
    if (!fault.isEmpty())
        m_hint->setText(tr("The name %1.").arg(fault));
    else if (m_shelf->has(name()))
        m_hint->setText(tr("There is a deck of this name."));
    else
        m_hint->setText(tr("It is kept beside the others."));
    m_buttons->button(QDialogButtonBox::Save)->setEnabled(fault.isEmpty() && !m_shelf->has(name()));
}

} // namespace deck
