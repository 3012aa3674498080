#include "deck_simulator/deck/DeckName.h"

#include <QtTest>

using namespace deck;

class tst_DeckName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsTheDefaultDeck();
    void takesNames_data();
    void takesNames();
    void refusesNames_data();
    void refusesNames();
};

void tst_DeckName::knowsTheDefaultDeck()
{
    QVERIFY(isDefaultDeck(defaultDeckName()));
    QVERIFY(isDefaultDeck(QStringLiteral("Default")));
    QVERIFY(!isDefaultDeck(QStringLiteral("default 2")));
    QVERIFY(!isDefaultDeck(QString()));
}

void tst_DeckName::takesNames_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names{QStringLiteral("work"),        QStringLiteral("My games, 2nd"),
                            QStringLiteral("直播 面板"),   QStringLiteral("a.b"),
                            QStringLiteral("console"),     QStringLiteral("com"),
                            QStringLiteral("com10"),       QStringLiteral("R&D 100 %"),
                            QString(64, QLatin1Char('x')), QStringLiteral("🎮")};
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_DeckName::takesNames()
{
    QFETCH(const QString, name);
    QCOMPARE(deckNameFault(name), QString());
}

void tst_DeckName::refusesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char *label, const QString &name, const char *fault) {
        QTest::newRow(label) << name << QString::fromLatin1(fault);
    };
    row("empty", QString(), "empty");
    row("blank", QStringLiteral(" \t"), "empty");
    row("65 letters", QString(65, QLatin1Char('x')), "too long");
    row("64 letters of 4 bytes", QStringLiteral("🎮").repeated(64), "too long");
    row("huge", QString(10000000, QLatin1Char('x')), "too long");
    row("upwards", QStringLiteral("../deck"), "none of");
    row("upwards on Windows", QStringLiteral("..\\deck"), "none of");
    row("root", QStringLiteral("/etc/passwd"), "none of");
    row("drive", QStringLiteral("C:"), "none of");
    row("stream", QStringLiteral("deck:stream"), "none of");
    row("pattern", QStringLiteral("de*k"), "none of");
    row("question", QStringLiteral("deck?"), "none of");
    row("quotes", QStringLiteral("\"deck\""), "none of");
    row("pipe", QStringLiteral("a|b"), "none of");
    row("folder", QStringLiteral("."), "dot");
    row("folder above", QStringLiteral(".."), "dot");
    row("hidden", QStringLiteral(".deck"), "dot");
    row("dot at the end", QStringLiteral("deck."), "dot");
    row("space at the end", QStringLiteral("deck "), "space");
    row("space at the beginning", QStringLiteral(" deck"), "space");
    row("new line", QStringLiteral("a\nb"), "shown");
    row("null", QString(QLatin1Char('a')) + QChar() + QLatin1Char('b'), "shown");
    row("turned around", QStringLiteral("a\u202eb"), "shown");
    row("half a letter", QString(QChar(0xd83c)), "shown");
    row("device", QStringLiteral("con"), "device");
    row("device in capitals", QStringLiteral("NUL"), "device");
    row("device with an ending", QStringLiteral("aux.json"), "device");
    row("device with a space", QStringLiteral("prn .a"), "device");
    row("port", QStringLiteral("COM1"), "device");
    row("port with another digit", QStringLiteral("lpt²"), "device");
    row("console", QStringLiteral("CONOUT$"), "device");
}

void tst_DeckName::refusesNames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, fault);
    QVERIFY2(deckNameFault(name).contains(fault), qPrintable(deckNameFault(name)));
}

QTEST_APPLESS_MAIN(tst_DeckName)
#include "tst_DeckName.moc"
