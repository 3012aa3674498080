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
    void parsesDetails();
    void parsesCores_data();
    void parsesCores();
    void refusesMalformedDetails_data();
    void refusesMalformedDetails();
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

void ProcStatTextTest::parsesDetails()
{
    const CpuDetails details =
        parseProcStatDetails(view(fixture(QStringLiteral("proc/virtual-machine-epyc/stat"))));
    QVERIFY(details.modes);
    QCOMPARE(details.modes->user, quint64{87848});
    QCOMPARE(details.modes->system, quint64{17311});
    QCOMPARE(details.modes->waiting.value(), quint64{773});
    QCOMPARE(details.modes->total, quint64{87848 + 17204 + 107 + 206 + 890757 + 773});
    QCOMPARE(details.cores.size(), std::size_t{2});
}

void ProcStatTextTest::parsesCores_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("cores"); // number, busy and idle time

    QTest::newRow("two") << QByteArray("cpu0 1 2 3 4 5 6 7 8 9 9\ncpu1 1 1 1 1\nintr 5\n")
                         << QStringLiteral("0 27 9, 1 3 1");
    QTest::newRow("one is offline")
        << QByteArray("cpu0 1 1 1 1\ncpu7 1 1 1 2\n") << QStringLiteral("0 3 1, 7 3 2");
    QTest::newRow("none") << QByteArray("intr 5\n") << QString();
    QTest::newRow("malformed ones")
        << QByteArray("cpu 1 1 1 1\ncpux 1 1 1 1\ncpu2 1 1\ncpu3 1 1 1 -1\ncpu4 1 1 1 1\n")
        << QStringLiteral("4 3 1");
    QTest::newRow("a number without end")
        << QByteArray("cpu99999999999 1 1 1 1\ncpu4 1 1 1 1\n") << QStringLiteral("4 3 1");
    QTest::newRow("cut off") << QByteArray("cpu0 1 1 1 1\ncpu1 1 1 1 2") << QStringLiteral("0 3 1");
}

void ProcStatTextTest::parsesCores()
{
    QFETCH(const QByteArray, lines);
    const QByteArray text = "cpu  9 9 9 9\n" + lines;
    QStringList cores;
    for (const CoreTimes &core : parseProcStatDetails(view(text)).cores)
        cores +=
            QStringLiteral("%1 %2 %3").arg(core.number).arg(core.times.busy).arg(core.times.idle);
    QTEST(cores.join(QStringLiteral(", ")), "cores");
}

void ProcStatTextTest::refusesMalformedDetails_data()
{
    refusesMalformedText_data();
}

void ProcStatTextTest::refusesMalformedDetails()
{
    QFETCH(const QByteArray, text);
    const CpuDetails details = parseProcStatDetails(view(text));
    QVERIFY(!details.modes);
    QVERIFY(details.cores.empty());
}

QTEST_APPLESS_MAIN(ProcStatTextTest)
#include "tst_procstattext.moc"
