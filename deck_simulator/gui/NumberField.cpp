#include "deck_simulator/gui/NumberField.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace deck {

namespace {

constexpr int mostDigits = 12;

} // namespace

NumberField::NumberField(QWidget *parent)
    : QWidget(parent)
    , m_text(new QLineEdit)
    , m_unit(new QLabel)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(m_unit);
    // Both marks of decimals, whatever the language.
    const QRegularExpression pattern(QStringLiteral("-?\\d{0,9}([.,]\\d{0,6})?"));
    m_text->setValidator(new QRegularExpressionValidator(pattern, m_text));
    m_text->setClearButtonEnabled(true);
    setFocusProxy(m_text);
    setUnit({});
    connect(m_text, &QLineEdit::editingFinished, this, &NumberField::take);
    // The button that clears the field finishes it.
    connect(m_text, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            take();
    });
}

void NumberField::setNumber(const std::optional<double> &number)
{
    if (number == m_number)
        return;
    m_number = number;
    showNumber();
}

void NumberField::setUsual(const QString &text)
{
    m_text->setPlaceholderText(text);
}

void NumberField::setUnit(const QString &unit)
{
    m_unit->setText(unit);
    m_unit->setVisible(!unit.isEmpty());
}

void NumberField::take()
{
    bool isNumber = false;
    const double number =
        m_text->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    const std::optional<double> before = m_number;
    if (isNumber)
        m_number = number;
    else if (m_text->text().isEmpty())
        m_number.reset();
    if (!m_text->text().isEmpty())
        showNumber();
    if (m_number != before)
        Q_EMIT edited();
}

void NumberField::showNumber()
{
    m_text->setText(m_number ? QString::number(*m_number, 'g', mostDigits) : QString());
}

} // namespace deck
