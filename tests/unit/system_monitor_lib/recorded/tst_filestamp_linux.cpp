#include "system_monitor_lib/recorded/FileStamp.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <limits>
#include <sys/stat.h>

class tst_FileStamp_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void describesTheTargetOfALink();
    void waitsForNoPipe();
    void holdsTimesToTheirRange_data();
    void holdsTimesToTheirRange();

private:
    QString pathOf(const char *name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// A file system in memory can store any time.
    QTemporaryDir m_folder{QStringLiteral("/dev/shm/tst_filestamp")};
};

void tst_FileStamp_linux::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void tst_FileStamp_linux::describesTheTargetOfALink()
{
    QFile target(pathOf("target"));
    QVERIFY(target.open(QIODevice::WriteOnly));
    QCOMPARE(target.write("12345"), 5);
    target.close();
    QVERIFY(target.link(pathOf("link")));
    QCOMPARE(fileStamp(pathOf("link")).size, 5);
    QVERIFY(fileStamp(pathOf("link")) == fileStamp(target.fileName()));
    QVERIFY(target.remove());
    QCOMPARE(fileStamp(pathOf("link")).kind, FileStamp::Kind::Missing);
}

void tst_FileStamp_linux::waitsForNoPipe()
{
    QCOMPARE(mkfifo(QFile::encodeName(pathOf("pipe")).constData(), 0600), 0);
    QCOMPARE(fileStamp(pathOf("pipe")).kind, FileStamp::Kind::Other);
}

void tst_FileStamp_linux::holdsTimesToTheirRange_data()
{
    QTest::addColumn<qint64>("seconds");
    QTest::newRow("year 2400") << qint64{13'569'465'600};
    QTest::newRow("year 1600") << qint64{-11'676'096'000};
}

void tst_FileStamp_linux::holdsTimesToTheirRange()
{
    QFETCH(qint64, seconds);
    const QByteArray path = QFile::encodeName(pathOf("file"));
    QFile file(pathOf("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const timespec times[2] = {{seconds, 0}, {seconds, 0}};
    QCOMPARE(utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    struct stat status = {};
    QCOMPARE(::stat(path.constData(), &status), 0);
    QCOMPARE(qint64{status.st_mtim.tv_sec}, seconds);
    constexpr qint64 almostAll = std::numeric_limits<qint64>::max() / 100 * 99;
    const qint64 held = fileStamp(file.fileName()).modifiedNs;
    QVERIFY(seconds < 0 ? held < -almostAll : held > almostAll);
}

QTEST_APPLESS_MAIN(tst_FileStamp_linux)
#include "tst_filestamp_linux.moc"
