#pragma once

#include "deck_simulator/deck/EntrySettings.h"
#include "deck_simulator/gui/FormRows.h"
#include "deck_simulator/panel/SettingsLists.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSlider;
class QSpinBox;

namespace deck {

class ColorField;
class DisplayForm;
class SensorPicker;

/// The controls for the settings of one key. Only those that apply to its action are shown.
class SettingsForm : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsForm(QWidget *parent = nullptr);

    /// Of the titles that replace others. \a keysTranslated: the plugin finds the language, so that
    /// its own titles are in it.
    void setLanguage(const QString &language, bool keysTranslated);
    void setAction(const QString &action);
    /// Shows settings without emitting signals.
    void setSettings(const EntrySettings &settings);
    [[nodiscard]] const EntrySettings &settings() const { return m_settings; }
    /// The available choices.
    void setLists(const SettingsLists &lists);
    [[nodiscard]] const SettingsLists &lists() const { return m_lists; }
    void setSensors(const QVector<ListEntry> &sensors);
    /// How large the key's picture is, in words; empty where there is none.
    void setPictureText(const QString &text);
    void focusFirst();

Q_SIGNALS:
    /// The user has changed a setting.
    void edited(const EntrySettings &settings);
    /// The user has finished with Enter or Escape.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addTitleRows();
    void addDisplay();
    void addLookRows();
    void addKindRows();
    void connectControls();
    void showFields();
    void showLists();
    void showTitleHint();
    void showFontHint();
    void chooseLines();
    void collect();

    FormRows m_rows;
    QLineEdit *m_title = nullptr;
    QCheckBox *m_showTitle = nullptr;
    QLabel *m_titleHint = nullptr;
    DisplayForm *m_display = nullptr;
    QComboBox *m_font = nullptr;
    QLabel *m_fontHint = nullptr;
    QSpinBox *m_fontSize = nullptr;
    QCheckBox *m_fillsKey = nullptr;
    QLabel *m_pictureText = nullptr;
    ColorField *m_color = nullptr;
    QWidget *m_opacityRow = nullptr;
    QSlider *m_opacity = nullptr;
    QLabel *m_opacityText = nullptr;
    QComboBox *m_temperatureType = nullptr;
    QComboBox *m_titleLines = nullptr;
    QComboBox *m_diskMode = nullptr;
    QComboBox *m_drive = nullptr;
    QSpinBox *m_switchFrequency = nullptr;
    QCheckBox *m_showVolumeName = nullptr;
    QComboBox *m_fan = nullptr;
    QComboBox *m_physicalDisk = nullptr;
    QComboBox *m_audioDevice = nullptr;
    QLabel *m_pump = nullptr;
    SensorPicker *m_sensor = nullptr;
    QString m_language;
    bool m_keysTranslated = false;
    QString m_action;
    EntrySettings m_settings;
    SettingsLists m_lists;
    bool m_showing = false;
};

} // namespace deck
