#include "system_monitor_lib/live/memory/MeminfoText.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class MeminfoTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesAmounts_data();
    void parsesAmounts();
    void refusesMalformedText_data();
    void refusesMalformedText();
    void parsesDetails_data();
    void parsesDetails();
    void parsesZram_data();
    void parsesZram();
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

void MeminfoTextTest::parsesDetails_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");

    const QByteArray swap("SwapTotal: 2097152 kB\nSwapFree: 1048576 kB\n");
    const QByteArray load("MemTotal: 4096 kB\nMemFree: 1024 kB\nMemAvailable: 2048 kB\n");
    QTest::newRow("all") << load + swap +
                                "Cached: 1024 kB\nDirty: 512 kB\nZswap: 5 kB\nZswapped: 2048 kB\n"
                         << texts({"t | Memory Cached = 1 MB", "t | Memory Compressed = 2 MB",
                                   "t | Memory Dirty = 0.5 MB", "t | Swap Total = 2048 MB",
                                   "t | Swap Used = 1024 MB"});
    QTest::newRow("no swap") << QByteArray("SwapTotal: 0 kB\nSwapFree: 0 kB\n") << texts({"t"});
    QTest::newRow("more free than there is")
        << QByteArray("SwapTotal: 1024 kB\nSwapFree: 2048 kB\n")
        << texts({"t | Swap Total = 1 MB"});
    QTest::newRow("malformed") << QByteArray("SwapTotal: x kB\nDirty: 5\nCached 7 kB\n")
                               << texts({"t"});
    QTest::newRow("cut") << QByteArray("Dirty: 5 kB") << texts({"t"});
    QTest::newRow("empty") << QByteArray() << texts({"t"});
    QTest::newRow("zero bytes") << QByteArray(4000, '\0') << texts({"t"});
}

void MeminfoTextTest::parsesDetails()
{
    QFETCH(const QByteArray, text);
    QStringList lines;
    describe(QStringLiteral("t"), memoryDetailLabels(parseMeminfoDetails(view(text))), lines);
    QTEST(lines, "expected");
}

void MeminfoTextTest::parsesZram_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("bytes"); // -1 for none
    QTest::newRow("usual") << QByteArray("  4096000  1024 1024 0 1024 3 4 5 6\n")
                           << qint64{4096000};
    QTest::newRow("empty") << QByteArray() << qint64{-1};
    QTest::newRow("letters") << QByteArray("none\n") << qint64{-1};
    QTest::newRow("cut") << QByteArray("40960") << qint64{-1};
    QTest::newRow("huge") << QByteArray(5000, '9') << qint64{-1};
}

void MeminfoTextTest::parsesZram()
{
    QFETCH(const QByteArray, text);
    const std::optional<quint64> bytes = parseZramStat(view(text));
    QTEST(bytes ? static_cast<qint64>(*bytes) : qint64{-1}, "bytes");
}

QTEST_APPLESS_MAIN(MeminfoTextTest)
#include "tst_meminfotext.moc"
