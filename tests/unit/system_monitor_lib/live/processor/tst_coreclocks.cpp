#include "system_monitor_lib/live/processor/CoreClocks.h"
#include "tests/unit/system_monitor_lib/bytes.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::vector<CoreMask>)
Q_DECLARE_METATYPE(std::vector<std::vector<unsigned>>)
Q_DECLARE_METATYPE(std::vector<quint64>)

namespace {

/// A record of GetLogicalProcessorInformationEx: relation, size, flags, class, the number of
/// groups, and mask and number of the first one.
QByteArray record(quint64 mask, quint16 group, quint32 relation = 0, quint32 size = 48)
{
    return bytes(relation) + bytes(size) + bytes<quint8>(1) + bytes<quint8>(0) + gap(20) +
           bytes<quint16>(1) + bytes(mask) + bytes(group) + gap(static_cast<int>(size) - 42);
}

} // namespace

class CoreClocksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheFirstProcessorOfEachCore_data();
    void takesTheFirstProcessorOfEachCore();
    void findsTheCores_data();
    void findsTheCores();
    void multipliesByThePerformance_data();
    void multipliesByThePerformance();
};

void CoreClocksTest::takesTheFirstProcessorOfEachCore_data()
{
    using Cores = std::vector<CoreMask>;
    using Clocks = std::vector<std::vector<unsigned>>;
    QTest::addColumn<Cores>("cores");
    QTest::addColumn<Clocks>("megahertz");
    QTest::addColumn<QList<double>>("expected"); // -1: no label.

    QTest::newRow("two threads each")
        << Cores{{0, 0b0011}, {0, 0b1100}} << Clocks{{3600, 1, 800, 2}} << QList<double>{3600, 800};
    QTest::newRow("large and small cores")
        << Cores{{0, 0b0011}, {0, 0b0100}, {0, 0b1000}} << Clocks{{5000, 1, 3800, 3900}}
        << QList<double>{5000, 3800, 3900};
    QTest::newRow("two groups") << Cores{{0, 0b01}, {0, 0b10}, {1, 0b01}, {1, 0b10}}
                                << Clocks{{3000, 3100}, {2000, 2100}}
                                << QList<double>{3000, 3100, 2000, 2100};
    QTest::newRow("two groups without cores")
        << Cores{} << Clocks{{3000, 3100}, {2000}} << QList<double>{3000, 3100, 2000};
    QTest::newRow("a group without clocks")
        << Cores{{0, 1}, {7, 1}} << Clocks{{3000}} << QList<double>{3000, -1};
    QTest::newRow("no masks") << Cores{} << Clocks{{2400, 2500}} << QList<double>{2400, 2500};
    QTest::newRow("a clock of 0 and an absurd one")
        << Cores{{0, 1}, {0, 2}, {0, 4}} << Clocks{{0, 4000000000U, 3000}}
        << QList<double>{-1, -1, 3000};
    QTest::newRow("fewer clocks than processors")
        << Cores{{0, 1}, {0, 2}, {0, quint64{1} << 63U}} << Clocks{{3000, 3100}}
        << QList<double>{3000, 3100, -1};
    QTest::newRow("an empty mask")
        << Cores{{0, 0}, {0, 1}} << Clocks{{3000}} << QList<double>{-1, 3000};
    QTest::newRow("nothing") << Cores{} << Clocks{} << QList<double>{-1};
}

void CoreClocksTest::takesTheFirstProcessorOfEachCore()
{
    QFETCH(const std::vector<CoreMask>, cores);
    QFETCH(const std::vector<std::vector<unsigned>>, megahertz);
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

void CoreClocksTest::findsTheCores_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QList<int>>("groups");
    QTest::addColumn<std::vector<quint64>>("masks");
    using Masks = std::vector<quint64>;
    const quint64 last = quint64{1} << 63U;
    QTest::newRow("more than 64 processors") << record(0b11, 0) + record(last, 0) + record(0b11, 1)
                                             << QList<int>{0, 0, 1} << Masks{0b11, last, 0b11};
    QTest::newRow("other relations between")
        << record(1, 0) + record(~quint64{0}, 0, 2, 80) + record(2, 3) << QList<int>{0, 3}
        << Masks{1, 2};
    QTest::newRow("cut") << record(1, 0) + record(2, 0).left(47) << QList<int>{0} << Masks{1};
    QTest::newRow("a record of no size") << record(1, 0) + gap(200) << QList<int>{0} << Masks{1};
    QTest::newRow("a record of absurd size")
        << record(1, 0) + bytes<quint32>(0) + bytes<quint32>(~quint32{0}) + gap(100)
        << QList<int>{0} << Masks{1};
    QTest::newRow("nothing") << QByteArray() << QList<int>{} << Masks{};
}

void CoreClocksTest::findsTheCores()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const QList<int>, groups);
    QFETCH(const std::vector<quint64>, masks);
    const std::vector<CoreMask> cores = parseCores(answer);
    QCOMPARE(cores.size(), masks.size());
    for (std::size_t core = 0; core < cores.size(); ++core) {
        QCOMPARE(cores[core].processors, masks[core]);
        QCOMPARE(static_cast<int>(cores[core].group), groups.at(static_cast<int>(core)));
    }
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
