#include "plugin/gauges/Thresholds.h"

#include <QtTest>

Q_DECLARE_METATYPE(Thresholds)

/// Which level a value has, and when a key leaves it.
class tst_Thresholds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheLevel_data();
    void tellsTheLevel();
};

namespace {

const Thresholds hot{80, 95, true};
const Thresholds little{10, 5, false};
const Thresholds warningOnly{80, std::nullopt, true};
const Thresholds criticalOnly{std::nullopt, 95, true};
const Thresholds exchanged{95, 80, true};

gauge::Level levelOfLetter(QChar letter)
{
    return letter == QLatin1Char('c')   ? gauge::Level::Critical
           : letter == QLatin1Char('w') ? gauge::Level::Warning
                                        : gauge::Level::Normal;
}

} // namespace

void tst_Thresholds::tellsTheLevel_data()
{
    QTest::addColumn<Thresholds>("thresholds");
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<QString>("levels"); // n, w, c.
    const auto row = [](const char *name, const Thresholds &thresholds,
                        const QVector<double> &values, const char *levels) {
        QTest::newRow(name) << thresholds << values << QString::fromLatin1(levels);
    };
    row("none", Thresholds(), {-1e9, 0, 1e9}, "nnn");
    row("up", hot, {79.9, 80, 94.9, 95, 200}, "nwwcc");
    row("back from the warning", hot, {80, 78.1, 78, 77.9, 79.9}, "wwwnn");
    row("back from critical", hot, {95, 93, 92.9, 94.9, 95}, "ccwwc");
    row("far back", hot, {95, 78, 77.9}, "cwn");
    row("down", little, {10.1, 10, 5.1, 5, 0}, "nwwcc");
    row("up again", little, {5, 7, 7.1, 12, 12.1}, "ccwwn");
    row("a warning alone", warningOnly, {80, 1000, 78, 77}, "wwwn");
    row("critical alone", criticalOnly, {80, 94, 95, 93, 92}, "nnccn");
    row("the critical one first", exchanged, {79, 80, 96}, "ncc");
}

void tst_Thresholds::tellsTheLevel()
{
    QFETCH(Thresholds, thresholds);
    QFETCH(QVector<double>, values);
    QFETCH(QString, levels);
    QCOMPARE(values.size(), levels.size());
    gauge::Level level = gauge::Level::Normal;
    for (int index = 0; index < values.size(); ++index) {
        level = levelOf(values.at(index), thresholds, 2, level);
        QVERIFY2(level == levelOfLetter(levels.at(index)),
                 qPrintable(QString::number(values.at(index))));
    }
}

QTEST_APPLESS_MAIN(tst_Thresholds)
#include "tst_thresholds.moc"
