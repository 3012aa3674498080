#include "system_monitor_lib/live/files/SysfsText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class SysfsTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integer_data();
    void integer();
    void celsius_data();
    void celsius();
    void word_data();
    void word();
    void uevent();
    void firstProcessor_data();
    void firstProcessor();
};

void SysfsTextTest::integer_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("good");
    QTest::addColumn<qint64>("number");

    QTest::newRow("number") << QByteArray("47000\n") << true << qint64{47000};
    QTest::newRow("no newline") << QByteArray("47000") << true << qint64{47000};
    QTest::newRow("negative") << QByteArray("-5500\n") << true << qint64{-5500};
    QTest::newRow("zero") << QByteArray("0\n") << true << qint64{0};
    QTest::newRow("blanks around") << QByteArray(" 12 \n") << true << qint64{12};
    QTest::newRow("empty") << QByteArray() << false << qint64{0};
    QTest::newRow("newline") << QByteArray("\n") << false << qint64{0};
    QTest::newRow("sign alone") << QByteArray("-\n") << false << qint64{0};
    QTest::newRow("two signs") << QByteArray("--1\n") << false << qint64{0};
    QTest::newRow("two numbers") << QByteArray("1 2\n") << false << qint64{0};
    QTest::newRow("blank after the sign") << QByteArray("- 1\n") << false << qint64{0};
    QTest::newRow("letters") << QByteArray("N/A\n") << false << qint64{0};
    QTest::newRow("fraction") << QByteArray("1.5\n") << false << qint64{0};
    QTest::newRow("zero byte") << QByteArray("12\0\n", 4) << false << qint64{0};
    QTest::newRow("too large") << QByteArray("18446744073709551615\n") << false << qint64{0};
}

void SysfsTextTest::integer()
{
    QFETCH(const QByteArray, text);
    QFETCH(const qint64, number);
    const std::optional<qint64> parsed = parseInteger(view(text));
    QTEST(parsed.has_value(), "good");
    QCOMPARE(parsed.value_or(0), number);
}

void SysfsTextTest::celsius_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("degrees");

    QTest::newRow("usual") << QByteArray("47125\n") << 47.125;
    QTest::newRow("lowest") << QByteArray("0\n") << 0.0;
    QTest::newRow("highest") << QByteArray("140000\n") << 140.0;
    QTest::newRow("below") << QByteArray("-1\n") << -1.0;
    QTest::newRow("above") << QByteArray("140001\n") << -1.0;
    QTest::newRow("limit that is not set") << QByteArray("65261850\n") << -1.0;
    QTest::newRow("nothing") << QByteArray() << -1.0;
}

void SysfsTextTest::celsius()
{
    QFETCH(const QByteArray, text);
    QTEST(parseCelsius(view(text)).value_or(-1), "degrees");
}

void SysfsTextTest::word_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("word");

    QTest::newRow("one") << QByteArray("coretemp\n") << QStringLiteral("coretemp");
    QTest::newRow("padded") << QByteArray("WDC  WD40   \n") << QStringLiteral("WDC WD40");
    QTest::newRow("first line") << QByteArray("a\nb\n") << QStringLiteral("a");
    QTest::newRow("none") << QByteArray("\n") << QString();
}

void SysfsTextTest::word()
{
    QFETCH(const QByteArray, text);
    QTEST(parseWord(view(text)), "word");
}

void SysfsTextTest::uevent()
{
    const std::string_view text = "DRIVER=amdgpu\nbroken\nPCI_ID=1002:73BF\nPCI_ID_2=x\n";
    QCOMPARE(parseUevent(text, "DRIVER"), QStringLiteral("amdgpu"));
    QCOMPARE(parseUevent(text, "PCI_ID"), QStringLiteral("1002:73BF"));
    QCOMPARE(parseUevent(text, "PCI"), QString());
    QCOMPARE(parseUevent({}, "DRIVER"), QString());
}

void SysfsTextTest::firstProcessor_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("range") << QByteArray("2-3") << 2;
    QTest::newRow("list") << QByteArray("12,28") << 12;
    QTest::newRow("one") << QByteArray("7\n") << 7;
    QTest::newRow("empty") << QByteArray() << -1;
    QTest::newRow("negative") << QByteArray("-3") << -1;
    QTest::newRow("letters") << QByteArray("all") << -1;
    QTest::newRow("too large") << QByteArray("99999999999") << -1;
}

void SysfsTextTest::firstProcessor()
{
    QFETCH(const QByteArray, text);
    QTEST(parseFirstProcessor(view(text)).value_or(-1), "number");
}

QTEST_APPLESS_MAIN(SysfsTextTest)
#include "tst_sysfstext.moc"
