#include "deck_simulator/gui/DisplayForm.h"

#include "deck_simulator/gui/ColorField.h"
#include "deck_simulator/gui/FormControls.h"
#include "deck_simulator/gui/FormSection.h"
#include "deck_simulator/gui/NumberField.h"
#include "deck_simulator/gui/StylePicker.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>

namespace deck {

namespace {

QVector<ListEntry> shapes()
{
    return {{QStringLiteral("square"), DisplayForm::tr("Square"), {}, {}},
            {QStringLiteral("wide"), DisplayForm::tr("Wide, for a dial"), {}, {}}};
}

QVector<ListEntry> decimalCounts()
{
    QVector<ListEntry> entries{{QString(), DisplayForm::tr("As the text has them"), {}, {}}};
    for (int count = 0; count <= DisplaySettings::mostDecimals; ++count)
        entries.append({QString::number(count), QString::number(count), {}, {}});
    return entries;
}

QVector<ListEntry> rateUnits()
{
    return {{QStringLiteral("bytes"), DisplayForm::tr("Bytes (KB/s, MB/s)"), {}, {}},
            {QStringLiteral("bits"), DisplayForm::tr("Bits (kbit/s, Mbit/s)"), {}, {}}};
}

QVector<ListEntry> pressEffects()
{
    return {{QStringLiteral("none"), DisplayForm::tr("Changes nothing"), {}, {}},
            {QStringLiteral("extremes"), DisplayForm::tr("Shows the extremes"), {}, {}}};
}

QVector<ListEntry> directions(bool below)
{
    return {{QString(),
             below ? DisplayForm::tr("Below (as usual)") : DisplayForm::tr("Above (as usual)"),
             {},
             {}},
            {QStringLiteral("above"), DisplayForm::tr("Above"), {}, {}},
            {QStringLiteral("below"), DisplayForm::tr("Below"), {}, {}}};
}

QString orAutomatic(const QString &usual)
{
    return usual.isEmpty() ? DisplayForm::tr("automatic") : usual;
}

QString orNone(const QString &usual)
{
    return usual.isEmpty() ? DisplayForm::tr("none") : usual;
}

} // namespace

DisplayForm::DisplayForm(QWidget *parent)
    : QWidget(parent)
    , m_rows(new QFormLayout(this))
    , m_scale(new FormSection(tr("Scale and thresholds"), "scaleSection"))
    , m_colors(new FormSection(tr("Colours"), "colorSection"))
    , m_values(new FormSection(tr("Value and key press"), "valueSection"))
{
    addPictureRows();
    addScaleRows();
    addColorRows();
    addValueRows();
    m_reset = named(new QPushButton(tr("Back to plain text")), "resetDisplay");
    m_reset->setToolTip(tr("Take everything away that makes the key more than a line of text"));
    for (QWidget *field : std::initializer_list<QWidget *>{m_scale, m_colors, m_values, m_reset})
        m_rows.add(QString(), field);
    connectControls();
}

void DisplayForm::addPictureRows()
{
    m_style = named(new StylePicker, "style");
    m_shape = makeChoice("shape", shapes());
    m_size = makeNumber("pictureSize", DisplaySettings::smallestSize, DisplaySettings::largestSize,
                        tr(" px"));
    m_size->setToolTip(tr("The height of the picture; the deck scales it to the key"));
    m_rows.add(QString(), m_style);
    m_rows.add(tr("Sha&pe"), m_shape);
    m_rows.add(tr("P&icture"), m_size);
}

void DisplayForm::addScaleRows()
{
    m_minimum = named(new NumberField, "minimum");
    m_maximum = named(new NumberField, "maximum");
    m_warning = named(new NumberField, "warning");
    m_critical = named(new NumberField, "critical");
    m_worse = makeChoice("worse", directions(false));
    m_scale->rows().add(tr("From"), m_minimum);
    m_scale->rows().add(tr("To"), m_maximum);
    m_scale->rows().add(tr("Warning at"), m_warning);
    m_scale->rows().add(tr("Critical at"), m_critical);
    m_scale->rows().add(tr("Worse is"), m_worse);
}

void DisplayForm::addColorRows()
{
    m_normalColor = named(new ColorField, "normalColor");
    m_warningColor = named(new ColorField, "warningColor");
    m_criticalColor = named(new ColorField, "criticalColor");
    m_ground = named(new ColorField, "ground");
    addColor(m_normalColor, tr("Normal"), usualNormalColor());
    addColor(m_warningColor, tr("Warning"), usualWarningColor());
    addColor(m_criticalColor, tr("Critical"), usualCriticalColor());
    addColor(m_ground, tr("Ground"), QString());
}

void DisplayForm::addColor(ColorField *field, const QString &label, const QString &usual)
{
    field->setUsual(usual, orNone(usual));
    m_colors->rows().add(label, field);
}

void DisplayForm::addValueRows()
{
    m_span =
        makeNumber("span", DisplaySettings::shortestSpan, DisplaySettings::longestSpan, tr(" s"));
    m_average = makeNumber("average", 1, DisplaySettings::longestAverage, tr(" readings"));
    m_average->setSpecialValueText(tr("1 reading"));
    m_average->setToolTip(tr("The mean of so many readings is shown"));
    m_decimals = makeChoice("decimals", decimalCounts());
    m_rates = makeChoice("rates", rateUnits());
    m_press = makeChoice("press", pressEffects());
    m_press->setToolTip(tr("Minimum, maximum and mean in turn; holding the key for a second "
                           "starts them anew"));
    m_values->rows().add(tr("Graph covers"), m_span);
    m_values->rows().add(tr("Mean of"), m_average);
    m_values->rows().add(tr("Decimals"), m_decimals);
    m_values->rows().add(tr("Rates in"), m_rates);
    m_values->rows().add(tr("Key press"), m_press);
}

void DisplayForm::connectControls()
{
    connect(m_style, &StylePicker::chosen, this, [this](const QString &style) {
        DisplaySettings display = m_settings.display;
        display.style = style;
        change(display);
    });
    connect(m_reset, &QPushButton::clicked, this, [this] { change({}); });
    for (NumberField *number : {m_minimum, m_maximum, m_warning, m_critical})
        connect(number, &NumberField::edited, this, &DisplayForm::collect);
    for (ColorField *color : {m_normalColor, m_warningColor, m_criticalColor, m_ground})
        connect(color, &ColorField::colorEdited, this, &DisplayForm::collect);
    for (QSpinBox *number : {m_size, m_span, m_average})
        connect(number, QOverload<int>::of(&QSpinBox::valueChanged), this, &DisplayForm::collect);
    for (QComboBox *combo : {m_shape, m_worse, m_decimals, m_rates, m_press})
        connect(combo, QOverload<int>::of(&QComboBox::activated), this, &DisplayForm::collect);
}

void DisplayForm::setSettings(const QString &action, const EntrySettings &settings)
{
    m_action = action;
    m_settings = settings;
    const GaugeKind kind = gaugeKind(action, settings);
    m_showing = true;
    showUsual(kind);
    showValues();
    m_showing = false;
    showFields(kind);
    showChanges();
    showPreviews();
}

void DisplayForm::showUsual(const GaugeKind &kind)
{
    m_minimum->setUsual(orAutomatic(kind.minimum));
    m_maximum->setUsual(orAutomatic(kind.maximum));
    // Those of the kind are for gauges.
    const bool gauge = shownStyle(m_action, m_settings) != QLatin1String("text");
    m_warning->setUsual(orNone(gauge ? kind.warning : QString()));
    m_critical->setUsual(orNone(gauge ? kind.critical : QString()));
    for (NumberField *number : {m_minimum, m_maximum, m_warning, m_critical})
        number->setUnit(kind.unit);
    fill(m_worse, directions(kind.below), m_settings.display.worse);
}

void DisplayForm::showValues()
{
    const DisplaySettings &display = m_settings.display;
    m_style->setStyle(shownStyle(m_action, m_settings));
    select(m_shape, display.shape);
    m_size->setValue(display.size);
    m_minimum->setNumber(display.minimum);
    m_maximum->setNumber(display.maximum);
    m_warning->setNumber(display.warning);
    m_critical->setNumber(display.critical);
    m_normalColor->setColor(display.normalColor);
    m_warningColor->setColor(display.warningColor);
    m_criticalColor->setColor(display.criticalColor);
    m_ground->setColor(display.ground);
    m_span->setValue(display.span);
    m_average->setValue(display.average);
    select(m_decimals, display.decimals ? QString::number(*display.decimals) : QString());
    select(m_rates, display.rates);
    select(m_press, display.press);
}

void DisplayForm::showFields(const GaugeKind &kind)
{
    const DisplayFields fields = displayFields(m_action, m_settings);
    m_style->setStyles(QStringList{QStringLiteral("text")} + kind.styles);
    m_rows.show(m_shape, fields.picture);
    m_rows.show(m_size, fields.picture);
    FormRows &scale = m_scale->rows();
    scale.show(m_minimum, fields.scale);
    scale.show(m_maximum, fields.scale);
    scale.show(m_warning, fields.thresholds);
    scale.show(m_critical, fields.thresholds);
    scale.show(m_worse, fields.worse);
    FormRows &colors = m_colors->rows();
    colors.show(m_normalColor, fields.normalColor);
    colors.show(m_warningColor, fields.warningColor);
    colors.show(m_criticalColor, fields.criticalColor);
    colors.show(m_ground, fields.picture);
    FormRows &values = m_values->rows();
    values.show(m_span, fields.span);
    values.show(m_average, fields.value);
    values.show(m_decimals, fields.value);
    values.show(m_rates, fields.rates);
    values.show(m_press, fields.value);
    for (FormSection *section : {m_scale, m_colors, m_values}) {
        section->layOut();
        m_rows.show(section, !section->rows().isEmpty());
    }
    m_rows.show(m_reset, m_settings.display != DisplaySettings());
    m_rows.layOut();
}

void DisplayForm::showChanges()
{
    const QJsonObject object = displayObject(m_settings.display);
    const auto hasAny = [&object](std::initializer_list<const char *> names) {
        return std::any_of(names.begin(), names.end(), [&object](const char *name) {
            return object.contains(QLatin1String(name));
        });
    };
    m_scale->setChanged(hasAny({"minimum", "maximum", "warning", "critical", "worse"}));
    m_colors->setChanged(hasAny({"normalColor", "warningColor", "criticalColor", "ground"}));
    m_values->setChanged(hasAny({"span", "average", "decimals", "rates", "press"}));
}

void DisplayForm::showPreviews()
{
    const DisplaySettings &display = m_settings.display;
    const auto orUsual = [](const QString &color, const QColor &usual) {
        const QColor chosen(color);
        return chosen.isValid() ? chosen : usual;
    };
    PreviewLook look;
    look.text = orUsual(m_settings.color, Qt::white);
    look.gauge = orUsual(display.normalColor, QColor(usualNormalColor()));
    look.ground = QColor(display.ground);
    look.wide = display.shape == QLatin1String("wide");
    m_style->setLook(look);
}

void DisplayForm::collect()
{
    if (m_showing)
        return;
    DisplaySettings display = m_settings.display;
    display.shape = m_shape->currentData().toString();
    display.size = m_size->value();
    display.minimum = m_minimum->number();
    display.maximum = m_maximum->number();
    display.warning = m_warning->number();
    display.critical = m_critical->number();
    display.worse = m_worse->currentData().toString();
    display.normalColor = m_normalColor->color();
    display.warningColor = m_warningColor->color();
    display.criticalColor = m_criticalColor->color();
    display.ground = m_ground->color();
    display.span = m_span->value();
    display.average = m_average->value();
    const QString decimals = m_decimals->currentData().toString();
    display.decimals = decimals.isEmpty() ? std::nullopt : std::make_optional(decimals.toInt());
    display.rates = m_rates->currentData().toString();
    display.press = m_press->currentData().toString();
    change(display);
}

void DisplayForm::change(const DisplaySettings &display)
{
    EntrySettings settings = m_settings;
    settings.display = display;
    setSettings(m_action, settings);
    Q_EMIT edited(display);
}

} // namespace deck
