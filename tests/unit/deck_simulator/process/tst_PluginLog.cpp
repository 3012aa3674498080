#include "deck_simulator/process/PluginLog.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_PluginLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void filtersLines_data();
    void filtersLines();
    void keepsTheLastLines();
    void cutsLongLines();
    void makesLinesHarmless();
    void followsAFile();
    void beginsAtTheEndOfAFile();
    void waitsForAFile();
    void readsAFileThatWasCutAgain();
    void passesOverTooMuch();
    void cutsAnEndlessLine();
    void followsBothStreams();
    void readsTheRestAtTheEnd();
    void tells();

private:
    void append(const char *file, const QByteArray &text);
    [[nodiscard]] QString path(const char *file) const
    {
        return m_folder->filePath(QString::fromLatin1(file));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

Q_DECLARE_METATYPE(LogFilter)

void tst_PluginLog::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_PluginLog::append(const char *name, const QByteArray &text)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write(text), qint64(text.size()));
}

void tst_PluginLog::filtersLines_data()
{
    QTest::addColumn<LogFilter>("filter");
    QTest::addColumn<QString>("shown");
    QTest::newRow("everything") << LogFilter() << QStringLiteral("Socket error|OnMessage|told");
    QTest::newRow("the file") << LogFilter{true, false, {}} << QStringLiteral("Socket error|told");
    QTest::newRow("the stream") << LogFilter{false, true, {}} << QStringLiteral("OnMessage|told");
    QTest::newRow("a text") << LogFilter{true, true, QStringLiteral("ERROR")}
                            << QStringLiteral("Socket error");
    QTest::newRow("no text") << LogFilter{true, true, QStringLiteral("nowhere")} << QString();
}

void tst_PluginLog::filtersLines()
{
    QFETCH(const LogFilter, filter);
    QFETCH(const QString, shown);
    LogBuffer buffer;
    buffer.add(LogSource::File, QStringLiteral("Socket error"));
    buffer.add(LogSource::Debug, QStringLiteral("OnMessage"));
    buffer.add(LogSource::Host, QStringLiteral("told"));
    QCOMPARE(buffer.matching(filter).join(QLatin1Char('|')), shown);
}

void tst_PluginLog::keepsTheLastLines()
{
    LogBuffer buffer;
    for (int line = 0; line < LogBuffer::mostLines + 5; ++line)
        buffer.add(LogSource::File, QString::number(line));
    QCOMPARE(buffer.size(), LogBuffer::mostLines);
    QCOMPARE(buffer.matching({}).constFirst(), QStringLiteral("5"));
    buffer.clear();
    QCOMPARE(buffer.size(), 0);
}

void tst_PluginLog::cutsLongLines()
{
    LogBuffer buffer;
    const QString line = buffer.add(LogSource::File, QString(100000, QLatin1Char('x'))).text;
    QCOMPARE(line.size(), LogBuffer::longestLine + 1);
    QVERIFY(line.endsWith(QChar(0x2026)));
}

void tst_PluginLog::makesLinesHarmless()
{
    LogBuffer buffer;
    const QString line = buffer.add(LogSource::Debug, QStringLiteral("a\x1b[31mb\u202ec")).text;
    QVERIFY(!line.contains(QChar(0x1b)));
    QVERIFY(!line.contains(QChar(0x202e)));
}

void tst_PluginLog::followsAFile()
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

void tst_PluginLog::beginsAtTheEndOfAFile()
{
    append("log.txt", "of another run\n");
    FileTail tail;
    tail.follow(path("log.txt"));
    append("log.txt", "of this one\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("of this one")});
}

void tst_PluginLog::waitsForAFile()
{
    FileTail tail;
    QVERIFY(tail.newLines().isEmpty()); // none is followed
    tail.follow(path("log.txt"));
    QVERIFY(tail.newLines().isEmpty());
    append("log.txt", "first\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("first")});
}

void tst_PluginLog::readsAFileThatWasCutAgain()
{
    append("log.txt", "something long\n");
    FileTail tail;
    tail.follow(path("log.txt"));
    QVERIFY(QFile::resize(path("log.txt"), 0));
    append("log.txt", "new\n");
    QCOMPARE(tail.newLines(), QStringList{QStringLiteral("new")});
}

void tst_PluginLog::passesOverTooMuch()
{
    FileTail tail;
    tail.follow(path("log.txt"));
    append("log.txt", QByteArray("line\n").repeated(1000000) + "last\n");
    const QStringList lines = tail.newLines();
    QVERIFY(lines.size() <= FileTail::longestStep / 5 + 1);
    QCOMPARE(lines.constLast(), QStringLiteral("last"));
}

void tst_PluginLog::cutsAnEndlessLine()
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

void tst_PluginLog::followsBothStreams()
{
    PluginLog log;
    QSignalSpy added(&log, &PluginLog::lineAdded);
    log.follow(m_folder->path());
    append("log.txt", "a line of the file\n");
    append("plugin-stderr.txt", "a line of the stream\n");
    QTRY_COMPARE(added.count(), 2);
    QCOMPARE(log.lines().matching({true, false, {}}),
             QStringList{QStringLiteral("a line of the file")});
    QCOMPARE(log.lines().matching({false, true, {}}),
             QStringList{QStringLiteral("a line of the stream")});
    log.clear();
    QCOMPARE(log.lines().size(), 0);
}

void tst_PluginLog::readsTheRestAtTheEnd()
{
    PluginLog log;
    log.follow(m_folder->path());
    append("plugin-stderr.txt", "Segmentation fault");
    log.finish();
    QCOMPARE(log.lines().matching({}), QStringList{QStringLiteral("Segmentation fault")});
    log.follow(m_folder->path()); // the next plugin
    append("log.txt", "new\n");
    const QStringList expected{QStringLiteral("new")};
    QTRY_COMPARE(log.lines().matching({true, false, {}}), expected);
}

void tst_PluginLog::tells()
{
    PluginLog log;
    log.tell(QStringLiteral("The plugin has ended.\nWith a reason."));
    const QStringList lines = log.lines().matching({});
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).endsWith(QLatin1String("The plugin has ended.")));
    // It is shown beside whatever stream is chosen.
    QCOMPARE(log.lines().matching({false, true, {}}).size(), 2);
}

QTEST_GUILESS_MAIN(tst_PluginLog)
#include "tst_PluginLog.moc"
