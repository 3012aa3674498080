#include "system_monitor_lib/live/processor/ProcStatText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class ProcStatTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesCounters_data();
    void parsesCounters();
    void refusesMalformedText_data();
    void refusesMalformedText();
};

void ProcStatTextTest::parsesCounters_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint64>("busy");
    QTest::addColumn<quint64>("idle");

    QTest::newRow("virtual machine, ten fields")
        << fixture(QStringLiteral("proc/virtual-machine-epyc/stat"))
        << quint64{87848 + 17204 + 107 + 206} << quint64{890757 + 773};
    QTest::newRow("2.6.32, nine fields")
        << fixture(QStringLiteral("proc/linux-2.6.32-server/stat"))
        << quint64{3357 + 4313 + 10 + 205} << quint64{1362393 + 120};
    QTest::newRow("four fields") << QByteArray("cpu 1 2 3 4\n") << quint64{6} << quint64{4};
    QTest::newRow("guests are users already")
        << QByteArray("cpu  100 0 0 50 0 0 0 0 90 10\n") << quint64{100} << quint64{50};
    QTest::newRow("blank at the end") << QByteArray("cpu  1 2 3 4 \n") << quint64{6} << quint64{4};
    QTest::newRow("largest numbers")
        << QByteArray("cpu 1152921504606846976 1152921504606846976 1152921504606846976 "
                      "1152921504606846976 1152921504606846976 1152921504606846976 "
                      "1152921504606846976 1152921504606846976\n")
        << 6 * (quint64{1} << 60U) << 2 * (quint64{1} << 60U);
}

void ProcStatTextTest::parsesCounters()
{
    QFETCH(const QByteArray, text);
    const auto times = parseProcStat(view(text));
    QVERIFY(times.has_value());
    QTEST(times->busy, "busy");
    QTEST(times->idle, "idle");
}

void ProcStatTextTest::refusesMalformedText_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("newline") << QByteArray("\n");
    QTest::newRow("cut in a number") << QByteArray("cpu  64579 0 12459 5832");
    QTest::newRow("no fields") << QByteArray("cpu \n");
    QTest::newRow("three fields") << QByteArray("cpu  1 2 3\n");
    QTest::newRow("letters") << QByteArray("cpu  1 2 many 4\n");
    QTest::newRow("letters after digits") << QByteArray("cpu  1 2 3x 4\n");
    QTest::newRow("letters in a late field") << QByteArray("cpu  1 2 3 4 5 6 7 eight\n");
    QTest::newRow("negative") << QByteArray("cpu  1 2 -3 4\n");
    QTest::newRow("beyond plausible") << QByteArray("cpu  1152921504606846977 2 3 4\n");
    QTest::newRow("beyond 64 bits") << QByteArray("cpu  1 2 3 99999999999999999999999\n");
    QTest::newRow("another line first") << QByteArray("cpu0 1 2 3 4\ncpu  1 2 3 4\n");
    QTest::newRow("zero bytes") << QByteArray("cpu \0 1 2 3 4\n", 14);
}

void ProcStatTextTest::refusesMalformedText()
{
    QFETCH(const QByteArray, text);
    QVERIFY(!parseProcStat(view(text)).has_value());
}

QTEST_APPLESS_MAIN(ProcStatTextTest)
#include "tst_procstattext.moc"
