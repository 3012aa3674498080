#include "SDK/HostMessages.h"

#include <QJsonDocument>
#include <QtTest>

/// The texts of messages, compared with those of Qt's own JSON.
class tst_HostMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesWhatJsonDoes_data();
    void writesWhatJsonDoes();
    void prefixesImages_data();
    void prefixesImages();
    void writesLargeImages();
    void registers();
    void sendsSettings();
};

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString keyMessage(const char *event, const QString &context, QJsonObject payload, int target,
                   int state)
{
    payload.insert(QStringLiteral("target"), target);
    if (state >= 0)
        payload.insert(QStringLiteral("state"), state);
    return compact({{QStringLiteral("event"), QString::fromLatin1(event)},
                    {QStringLiteral("context"), context},
                    {QStringLiteral("payload"), payload}});
}

const QString prefix = QStringLiteral("data:image/png;base64,");

} // namespace

void tst_HostMessages::writesWhatJsonDoes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("target");
    QTest::addColumn<int>("state");
    QTest::newRow("plain") << QStringLiteral("CPU: 45%") << 0 << -1;
    QTest::newRow("empty") << QString() << 0 << -1;
    QTest::newRow("state 0") << QStringLiteral("text") << 0 << 0;
    QTest::newRow("state 1, target 2") << QStringLiteral("text") << 2 << 1;
    QTest::newRow("negative target") << QStringLiteral("text") << -3 << -7;
    QTest::newRow("quotation marks") << QStringLiteral("a\"b\\c\"") << 0 << -1;
    QTest::newRow("slash") << QStringLiteral("Up/Down") << 0 << -1;
    QTest::newRow("two lines") << QStringLiteral("Up: 1\nDown: 2") << 0 << -1;
    QTest::newRow("percent signs") << QStringLiteral("%1 %2 %%") << 0 << -1;
    QTest::newRow("Chinese") << QStringLiteral("上传/下载: 45°") << 0 << -1;
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("a\U0001F98Ab") << 0 << -1;
    QTest::newRow("half a character") << QString(QChar(0xd83e)) + QLatin1Char('x') << 0 << -1;
    QTest::newRow("other half") << QString(QChar(0xdd8a)) << 0 << -1;
    QTest::newRow("last of the basic plane") << QString(QChar(0xffff)) + QChar(0xe000) << 0 << -1;
    QString all;
    for (ushort character = 0; character < 0x180; ++character)
        all += QChar(character);
    QTest::newRow("first characters") << all << 0 << 5;
    for (ushort character = 0; character < 0x30; ++character)
        QTest::addRow("U+%04x", character) << QString(QChar(character)) << 0 << -1;
}

void tst_HostMessages::writesWhatJsonDoes()
{
    QFETCH(QString, text);
    QFETCH(int, target);
    QFETCH(int, state);
    QCOMPARE(hostmessages::setTitle(text, QStringLiteral("ctx"), target, state),
             keyMessage("setTitle", QStringLiteral("ctx"), {{QStringLiteral("title"), text}},
                        target, state));
    QCOMPARE(hostmessages::setTitle(QStringLiteral("title"), text, target, state),
             keyMessage("setTitle", text, {{QStringLiteral("title"), QStringLiteral("title")}},
                        target, state));
    QCOMPARE(
        hostmessages::setImage(prefix + text, text, target, state),
        keyMessage("setImage", text, {{QStringLiteral("image"), prefix + text}}, target, state));
}

void tst_HostMessages::prefixesImages_data()
{
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("sent");
    QTest::newRow("bare") << QStringLiteral("AAAA") << prefix + QStringLiteral("AAAA");
    QTest::newRow("prefixed") << prefix + QStringLiteral("AAAA") << prefix + QStringLiteral("AAAA");
    QTest::newRow("prefix alone") << prefix << prefix;
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("upper case") << prefix.toUpper() << prefix + prefix.toUpper();
}

void tst_HostMessages::prefixesImages()
{
    QFETCH(QString, image);
    QFETCH(QString, sent);
    QCOMPARE(
        hostmessages::setImage(image, QStringLiteral("ctx"), 0, -1),
        keyMessage("setImage", QStringLiteral("ctx"), {{QStringLiteral("image"), sent}}, 0, -1));
}

void tst_HostMessages::writesLargeImages()
{
    const QString image = prefix + QString(1000000, QLatin1Char('+')) + QStringLiteral("==");
    QCOMPARE(
        hostmessages::setImage(image, QStringLiteral("ctx"), 0, -1),
        keyMessage("setImage", QStringLiteral("ctx"), {{QStringLiteral("image"), image}}, 0, -1));
}

void tst_HostMessages::registers()
{
    QCOMPARE(hostmessages::registration(QStringLiteral("registerPlugin"), QStringLiteral("A\"1")),
             QStringLiteral("{\"event\":\"registerPlugin\",\"uuid\":\"A\\\"1\"}"));
}

void tst_HostMessages::sendsSettings()
{
    const QJsonObject payload{{QStringLiteral("b"), 1},
                              {QStringLiteral("a"), QStringLiteral("温度")}};
    QCOMPARE(hostmessages::setSettings(payload, QStringLiteral("ctx")),
             QStringLiteral("{\"context\":\"ctx\",\"event\":\"setSettings\","
                            "\"payload\":{\"a\":\"温度\",\"b\":1}}"));
}

QTEST_APPLESS_MAIN(tst_HostMessages)
#include "tst_hostmessages.moc"
