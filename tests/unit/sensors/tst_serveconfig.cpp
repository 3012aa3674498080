#include "sensors/services/ServeConfig.h"

#include <QtTest>

/// The port in the configuration file of the hardware-information service.
class tst_ServeConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsThePort_data();
    void readsThePort();
    void valuesAreTexts_data();
    void valuesAreTexts();
    void readsLongFiles();
};

void tst_ServeConfig::readsThePort_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<int>("port");
    const auto row = [](const char *name, const char *ini, int port) {
        QTest::newRow(name) << QByteArray(ini) << port;
    };
    row("port", "[HWInfoServe]\nport=16000\n", 16000);
    row("carriage returns", "[HWInfoServe]\r\nport=16000\r\n", 16000);
    row("no line end", "[HWInfoServe]\nport=16000", 16000);
    row("blanks", "\n [ HWInfoServe ] \n\n\t port = 16000 \n", 16000);
    row("marks", "[HWInfoServe]\nport=\"16000\"\n", 16000);
    row("byte order mark", "\xef\xbb\xbf[HWInfoServe]\nport=16000\n", 16000);
    row("other keys", "[HWInfoServe]\npath=C:\\x86\\1\nreport=1\nport=16000\nports=2\n", 16000);
    row("other groups", "[General]\nport=1\n[HWInfoServe]\nport=16000\n[Other]\nport=2\n", 16000);
    row("comments", "; port=1\n[HWInfoServe]\n;port=2\n#port=3\nport=16000\n", 16000);
    row("several", "[HWInfoServe]\nport=1\nport=2\n[x]\n[HWInfoServe]\nport=16000\n", 16000);
    row("comment behind it", "[HWInfoServe]\nport=16000 ; the usual\n", 16000);
    row("comment behind marks", "[HWInfoServe]\nport=\"16000\" ; the usual\n", 16000);
    row("other letter case", "[hwinfoserve]\nPort=16000\n", 16000);
    row("negative", "[HWInfoServe]\nport=-2\n", -2);
    row("nothing", "", -1);
    row("no group", "port=16000\n", -1);
    row("part of the group", "[HWInfoServe/x]\nport=16000\n", -1);
    row("no key", "[HWInfoServe]\nname=x\n", -1);
    row("no sign of equality", "[HWInfoServe]\nport\n", -1);
    row("no name", "[HWInfoServe]\n=16000\n", -1);
    row("no end of the group", "[HWInfoServe\nport=16000\n", 16000);
    row("no number", "[HWInfoServe]\nport=abc\n", 0);
    row("no value", "[HWInfoServe]\nport=\n", 0);
    row("list", "[HWInfoServe]\nport=1, 2\n", 0);
    row("one mark", "[HWInfoServe]\nport=\"\n", 0);
}

void tst_ServeConfig::readsThePort()
{
    QFETCH(QByteArray, ini);
    QTEST(configuredPort(ini), "port");
}

void tst_ServeConfig::valuesAreTexts_data()
{
    QTest::addColumn<QByteArray>("value");
    // Of these, each ends a process that takes them for what they say they are.
    QTest::newRow("list of many") << QByteArray(R"(@Variant(\0\0\0\t\x7f\xff\xff\xf0))");
    QTest::newRow("texts, many") << QByteArray(R"(@Variant(\0\0\0\xb\x7f\xff\xff\xf0))");
    QTest::newRow("polygon") << QByteArray(R"(@Variant(\0\0\0\x47\x7f\xff\xff\xf0))");
    QTest::newRow("picture") << QByteArray(R"(@Variant(\0\0\0\x41\0\0\0\x1\x89PNG))");
    QTest::newRow("list of lists")
        << "@Variant(" + QByteArray(R"(\0\0\0\t\0\0\0\x1)").repeated(50000) + ')';
}

void tst_ServeConfig::valuesAreTexts()
{
    QFETCH(QByteArray, value);
    QCOMPARE(configuredPort("[HWInfoServe]\nport=" + value + '\n'), 0);
    QCOMPARE(configuredPort("[HWInfoServe]\nname=" + value + "\nport=16000\n"), 16000);
}

void tst_ServeConfig::readsLongFiles()
{
    const QByteArray lines = QByteArray("port=1\n[x]\n[HWInfoServe]\n").repeated(50000);
    QCOMPARE(configuredPort(lines + "port=16000"), 16000);
}

QTEST_APPLESS_MAIN(tst_ServeConfig)
#include "tst_serveconfig.moc"
