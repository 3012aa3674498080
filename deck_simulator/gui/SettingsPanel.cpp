#include "deck_simulator/gui/SettingsPanel.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/ActionIcons.h"
#include "deck_simulator/gui/SettingsForm.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace deck {

namespace {

// Across the panel.
constexpr int fewestLetters = 10;
constexpr int usualLetters = 44;

constexpr qreal captionSize = 1.2; // of the text's

QString placeText(const DeckPlace &place)
{
    return place.dial
               ? SettingsPanel::tr("Dial %1").arg(place.column + 1)
               : SettingsPanel::tr("Column %1, row %2").arg(place.column + 1).arg(place.row + 1);
}

QLabel *makeText()
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

SettingsPanel::SettingsPanel(QWidget *parent)
    : QWidget(parent)
    , m_icon(new QLabel)
    , m_caption(makeText())
    , m_place(makeText())
    , m_preview(makeText())
    , m_empty(makeText())
    , m_scroll(new QScrollArea)
{
    m_caption->setObjectName(QStringLiteral("caption"));
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_empty->setAlignment(Qt::AlignTop | Qt::AlignLeft);

    auto *head = new QGridLayout;
    head->addWidget(m_icon, 0, 0, 2, 1);
    head->addWidget(m_caption, 0, 1);
    head->addWidget(m_place, 1, 1);
    head->setColumnStretch(1, 1);
    auto *content = new QWidget;
    m_content = new QVBoxLayout(content);
    m_content->addLayout(head);
    m_content->addWidget(m_preview);
    m_content->addWidget(m_empty, 1);
    m_scroll->setWidget(content);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_scroll);
    showFont();
    retranslate();
    setEntry(nullptr);
}

void SettingsPanel::addForm()
{
    delete m_form;
    m_form = new SettingsForm;
    m_form->setLanguage(m_language, m_keysTranslated);
    m_form->setVisible(!m_context.isEmpty());
    connect(m_form, &SettingsForm::edited, this,
            [this](const EntrySettings &settings) { Q_EMIT edited(m_context, settings); });
    connect(m_form, &SettingsForm::left, this, &SettingsPanel::left);
    m_content->addWidget(m_form, 1);
}

// A new form has its texts in the new language.
void SettingsPanel::retranslate()
{
    m_preview->setToolTip(tr("From the plugin's data server"));
    m_empty->setText(tr("Nothing is on this key. Drag an action on it, or double-click one in the "
                        "list."));
    const SettingsLists lists = m_form == nullptr ? SettingsLists() : m_form->lists();
    const EntrySettings settings = m_form == nullptr ? EntrySettings() : m_form->settings();
    addForm();
    m_form->setLists(lists);
    m_form->setAction(m_action);
    m_form->setSettings(settings);
    showHead();
}

void SettingsPanel::setLanguage(const QString &language, bool keysTranslated)
{
    m_language = language;
    m_keysTranslated = keysTranslated;
    m_form->setLanguage(language, keysTranslated);
    showHead();
}

void SettingsPanel::showHead()
{
    m_caption->setText(actionCaption(m_action, m_language));
    m_place->setText(placeText(m_where));
}

QSize SettingsPanel::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * usualLetters;
    return QWidget::sizeHint().expandedTo({width, 0});
}

void SettingsPanel::setEntry(const DeckEntry *entry)
{
    const bool shown = entry != nullptr;
    for (QWidget *widget : std::initializer_list<QWidget *>{m_icon, m_caption, m_place, m_form})
        widget->setVisible(shown);
    m_empty->setVisible(!shown);
    if (!shown) {
        m_context.clear();
        m_action.clear();
        setPreview({});
        return;
    }
    if (entry->context != m_context) {
        m_context = entry->context;
        m_action = entry->action;
        m_form->setLists({});
        setPreview({});
        showIcon();
    }
    m_where = entry->place;
    showHead();
    m_form->setAction(entry->action);
    m_form->setSettings(entry->settings);
}

void SettingsPanel::showFont()
{
    QFont large = font();
    large.setBold(true);
    if (large.pointSizeF() > 0)
        large.setPointSizeF(large.pointSizeF() * captionSize);
    else
        large.setPixelSize(qRound(large.pixelSize() * captionSize));
    m_caption->setFont(large);
    setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * fewestLetters);
    showIcon();
}

void SettingsPanel::showIcon()
{
    const int side = fontMetrics().height() * 2;
    m_icon->setPixmap(
        actionIcon(m_action, palette().color(QPalette::WindowText)).pixmap(side, side));
}

void SettingsPanel::setPreview(const QString &text)
{
    m_preview->setText(text.isEmpty() ? QString() : tr("Now: %1").arg(text));
    m_preview->setVisible(!text.isEmpty());
}

QString SettingsPanel::preview() const
{
    return m_preview->text();
}

void SettingsPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        showIcon();
    else if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::FontChange)
        showFont();
    QWidget::changeEvent(event);
}

} // namespace deck
