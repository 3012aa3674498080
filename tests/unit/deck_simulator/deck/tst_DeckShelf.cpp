#include "deck_simulator/deck/DeckName.h"
#include "deck_simulator/deck/DeckShelf.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_DeckShelf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void beginsWithTheDefaultDeck();
    void listsTheDecks();
    void findsADeckInAnyCase();
    void remembersTheLastDeck();
    void forgetsALastDeckThatIsGone_data();
    void forgetsALastDeckThatIsGone();
    void tellsWhenItCannotRemember();

private:
    [[nodiscard]] DeckShelf shelf() const { return DeckShelf(path("deck.json")); }
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder->filePath(QString::fromUtf8(name));
    }
    void write(const char *name, const QByteArray &text = "{}") const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_DeckShelf::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_DeckShelf::write(const char *name, const QByteArray &text) const
{
    QVERIFY(QDir().mkpath(path("decks")));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

void tst_DeckShelf::beginsWithTheDefaultDeck()
{
    QCOMPARE(shelf().names(), QStringList{defaultDeckName()});
    QCOMPARE(shelf().last(), defaultDeckName());
    QVERIFY(shelf().rememberLast(defaultDeckName()));
    QCOMPARE(QFileInfo(shelf().file(defaultDeckName())), QFileInfo(path("deck.json")));
    QCOMPARE(QFileInfo(shelf().file(QStringLiteral("work"))), QFileInfo(path("decks/work.json")));
    // Nothing has been made.
    QVERIFY(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
}

void tst_DeckShelf::listsTheDecks()
{
    for (const char *name :
         {"decks/work.json", "decks/Games.json", "decks/work.json.broken", "decks/work.json.lock",
          "decks/last.txt", "decks/.json", "decks/default.json", "decks/ a.json"})
        write(name);
    QVERIFY(QDir().mkpath(path("decks/folder.json")));
    QCOMPARE(shelf().names(),
             QStringList({defaultDeckName(), QStringLiteral("Games"), QStringLiteral("work")}));
}

void tst_DeckShelf::findsADeckInAnyCase()
{
    write("decks/Work.json");
    QVERIFY(shelf().has(QStringLiteral("work")));
    QVERIFY(shelf().has(QStringLiteral("Default")));
    QVERIFY(!shelf().has(QStringLiteral("wor")));
    QCOMPARE(shelf().keptName(QStringLiteral("WORK")), QStringLiteral("Work"));
    QCOMPARE(shelf().keptName(QStringLiteral("DEFAULT")), defaultDeckName());
    QCOMPARE(shelf().keptName(QStringLiteral("New")), QStringLiteral("New"));
}

void tst_DeckShelf::remembersTheLastDeck()
{
    write("decks/直播.json");
    QVERIFY(shelf().rememberLast(QStringLiteral("直播")));
    QCOMPARE(shelf().last(), QStringLiteral("直播"));
    QVERIFY(shelf().rememberLast(defaultDeckName()));
    QCOMPARE(shelf().last(), defaultDeckName());
    QVERIFY(!QFile::exists(path("decks/last.txt")));
}

void tst_DeckShelf::forgetsALastDeckThatIsGone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("gone") << QByteArray("gone\n");
    QTest::newRow("elsewhere") << QByteArray("../decks/work\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray("\xff\x00\xfe", 3);
    QTest::newRow("huge") << QByteArray(5000000, 'w');
}

void tst_DeckShelf::forgetsALastDeckThatIsGone()
{
    QFETCH(const QByteArray, text);
    write("decks/work.json");
    write("decks/last.txt", text);
    QCOMPARE(shelf().last(), defaultDeckName());
}

void tst_DeckShelf::tellsWhenItCannotRemember()
{
    QFile file(path("decks")); // no folder can be made there
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!shelf().rememberLast(QStringLiteral("work")));
}

QTEST_GUILESS_MAIN(tst_DeckShelf)
#include "tst_DeckShelf.moc"
