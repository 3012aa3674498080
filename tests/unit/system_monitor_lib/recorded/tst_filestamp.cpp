#include "system_monitor_lib/recorded/FileStamp.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class tst_FileStamp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describesARegularFile();
    void changesWithTheFile();
    void tellsWhatIsNoRegularFile();

private:
    QString pathOf(const char *name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    void write(const QString &path, const QByteArray &content) const;

    QTemporaryDir m_folder;
};

namespace {

qint64 nanosecondsNow()
{
    constexpr qint64 perMillisecond = 1'000'000;
    return QDateTime::currentMSecsSinceEpoch() * perMillisecond;
}

} // namespace

void tst_FileStamp::write(const QString &path, const QByteArray &content) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void tst_FileStamp::describesARegularFile()
{
    const QString path = pathOf("ein Name mit Lücken 系统");
    QCOMPARE(fileStamp(path).kind, FileStamp::Kind::Missing);
    write(path, "123");
    const FileStamp stamp = fileStamp(path);
    QCOMPARE(stamp.kind, FileStamp::Kind::Regular);
    QCOMPARE(stamp.size, 3);
    constexpr qint64 oneMinute = 60'000'000'000;
    QVERIFY(qAbs(nanosecondsNow() - stamp.modifiedNs) < oneMinute);
    QVERIFY(qAbs(nanosecondsNow() - stamp.changedNs) < oneMinute);
    QVERIFY(stamp == fileStamp(path));
}

void tst_FileStamp::changesWithTheFile()
{
    const QString path = pathOf("changing");
    write(path, "123");
    const FileStamp first = fileStamp(path);

    write(path, "1234");
    const FileStamp longer = fileStamp(path);
    QVERIFY(!(longer == first));

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime past(QDate(2001, 2, 3), QTime(4, 5, 6), Qt::UTC);
    QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
    file.close();
    const FileStamp older = fileStamp(path);
    QVERIFY(!(older == longer));
    QCOMPARE(older.modifiedNs, past.toMSecsSinceEpoch() * 1'000'000);

    // Another file takes its name, with the same size and time.
    QVERIFY(QFile::rename(path, pathOf("kept")));
    write(path, "4321");
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
    file.close();
    const FileStamp other = fileStamp(path);
    QCOMPARE(other.size, older.size);
    QCOMPARE(other.modifiedNs, older.modifiedNs);
    QVERIFY(other.identity != older.identity);
    QVERIFY(!(other == older));
}

void tst_FileStamp::tellsWhatIsNoRegularFile()
{
    QCOMPARE(fileStamp(QString()).kind, FileStamp::Kind::Missing);
    QCOMPARE(fileStamp(pathOf("no/such")).kind, FileStamp::Kind::Missing);
    QCOMPARE(fileStamp(m_folder.path()).kind, FileStamp::Kind::Other);
    QCOMPARE(fileStamp(QProcess::nullDevice()).kind, FileStamp::Kind::Other);
}

QTEST_APPLESS_MAIN(tst_FileStamp)
#include "tst_filestamp.moc"
