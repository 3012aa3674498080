#include "deck_simulator/script/Script.h"

#include <QtTest>

using namespace deck;

class tst_Script : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryStep();
    void readsDisplays();
    void readsWhatAPictureIsLike();
    void ordersByTime();
    void passesOverRemarks();
    void readsDials();
    void refusesFaults_data();
    void refusesFaults();
    void namesEveryFaultyLine();
    void refusesNothing();
};

using Kind = ScriptStep::Kind;

void tst_Script::readsEveryStep()
{
    const ParsedScript script = parseScript(R"(
{"at": 0.5, "do": "put", "key": [3, 1], "action": "an.action", "set": {"text": "x"}}
{"do": "settings", "key": [3, 1], "set": {"fontSize": 40}}
{"do": "press", "key": [3, 1]}
{"do": "move", "key": [3, 1], "to": [0, 0]}
{"do": "rotate", "key": {"dial": 2}, "ticks": -3, "pressed": true}
{"do": "send", "message": {"event": "systemDidWakeUp"}}
{"do": "expect", "key": [0, 0], "title": "^x: \\d+%$", "within": 2.5}
{"do": "expect", "key": [0, 0]}
{"do": "snapshot", "file": "deck.png"}
{"do": "remove", "key": [0, 0]}
{"do": "servicePort"}
{"at": 9, "do": "hostDies"}
)");
    QCOMPARE(script.error, QString());
    const QVector<Kind> kinds{Kind::Put,      Kind::Settings, Kind::Press,       Kind::Move,
                              Kind::Rotate,   Kind::Send,     Kind::Expect,      Kind::Expect,
                              Kind::Snapshot, Kind::Remove,   Kind::ServicePort, Kind::HostDies};
    QCOMPARE(script.steps.size(), kinds.size());
    for (int index = 0; index < kinds.size(); ++index) {
        QCOMPARE(int(script.steps.at(index).kind), int(kinds.at(index)));
        QCOMPARE(script.steps.at(index).line, index + 2);
        QCOMPARE(qint64(script.steps.at(index).at.count()), qint64(index == 11 ? 9000 : 500));
    }
    QVERIFY(script.steps.at(0).place == (DeckPlace{3, 1}));
    QCOMPARE(script.steps.at(0).action, QStringLiteral("an.action"));
    QCOMPARE(script.steps.at(0).object.value(QLatin1String("text")).toString(),
             QStringLiteral("x"));
    QVERIFY(script.steps.at(3).to == (DeckPlace{0, 0}));
    QCOMPARE(script.steps.at(4).ticks, -3);
    QVERIFY(script.steps.at(4).pressed);
    QVERIFY(script.steps.at(6).title->match(QStringLiteral("x: 37%")).hasMatch());
    QCOMPARE(qint64(script.steps.at(6).within.count()), qint64(2500));
    QVERIFY(!script.steps.at(7).title);
    QCOMPARE(script.steps.at(8).file, QStringLiteral("deck.png"));
}

void tst_Script::readsDisplays()
{
    const ParsedScript script = parseScript(R"(
{"do": "put", "key": [0, 0], "action": "a", "display": {"style": "ring"}}
{"do": "settings", "key": [0, 0], "display": "broken"}
{"do": "settings", "key": [0, 0], "display": null, "set": {"text": "x"}}
{"do": "settings", "key": [0, 0], "set": {"text": "y"}}
)");
    QCOMPARE(script.error, QString());
    QCOMPARE(script.steps.at(0).display.toObject().value(QLatin1String("style")).toString(),
             QStringLiteral("ring"));
    QCOMPARE(script.steps.at(1).display, QJsonValue(QStringLiteral("broken")));
    QVERIFY(script.steps.at(1).object.isEmpty());
    QVERIFY(script.steps.at(2).display.isNull());
    QCOMPARE(script.steps.at(2).object.size(), 1);
    QVERIFY(script.steps.at(3).display.isUndefined());
}

void tst_Script::readsWhatAPictureIsLike()
{
    const ParsedScript script = parseScript(R"(
{"do": "expect", "key": [0, 0], "color": "#ff7043", "size": [288, 144]}
{"do": "expect", "key": [0, 0]}
{"do": "machine", "file": "hot.json"}
{"do": "press", "key": [0, 0], "hold": 1.25}
{"do": "press", "key": [0, 0]}
)");
    QCOMPARE(script.error, QString());
    QCOMPARE(script.steps.at(0).color, QColor(0xff, 0x70, 0x43));
    QCOMPARE(script.steps.at(0).pictureSize, QSize(288, 144));
    QVERIFY(!script.steps.at(1).color.isValid());
    QVERIFY(script.steps.at(1).pictureSize.isEmpty());
    QCOMPARE(int(script.steps.at(2).kind), int(Kind::Machine));
    QCOMPARE(script.steps.at(2).file, QStringLiteral("hot.json"));
    QCOMPARE(qint64(script.steps.at(3).hold.count()), qint64(1250));
    QCOMPARE(qint64(script.steps.at(4).hold.count()), qint64(0));
}

