#include "deck_simulator/panel/DisplayFields.h"

#include "deck_simulator/panel/GaugeKinds.h"

namespace deck {

DisplayFields displayFields(const QString &action, const EntrySettings &settings)
{
    const GaugeKind kind = gaugeKind(action, settings);
    DisplayFields fields;
    if (kind.styles.isEmpty())
        return fields;
    const QString style = shownStyle(action, settings);
    const bool gauge = style != QLatin1String("text");
    const bool pair = style == QLatin1String("pair");
    fields.picture = gauge;
    fields.scale = gauge;
    fields.normalColor = gauge;
    fields.span = pair || style == QLatin1String("graph");
    fields.rates = kind.isRate;
    fields.value = true;
    // Both rates have no thresholds.
    fields.thresholds = !kind.styles.contains(QStringLiteral("pair"));
    if (!fields.thresholds)
        return fields;
    // A line of text has only those thresholds that it is given.
    fields.warningColor = settings.display.warning || (gauge && !kind.warning.isEmpty());
    fields.criticalColor = settings.display.critical || (gauge && !kind.critical.isEmpty());
    fields.worse = fields.warningColor || fields.criticalColor;
    return fields;
}

} // namespace deck
