#include "deck_simulator/process/LogBuffer.h"

#include <QtTest>

using namespace deck;

class tst_LogBuffer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filtersLines_data();
    void filtersLines();
    void keepsTheLastLines();
    void cutsLongLines();
    void makesLinesHarmless();
};

Q_DECLARE_METATYPE(LogFilter)

void tst_LogBuffer::filtersLines_data()
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

void tst_LogBuffer::filtersLines()
{
    QFETCH(const LogFilter, filter);
    QFETCH(const QString, shown);
    LogBuffer buffer;
    buffer.add(LogSource::File, QStringLiteral("Socket error"));
    buffer.add(LogSource::Debug, QStringLiteral("OnMessage"));
    buffer.add(LogSource::Host, QStringLiteral("told"));
    QCOMPARE(buffer.matching(filter).join(QLatin1Char('|')), shown);
}

void tst_LogBuffer::keepsTheLastLines()
{
    LogBuffer buffer;
    for (int line = 0; line < LogBuffer::mostLines + 5; ++line)
        buffer.add(LogSource::File, QString::number(line));
    QCOMPARE(buffer.size(), LogBuffer::mostLines);
    QCOMPARE(buffer.matching({}).constFirst(), QStringLiteral("5"));
    buffer.clear();
    QCOMPARE(buffer.size(), 0);
}

void tst_LogBuffer::cutsLongLines()
{
    LogBuffer buffer;
    const QString line = buffer.add(LogSource::File, QString(100000, QLatin1Char('x'))).text;
    QCOMPARE(line.size(), LogBuffer::longestLine + 1);
    QVERIFY(line.endsWith(QChar(0x2026)));
}

void tst_LogBuffer::makesLinesHarmless()
{
    LogBuffer buffer;
    const QString line = buffer.add(LogSource::Debug, QStringLiteral("a\x1b[31mb\u202ec")).text;
    QVERIFY(!line.contains(QChar(0x1b)));
    QVERIFY(!line.contains(QChar(0x202e)));
}

QTEST_GUILESS_MAIN(tst_LogBuffer)
#include "tst_LogBuffer.moc"
