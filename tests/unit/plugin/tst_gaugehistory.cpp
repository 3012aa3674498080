#include "plugin/GaugeHistory.h"

#include <QtTest>

/// Which samples are taken, and how long they are kept.
class tst_GaugeHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void takesASampleAPass();
    void takesOneSampleForAllKeysOfASource();
    void takesNoSampleOfWhatIsMissing_data();
    void takesNoSampleOfWhatIsMissing();
    void keepsSelectionsApart();
    void goesOnForTenMinutes();
    void holdsSixtyFourSources();
    void makesRoomForANewOne();
    void sharesTheScaleOfAPair();
    void scalesRatesByTheirUnits();
    void beginsExtremesAnew();
};

namespace {

Reading<double> present;
Reading<double> presentDownload;

Reading<double> readPresent(const QString &selection)
{
    return {present.value + selection.toInt(), QString(), present.isMissing};
}

Reading<double> readDownload(const QString & /*selection*/)
{
    return presentDownload;
}

const GaugeKind plain = gaugeOf(readPresent);
const GaugeKind pair = gaugeOf(readPresent).in(Quantity::Rate).pairedWith(readDownload);

constexpr qint64 second = 1000;
constexpr qint64 minute = 60 * second;

/// One pass in which keys show the sources.
void pass(GaugeHistory &history, qint64 now, const QVector<GaugeSource> &sources)
{
    history.beginPass(now);
    for (const GaugeSource &source : sources) {
        if (GaugeRecord *const record = history.show(source, now))
            GaugeHistory::sample(source, *record, now);
    }
}

/// The samples at present, from the oldest, as shares of a hundred.
QString samplesOf(GaugeHistory &history, const GaugeSource &source, qint64 now)
{
    const GaugeRecord *const record = history.show(source, now);
    if (!record)
        return QStringLiteral("no record");
    QStringList values;
    for (const auto &run : record->directions[0].series.trace(3600, now, {0, 100})) {
        for (const gauge::Point &point : run)
            values.append(QString::number(point.share * 100));
        values.append(QStringLiteral("|"));
    }
    return values.join(QLatin1Char(' '));
}

} // namespace

void tst_GaugeHistory::init()
{
    present = {10, QString()};
    presentDownload = {0, QString()};
}

void tst_GaugeHistory::takesASampleAPass()
{
    GaugeHistory history;
    const GaugeSource source{&plain, QString()};
    pass(history, 0, {source});
    present.value = 20;
    pass(history, second, {source});
    QCOMPARE(samplesOf(history, source, second), QStringLiteral("10 20 |"));
}

void tst_GaugeHistory::takesOneSampleForAllKeysOfASource()
{
    GaugeHistory history;
    const GaugeSource source{&plain, QString()};
    pass(history, 0, {source, source, source});
    pass(history, second, {source, source, source});
    QCOMPARE(samplesOf(history, source, second), QStringLiteral("10 10 |"));
    QCOMPARE(history.size(), 1);
    const GaugeRecord &record = *history.show(source, second);
    // Five in a row are not two passes.
    present.value = 1000;
    pass(history, 2 * second, {source, source, source, source, source});
    QCOMPARE(record.scale.range().highest, 20.0);
}

void tst_GaugeHistory::takesNoSampleOfWhatIsMissing_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("isMissing");
    QTest::newRow("missing") << 0.0 << true;
    QTest::newRow("not a number") << qQNaN() << false;
    QTest::newRow("infinite") << qInf() << false;
}

void tst_GaugeHistory::takesNoSampleOfWhatIsMissing()
{
    QFETCH(double, value);
    QFETCH(bool, isMissing);
    GaugeHistory history;
    const GaugeSource source{&plain, QString()};
    pass(history, 0, {source});
    present = {value, QString(), isMissing};
    for (qint64 now = second; now <= 3 * second; now += second)
        pass(history, now, {source});
    present = {30, QString()};
    pass(history, 4 * second, {source});
    QCOMPARE(samplesOf(history, source, 4 * second), QStringLiteral("10 | 30 |"));
    QCOMPARE(
        history.show(source, 4 * second)->directions[0].extremes.valueOf(gauge::Extreme::Minimum),
        std::optional(10.0));
}

