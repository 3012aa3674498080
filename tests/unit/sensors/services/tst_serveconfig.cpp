#include "sensors/services/ServeConfig.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// The port that Qt's INI reader, which has no limits, returns.
int portBySettings(const QByteArray &ini)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("ServeConfig.ini")));
    if (!file.open(QIODevice::WriteOnly) || file.write(ini) != ini.size())
        qFatal("No configuration file");
    file.close();
    return QSettings(file.fileName(), QSettings::IniFormat)
        .value(QStringLiteral("HWInfoServe/port"), -1)
        .toInt();
}

} // namespace

/// The port in the configuration file of the hardware-information service.
class tst_ServeConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsThePort_data();
    void readsThePort();
    void takesAnyLetterCase();
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
    row("a mark left open", "[HWInfoServe]\nport=\"16000", 16000);
    row("a mark left open, a line behind it", "[HWInfoServe]\nport=\"16000\nx=1\n", 0);
    row("a group in marks left open", "[HWInfoServe]\nx=\"\n[Other]\n\"\nport=16000\n", 16000);
    row("marks inside", "[HWInfoServe]\nport=16\"00\"0\n", 16000);
    row("comma in marks", "[HWInfoServe]\nport=\"1,\"\n", 0);
    row("hexadecimal escapes", "[HWInfoServe]\nport=\\x31\\x36\n", 16);
    row("octal escapes", "[HWInfoServe]\nport=\\61\\66\n", 16);
    row("escapes of too many digits", "[HWInfoServe]\nport=\\x4130000000031\n", 1);
    row("escaped blanks", "[HWInfoServe]\nport=\\n16000\\t\n", 16000);
    row("an escaped mark", "[HWInfoServe]\nport=1\\\"6\n", 0);
    row("an escape that is none", "[HWInfoServe]\nport=1\\q6\n", 16);
    row("an escape without digits", "[HWInfoServe]\nport=1\\x\n", 1);
    row("a line that goes on", "[HWInfoServe]\nport=16\\\n000\n", 16000);
    row("a line that goes on, carriage returns", "[HWInfoServe]\r\nport=16\\\r\n000\r\n", 16000);
    row("an end of an escape missing", "[HWInfoServe]\nport=16000\\", 16000);
    row("a text by name", "[HWInfoServe]\nport=@String(16000)\n", 16000);
    row("bytes by name", "[HWInfoServe]\nport=@ByteArray(16000)\n", 16000);
    row("a text by name, no end", "[HWInfoServe]\nport=@String(16000\n", 0);
    row("escaped names", "[HWInfo%53erve]\np%6Fr%U0074=16000\n", 16000);
    row("escaped names, no digits", "[HWInfoServe]\np%6=1\np%=2\np%U006=3\n", -1);
    row("one mark", "[HWInfoServe]\nport=\"\n", 0);
}

void tst_ServeConfig::readsThePort()
{
    QFETCH(QByteArray, ini);
    QTEST(configuredPort(ini), "port");
    QTEST(portBySettings(ini), "port");
}

void tst_ServeConfig::takesAnyLetterCase()
{
    QCOMPARE(configuredPort("[hwinfoserve]\nPort=16000\n"), 16000);
}

void tst_ServeConfig::valuesAreTexts_data()
{
    QTest::addColumn<QByteArray>("value");
    // Each of these would crash a reader that trusts it.
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
