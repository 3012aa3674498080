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
    fields.picture = gauge;
    fields.scale = gauge;
    fields.normalColor = gauge;
    fields.span = style == QLatin1String("pair") || style == QLatin1String("graph");
    // The text stays the line that it is; only its letters may get another colour.
    fields.value = gauge;
    fields.rates = gauge && kind.isRate;
    fields.thresholds = true;
    // A line of text has only those thresholds that it is given.
    fields.warningColor = settings.display.warning || (gauge && !kind.warning.isEmpty());
    fields.criticalColor = settings.display.critical || (gauge && !kind.critical.isEmpty());
    fields.worse = fields.warningColor || fields.criticalColor;
    return fields;
}

} // namespace deck
