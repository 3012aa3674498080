#include "sensors/services/PerfDataSource.h"
#include "sensors/services/httptcpGetMonitorData.h"

#include "tests/support/MessageCapture.h"

#include <QSignalSpy>
#include <QtTest>

class tst_PerfDataSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsOnItsOwnPort();
    void takesAnotherPort();
    void announcesResults();
    void fetcherLogsWhatItsSignalsCarry_data();
    void fetcherLogsWhatItsSignalsCarry();
    void fetcherLogsErrors();
};

void tst_PerfDataSource::startsOnItsOwnPort()
{
    const PerfDataSource source;
    QCOMPARE(source.port(), 15500);
    QCOMPARE(source.baseAddress(), QStringLiteral("http://127.0.0.1"));
}

void tst_PerfDataSource::takesAnotherPort()
{
    PerfDataSource source;
    source.setPort(0);
    QCOMPARE(source.port(), 0);
    source.setPort(15601);
    QCOMPARE(source.port(), 15601);
}

void tst_PerfDataSource::announcesResults()
{
    PerfDataSource source;
    const QSignalSpy results(&source, &PerfDataSource::gotResult);
    const QSignalSpy failures(&source, &PerfDataSource::requestFailed);
    Q_EMIT source.gotResult(QStringLiteral("m"), {{QStringLiteral("a"), 1}});
    Q_EMIT source.requestFailed(QStringLiteral("m"), QStringLiteral("why"));
    QCOMPARE(results.size(), 1);
    QCOMPARE(results.at(0).at(1).toJsonObject(), (QJsonObject{{QStringLiteral("a"), 1}}));
    QCOMPARE(failures.size(), 1);
    QCOMPARE(failures.at(0).at(1).toString(), QStringLiteral("why"));
}

void tst_PerfDataSource::fetcherLogsWhatItsSignalsCarry_data()
{
    QTest::addColumn<QJsonObject>("info");
    QTest::addColumn<QString>("line");
    QTest::newRow("drive") << QJsonObject{{QStringLiteral("drive"), QStringLiteral("C")}}
                           << QStringLiteral("\"Drive =C\"");
    QTest::newRow("no text") << QJsonObject{{QStringLiteral("drive"), 3}}
                             << QStringLiteral("\"Drive =\"");
    QTest::newRow("empty") << QJsonObject() << QStringLiteral("\"Drive =\"");
}

void tst_PerfDataSource::fetcherLogsWhatItsSignalsCarry()
{
    QFETCH(QJsonObject, info);
    QFETCH(QString, line);
    httptcpGetMonitorData fetcher;
    QVERIFY(fetcher.url().isEmpty());
    const MessageCapture capture;
    Q_EMIT fetcher.sigGotDriveInfo(info);
    QCOMPARE(MessageCapture::messages(), QStringList{line});
}

void tst_PerfDataSource::fetcherLogsErrors()
{
    httptcpGetMonitorData fetcher;
    const MessageCapture capture;
    Q_EMIT fetcher.sigFetchError(QStringLiteral("refused"));
    QCOMPARE(MessageCapture::messages(), QStringList{QStringLiteral("\"msg: refused\"")});
}

QTEST_APPLESS_MAIN(tst_PerfDataSource)
#include "tst_perfdatasource.moc"
