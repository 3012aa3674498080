#include "system_monitor_lib/live/drives/BlockStatText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class BlockStatTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesCounters_data();
    void parsesCounters();
    void refusesMalformedText_data();
    void refusesMalformedText();
};

void BlockStatTextTest::parsesCounters_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("before Linux 4.18")
        << QByteArray("  310 40 2048 100 901 611 4096 1200 3 420 1300\n");
    QTest::newRow("with discards and flushes")
        << QByteArray("310 40 2048 100 901 611 4096 1200 3 420 1300 7 7 7 7 7 7\n");
}

void BlockStatTextTest::parsesCounters()
{
    constexpr quint64 millisecond = 1'000'000;
    QFETCH(const QByteArray, text);
    const auto counters = parseBlockStat(view(text));
    QVERIFY(counters);
    QCOMPARE(counters->readBytes, quint64{2048 * 512});
    QCOMPARE(counters->writtenBytes, quint64{4096 * 512});
    QCOMPARE(counters->requests, quint64{310 + 901});
    QCOMPARE(counters->readNs, 100 * millisecond);
    QCOMPARE(counters->writeNs, 1200 * millisecond);
    QCOMPARE(counters->busyNs, 420 * millisecond);
    QCOMPARE(counters->timesWrapAtNs, (quint64{1} << 32U) * millisecond);
}

void BlockStatTextTest::refusesMalformedText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("newline") << QByteArray("\n");
    QTest::newRow("cut") << QByteArray("1 2 3 4 5 6 7 8 9 10 11");
    QTest::newRow("nine numbers") << QByteArray("1 2 3 4 5 6 7 8 9\n");
    QTest::newRow("letters") << QByteArray("1 2 3 4 5 six 7 8 9 10 11\n");
    QTest::newRow("letters after the last digits") << QByteArray("1 2 3 4 5 6 7 8 9 10x 11\n");
    QTest::newRow("negative") << QByteArray("1 2 3 4 5 6 7 8 9 -10 11\n");
    QTest::newRow("a product that would overflow")
        << QByteArray("1 2 3 4 5 6 7 8 9 8796093022209 11\n");
    QTest::newRow("beyond 64 bits") << QByteArray("1 2 99999999999999999999 4 5 6 7 8 9 10 11\n");
    QTest::newRow("zero bytes") << QByteArray(400, '\0');
    QTest::newRow("huge") << QByteArray(1024 * 1024, '9');
}

void BlockStatTextTest::refusesMalformedText()
{
    QFETCH(const QByteArray, text);
    QVERIFY(!parseBlockStat(view(text)));
}

QTEST_APPLESS_MAIN(BlockStatTextTest)
#include "tst_blockstattext.moc"
