#include "deck_simulator/deck/ContactSheet.h"
#include "tests/support/Interrupt.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

// The built program with a scripted plugin, as a user runs it: no display, output to a file.
class tst_DeckSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesASnapshot();
    void failsWhenAKeyStaysEmpty();
    void failsWhenTheSnapshotCannotBeWritten();
    void failsWithoutAScreenshot();
    void refusesAKeyThatTheDeckLacks();
    void opensADeckByItsName();
    void refusesToPlayABrokenProfile();
    void warnsOfABrokenRecording();
    void takesEmptyPicturesForEmptyReadings();
    void endsByItself();
    void endsOnTermination();
    void staysQuiet();
    void reportsAPluginThatEndsAtOnce();
    void refusesWrongUsage();
    void playsAScript();
    void holdsKeysInAScript();
    void changesDisplaysInAScript();
    void changesTheMachineInAScript();
    void movesAKeyOntoAnother();
    void failsWhenAnExpectationFails();
    void failsWhenAStepCannotBePlayed();
    void failsWhenThePluginEndsBeforeTheScript();
    void letsTheHostDieInAScript();
    void refusesABrokenScript();

private:
    void writeScript(const QByteArray &lines);
    [[nodiscard]] QByteArray received() const;
    void start(const char *script, const QStringList &arguments);
    void run(const char *script, const QStringList &arguments);
    [[nodiscard]] QString output() { return QString::fromUtf8(m_process.readAllStandardOutput()); }
    [[nodiscard]] QString errors()
    {
        return QString::fromLocal8Bit(m_process.readAllStandardError());
    }
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder->filePath(QString::fromLatin1(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcess m_process;
};

void tst_DeckSimulator::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_DeckSimulator::start(const char *script, const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("SCRIPT"), QString::fromLatin1(script));
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    m_process.setProcessEnvironment(environment);
    m_process.start(QStringLiteral(DECK_SIMULATOR),
                    QStringList{QStringLiteral("--plugin"), QStringLiteral(SCRIPTED_PLUGIN),
                                QStringLiteral("--work-dir"), path("work")} +
                        arguments);
    QVERIFY(m_process.waitForStarted());
}

void tst_DeckSimulator::run(const char *script, const QStringList &arguments)
{
    start(script, arguments);
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
}

void tst_DeckSimulator::writesASnapshot()
{
    run("draw",
        {QStringLiteral("--snapshot"), path("deck.png"), QStringLiteral("--after"),
         QStringLiteral("0.5"), QStringLiteral("--columns=4"), QStringLiteral("--key-size=96")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    const ContactSheetStyle style{4, 96};
    const QImage sheet(path("deck.png"));
    QCOMPARE(sheet.size(), sheetSize(14, style));
    for (int index = 0; index < 14; ++index)
        QCOMPARE(sheet.pixel(sheetKeyRect(index, style).center()), qRgb(255, 0, 0));
    // Gauges are as large as their keys, texts are not.
    const auto edge = [&](int index) {
        const QRect key = sheetKeyRect(index, style);
        return sheet.pixel(key.center().x(), key.top() + 2);
    };
    QCOMPARE(edge(0), qRgb(255, 0, 0));
    QVERIFY(edge(13) != qRgb(255, 0, 0));

    const QString table = output();
    QVERIFY2(table.contains(QLatin1String("CPU usage")), qPrintable(table));
    QVERIFY(table.contains(QLatin1String("60x20")));
    QVERIFY(!table.contains(QChar(0x1b)));
}

void tst_DeckSimulator::failsWhenAKeyStaysEmpty()
{
    run("half", {QStringLiteral("--snapshot"), path("deck.png"), QStringLiteral("--after=0.5")});
    QCOMPARE(m_process.exitCode(), 1);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("drawn nothing on: CPU usage, history;")),
             qPrintable(text));
    QVERIFY(!QImage(path("deck.png")).isNull());
}

void tst_DeckSimulator::failsWhenTheSnapshotCannotBeWritten()
{
    run("draw",
        {QStringLiteral("--snapshot"), path("missing/deck.png"), QStringLiteral("--after=0.5")});
    QCOMPARE(m_process.exitCode(), 1);
    QVERIFY(errors().contains(QLatin1String("cannot be written")));
}

