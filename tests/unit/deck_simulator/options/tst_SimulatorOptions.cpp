#include "deck_simulator/options/SimulatorOptions.h"

#include <QtTest>

using namespace deck;

class tst_SimulatorOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasDefaults();
    void readsTheDeck_data();
    void readsTheDeck();
    void readsEverything();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void explainsItself();
};

namespace {

ParsedOptions parse(const QStringList &arguments)
{
    return parseOptions(QStringList{QStringLiteral("deck_simulator")} + arguments,
                        QStringLiteral("/default/plugin"));
}

} // namespace

void tst_SimulatorOptions::hasDefaults()
{
    const ParsedOptions parsed = parse({});
    QVERIFY2(parsed.options.has_value(), qPrintable(parsed.text));
    const SimulatorOptions &options = *parsed.options;
    QCOMPARE(options.plugin, QStringLiteral("/default/plugin"));
    QCOMPARE(options.language, QStringLiteral("en"));
    QVERIFY(!options.languageGiven);
    QVERIFY(options.fontFiles.isEmpty());
    QVERIFY(options.workFolder.isEmpty());
    QVERIFY(options.snapshotFile.isEmpty());
    QCOMPARE(options.columns, 5);
    QVERIFY(options.deck == Deck::Readings);
    QVERIFY(options.deckName.isEmpty());
    QCOMPARE(options.keySize, 144);
    QVERIFY(!options.quiet);
    QVERIFY(!options.runFor.has_value());
}

void tst_SimulatorOptions::readsTheDeck_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("deck");
    QTest::newRow("readings") << QStringLiteral("readings") << static_cast<int>(Deck::Readings);
    QTest::newRow("kinds") << QStringLiteral("kinds") << static_cast<int>(Deck::Kinds);
    QTest::newRow("settings") << QStringLiteral("settings") << static_cast<int>(Deck::Settings);
    QTest::newRow("empty") << QStringLiteral("empty") << static_cast<int>(Deck::Empty);
}

void tst_SimulatorOptions::readsTheDeck()
{
    QFETCH(QString, name);
    const ParsedOptions parsed = parse({QStringLiteral("--deck"), name});
    QVERIFY2(parsed.options.has_value(), qPrintable(parsed.text));
    QTEST(static_cast<int>(parsed.options->deck), "deck");
    QCOMPARE(parsed.options->deckName, name);
    QVERIFY(!parsed.options->headless);
}

void tst_SimulatorOptions::readsEverything()
{
    const QString font = QFINDTESTDATA("tst_SimulatorOptions.cpp");
    const ParsedOptions parsed =
        parse({QStringLiteral("--plugin"), QStringLiteral("p"), QStringLiteral("--language"),
               QStringLiteral("zh_CN"), QStringLiteral("--font"), font, QStringLiteral("--font"),
               font, QStringLiteral("--work-dir"), QStringLiteral("w"),
               QStringLiteral("--snapshot=s.png"), QStringLiteral("--after=1.5"),
               QStringLiteral("--columns=8"), QStringLiteral("--deck=settings"),
               QStringLiteral("--key-size=72"), QStringLiteral("--quiet")});
    QVERIFY2(parsed.options.has_value(), qPrintable(parsed.text));
    const SimulatorOptions &options = *parsed.options;
    QCOMPARE(options.plugin, QStringLiteral("p"));
    QCOMPARE(options.language, QStringLiteral("zh_CN"));
    QVERIFY(options.languageGiven);
    QCOMPARE(options.fontFiles, QStringList({font, font}));
    QCOMPARE(options.workFolder, QStringLiteral("w"));
    QCOMPARE(options.snapshotFile, QStringLiteral("s.png"));
    QCOMPARE(qint64(options.snapshotAfter.count()), qint64(1500));
    QCOMPARE(options.columns, 8);
    QVERIFY(options.deck == Deck::Settings);
    QCOMPARE(options.keySize, 72);
    QVERIFY(options.quiet);

    const ParsedOptions window =
        parse({QStringLiteral("--window"), QStringLiteral("--profile=p.json"),
               QStringLiteral("--screenshot=w.png"), QStringLiteral("--after=2"),
               QStringLiteral("--colors=dark"), QStringLiteral("--text-size=125"),
               QStringLiteral("--select=3,2"), QStringLiteral("--deck=work")});
    QVERIFY2(window.options.has_value(), qPrintable(window.text));
    QVERIFY(window.options->window);
    QVERIFY(!window.options->headless);
    QCOMPARE(window.options->profileFile, QStringLiteral("p.json"));
    QCOMPARE(window.options->screenshotFile, QStringLiteral("w.png"));
    QCOMPARE(window.options->colors, QStringLiteral("dark"));
    QCOMPARE(window.options->textSize, 125);
    QCOMPARE(window.options->deckName, QStringLiteral("work"));
    QCOMPARE(window.options->selectedKey, QPoint(3, 2));

    const ParsedOptions scripted =
        parse({QStringLiteral("--script=s"), QStringLiteral("--deck=empty")});
    QVERIFY2(scripted.options.has_value(), qPrintable(scripted.text));
    QCOMPARE(scripted.options->scriptFile, QStringLiteral("s"));
    QVERIFY(scripted.options->deck == Deck::Empty);
    QVERIFY(scripted.options->headless);

    const ParsedOptions timed = parse({QStringLiteral("--seconds=2")});
    QVERIFY(timed.options.has_value());
    QVERIFY(timed.options->runFor.has_value());
    QCOMPARE(qint64(timed.options->runFor->count()), qint64(2000));
}

