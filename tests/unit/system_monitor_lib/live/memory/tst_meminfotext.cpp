#include "system_monitor_lib/live/memory/MeminfoText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class MeminfoTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesAmounts_data();
    void parsesAmounts();
    void refusesMalformedText_data();
    void refusesMalformedText();
};

void MeminfoTextTest::parsesAmounts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint64>("total");
    QTest::addColumn<quint64>("available");

    QTest::newRow("virtual machine") << fixture(QStringLiteral("proc/virtual-machine-epyc/meminfo"))
                                     << quint64{24684092} << quint64{24096256};
    QTest::newRow("2.6.32 without MemAvailable")
        << fixture(QStringLiteral("proc/linux-2.6.32-server/meminfo")) << quint64{1020696}
        << quint64{123456 + 34567 + 456789};
    QTest::newRow("MemAvailable has letters")
        << QByteArray("MemTotal: 100 kB\nMemFree: 10 kB\nMemAvailable: some kB\nBuffers: 5 kB\n"
                      "Cached: 20 kB\n")
        << quint64{100} << quint64{35};
    QTest::newRow("any order") << QByteArray("MemAvailable: 40 kB\nMemTotal: 100 kB\n")
                               << quint64{100} << quint64{40};
    QTest::newRow("all is available")
        << QByteArray("MemTotal: 100 kB\nMemAvailable: 100 kB\n") << quint64{100} << quint64{100};
    QTest::newRow("last line cut") << QByteArray("MemTotal: 100 kB\nMemAvailable: 40 kB\nCached: 2")
                                   << quint64{100} << quint64{40};
    QTest::newRow("lines without a colon")
        << QByteArray("\nnoise\nMemTotal: 100 kB\nMemAvailable: 40 kB\n") << quint64{100}
        << quint64{40};
}

void MeminfoTextTest::parsesAmounts()
{
    QFETCH(const QByteArray, text);
    const auto state = parseMeminfo(view(text));
    QVERIFY(state.has_value());
    QTEST(state->total, "total");
    QTEST(state->available, "available");
}

void MeminfoTextTest::refusesMalformedText_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut in the first number") << QByteArray("MemTotal:       246840");
    QTest::newRow("cut before available") << QByteArray("MemTotal: 100 kB\nMemAvailable: 4");
    QTest::newRow("total missing") << QByteArray("MemFree: 10 kB\nMemAvailable: 40 kB\n");
    QTest::newRow("total has letters") << QByteArray("MemTotal: lots kB\nMemAvailable: 40 kB\n");
    QTest::newRow("total is zero") << QByteArray("MemTotal: 0 kB\nMemAvailable: 0 kB\n");
    QTest::newRow("no unit") << QByteArray("MemTotal: 100\nMemAvailable: 40\n");
    QTest::newRow("more available than there is")
        << QByteArray("MemTotal: 100 kB\nMemAvailable: 101 kB\n");
    QTest::newRow("absurdly large")
        << QByteArray("MemTotal: 99999999999999999999999 kB\nMemAvailable: 40 kB\n");
    QTest::newRow("fallback incomplete")
        << QByteArray("MemTotal: 100 kB\nMemFree: 10 kB\nBuffers: 5 kB\n");
    QTest::newRow("negative") << QByteArray("MemTotal: 100 kB\nMemAvailable: -1 kB\n");
}

void MeminfoTextTest::refusesMalformedText()
{
    QFETCH(const QByteArray, text);
    QVERIFY(!parseMeminfo(view(text)).has_value());
}

QTEST_APPLESS_MAIN(MeminfoTextTest)
#include "tst_meminfotext.moc"
