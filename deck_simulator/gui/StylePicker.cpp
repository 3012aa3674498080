#include "deck_simulator/gui/StylePicker.h"

#include "deck_simulator/gui/FlowLayout.h"

#include <QButtonGroup>
#include <QEvent>
#include <QToolButton>

namespace deck {

namespace {

struct StyleRow
{
    const char *name;
    const char *caption;
};

const StyleRow styleRows[] = {
    {"text", QT_TRANSLATE_NOOP("deck::StylePicker", "Text")},
    {"bar", QT_TRANSLATE_NOOP("deck::StylePicker", "Bar")},
    {"ring", QT_TRANSLATE_NOOP("deck::StylePicker", "Ring")},
    {"graph", QT_TRANSLATE_NOOP("deck::StylePicker", "Graph")},
    {"pair", QT_TRANSLATE_NOOP("deck::StylePicker", "Pair")},
};

} // namespace

StylePicker::StylePicker(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new FlowLayout(this, Qt::AlignLeft);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    auto *group = new QButtonGroup(this);
    for (const StyleRow &row : styleRows) {
        auto *button = new QToolButton;
        const QString style = QString::fromLatin1(row.name);
        button->setObjectName(QStringLiteral("style-") + style);
        button->setText(tr(row.caption));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setAutoRaise(true);
        group->addButton(button);
        layout->addWidget(button);
        m_choices.append({style, button});
        connect(button, &QToolButton::clicked, this, [this, style] { Q_EMIT chosen(style); });
    }
    setFocusProxy(m_choices.constFirst().button);
    paintPreviews();
}

QToolButton *StylePicker::button(const QString &style) const
{
    for (const Choice &choice : m_choices) {
        if (choice.style == style)
            return choice.button;
    }
    return nullptr;
}

void StylePicker::setStyles(const QStringList &styles)
{
    for (const Choice &choice : qAsConst(m_choices))
        choice.button->setVisible(styles.contains(choice.style));
}

void StylePicker::setStyle(const QString &style)
{
    for (const Choice &choice : qAsConst(m_choices)) {
        if (choice.style == style)
            choice.button->setChecked(true);
    }
}

void StylePicker::setLook(const PreviewLook &look)
{
    if (look == m_look)
        return;
    m_look = look;
    paintPreviews();
}

void StylePicker::paintPreviews()
{
    const int side = fontMetrics().height() * 5 / 2;
    for (const Choice &choice : qAsConst(m_choices)) {
        choice.button->setIconSize({side, side});
        choice.button->setIcon(stylePreview(choice.style, m_look, side, devicePixelRatioF()));
    }
}

void StylePicker::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        paintPreviews();
    QWidget::changeEvent(event);
}

} // namespace deck