void tst_DeckSimulator::failsWithoutAScreenshot()
{
    const QStringList profile{QStringLiteral("--profile"), path("deck.json")};
    run("refuse", profile + QStringList{QStringLiteral("--screenshot"), path("window.png")});
    QCOMPARE(m_process.exitCode(), 1);
    QString text = errors();
    QVERIFY2(text.contains(QLatin1String("deck_simulator: The plugin ended with exit status 3")),
             qPrintable(text));
    QVERIFY(!QFile::exists(path("window.png")));
    QVERIFY(!QFile::exists(path("deck.json")));

    run("draw", profile + QStringList{QStringLiteral("--screenshot"), path("missing/window.png"),
                                      QStringLiteral("--after=0.1")});
    QCOMPARE(m_process.exitCode(), 1);
    text = errors();
    QVERIFY2(text.contains(QLatin1String("cannot be written")), qPrintable(text));
}

void tst_DeckSimulator::refusesAKeyThatTheDeckLacks()
{
    const QStringList screenshot{QStringLiteral("--profile"), path("deck.json"),
                                 QStringLiteral("--screenshot"), path("window.png"),
                                 QStringLiteral("--after=0.5")};
    for (const QString &key : {QStringLiteral("99,99"), QStringLiteral("8,0")}) {
        run("draw", screenshot + QStringList{QStringLiteral("--select"), key});
        QCOMPARE(m_process.exitCode(), 2);
        const QString text = errors();
        QVERIFY2(text.contains(QLatin1String("8 columns and 4 rows")), qPrintable(text));
        QVERIFY(!QFile::exists(path("window.png")));
    }
    run("draw", screenshot + QStringList{QStringLiteral("--select=7,3")});
    const QString noise = errors();
    QVERIFY2(m_process.exitCode() == 0, qPrintable(noise));
    QVERIFY(!QFile::exists(path("deck.json"))); // the screenshot keeps nothing
    QVERIFY2(!noise.contains(QLatin1String("Negative sizes")) &&
                 !noise.contains(QLatin1String("propagateSizeHints")) &&
                 !noise.contains(QLatin1String("libpng")),
             qPrintable(noise));
}

void tst_DeckSimulator::refusesToPlayABrokenProfile()
{
    const QStringList arguments{QStringLiteral("--headless"), QStringLiteral("--profile"),
                                path("deck.json")};
    run("draw", arguments);
    QCOMPARE(m_process.exitCode(), 2);
    QString text = errors();
    QVERIFY2(text.contains(QLatin1String("deck_simulator: There is no profile ")),
             qPrintable(text));

    QFile file(path("deck.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{");
    file.close();
    run("draw", arguments);
    QCOMPARE(m_process.exitCode(), 2);
    text = errors();
    QVERIFY2(text.contains(QLatin1String("is broken")), qPrintable(text));
    QVERIFY(QFile::exists(path("deck.json")));
    // A deck that is named is played instead.
    run("draw", arguments + QStringList{QStringLiteral("--deck=readings"),
                                        QStringLiteral("--seconds=0.5")});
    text = errors();
    QVERIFY2(m_process.exitCode() == 0, qPrintable(text));
}

void tst_DeckSimulator::opensADeckByItsName()
{
    QVERIFY(QDir().mkpath(path("decks")));
    QFile file(path("decks/small.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"keys": [], "grid": {"columns": 3, "rows": 2}})");
    file.close();
    const auto select = [this](const char *deck, const char *key) {
        run("draw", {QStringLiteral("--profile"), path("deck.json"), QStringLiteral("--screenshot"),
                     path("window.png"), QStringLiteral("--after=0.1"), QStringLiteral("--deck"),
                     QLatin1String(deck), QStringLiteral("--select"), QLatin1String(key)});
    };
    select("SMALL", "3,0");
    QCOMPARE(m_process.exitCode(), 2);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("3 columns and 2 rows")), qPrintable(text));
    select("small", "2,1");
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    select("kinds", "7,3");
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    select("../small", "0,0");
    QCOMPARE(m_process.exitCode(), 2);
    QCOMPARE(QDir(path("decks")).entryList(QDir::Files), QStringList{QStringLiteral("small.json")});
    QVERIFY(!QFile::exists(path("deck.json")));
}

