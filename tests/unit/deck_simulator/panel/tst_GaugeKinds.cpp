#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/panel/GaugeKinds.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

using namespace deck;

class tst_GaugeKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offersStyles_data();
    void offersStyles();
    void tellsWhatIsUsual_data();
    void tellsWhatIsUsual();
    void hasAShortTitleForEveryGauge();
    void tellsTheShownStyle_data();
    void tellsTheShownStyle();
};

void tst_GaugeKinds::offersStyles_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("styles");
    QTest::addColumn<bool>("isRate");
    const auto row = [](const QString &action, const char *styles, bool isRate = false) {
        QTest::newRow(qPrintable(action)) << action << QString::fromLatin1(styles) << isRate;
    };
    for (const DeckAction &action : deckActions()) {
        const bool model = action.uuid.endsWith(QLatin1String("_Model"));
        const bool total = action.uuid.contains(QLatin1String("_Total_"));
        if (action.uuid == keyuuid::netWork)
            row(action.uuid, "pair", true);
        else
            row(action.uuid, model || total ? "" : "bar ring graph",
                action.group == ActionGroup::Network);
    }
    row(QStringLiteral("another.maker"), "");
}

void tst_GaugeKinds::offersStyles()
{
    QFETCH(const QString, action);
    const GaugeKind kind = gaugeKind(action, {});
    QTEST(kind.styles.join(QLatin1Char(' ')), "styles");
    QTEST(kind.isRate, "isRate");
}

void tst_GaugeKinds::tellsWhatIsUsual_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("fahrenheit");
    QTest::addColumn<QString>("usual");
    QTest::addColumn<bool>("below");
    const auto row = [](const QString &action, const char *usual, bool fahrenheit = false,
                        bool below = false) {
        QTest::addRow("%s %d", qPrintable(action), int(fahrenheit))
            << action << fahrenheit << QString::fromUtf8(usual) << below;
    };
    row(keyuuid::cpu, "0 100   %");
    row(keyuuid::volume, "0 100   %");
    row(keyuuid::cpuTemperature, "20 100 80 95 °C");
    row(keyuuid::gpuTemperature, "68 212 176 203 °F", true);
    row(keyuuid::diskTemperature, "20 80 50 65 °C");
    row(keyuuid::diskTemperature, "68 176 122 149 °F", true);
    row(keyuuid::memoryFreeGB, "0 the total 10 % of the total 5 % of the total GB", false, true);
    row(keyuuid::memoryUsedMB, "0 the total   MB");
    row(keyuuid::physicalDisk, "0 100 85 95 %");
    row(keyuuid::cpuClock, "    MHz");
    row(keyuuid::download, "    KB/s");
    row(keyuuid::allData, "    ");
}

void tst_GaugeKinds::tellsWhatIsUsual()
{
    QFETCH(const QString, action);
    QFETCH(const bool, fahrenheit);
    EntrySettings settings;
    if (fahrenheit)
        settings.temperatureType = QStringLiteral("华氏度");
    const GaugeKind kind = gaugeKind(action, settings);
    const QStringList usual{kind.minimum, kind.maximum, kind.warning, kind.critical, kind.unit};
    QTEST(usual.join(QLatin1Char(' ')), "usual");
    QTEST(kind.below, "below");
}

void tst_GaugeKinds::hasAShortTitleForEveryGauge()
{
    for (const DeckAction &action : deckActions()) {
        const GaugeKind kind = gaugeKind(action.uuid, {});
        // That of a drive or a sensor is its name.
        const bool hasTitle = !kind.styles.isEmpty() && action.uuid != keyuuid::physicalDisk &&
                              action.uuid != keyuuid::allData;
        QVERIFY2(kind.shortTitle.isEmpty() != hasTitle, qPrintable(action.uuid));
        QVERIFY2(kind.shortTitle.size() <= 10, qPrintable(kind.shortTitle));
    }
}

void tst_GaugeKinds::tellsTheShownStyle_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("shown");
    const auto row = [](const QString &action, const char *asked, const char *shown) {
        QTest::addRow("%s as %s", qPrintable(action), asked)
            << action << QString::fromLatin1(asked) << QString::fromLatin1(shown);
    };
    row(keyuuid::cpu, "text", "text");
    row(keyuuid::cpu, "ring", "ring");
    row(keyuuid::cpu, "pair", "text");
    row(keyuuid::netWork, "text", "text");
    row(keyuuid::netWork, "bar", "pair");
    row(keyuuid::netWork, "pair", "pair");
    row(keyuuid::cpuModel, "graph", "text");
    row(keyuuid::memoryTotalGB, "bar", "text");
}

void tst_GaugeKinds::tellsTheShownStyle()
{
    QFETCH(const QString, action);
    QFETCH(const QString, asked);
    EntrySettings settings;
    settings.display.style = asked;
    QTEST(shownStyle(action, settings), "shown");
}

QTEST_GUILESS_MAIN(tst_GaugeKinds)
#include "tst_GaugeKinds.moc"
