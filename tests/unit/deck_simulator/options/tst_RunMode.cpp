#include "deck_simulator/options/RunMode.h"

#include <QtTest>

using namespace deck;

class tst_RunMode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chooses_data();
    void chooses();
};

void tst_RunMode::chooses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("onDesktop");
    QTest::addColumn<bool>("withoutDisplay");
    const auto row = [](const char *arguments, bool onDesktop, bool withoutDisplay) {
        QTest::newRow(*arguments == '\0' ? "nothing" : arguments)
            << QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts)
            << onDesktop << withoutDisplay;
    };
    row("", true, false);
    row("--language zh_CN", true, false);
    row("--profile deck.json", true, false);
    row("--window", true, true);
    row("--screenshot window.png", true, true);
    row("--headless", false, false);
    row("--snapshot deck.png", false, false);
    row("--seconds 5", false, false);
    row("--script events", false, false);
    row("--quiet", false, false);
    row("--deck settings", true, false);
    row("--deck work", true, false);
    row("--deck settings --columns 3", false, false);
    row("--columns 3", false, false);
    row("--key-size 72", false, false);
}

void tst_RunMode::chooses()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const bool, onDesktop);
    QFETCH(const bool, withoutDisplay);
    const ParsedOptions parsed = parseOptions(
        QStringList{QStringLiteral("deck_simulator")} + arguments, QStringLiteral("plugin"));
    QVERIFY2(parsed.options, qPrintable(parsed.text));
    QCOMPARE(opensWindow(*parsed.options, true), onDesktop);
    QCOMPARE(opensWindow(*parsed.options, false), withoutDisplay);
}

QTEST_GUILESS_MAIN(tst_RunMode)
#include "tst_RunMode.moc"
