#include "deck_simulator/process/RecordingFault.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_RecordingFault : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tells_data();
    void tells();
    void missesFiles();
};

void tst_RecordingFault::tells_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");
    QTest::newRow("a recording") << QByteArray("{\"getCPUInfo\": {}}") << QString();
    QTest::newRow("a text") << QByteArray("readings") << QStringLiteral("illegal value");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("illegal value");
    QTest::newRow("cut") << QByteArray("{\"getCPUInfo\": ") << QStringLiteral("at byte");
    QTest::newRow("a list") << QByteArray("[1]") << QStringLiteral("no JSON object");
}

void tst_RecordingFault::tells()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, fault);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("machine.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    const QString found = recordingFault(file.fileName());
    QCOMPARE(found.isEmpty(), fault.isEmpty());
    QVERIFY2(found.contains(fault), qPrintable(found));
}

void tst_RecordingFault::missesFiles()
{
    const QTemporaryDir folder;
    QVERIFY(!recordingFault(folder.path()).isEmpty());
    QVERIFY(!recordingFault(folder.filePath(QStringLiteral("none"))).isEmpty());
}

QTEST_GUILESS_MAIN(tst_RecordingFault)
#include "tst_RecordingFault.moc"
