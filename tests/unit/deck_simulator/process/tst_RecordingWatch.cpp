#include "deck_simulator/process/RecordingWatch.h"
#include "tests/support/Waits.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_RecordingWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatHappensToTheFile();
    void beginsWithABrokenFile();
    void followsAnother();

private:
    void write(const QByteArray &text) const;
    [[nodiscard]] QString name() const { return m_folder.filePath(QStringLiteral("machine.json")); }

    QTemporaryDir m_folder;
};

void tst_RecordingWatch::write(const QByteArray &text) const
{
    QFile file(name());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void tst_RecordingWatch::tellsWhatHappensToTheFile()
{
    RecordingWatch watch;
    QSignalSpy broke(&watch, &RecordingWatch::broke);
    QSignalSpy mended(&watch, &RecordingWatch::mended);
    write("{}");
    watch.follow(name());
    QCOMPARE(watch.fault(), QString());
    write("{broken");
    QTRY_COMPARE(broke.count(), 1);
    QCOMPARE(broke.last().at(0).toString(), watch.fault());
    write("{broken more"); // nothing new
    write("{\"getCPUInfo\":{}}");
    QTRY_COMPARE(mended.count(), 1);
    QCOMPARE(watch.fault(), QString());
    QVERIFY(QFile::remove(name()));
    QTRY_COMPARE(broke.count(), 2);
    write("{}");
    QTRY_COMPARE(mended.count(), 2);
}

void tst_RecordingWatch::beginsWithABrokenFile()
{
    RecordingWatch watch;
    QSignalSpy broke(&watch, &RecordingWatch::broke);
    QSignalSpy mended(&watch, &RecordingWatch::mended);
    write("broken");
    watch.follow(name());
    QVERIFY(!watch.fault().isEmpty());
    write("{}");
    QTRY_COMPARE(mended.count(), 1);
    QCOMPARE(broke.count(), 0); // whoever follows it has the fault
}

void tst_RecordingWatch::followsAnother()
{
    RecordingWatch watch;
    QSignalSpy mended(&watch, &RecordingWatch::mended);
    watch.follow(m_folder.filePath(QStringLiteral("missing.json")));
    QVERIFY(!watch.fault().isEmpty());
    watch.follow({});
    QCOMPARE(watch.fault(), QString());
    QFile file(m_folder.filePath(QStringLiteral("missing.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("{}") == 2);
    file.close();
    QVERIFY(!mended.wait(3 * RecordingWatch::period));
}

QTEST_GUILESS_MAIN(tst_RecordingWatch)
#include "tst_RecordingWatch.moc"
