#include "deck_simulator/process/FileTail.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_FileTail : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void followsAFile();
    void beginsAtTheEndOfAFile();
    void waitsForAFile();
    void readsAFileThatWasCutAgain();
    void passesOverTooMuch();
    void cutsAnEndlessLine();

private:
    void append(const char *file, const QByteArray &text);
    [[nodiscard]] QString path(const char *file) const
    {
        return m_folder->filePath(QString::fromLatin1(file));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_FileTail::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_FileTail::append(const char *name, const QByteArray &text)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write(text), qint64(text.size()));
}

void tst_FileTail::followsAFile()
{
    append("log.txt", {});
    FileTail tail;
    tail.follow(path("log.txt"));
    QVERIFY(tail.newLines().isEmpty());
    append("log.txt", "one\ntw");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("one")});
    append("log.txt", "o\r\n\nthree \xe4\xb8\xad");
    QCOMPARE(tail.newLines(), (QStringList{QStringLiteral("two"), QString()}));
    append("log.txt", "\xe6\x96\x87\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("three 中文")});
    QVERIFY(tail.newLines().isEmpty());
}

void tst_FileTail::beginsAtTheEndOfAFile()
{
    append("log.txt", "of another run\n");
    FileTail tail;
    tail.follow(path("log.txt"));
    append("log.txt", "of this one\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("of this one")});
}

void tst_FileTail::waitsForAFile()
{
    FileTail tail;
    QVERIFY(tail.newLines().isEmpty()); // none is followed
    tail.follow(path("log.txt"));
    QVERIFY(tail.newLines().isEmpty());
    append("log.txt", "first\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("first")});
}

void tst_FileTail::readsAFileThatWasCutAgain()
{
    append("log.txt", "something long\n");
    FileTail tail;
    tail.follow(path("log.txt"));
    QVERIFY(QFile::resize(path("log.txt"), 0));
    append("log.txt", "new\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("new")});
}

void tst_FileTail::passesOverTooMuch()
{
    FileTail tail;
    tail.follow(path("log.txt"));
    append("log.txt", QByteArray("line\n").repeated(1000000) + "last\n");
    const QStringList lines = tail.newLines();
    QVERIFY(lines.size() <= FileTail::longestStep / 5 + 1);
    QCOMPARE(lines.constLast(), QStringLiteral("last"));
}

void tst_FileTail::cutsAnEndlessLine()
{
    FileTail tail;
    tail.follow(path("log.txt"));
    qint64 read = 0;
    for (int step = 0; step < 4; ++step) {
        append("log.txt", QByteArray(int(FileTail::longestStep), 'x'));
        const QStringList lines = tail.newLines();
        for (const QString &line : lines)
            read += line.size();
    }
    QVERIFY(read >= 2 * FileTail::longestStep);
}

QTEST_GUILESS_MAIN(tst_FileTail)
#include "tst_FileTail.moc"
