#pragma once

#include "deck_simulator/KeySettings.h"
#include "deck_simulator/PanelFields.h"
#include "deck_simulator/SettingsLists.h"

#include <QWidget>

class ColorField;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSlider;
class QSpinBox;
class SensorPicker;

/// The controls for the settings of one key. Only those that apply to its action are shown.
class SettingsForm : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsForm(QWidget *parent = nullptr);

    void setAction(const QString &action);
    /// Shows settings; nothing is reported.
    void setSettings(const KeySettings &settings);
    [[nodiscard]] const KeySettings &settings() const { return m_settings; }
    /// What there is to choose from.
    void setLists(const SettingsLists &lists);
    void setSensors(const QVector<ListEntry> &sensors);
    void focusFirst();

Q_SIGNALS:
    /// The user has changed a setting.
    void edited(const KeySettings &settings);

private:
    void addTitleRows();
    void addLookRows();
    void addKindRows();
    void connectControls();
    void showFields();
    void showLists();
    void addRow(const QString &label, QWidget *field);
    void showRow(QWidget *field, bool shown);
    void layOut();
    void collect();

    struct Row
    {
        QLabel *label; // null: the field is as wide as the form
        QWidget *field;
        bool shown;
    };

    QFormLayout *m_layout;
    QVector<Row> m_rows;
    QLineEdit *m_title;
    QCheckBox *m_showTitle;
    QComboBox *m_font;
    QSpinBox *m_fontSize;
    QCheckBox *m_fillsKey;
    ColorField *m_color;
    QWidget *m_opacityRow;
    QSlider *m_opacity;
    QLabel *m_opacityText;
    QComboBox *m_temperatureType;
    QComboBox *m_titleLines;
    QComboBox *m_diskMode;
    QComboBox *m_drive;
    QSpinBox *m_switchFrequency;
    QCheckBox *m_showVolumeName;
    QComboBox *m_fan;
    QComboBox *m_physicalDisk;
    QComboBox *m_audioDevice;
    QLabel *m_pump;
    SensorPicker *m_sensor;
    QString m_action;
    KeySettings m_settings;
    SettingsLists m_lists;
    bool m_showing = false;
};
