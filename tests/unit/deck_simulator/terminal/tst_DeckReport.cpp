#include "deck_simulator/terminal/DeckReport.h"
#include "deck_simulator/terminal/HeadlessRun.h"
#include "deck_simulator/terminal/TerminalTable.h"

#include <QtTest>

using namespace deck;

class tst_DeckReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAges_data();
    void namesAges();
    void showsOneLinePerKeyAndTheStatus();
    void showsNoControlCharacters();
    void fitsNarrowTerminals();
    void keepsTitleAndReadingOnNarrowTerminals();
    void tellsAChangeOnOneLine();
    void replacesTheFrameBefore();
};

namespace {

DeckKey key(const QString &name)
{
    return {name, QStringLiteral("action"), name, {}};
}

DeckStatus runningStatus()
{
    DeckStatus status;
    status.link = QStringLiteral("registered");
    status.pluginPid = 4711;
    status.framesPerSecond = 26;
    status.bytesPerSecond = 2048;
    return status;
}

} // namespace

void tst_DeckReport::namesAges_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<QString>("text");
    QTest::newRow("new") << qint64(0) << "0.0 s";
    QTest::newRow("tenths") << qint64(1440) << "1.4 s";
    QTest::newRow("seconds") << qint64(61000) << "61 s";
    QTest::newRow("minutes") << qint64(600000) << "10 min";
    QTest::newRow("negative") << qint64(-5) << "0.0 s";
}

void tst_DeckReport::namesAges()
{
    QFETCH(qint64, age);
    QTEST(ageText(age), "text");
    QCOMPARE(ageText(std::nullopt), QStringLiteral("-"));
}

void tst_DeckReport::showsOneLinePerKeyAndTheStatus()
{
    QVector<DeckKey> keys{key(QStringLiteral("CPU usage")), key(QStringLiteral("Network"))};
    keys[0].takeTitle(QStringLiteral("CPU: 5%"), 1000);
    const QStringList lines = deckReport(keys, runningStatus(), 1500, 100);
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(0).startsWith(QLatin1String("Title")));
    QVERIFY(lines.at(1).startsWith(QLatin1String("CPU: 5%")));
    QVERIFY(lines.at(1).contains(QLatin1String("0.5 s")));
    QVERIFY(lines.at(2).startsWith(QLatin1String("-")));
    QVERIFY(lines.at(2).contains(QLatin1String("Network")));
    QCOMPARE(lines.at(3), QStringLiteral("registered | plugin 4711 | 26.0 frames/s | 2.0 KB/s"));
}

void tst_DeckReport::showsNoControlCharacters()
{
    QVector<DeckKey> keys{key(QStringLiteral("CPU"))};
    keys[0].takeTitle(QStringLiteral("\x1b[2J\nsecond"), 0);
    const QString text = deckReport(keys, runningStatus(), 0, 100).join(QString());
    QVERIFY(!text.contains(QChar(0x1b)));
    QVERIFY(!text.contains(QLatin1Char('\n')));
    QVERIFY(text.contains(QLatin1String(" / second")));
}

void tst_DeckReport::fitsNarrowTerminals()
{
    QVector<DeckKey> keys{key(QStringLiteral("Memory available"))};
    keys[0].takeTitle(QStringLiteral("可用内存(GB): 12.5GB"), 0);
    for (int width = 1; width < 80; ++width) {
        for (const QString &line : deckReport(keys, runningStatus(), 0, width))
            QVERIFY(displayWidth(line) <= width);
    }
}

void tst_DeckReport::keepsTitleAndReadingOnNarrowTerminals()
{
    QVector<DeckKey> keys{key(QStringLiteral("GPU temperature of a long name"))};
    keys[0].takeTitle(QStringLiteral("Graphics temperature: 45°C"), 0);
    const auto row = [&keys](int width) { return deckReport(keys, {}, 0, width).at(1); };
    QVERIFY(row(60).startsWith(QLatin1String("Graphics temperature: 45")));
    QCOMPARE(row(26), QStringLiteral("Graphics temperature: 45°C"));
    QCOMPARE(row(16), QStringLiteral("Graphic…re: 45°C"));
}

void tst_DeckReport::tellsAChangeOnOneLine()
{
    DeckKey changed = key(QStringLiteral("CPU usage"));
    changed.takeTitle(QStringLiteral("CPU: 5%\nsecond"), 0);
    QCOMPARE(changeLine(changed, QTime(1, 2, 3)),
             QStringLiteral("01:02:03  CPU: 5% / second  (CPU usage)"));
}

void tst_DeckReport::replacesTheFrameBefore()
{
    const QStringList lines{QStringLiteral("a"), QStringLiteral("b")};
    const QByteArray first = replacementFrame(lines, 0);
    QCOMPARE(first, QByteArray("\x1b[?25l\ra\x1b[K\r\n\rb\x1b[K\r\n\x1b[J\x1b[?25h"));
    QVERIFY(replacementFrame(lines, 2).startsWith("\x1b[?25l\x1b[2A\ra"));
}

QTEST_GUILESS_MAIN(tst_DeckReport)
#include "tst_DeckReport.moc"