void tst_Script::ordersByTime()
{
    const ParsedScript script = parseScript("{\"at\": 2, \"do\": \"servicePort\"}\n"
                                            "{\"at\": 1, \"do\": \"hostDies\"}\n"
                                            "{\"at\": 2, \"do\": \"snapshot\", \"file\": \"f\"}");
    QCOMPARE(script.steps.size(), 3);
    QCOMPARE(int(script.steps.at(0).kind), int(Kind::HostDies));
    QCOMPARE(int(script.steps.at(1).kind), int(Kind::ServicePort));
    QCOMPARE(int(script.steps.at(2).kind), int(Kind::Snapshot));
}

void tst_Script::passesOverRemarks()
{
    const ParsedScript script = parseScript("# what it is for\r\n\r\n  {\"do\": \"hostDies\"}\r\n");
    QCOMPARE(script.error, QString());
    QCOMPARE(script.steps.size(), 1);
    QCOMPARE(script.steps.at(0).line, 3);
}

void tst_Script::readsDials()
{
    const ParsedScript script = parseScript("{\"do\": \"press\", \"key\": {\"dial\": 1}}");
    QVERIFY(script.steps.at(0).place == (DeckPlace{1, 0, true}));
}

void tst_Script::refusesFaults_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *name, const char *line, const char *complaint) {
        QTest::newRow(name) << QByteArray(line) << QString::fromLatin1(complaint);
    };
    row("no JSON", "press the key", "line 1");
    row("an array", "[]", "no JSON object");
    row("nothing to do", "{\"at\": 1}", "\"do\"");
    row("unknown", "{\"do\": \"dance\"}", "\"dance\"");
    row("without a key", "{\"do\": \"press\"}", "\"key\"");
    row("half a key", "{\"do\": \"press\", \"key\": [1]}", "\"key\"");
    row("negative key", "{\"do\": \"press\", \"key\": [-1, 0]}", "\"key\"");
    row("a key's name", "{\"do\": \"press\", \"key\": \"cpu\"}", "\"key\"");
    row("without an action", "{\"do\": \"put\", \"key\": [0, 0]}", "\"action\"");
    row("settings of another type", "{\"do\": \"settings\", \"key\": [0, 0], \"set\": 3}",
        "\"set\"");
    row("without a goal", "{\"do\": \"move\", \"key\": [0, 0]}", "\"to\"");
    row("half a tick", "{\"do\": \"rotate\", \"key\": {\"dial\": 0}, \"ticks\": 0.5}", "\"ticks\"");
    row("without ticks", "{\"do\": \"rotate\", \"key\": {\"dial\": 0}}", "\"ticks\"");
    row("no pattern", "{\"do\": \"expect\", \"key\": [0, 0], \"title\": \"(\"}",
        "regular expression");
    row("settings without any", "{\"do\": \"settings\", \"key\": [0, 0]}", "\"set\"");
    row("no colour", "{\"do\": \"expect\", \"key\": [0, 0], \"color\": \"reddish\"}", "\"color\"");
    row("half a size", "{\"do\": \"expect\", \"key\": [0, 0], \"size\": [144]}", "\"size\"");
    row("no size", "{\"do\": \"expect\", \"key\": [0, 0], \"size\": [0, 144]}", "\"size\"");
    row("held for no time", "{\"do\": \"press\", \"key\": [0, 0], \"hold\": \"1\"}", "\"hold\"");
    row("a machine without a file", "{\"do\": \"machine\"}", "\"file\"");
    row("without a message", "{\"do\": \"send\"}", "\"message\"");
    row("without a file", "{\"do\": \"snapshot\"}", "\"file\"");
    row("early", "{\"at\": -1, \"do\": \"hostDies\"}", "\"at\"");
    row("late", "{\"at\": 1e9, \"do\": \"hostDies\"}", "\"at\"");
    row("a time's text", "{\"at\": \"1\", \"do\": \"hostDies\"}", "\"at\"");
    row("no patience", "{\"do\": \"expect\", \"key\": [0, 0], \"within\": null}", "\"within\"");
}

void tst_Script::refusesFaults()
{
    QFETCH(const QByteArray, line);
    QFETCH(const QString, complaint);
    const ParsedScript script = parseScript(line);
    QVERIFY(script.steps.isEmpty());
    QVERIFY2(script.error.contains(complaint), qPrintable(script.error));
}

void tst_Script::namesEveryFaultyLine()
{
    const ParsedScript script = parseScript("x\n{\"do\": \"hostDies\"}\n[]\n");
    QVERIFY(script.error.contains(QLatin1String("line 1")));
    QVERIFY(script.error.contains(QLatin1String("line 3")));
    QVERIFY(parseScript(QByteArray("x\n").repeated(1000)).error.size() < 2000);
}

void tst_Script::refusesNothing()
{
    QVERIFY(!parseScript({}).error.isEmpty());
    QVERIFY(!parseScript("# only a remark\n").error.isEmpty());
}

QTEST_GUILESS_MAIN(tst_Script)
#include "tst_Script.moc"