void tst_DeckSimulator::warnsOfABrokenRecording()
{
    QFile recording(path("machine.json"));
    QVERIFY(recording.open(QIODevice::WriteOnly));
    recording.write("{\"getCPUInfo\": ");
    recording.close();
    qputenv("SYSTEM_MONITOR_RECORDING", recording.fileName().toUtf8());
    run("draw", {QStringLiteral("--seconds=0.1")});
    qunsetenv("SYSTEM_MONITOR_RECORDING");
    QCOMPARE(m_process.exitCode(), 0);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("machine.json cannot be used")), qPrintable(text));
}

void tst_DeckSimulator::takesEmptyPicturesForEmptyReadings()
{
    run("blank", {QStringLiteral("--seconds=0.3")});
    QCOMPARE(m_process.exitCode(), 0);
    const QString table = output();
    const QRegularExpression row(QStringLiteral("^drawn +Memory load +- +0 +[\\d.]+ s +1\\r?$"),
                                 QRegularExpression::MultilineOption); // nothing is broken
    QVERIFY2(row.match(table).hasMatch(), qPrintable(table));
    const QString noise = errors();
    QVERIFY2(!noise.contains(QLatin1String("libpng")), qPrintable(noise));
}

void tst_DeckSimulator::endsByItself()
{
    run("draw", {QStringLiteral("--seconds=0.3")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    const QString text = output();
    QVERIFY(text.contains(QLatin1String("Memory load")));
    // One line per change, though the plugin sends pictures and settings too.
    const QRegularExpression change(
        QStringLiteral("^\\d\\d:\\d\\d:\\d\\d  drawn  \\(CPU usage\\)\\r?$"),
        QRegularExpression::MultilineOption);
    int changes = 0;
    for (auto match = change.globalMatch(text); match.hasNext(); match.next())
        ++changes;
    QVERIFY2(changes == 1, qPrintable(text));
}

void tst_DeckSimulator::endsOnTermination()
{
    start("draw", {QStringLiteral("--seconds=600")});
    QTRY_VERIFY(QFile::exists(path("work/plugin-stderr.txt")));
    interrupt(m_process);
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process.exitCode(), 0);
}

void tst_DeckSimulator::staysQuiet()
{
    run("draw", {QStringLiteral("--quiet"), QStringLiteral("--seconds=0.3")});
    QCOMPARE(m_process.exitCode(), 0);
    QCOMPARE(output(), QString());
}

void tst_DeckSimulator::reportsAPluginThatEndsAtOnce()
{
    run("refuse", {QStringLiteral("--headless")});
    QCOMPARE(m_process.exitCode(), 1);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("exit status 3")), qPrintable(text));
    QVERIFY(text.contains(QDir::toNativeSeparators(path("work"))));
}

void tst_DeckSimulator::refusesWrongUsage()
{
    run("draw", {QStringLiteral("--no-such-option")});
    QCOMPARE(m_process.exitCode(), 2);
    QVERIFY(errors().contains(QLatin1String("no-such-option")));
}

