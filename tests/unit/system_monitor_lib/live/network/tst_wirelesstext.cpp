#include "system_monitor_lib/live/network/WirelessText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class WirelessTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesAdapters_data();
    void parsesAdapters();
};

void WirelessTextTest::parsesAdapters_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("adapters"); // name, percent, dBm

    QTest::newRow("one") << QByteArray(" wlan0: 0000   55.  -60.  -256   0   0   0  0  42   0\n")
                         << QStringLiteral("wlan0 80 -60");
    QTest::newRow("two, one without news")
        << QByteArray("wlp1s0: 0000   70.  -30.  -256   0\nwlp2s0: 0000   10  -85  -256   0\n")
        << QStringLiteral("wlp1s0 100 -30, wlp2s0 30 -85");
    QTest::newRow("not in dBm") << QByteArray("ra0: 0000   55.  40.  0  0\n") << QString();
    QTest::newRow("unknown") << QByteArray("wlan0: 0000   0  -256  -256   0\n") << QString();
    QTest::newRow("without values") << QByteArray("wlan0:\nwlan1: 0000 5\n") << QString();
    QTest::newRow("without a name") << QByteArray(": 0000   55.  -60.  -256\n") << QString();
    QTest::newRow("letters") << QByteArray("wlan0: 0000   a  b  c\n") << QString();
    QTest::newRow("cut") << QByteArray("wlan0: 0000   55.  -60") << QString();
    QTest::newRow("zero bytes") << QByteArray(3000, '\0') << QString();
    QTest::newRow("huge") << QByteArray("wlan0: ") + QByteArray(100'000, '-') + '\n' << QString();
}

void WirelessTextTest::parsesAdapters()
{
    QFETCH(const QByteArray, lines);
    const QByteArray titles(
        "Inter-| sta-|   Quality        |   Discarded packets               | Missed | WE\n"
        " face | tus | link level noise |  nwid  crypt   frag  retry   misc | beacon | 22\n");
    const QByteArray text = titles + lines;
    QStringList adapters;
    for (const auto &[name, state] : parseWireless(view(text)))
        adapters += QStringLiteral("%1 %2 %3")
                        .arg(name)
                        .arg(state.percent.value_or(-1))
                        .arg(state.dbm.value_or(1));
    QTEST(adapters.join(QStringLiteral(", ")), "adapters");
}

QTEST_APPLESS_MAIN(WirelessTextTest)
#include "tst_wirelesstext.moc"
