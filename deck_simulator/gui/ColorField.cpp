#include "deck_simulator/gui/ColorField.h"

#include "deck_simulator/gui/ScreenRoom.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

namespace deck {

namespace {

QPixmap swatch(const QColor &color, int side, const QColor &edge)
{
    QPixmap pixmap(side, side);
    pixmap.fill(color.isValid() ? color : QColor(Qt::transparent));
    QPainter painter(&pixmap);
    painter.setPen(edge);
    painter.drawRect(0, 0, side - 1, side - 1);
    if (!color.isValid()) {
        painter.drawLine(0, 0, side, side);
        painter.drawLine(0, side, side, 0);
    }
    return pixmap;
}

} // namespace

ColorField::ColorField(QWidget *parent)
    : QWidget(parent)
    , m_button(new QToolButton)
    , m_text(new QLineEdit)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    layout->addWidget(m_text);
    m_button->setToolTip(tr("Pick a colour"));
    m_button->setAccessibleName(m_button->toolTip());
    m_text->setToolTip(tr("A colour's name or #RRGGBB"));
    setFocusProxy(m_text);
    connect(m_text, &QLineEdit::textEdited, this, [this](const QString &text) {
        showColor();
        Q_EMIT colorEdited(text);
    });
    connect(m_button, &QToolButton::clicked, this, &ColorField::openPicker);
    showColor();
}

QString ColorField::color() const
{
    return m_text->text();
}

void ColorField::setColor(const QString &color)
{
    if (color == m_text->text())
        return;
    m_text->setText(color);
    showColor();
}

void ColorField::setUsual(const QString &color, const QString &words)
{
    m_usual = color;
    m_text->setPlaceholderText(words);
    m_text->setClearButtonEnabled(true);
    showColor();
}

QColor ColorField::shownColor() const
{
    return QColor(m_text->text().isEmpty() ? m_usual : m_text->text());
}

void ColorField::showColor()
{
    const int side = fontMetrics().height();
    m_button->setIconSize({side, side});
    m_button->setIcon(swatch(shownColor(), side, palette().color(QPalette::Text)));
}

void ColorField::edit(const QString &color)
{
    if (color == m_text->text())
        return;
    setColor(color);
    Q_EMIT colorEdited(color);
}

void ColorField::openPicker()
{
    const QString before = m_text->text();
    auto *picker = new QColorDialog(shownColor(), this);
    picker->setAttribute(Qt::WA_DeleteOnClose);
    shrinkTextToFit(picker, roomOnScreen(*this));
    // The key shows each colour while the user is choosing.
    connect(picker, &QColorDialog::currentColorChanged, this,
            [this](const QColor &color) { edit(color.name()); });
    connect(picker, &QDialog::rejected, this, [this, before] { edit(before); });
    picker->open();
}

} // namespace deck
