#include "deck_simulator/panel/DisplayFields.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

using namespace deck;

class tst_DisplayFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsOnlyWhatMatters_data();
    void showsOnlyWhatMatters();
};

void tst_DisplayFields::showsOnlyWhatMatters_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("shown");
    const auto row = [](const QString &action, const char *style, const char *given,
                        const char *shown) {
        QTest::addRow("%s %s %s", qPrintable(action), style, given)
            << action << QString::fromLatin1(style) << QString::fromLatin1(given)
            << QString::fromLatin1(shown);
    };
    row(keyuuid::cpu, "text", "", "thresholds");
    row(keyuuid::cpu, "text", "warning", "thresholds worse warningColor");
    row(keyuuid::cpu, "text", "critical", "thresholds worse criticalColor");
    row(keyuuid::cpu, "bar", "", "picture scale thresholds normalColor value");
    row(keyuuid::cpu, "ring", "warning",
        "picture scale thresholds worse normalColor warningColor value");
    row(keyuuid::cpu, "graph", "", "picture scale thresholds normalColor span value");
    // Those of the kind act on its gauges only.
    row(keyuuid::cpuTemperature, "ring", "",
        "picture scale thresholds worse normalColor warningColor criticalColor value");
    row(keyuuid::cpuTemperature, "text", "", "thresholds");
    row(keyuuid::upload, "text", "", "thresholds");
    row(keyuuid::upload, "bar", "", "picture scale thresholds normalColor value rates");
    row(keyuuid::netWork, "text", "", "thresholds");
    row(keyuuid::netWork, "ring", "warning",
        "picture scale thresholds worse normalColor warningColor span value rates");
    row(keyuuid::cpuModel, "ring", "warning", "");
    row(keyuuid::memoryTotalMB, "graph", "", "");
}

void tst_DisplayFields::showsOnlyWhatMatters()
{
    QFETCH(const QString, action);
    QFETCH(const QString, style);
    QFETCH(const QString, given);
    EntrySettings settings;
    settings.display.style = style;
    if (given == QLatin1String("warning"))
        settings.display.warning = 0;
    if (given == QLatin1String("critical"))
        settings.display.critical = 0;
    const DisplayFields fields = displayFields(action, settings);
    QStringList names;
    const QVector<QPair<bool, const char *>> all{{fields.picture, "picture"},
                                                 {fields.scale, "scale"},
                                                 {fields.thresholds, "thresholds"},
                                                 {fields.worse, "worse"},
                                                 {fields.normalColor, "normalColor"},
                                                 {fields.warningColor, "warningColor"},
                                                 {fields.criticalColor, "criticalColor"},
                                                 {fields.span, "span"},
                                                 {fields.value, "value"},
                                                 {fields.rates, "rates"}};
    for (const auto &field : all) {
        if (field.first)
            names.append(QString::fromLatin1(field.second));
    }
    QTEST(names.join(QLatin1Char(' ')), "shown");
}

QTEST_GUILESS_MAIN(tst_DisplayFields)
#include "tst_DisplayFields.moc"