void tst_SimulatorOptions::refusesWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *name, const QStringList &arguments, const char *complaint) {
        QTest::newRow(name) << arguments << QString::fromLatin1(complaint);
    };
    row("unknown option", {QStringLiteral("--colour")}, "colour");
    row("missing value", {QStringLiteral("--plugin")}, "plugin");
    row("empty value", {QStringLiteral("--plugin=")}, "--plugin must not be empty");
    row("stray argument", {QStringLiteral("stray")}, "Unexpected argument: stray");
    row("unknown deck in the terminal", {QStringLiteral("--deck=x"), QStringLiteral("--headless")},
        "--deck");
    row("deck without a name", {QStringLiteral("--deck=")}, "must not be empty");
    row("deck elsewhere", {QStringLiteral("--deck=../x")}, "must have none of");
    row("columns not a number", {QStringLiteral("--columns=x")}, "--columns");
    row("no columns", {QStringLiteral("--columns=0")}, "from 1 to 16");
    row("key too large", {QStringLiteral("--key-size=100000")}, "--key-size");
    row("negative time", {QStringLiteral("--seconds=-1")}, "--seconds");
    row("no time", {QStringLiteral("--seconds=nan")}, "--seconds");
    row("endless time", {QStringLiteral("--seconds=inf")}, "--seconds");
    row("missing font", {QStringLiteral("--font=/no/such/font.ttf")}, "/no/such/font.ttf");
    row("two ends", {QStringLiteral("--snapshot=a"), QStringLiteral("--seconds=2")}, "--after");
    row("window and terminal", {QStringLiteral("--window"), QStringLiteral("--quiet")},
        "exclude each other");
    row("screenshot in the terminal",
        {QStringLiteral("--screenshot=a"), QStringLiteral("--headless")}, "needs the window");
    row("unknown colours", {QStringLiteral("--colors=pink")}, "--colors");
    row("tiny texts", {QStringLiteral("--text-size=5")}, "--text-size");
    row("half a key", {QStringLiteral("--select=5")}, "--select");
    row("no key", {QStringLiteral("--select=a,b")}, "--select");
    row("script and its end", {QStringLiteral("--script=a"), QStringLiteral("--seconds=2")},
        "--script");
    row("after alone", {QStringLiteral("--after=2")}, "--snapshot or --screenshot only");
}

void tst_SimulatorOptions::refusesWrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);
    const ParsedOptions parsed = parse(arguments);
    QVERIFY(!parsed.options.has_value());
    QCOMPARE(parsed.exitStatus, 2);
    QVERIFY2(parsed.text.contains(complaint), qPrintable(parsed.text));
}

void tst_SimulatorOptions::explainsItself()
{
    const ParsedOptions help = parse({QStringLiteral("--help")});
    QVERIFY(!help.options.has_value());
    QCOMPARE(help.exitStatus, 0);
    for (const char *option : {"--plugin", "--language", "--font", "--work-dir", "--snapshot",
                               "--after", "--seconds", "--columns", "--key-size", "--quiet"})
        QVERIFY2(help.text.contains(QLatin1String(option)), option);

    const ParsedOptions version = parse({QStringLiteral("--version")});
    QVERIFY(!version.options.has_value());
    QCOMPARE(version.exitStatus, 0);
}

QTEST_GUILESS_MAIN(tst_SimulatorOptions)
#include "tst_SimulatorOptions.moc"
