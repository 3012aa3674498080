#include "deck_simulator/gui/SettingsForm.h"

#include "deck_simulator/gui/ColorField.h"
#include "deck_simulator/gui/FormControls.h"
#include "deck_simulator/gui/SensorPicker.h"
#include "deck_simulator/gui/WheelGuard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

namespace deck {

namespace {

constexpr int overhang = 2; // pixels that a last letter may reach beyond its width

QVector<ListEntry> temperatureUnits()
{
    return {{QStringLiteral("摄氏度"), QStringLiteral("Celsius"), {}, {}},
            {QStringLiteral("华氏度"), QStringLiteral("Fahrenheit"), {}, {}}};
}

QVector<ListEntry> lineCounts()
{
    return {{QStringLiteral("单行显示"), QStringLiteral("One line"), {}, {}},
            {QStringLiteral("双行显示"), QStringLiteral("Two lines"), {}, {}}};
}

QVector<ListEntry> diskModes()
{
    return {{QStringLiteral("Single_Disk"), QStringLiteral("One drive"), {}, {}},
            {QStringLiteral("Disk_Loop"), QStringLiteral("Each drive in turn"), {}, {}},
            {QStringLiteral("Total_Disks"), QStringLiteral("All drives together"), {}, {}}};
}

} // namespace

SettingsForm::SettingsForm(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QFormLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    // Long labels and large texts get a line of their own instead of being cut off.
    m_layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    addTitleRows();
    addLookRows();
    addKindRows();
    connectControls();
    setSettings({});
    setAction(QString());
}

void SettingsForm::addTitleRows()
{
    m_title = named(new QLineEdit, "title");
    m_title->setToolTip(tr("On two lines, \"Up/Down\" gives each line its part"));
    m_showTitle = named(new QCheckBox(tr("before the reading")), "showTitle");
    addRow(tr("&Title"), m_title);
    addRow(tr("&Show it"), m_showTitle);
}

void SettingsForm::addLookRows()
{
    m_font = makeChoice("font");
    m_fontSize = makeNumber("fontSize", 1, 600, tr(" px"));
    m_fillsKey = named(new QCheckBox(tr("fill the key")), "fillsKey");
    m_fillsKey->setToolTip(
        tr("Tell the plugin the width of the key, so that it chooses the font size by it"));
    m_color = named(new ColorField, "color");
    m_opacityRow = new QWidget;
    m_opacity = named(new QSlider(Qt::Horizontal), "opacity");
    m_opacity->setRange(0, 100);
    new WheelGuard(m_opacity);
    m_opacity->setToolTip(tr("\"opacity\": 0 is opaque, 1 is invisible"));
    m_opacityText = new QLabel;
    m_opacityText->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("100 % ")));
    auto *opacityLayout = new QHBoxLayout(m_opacityRow);
    opacityLayout->setContentsMargins(0, 0, 0, 0);
    opacityLayout->addWidget(m_opacity);
    opacityLayout->addWidget(m_opacityText);
    addRow(tr("&Font"), m_font);
    addRow(tr("Si&ze"), m_fontSize);
    addRow(tr("&Width"), m_fillsKey);
    addRow(tr("&Colour"), m_color);
    addRow(tr("T&ransparency"), m_opacityRow);
}

void SettingsForm::addKindRows()
{
    m_temperatureType = makeChoice("temperatureType", temperatureUnits());
    m_titleLines = makeChoice("titleLines", lineCounts());
    m_diskMode = makeChoice("diskMode", diskModes());
    m_drive = makeChoice("drive");
    m_switchFrequency = makeNumber("switchFrequency", 1, 86400, tr(" s"));
    m_showVolumeName = named(new QCheckBox(tr("before the figures")), "showVolumeName");
    m_fan = makeChoice("fan");
    m_physicalDisk = makeChoice("physicalDisk");
    m_audioDevice = makeChoice("audioDevice");
    m_pump = named(new QLabel, "pump");
    m_sensor = named(new SensorPicker, "sensor");
    addRow(tr("Te&mperature"), m_temperatureType);
    addRow(tr("&Lines"), m_titleLines);
    addRow(tr("S&hows"), m_diskMode);
    addRow(tr("&Drive"), m_drive);
    addRow(tr("S&witches every"), m_switchFrequency);
    addRow(tr("Drive &name"), m_showVolumeName);
    addRow(tr("F&an"), m_fan);
    addRow(tr("&Disk"), m_physicalDisk);
    addRow(tr("Audio d&evice"), m_audioDevice);
    addRow(tr("Pump"), m_pump);
    addRow(QString(), m_sensor);
}

void SettingsForm::connectControls()
{
    connect(m_title, &QLineEdit::textEdited, this, &SettingsForm::collect);
    connect(m_color, &ColorField::colorEdited, this, &SettingsForm::collect);
    connect(m_opacity, &QSlider::valueChanged, this, &SettingsForm::collect);
    connect(m_sensor, &SensorPicker::chosen, this, [this](const QString &value) {
        m_settings.selectValue = value;
        collect();
    });
    for (QCheckBox *check : {m_showTitle, m_fillsKey, m_showVolumeName})
        connect(check, &QCheckBox::toggled, this, &SettingsForm::collect);
    for (QSpinBox *number : {m_fontSize, m_switchFrequency})
        connect(number, QOverload<int>::of(&QSpinBox::valueChanged), this, &SettingsForm::collect);
    for (QComboBox *combo : {m_font, m_temperatureType, m_titleLines, m_diskMode, m_drive, m_fan,
                             m_physicalDisk, m_audioDevice})
        connect(combo, QOverload<int>::of(&QComboBox::activated), this, &SettingsForm::collect);
}

