#include "deck_simulator/gui/SettingsForm.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/ColorField.h"
#include "deck_simulator/gui/DisplayForm.h"
#include "deck_simulator/gui/FormControls.h"
#include "deck_simulator/gui/SensorPicker.h"
#include "deck_simulator/gui/WheelGuard.h"
#include "deck_simulator/panel/GaugeKinds.h"
#include "deck_simulator/panel/PanelFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>

namespace deck {

namespace {

QVector<ListEntry> temperatureUnits()
{
    return {{QStringLiteral("摄氏度"), SettingsForm::tr("Celsius"), {}, {}},
            {QStringLiteral("华氏度"), SettingsForm::tr("Fahrenheit"), {}, {}}};
}

QVector<ListEntry> lineCounts()
{
    return {{QStringLiteral("单行显示"), SettingsForm::tr("One line"), {}, {}},
            {QStringLiteral("双行显示"), SettingsForm::tr("Two lines"), {}, {}}};
}

QVector<ListEntry> diskModes()
{
    return {{QStringLiteral("Single_Disk"), SettingsForm::tr("One drive"), {}, {}},
            {QStringLiteral("Disk_Loop"), SettingsForm::tr("Each drive in turn"), {}, {}},
            {QStringLiteral("Total_Disks"), SettingsForm::tr("All drives together"), {}, {}}};
}

} // namespace

SettingsForm::SettingsForm(QWidget *parent)
    : QWidget(parent)
    , m_rows(new QFormLayout(this))
{
    addTitleRows();
    addDisplay();
    addLookRows();
    addKindRows();
    connectControls();
    setSettings({});
    setAction(QString());
}

void SettingsForm::setLanguage(const QString &language, bool keysTranslated)
{
    m_language = language;
    m_keysTranslated = keysTranslated;
    showTitleHint();
}

void SettingsForm::addTitleRows()
{
    m_title = named(new QLineEdit, "title");
    m_title->setToolTip(tr("On two lines, \"Up/Down\" gives each line its part"));
    m_showTitle = named(new QCheckBox(tr("before the reading")), "showTitle");
    m_rows.add(tr("&Title"), m_title);
    m_titleHint = named(new QLabel, "titleHint");
    m_titleHint->setWordWrap(true);
    m_titleHint->setTextFormat(Qt::PlainText);
    m_rows.add(tr("&Show it"), m_showTitle);
    m_rows.add(QString(), m_titleHint);
}

void SettingsForm::addDisplay()
{
    m_display = named(new DisplayForm, "display");
    m_rows.add(QString(), m_display);
}

void SettingsForm::addLookRows()
{
    m_font = makeChoice("font");
    m_fontSize = makeNumber("fontSize", 1, 600, tr(" px"));
    m_fillsKey = named(new QCheckBox(tr("fill the key")), "fillsKey");
    m_fontSize->setToolTip(tr("Chosen by the plugin while the text fills the key"));
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
    m_fontHint = named(new QLabel, "fontHint");
    m_fontHint->setWordWrap(true);
    m_fontHint->setTextFormat(Qt::PlainText);
    m_rows.add(tr("&Font"), m_font);
    m_rows.add(QString(), m_fontHint);
    m_rows.add(tr("Si&ze"), m_fontSize);
    m_rows.add(tr("&Width"), m_fillsKey);
    m_pictureText = named(new QLabel, "pictureText");
    m_pictureText->setWordWrap(true);
    m_rows.add(QString(), m_pictureText);
    m_rows.add(tr("&Colour"), m_color);
    m_rows.add(tr("T&ransparency"), m_opacityRow);
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
    m_rows.add(tr("Te&mperature"), m_temperatureType);
    m_rows.add(tr("&Lines"), m_titleLines);
    m_rows.add(tr("S&hows"), m_diskMode);
    m_rows.add(tr("&Drive"), m_drive);
    m_rows.add(tr("S&witches every"), m_switchFrequency);
    m_rows.add(tr("Drive &name"), m_showVolumeName);
    m_rows.add(tr("F&an"), m_fan);
    m_rows.add(tr("&Disk"), m_physicalDisk);
    m_rows.add(tr("Audio d&evice"), m_audioDevice);
    m_rows.add(tr("Pump"), m_pump);
    m_rows.add(QString(), m_sensor);
}

void SettingsForm::connectControls()
{
    connect(m_title, &QLineEdit::textEdited, this, &SettingsForm::collect);
    connect(m_color, &ColorField::colorEdited, this, &SettingsForm::collect);
    connect(m_display, &DisplayForm::edited, this, &SettingsForm::collect);
    connect(m_opacity, &QSlider::valueChanged, this, &SettingsForm::collect);
    connect(m_sensor, &SensorPicker::chosen, this, [this](const QString &value) {
        m_settings.selectValue = value;
        collect();
    });
    for (QCheckBox *check : {m_showTitle, m_fillsKey, m_showVolumeName})
        connect(check, &QCheckBox::toggled, this, &SettingsForm::collect);
    for (QSpinBox *number : {m_fontSize, m_switchFrequency})
        connect(number, QOverload<int>::of(&QSpinBox::valueChanged), this, &SettingsForm::collect);
    connect(m_titleLines, QOverload<int>::of(&QComboBox::activated), this,
            &SettingsForm::chooseLines);
    for (QComboBox *combo :
         {m_font, m_temperatureType, m_diskMode, m_drive, m_fan, m_physicalDisk, m_audioDevice})
        connect(combo, QOverload<int>::of(&QComboBox::activated), this, &SettingsForm::collect);
}

// The title follows the number of lines.
void SettingsForm::chooseLines()
{
    const bool twoLines = m_titleLines->currentData().toString() == QStringLiteral("双行显示");
    m_title->setText(titleForLines(m_action, m_title->text(), twoLines, m_language));
    collect();
}

void SettingsForm::setAction(const QString &action)
{
    m_action = action;
    showFields();
}

void SettingsForm::showFields()
{
    const PanelFields fields = panelFields(m_action, m_settings);
    const bool gauge = shownStyle(m_action, m_settings) != QLatin1String("text");
    m_display->setSettings(m_action, m_settings);
    showTitleHint();
    m_rows.show(m_titleHint, gauge);
    showFontHint();
    m_rows.show(m_fontSize, !gauge);              // a gauge chooses it by its own size
    m_fontSize->setEnabled(!m_settings.fillsKey); // the plugin chooses it
    m_rows.show(m_fillsKey, !gauge);
    m_rows.show(m_pictureText, !m_pictureText->text().isEmpty());
    m_rows.show(m_temperatureType, fields.temperatureUnit);
    m_rows.show(m_titleLines, fields.titleLines && !gauge);
    m_rows.show(m_diskMode, fields.diskMode);
    m_rows.show(m_drive, fields.drive);
    m_rows.show(m_switchFrequency, fields.switchTime);
    m_rows.show(m_showVolumeName, fields.volumeName);
    m_rows.show(m_fan, fields.fan);
    m_rows.show(m_physicalDisk, fields.physicalDisk);
    m_rows.show(m_audioDevice, fields.audioDevice);
    m_rows.show(m_pump, fields.pump);
    m_rows.show(m_sensor, fields.sensor);
    m_rows.layOut();
}

void SettingsForm::showTitleHint()
{
    QString title = gaugeKind(m_action, m_settings).shortTitle;
    if (m_keysTranslated && !title.isEmpty())
        title = tr(title.toUtf8().constData());
    m_titleHint->setText(
        title.isEmpty()
            ? tr("In place of the kind's default title a gauge shows the name of what it reads.")
            : tr("In place of the kind's default title a gauge shows \"%1\".").arg(title));
}

// What the plugin has is known from its first reply on.
void SettingsForm::showFontHint()
{
    const QVector<ListEntry> &fonts = m_lists.fonts;
    const QString &chosen = m_settings.fontFamily;
    const bool missing = !fonts.isEmpty() &&
                         std::none_of(fonts.begin(), fonts.end(), [&chosen](const ListEntry &font) {
                             return font.value == chosen;
                         });
    const QString name = QString(chosen).replace(QLatin1Char('|'), QLatin1Char(' '));
    m_fontHint->setText(tr("The plugin has no \"%1\" here and takes another font. Those that are "
                           "there are in the list.")
                            .arg(name));
    m_rows.show(m_fontHint, missing);
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
    showFontHint();
    m_rows.layOut();
    m_sensor->setEntries(lists.sensors);
    m_sensor->setCurrent(m_settings.selectValue);
}

void SettingsForm::setSensors(const QVector<ListEntry> &sensors)
{
    m_sensor->setEntries(sensors);
}

void SettingsForm::setPictureText(const QString &text)
{
    if (text == m_pictureText->text())
        return;
    m_pictureText->setText(text);
    m_rows.show(m_pictureText, !text.isEmpty());
    m_rows.layOut();
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
    const bool hasPump = !m_lists.pump.isEmpty() && m_lists.pump != QLatin1String("nodata");
    m_pump->setText(hasPump ? m_lists.pump : tr("no reading"));
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
    settings.display = m_display->display();
    m_settings = settings;
    m_opacityText->setText(tr("%1 %").arg(m_opacity->value()));
    showFields();
    Q_EMIT edited(settings);
}

} // namespace deck
