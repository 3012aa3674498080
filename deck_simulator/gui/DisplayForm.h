#pragma once

#include "deck_simulator/deck/EntrySettings.h"
#include "deck_simulator/gui/FormRows.h"
#include "deck_simulator/panel/DisplayFields.h"
#include "deck_simulator/panel/GaugeKinds.h"

#include <QWidget>

class QComboBox;
class QPushButton;
class QSpinBox;

namespace deck {

class ColorField;
class FormSection;
class NumberField;
class StylePicker;

/// The controls for a key's "display". Only those that matter to its kind and style are shown, the
/// rarer ones in sections that are opened.
class DisplayForm : public QWidget
{
    Q_OBJECT

public:
    explicit DisplayForm(QWidget *parent = nullptr);

    /// Shows settings without emitting signals.
    void setSettings(const QString &action, const EntrySettings &settings);
    [[nodiscard]] const DisplaySettings &display() const { return m_settings.display; }

Q_SIGNALS:
    /// The user has changed something.
    void edited(const DisplaySettings &display);

private:
    void addPictureRows();
    void addScaleRows();
    void addColorRows();
    void addValueRows();
    void addColor(ColorField *field, const QString &label, const QString &usual);
    void connectControls();
    void showValues();
    void showUsual(const GaugeKind &kind);
    void showFields(const GaugeKind &kind);
    void showChanges();
    void showPreviews();
    void collect();
    void change(const DisplaySettings &display);

    FormRows m_rows;
    FormSection *m_scale;
    FormSection *m_colors;
    FormSection *m_values;
    StylePicker *m_style = nullptr;
    QComboBox *m_shape = nullptr;
    QSpinBox *m_size = nullptr;
    NumberField *m_minimum = nullptr;
    NumberField *m_maximum = nullptr;
    NumberField *m_warning = nullptr;
    NumberField *m_critical = nullptr;
    QComboBox *m_worse = nullptr;
    ColorField *m_normalColor = nullptr;
    ColorField *m_warningColor = nullptr;
    ColorField *m_criticalColor = nullptr;
    ColorField *m_ground = nullptr;
    QSpinBox *m_span = nullptr;
    QSpinBox *m_average = nullptr;
    QComboBox *m_decimals = nullptr;
    QComboBox *m_rates = nullptr;
    QComboBox *m_press = nullptr;
    QPushButton *m_reset = nullptr;
    QString m_action;
    EntrySettings m_settings;
    bool m_showing = false;
};

} // namespace deck