void SettingsForm::setAction(const QString &action)
{
    m_action = action;
    showFields();
}

void SettingsForm::addRow(const QString &label, QWidget *field)
{
    QLabel *caption = label.isEmpty() ? nullptr : new QLabel(label, this);
    if (caption != nullptr) {
        caption->setBuddy(field);
        caption->setMinimumWidth(caption->sizeHint().width() + overhang);
    }
    field->setParent(this);
    m_rows.append({caption, field, true});
}

void SettingsForm::showRow(QWidget *field, bool shown)
{
    for (Row &row : m_rows) {
        if (row.field == field)
            row.shown = shown;
    }
}

// A form keeps the space of a row whose widgets are hidden, so only those that are shown are in it.
void SettingsForm::layOut()
{
    int position = 0;
    for (const Row &row : qAsConst(m_rows)) {
        const bool present = m_layout->indexOf(row.field) >= 0;
        if (present && !row.shown) {
            const QFormLayout::TakeRowResult taken = m_layout->takeRow(row.field);
            delete taken.labelItem;
            delete taken.fieldItem;
        } else if (!present && row.shown && row.label != nullptr) {
            m_layout->insertRow(position, row.label, row.field);
        } else if (!present && row.shown) {
            m_layout->insertRow(position, row.field);
        }
        if (row.label != nullptr)
            row.label->setVisible(row.shown);
        row.field->setVisible(row.shown);
        position += row.shown ? 1 : 0;
    }
}

void SettingsForm::showFields()
{
    const PanelFields fields = panelFields(m_action, m_settings);
    showRow(m_temperatureType, fields.temperatureUnit);
    showRow(m_titleLines, fields.titleLines);
    showRow(m_diskMode, fields.diskMode);
    showRow(m_drive, fields.drive);
    showRow(m_switchFrequency, fields.switchTime);
    showRow(m_showVolumeName, fields.volumeName);
    showRow(m_fan, fields.fan);
    showRow(m_physicalDisk, fields.physicalDisk);
    showRow(m_audioDevice, fields.audioDevice);
    showRow(m_pump, fields.pump);
    showRow(m_sensor, fields.sensor);
    layOut();
}

void SettingsForm::setSettings(const EntrySettings &settings)
{
    m_settings = settings;
    m_showing = true;
    if (m_title->text() != settings.text)
        m_title->setText(settings.text);
    m_showTitle->setChecked(settings.showTitle);
    m_fontSize->setValue(settings.fontSize);
    m_fillsKey->setChecked(settings.fillsKey);
    m_color->setColor(settings.color);
    m_opacity->setValue(qRound(settings.opacity * 100));
    m_opacityText->setText(tr("%1 %").arg(qRound(settings.opacity * 100)));
    select(m_temperatureType, settings.temperatureType);
    select(m_titleLines, settings.titleLines);
    select(m_diskMode, settings.diskMode);
    m_switchFrequency->setValue(settings.switchFrequency);
    m_showVolumeName->setChecked(settings.showVolumeName);
    m_showing = false;
    showLists();
    showFields();
}

void SettingsForm::setLists(const SettingsLists &lists)
{
    m_lists = lists;
    showLists();
    m_sensor->setEntries(lists.sensors);
    m_sensor->setCurrent(m_settings.selectValue);
}

void SettingsForm::setSensors(const QVector<ListEntry> &sensors)
{
    m_sensor->setEntries(sensors);
}

void SettingsForm::showLists()
{
    fill(m_font, m_lists.fonts, m_settings.fontFamily);
    const auto fillOrNone = [](QComboBox *combo, const QVector<ListEntry> &entries,
                               const QString &chosen) {
        fill(combo, orNone(entries, chosen), chosen);
    };
    fillOrNone(m_drive, m_lists.drives, m_settings.volumeNameItem);
    fillOrNone(m_fan, m_lists.fans, m_settings.selectCpuFan);
    fillOrNone(m_physicalDisk, m_lists.disks, m_settings.selectPhysicalDisk);
    fillOrNone(m_audioDevice, m_lists.audioDevices, m_settings.audioDevice);
    m_pump->setText(m_lists.pump.isEmpty() ? tr("no reading") : m_lists.pump);
    m_sensor->setCurrent(m_settings.selectValue);
}

void SettingsForm::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape)
        Q_EMIT left();
    else
        QWidget::keyPressEvent(event);
}

void SettingsForm::focusFirst()
{
    m_title->setFocus(Qt::OtherFocusReason);
    m_title->selectAll();
}

void SettingsForm::collect()
{
    if (m_showing)
        return;
    EntrySettings settings = m_settings;
    settings.text = m_title->text();
    settings.showTitle = m_showTitle->isChecked();
    settings.fontFamily = m_font->currentData().toString();
    settings.fontSize = m_fontSize->value();
    settings.fillsKey = m_fillsKey->isChecked();
    settings.color = m_color->color();
    settings.opacity = m_opacity->value() / 100.0;
    settings.temperatureType = m_temperatureType->currentData().toString();
    settings.titleLines = m_titleLines->currentData().toString();
    settings.diskMode = m_diskMode->currentData().toString();
    settings.volumeNameItem = m_drive->currentData().toString();
    settings.switchFrequency = m_switchFrequency->value();
    settings.showVolumeName = m_showVolumeName->isChecked();
    settings.selectCpuFan = m_fan->currentData().toString();
    settings.selectPhysicalDisk = m_physicalDisk->currentData().toString();
    settings.audioDevice = m_audioDevice->currentData().toString();
    m_settings = settings;
    m_opacityText->setText(tr("%1 %").arg(m_opacity->value()));
    showFields();
    Q_EMIT edited(settings);
}

} // namespace deck
