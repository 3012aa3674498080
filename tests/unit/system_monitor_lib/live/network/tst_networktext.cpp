#include "system_monitor_lib/live/network/NetworkText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class NetworkTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesCounters_data();
    void parsesCounters();
    void refusesMalformedCounters_data();
    void refusesMalformedCounters();
    void parsesLinkSpeeds_data();
    void parsesLinkSpeeds();
};

void NetworkTextTest::parsesCounters_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint64>("counter");

    const QString adapter = QStringLiteral("sys/virtual-machine-virtio/class/net/eth0/statistics/");
    QTest::newRow("virtio, sent") << fixture(adapter + QStringLiteral("tx_bytes"))
                                  << quint64{85000};
    QTest::newRow("zero") << QByteArray("0\n") << quint64{0};
    QTest::newRow("beyond 32 bits") << QByteArray("4294967296\n") << quint64{4294967296};
}

void NetworkTextTest::parsesCounters()
{
    QFETCH(const QByteArray, text);
    const auto counter = parseCounter(view(text));
    QVERIFY(counter.has_value());
    QTEST(*counter, "counter");
}

void NetworkTextTest::refusesMalformedCounters_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("newline") << QByteArray("\n");
    QTest::newRow("cut") << QByteArray("12345");
    QTest::newRow("letters") << QByteArray("none\n");
    QTest::newRow("two numbers") << QByteArray("1 2\n");
    QTest::newRow("negative") << QByteArray("-1\n");
    QTest::newRow("beyond 64 bits") << QByteArray("18446744073709551616\n");
}

void NetworkTextTest::refusesMalformedCounters()
{
    QFETCH(const QByteArray, text);
    QVERIFY(!parseCounter(view(text)).has_value());
}

void NetworkTextTest::parsesLinkSpeeds_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("bytesPerSecond");

    QTest::newRow("gigabit") << QByteArray("1000\n") << 125'000'000.0;
    QTest::newRow("ten megabit") << QByteArray("10\n") << 1'250'000.0;
    QTest::newRow("virtio") << fixture(QStringLiteral(
                                   "sys/virtual-machine-virtio/class/net/eth0/speed"))
                            << 0.0;
    QTest::newRow("unsigned minus one") << QByteArray("4294967295\n") << 0.0;
    QTest::newRow("zero") << QByteArray("0\n") << 0.0;
    QTest::newRow("unreadable") << QByteArray() << 0.0;
    QTest::newRow("letters") << QByteArray("fast\n") << 0.0;
}

void NetworkTextTest::parsesLinkSpeeds()
{
    QFETCH(const QByteArray, text);
    QTEST(parseLinkSpeed(view(text)), "bytesPerSecond");
}

QTEST_APPLESS_MAIN(NetworkTextTest)
#include "tst_networktext.moc"
