#include "system_monitor_lib/live/processor/CoreClocks.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::vector<quint64>)
Q_DECLARE_METATYPE(std::vector<unsigned>)

class CoreClocksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheFirstProcessorOfEachCore_data();
    void takesTheFirstProcessorOfEachCore();
    void multipliesByThePerformance_data();
    void multipliesByThePerformance();
};

void CoreClocksTest::takesTheFirstProcessorOfEachCore_data()
{
    using Masks = std::vector<quint64>;
    using Clocks = std::vector<unsigned>;
    QTest::addColumn<Masks>("cores");
    QTest::addColumn<Clocks>("megahertz");
    QTest::addColumn<QList<double>>("expected"); // -1: no label.

    QTest::newRow("two threads each")
        << Masks{0b0011, 0b1100} << Clocks{3600, 1, 800, 2} << QList<double>{3600, 800};
    QTest::newRow("large and small cores")
        << Masks{0b0011, 0b0100, 0b1000} << Clocks{5000, 1, 3800, 3900}
        << QList<double>{5000, 3800, 3900};
    QTest::newRow("no masks") << Masks{} << Clocks{2400, 2500} << QList<double>{2400, 2500};
    QTest::newRow("a clock of 0 and an absurd one")
        << Masks{1, 2, 4} << Clocks{0, 4000000000U, 3000} << QList<double>{-1, -1, 3000};
    QTest::newRow("fewer clocks than processors")
        << Masks{1, 2, quint64{1} << 63U} << Clocks{3000, 3100} << QList<double>{3000, 3100, -1};
    QTest::newRow("an empty mask") << Masks{0, 1} << Clocks{3000} << QList<double>{-1, 3000};
    QTest::newRow("nothing") << Masks{} << Clocks{} << QList<double>{-1};
}

void CoreClocksTest::takesTheFirstProcessorOfEachCore()
{
    QFETCH(const std::vector<quint64>, cores);
    QFETCH(const std::vector<unsigned>, megahertz);
    QFETCH(const QList<double>, expected);
    const QJsonObject labels = coreClocks(cores, megahertz);
    int present = 0;
    for (int core = 0; core < expected.size(); ++core) {
        const QString label = QStringLiteral("Core %1 Clock").arg(core);
        QCOMPARE(value(labels, label), expected.at(core));
        if (expected.at(core) >= 0) {
            QCOMPARE(units(labels, label), QStringLiteral("MHz"));
            ++present;
        }
    }
    QCOMPARE(labels.size(), present);
}

void CoreClocksTest::multipliesByThePerformance_data()
{
    QTest::addColumn<double>("performance"); // -1: none.
    QTest::addColumn<unsigned>("megahertz");
    QTest::newRow("turbo") << 141.7 << 4251U;
    QTest::newRow("idle") << 26.6667 << 800U;
    QTest::newRow("nominal") << 100.0 << 3000U;
    QTest::newRow("none") << -1.0 << 2999U;
    QTest::newRow("stands still") << 0.0 << 2999U;
    QTest::newRow("absurd") << 1e9 << 2999U;
    QTest::newRow("no number") << qQNaN() << 2999U;
}

void CoreClocksTest::multipliesByThePerformance()
{
    QFETCH(const double, performance);
    const bool isKnown = performance != -1;
    QTEST(actualMegahertz(3000, 2999, isKnown ? std::optional(performance) : std::nullopt),
          "megahertz");
}

QTEST_APPLESS_MAIN(CoreClocksTest)
#include "tst_coreclocks.moc"