void tst_GaugeHistory::keepsSelectionsApart()
{
    GaugeHistory history;
    const GaugeSource first{&plain, QStringLiteral("1")};
    const GaugeSource second_{&plain, QStringLiteral("2")};
    pass(history, 0, {first, second_});
    QCOMPARE(samplesOf(history, first, 0), QStringLiteral("11 |"));
    QCOMPARE(samplesOf(history, second_, 0), QStringLiteral("12 |"));
    const GaugeSource otherKind{&pair, QStringLiteral("1")};
    QCOMPARE(samplesOf(history, otherKind, 0), QString());
}

void tst_GaugeHistory::goesOnForTenMinutes()
{
    GaugeHistory history;
    const GaugeSource source{&plain, QString()};
    pass(history, 0, {source});
    for (qint64 now = second; now <= 10 * minute; now += second)
        pass(history, now, {});
    QCOMPARE(history.size(), 1);
    const GaugeRecord &record = *history.show(source, 10 * minute);
    QCOMPARE(record.directions[0].series.trace(3600, 10 * minute, {}).first().size(), 601);

    for (qint64 now = 10 * minute + second; now <= 20 * minute; now += second)
        pass(history, now, {});
    QCOMPARE(history.size(), 1);
    pass(history, 20 * minute + second, {});
    QCOMPARE(history.size(), 0);
}

void tst_GaugeHistory::holdsSixtyFourSources()
{
    GaugeHistory history;
    QVector<GaugeSource> sources;
    for (int index = 0; index < 70; ++index)
        sources.append({&plain, QString::number(index)});
    pass(history, 0, sources);
    pass(history, second, sources);
    QCOMPARE(history.size(), 64);
    QCOMPARE(samplesOf(history, sources.at(63), second), QStringLiteral("73 73 |"));
    QCOMPARE(samplesOf(history, sources.at(64), second), QStringLiteral("no record"));
}

void tst_GaugeHistory::makesRoomForANewOne()
{
    GaugeHistory history;
    QVector<GaugeSource> sources;
    for (int index = 0; index < 64; ++index)
        sources.append({&plain, QString::number(index)});
    pass(history, 0, sources);
    const GaugeSource gone = sources.takeAt(5);
    for (qint64 now = second; now <= 2 * second; now += second)
        pass(history, now, sources);
    const GaugeSource added{&plain, QStringLiteral("100")};
    // It was shown but two seconds ago: perhaps the pass was slow.
    QVERIFY(!history.show(added, 2 * second));
    pass(history, 3 * second, sources);
    QVERIFY(history.show(added, 3 * second));
    QCOMPARE(history.size(), 64);
    QVERIFY(!history.show(gone, 3 * second));
}

void tst_GaugeHistory::sharesTheScaleOfAPair()
{
    GaugeHistory history;
    present = {12, QString()};
    presentDownload = {120, QString()};
    const GaugeSource source{&pair, QString()};
    pass(history, 0, {source});
    const GaugeRecord &record = *history.show(source, 0);
    QCOMPARE(record.scale.range().highest, 200.0);
    QCOMPARE(record.directions[1].extremes.valueOf(gauge::Extreme::Maximum), std::optional(120.0));
    QVERIFY(record.directions[1].series.mean(1, 0) == std::optional(120.0));
}

void tst_GaugeHistory::scalesRatesByTheirUnits()
{
    GaugeHistory history;
    present = {600, QString()};
    const GaugeSource source{&pair, QString()};
    const GaugeRecord &fresh = *history.show(source, 0);
    QCOMPARE(fresh.scale.range().highest, 10.0);
    QCOMPARE(fresh.scaleInBits.range().highest, 100 * kilobytesPerKilobit);
    pass(history, 0, {source});
    const GaugeRecord &record = *history.show(source, 0);
    QCOMPARE(record.scale.range().highest, 1024.0);
    QCOMPARE(record.scaleInBits.range().highest, 10000 * kilobytesPerKilobit);
}

void tst_GaugeHistory::beginsExtremesAnew()
{
    GaugeHistory history;
    const GaugeSource source{&plain, QString()};
    pass(history, 0, {source});
    history.resetExtremes(source);
    history.resetExtremes({&plain, QStringLiteral("unknown")});
    QCOMPARE(history.size(), 1);
    const auto lowest = [&] {
        return history.show(source, 0)->directions[0].extremes.valueOf(gauge::Extreme::Minimum);
    };
    QVERIFY(!lowest());
    present.value = 50;
    pass(history, second, {source});
    QCOMPARE(lowest(), std::optional(50.0));
    QCOMPARE(samplesOf(history, source, second), QStringLiteral("10 50 |"));
}

QTEST_APPLESS_MAIN(tst_GaugeHistory)
#include "tst_gaugehistory.moc"