void tst_DeckSimulator::writeScript(const QByteArray &lines)
{
    QFile file(path("script.jsonl"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(lines);
}

QByteArray tst_DeckSimulator::received() const
{
    QFile file(path("work/received.txt"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_DeckSimulator::playsAScript()
{
    writeScript(R"(# every kind of step
{"do": "put", "key": [0, 0], "action": "an.action", "set": {"text": "first"}}
{"do": "put", "key": {"dial": 1}, "action": "another.action"}
{"do": "expect", "key": [0, 0], "title": "^drawn$"}
{"do": "settings", "key": [0, 0], "set": {"text": "second"}}
{"do": "expect", "key": [0, 0]}
{"do": "press", "key": [0, 0]}
{"do": "press", "key": {"dial": 1}}
{"do": "rotate", "key": {"dial": 1}, "ticks": 2}
{"do": "move", "key": [0, 0], "to": [2, 3]}
{"do": "expect", "key": [2, 3], "title": "drawn"}
{"do": "put", "key": [2, 3], "action": "a.third"}
{"do": "send", "message": {"event": "systemDidWakeUp"}}
{"do": "servicePort"}
{"do": "expect", "key": [2, 3]}
{"do": "snapshot", "file": "SNAPSHOT"}
{"do": "remove", "key": [2, 3]}
)");
    QFile script(path("script.jsonl"));
    QVERIFY(script.open(QIODevice::ReadOnly));
    const QByteArray text = script.readAll().replace("SNAPSHOT", path("deck.png").toUtf8());
    script.close();
    writeScript(text);
    run("panel",
        {QStringLiteral("--deck=empty"), QStringLiteral("--script"), path("script.jsonl")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    QVERIFY(!QImage(path("deck.png")).isNull());
    for (const char *part :
         {"\"text\":\"first\"", "\"text\":\"second\"", "keyDown", "keyUp", "dialPress",
          "\"ticks\":2", "\"action\":\"a.third\"", "systemDidWakeUp", "hwInfoPort", "willDisappear",
          "\"column\":2,\"row\":3"})
        QVERIFY2(received().contains(part), part);
}

void tst_DeckSimulator::holdsKeysInAScript()
{
    writeScript(R"({"do": "put", "key": [0, 0], "action": "one"}
{"do": "put", "key": {"dial": 0}, "action": "two"}
{"do": "press", "key": [0, 0], "hold": 0.6}
{"do": "press", "key": {"dial": 0}, "hold": 0.3}
{"do": "press", "key": [0, 0]}
)");
    run("panel",
        {QStringLiteral("--deck=empty"), QStringLiteral("--script"), path("script.jsonl")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    QFile file(path("work/times.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList events;
    QVector<qint64> times;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        const QByteArray event = words.value(1);
        if (!event.startsWith("key") && !event.startsWith("dial"))
            continue;
        events.append(QString::fromLatin1(event));
        times.append(words.at(0).toLongLong());
    }
    QCOMPARE(events.join(QLatin1Char(' ')),
             QStringLiteral("keyDown keyUp dialPress dialPress keyDown keyUp"));
    const auto isAbout = [&](int index, qint64 wanted) {
        const qint64 held = times.at(index + 1) - times.at(index);
        return held > wanted - 50 && held < wanted + 200;
    };
    QVERIFY(isAbout(0, 600));
    QVERIFY(isAbout(2, 300));
    QVERIFY(isAbout(4, 0));
}

void tst_DeckSimulator::changesDisplaysInAScript()
{
    writeScript(R"({"do": "put", "key": [0, 0], "action": "one", "display": {"style": "ring"}}
{"do": "expect", "key": [0, 0], "size": [60, 60], "color": "red"}
{"do": "settings", "key": [0, 0], "set": {"text": "kept"}}
{"do": "expect", "key": [0, 0]}
{"do": "expect", "key": [0, 0], "size": [60, 60], "title": "drawn"}
{"do": "settings", "key": [0, 0], "display": 5}
{"do": "expect", "key": [0, 0], "size": [60, 20]}
{"do": "settings", "key": [0, 0], "set": {"text": "broken as it is"}}
{"do": "expect", "key": [0, 0]}
{"do": "settings", "key": [0, 0], "display": null}
{"do": "expect", "key": [0, 0], "color": "blue", "within": 0.3}
)");
    run("panel",
        {QStringLiteral("--deck=empty"), QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("Line 11 of the script: key [0, 0] did not come to show "
                                         "the colour #0000ff in time")),
             qPrintable(text));
    QStringList displays;
    for (const QByteArray &line : received().split('\n')) {
        const QJsonObject message = QJsonDocument::fromJson(line).object();
        const QJsonObject payload = message.value(QLatin1String("payload")).toObject();
        const QJsonObject settings = payload.value(QLatin1String("settings")).toObject();
        if (message.value(QLatin1String("event")) == QStringLiteral("didReceiveSettings"))
            displays.append(
                settings.contains(QLatin1String("display"))
                    ? QLatin1String(settings.value(QLatin1String("display")).toVariant().typeName())
                    : QLatin1String("none"));
    }
    QCOMPARE(displays.join(QLatin1Char(' ')),
             QStringLiteral("QVariantMap qlonglong qlonglong none"));
}

void tst_DeckSimulator::changesTheMachineInAScript()
{
    QFile machine(path("hot.json"));
    QVERIFY(machine.open(QIODevice::WriteOnly));
    machine.write("{\"getCPUInfo\": {}}");
    machine.close();
    writeScript(R"({"do": "machine", "file": "hot.json"})"); // beside the script
    run("panel",
        {QStringLiteral("--deck=empty"), QStringLiteral("--script"), path("script.jsonl")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    QFile used(path("work/recording.json"));
    QVERIFY(used.open(QIODevice::ReadOnly));
    QCOMPARE(used.readAll(), QByteArray("{\"getCPUInfo\": {}}"));
    used.close(); // Windows does not replace a file that is open.

    writeScript(R"({"do": "machine", "file": "missing.json"})");
    run("panel",
        {QStringLiteral("--deck=empty"), QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("missing.json cannot be used")), qPrintable(text));
}

void tst_DeckSimulator::movesAKeyOntoAnother()
{
    writeScript(R"({"do": "put", "key": [0, 0], "action": "one"}
{"do": "put", "key": [1, 0], "action": "two"}
{"do": "move", "key": [0, 0], "to": [1, 0]}
{"do": "move", "key": [1, 0], "to": [1, 0]}
{"do": "expect", "key": [1, 0], "title": "^drawn$"}
)");
    run("panel",
        {QStringLiteral("--deck=empty"), QStringLiteral("--script"), path("script.jsonl")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    QStringList events;
    for (const QByteArray &line : received().split('\n')) {
        const QJsonObject message = QJsonDocument::fromJson(line).object();
        const QString action = message.value(QLatin1String("action")).toString();
        if (!action.isEmpty())
            events.append(message.value(QLatin1String("event")).toString() + QLatin1Char(' ') +
                          action);
    }
    const QStringList expected{
        QStringLiteral("willAppear one"),    QStringLiteral("willAppear two"),
        QStringLiteral("willDisappear two"), QStringLiteral("willDisappear one"),
        QStringLiteral("willAppear one"),                                      // at its new place
        QStringLiteral("willDisappear one"), QStringLiteral("willAppear one"), // onto itself
        QStringLiteral("willDisappear one"),                                   // the end
    };
    QCOMPARE(events, expected);
}

void tst_DeckSimulator::failsWhenAnExpectationFails()
{
    writeScript(
        "\n{\"do\": \"expect\", \"key\": [0, 0], \"title\": \"^no such$\", \"within\": 0.3}");
    run("draw", {QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    QString text = errors();
    QVERIFY2(text.contains(QLatin1String("Line 2 of the script: key [0, 0]")), qPrintable(text));
    QVERIFY(text.contains(QLatin1String("\"drawn\"")));

    writeScript("{\"do\": \"expect\", \"key\": [0, 0], \"title\": \"drawn\", \"size\": [60, 61], "
                "\"within\": 0.3}");
    run("draw", {QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    text = errors();
    QVERIFY2(text.contains(QLatin1String("\"drawn\" and 60 x 61 pixels in time")),
             qPrintable(text));
}

void tst_DeckSimulator::failsWhenAStepCannotBePlayed()
{
    writeScript("{\"do\": \"press\", \"key\": [7, 7]}");
    run("draw", {QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    QVERIFY(errors().contains(QLatin1String("nothing is on key [7, 7]")));
}

void tst_DeckSimulator::failsWhenThePluginEndsBeforeTheScript()
{
    writeScript("{\"at\": 100, \"do\": \"press\", \"key\": [0, 0]}");
    run("die", {QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    QVERIFY(errors().contains(QLatin1String("not played to its end")));
}

void tst_DeckSimulator::letsTheHostDieInAScript()
{
    writeScript("{\"do\": \"expect\", \"key\": [0, 0]}\n{\"do\": \"hostDies\"}");
    run("panel", {QStringLiteral("--script"), path("script.jsonl")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    QVERIFY(!received().contains("willDisappear"));

    run("stubborn", {QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 1);
    QVERIFY(errors().contains(QLatin1String("did not end")));
}

void tst_DeckSimulator::refusesABrokenScript()
{
    writeScript("{\"do\": \"dance\"}");
    run("draw", {QStringLiteral("--script"), path("script.jsonl")});
    QCOMPARE(m_process.exitCode(), 2);
    QVERIFY(errors().contains(QLatin1String("line 1")));
    run("draw", {QStringLiteral("--script"), path("no-such-script")});
    QCOMPARE(m_process.exitCode(), 2);
}

QTEST_GUILESS_MAIN(tst_DeckSimulator)
#include "tst_DeckSimulator.moc"
