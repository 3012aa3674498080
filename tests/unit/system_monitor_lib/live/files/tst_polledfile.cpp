#include "system_monitor_lib/live/files/PolledFile.h"
#include "tests/support/Waits.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray bytes(std::string_view text)
{
    return {text.data(), static_cast<int>(text.size())};
}

int openDescriptors()
{
    const QDir folder(QStringLiteral("/proc/self/fd"));
    return static_cast<int>(folder.entryList(QDir::AllEntries | QDir::System).size());
}

} // namespace

class PolledFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void readsPresentContent();
    void readsAtMostTheMaximum();
    void returnsAfterItVanished();
    void followsAReplacement();
    void failsOnADirectory();
    void readsTheKernel();
    void returnsNothingOfADeviceThatHasGone();
    void closesItsDescriptor();

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_path;
};

void PolledFileTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    m_path = m_directory->filePath(QStringLiteral("file"));
}

void PolledFileTest::cleanup()
{
    m_directory.reset();
}

void PolledFileTest::readsPresentContent()
{
    PolledFile file(m_path);
    QVERIFY(writeFile(m_path, "a long first content\n"));
    QCOMPARE(bytes(file.read()), QByteArray("a long first content\n"));
    QVERIFY(writeFile(m_path, "short\n"));
    QCOMPARE(bytes(file.read()), QByteArray("short\n"));
    QVERIFY(writeFile(m_path, QByteArray()));
    QCOMPARE(bytes(file.read()), QByteArray());
}

void PolledFileTest::readsAtMostTheMaximum()
{
    QVERIFY(writeFile(m_path, "0123456789"));
    PolledFile file(m_path, 4);
    QCOMPARE(bytes(file.read()), QByteArray("0123"));
}

void PolledFileTest::returnsAfterItVanished()
{
    PolledFile file(m_path);
    QCOMPARE(bytes(file.read()), QByteArray());
    QVERIFY(writeFile(m_path, "first"));
    QCOMPARE(bytes(file.read()), QByteArray("first"));
    QVERIFY(QFile::remove(m_path));
    QCOMPARE(bytes(file.read()), QByteArray());
    QCOMPARE(bytes(file.read()), QByteArray());
    QVERIFY(writeFile(m_path, "second"));
    QCOMPARE(bytes(file.read()), QByteArray("second"));
}

void PolledFileTest::followsAReplacement()
{
    QVERIFY(writeFile(m_path, "first"));
    PolledFile file(m_path);
    QCOMPARE(bytes(file.read()), QByteArray("first"));
    QVERIFY(replaceFile(m_path, "second"));
    QCOMPARE(bytes(file.read()), QByteArray("second"));
}

void PolledFileTest::failsOnADirectory()
{
    PolledFile file(m_directory->path());
    QCOMPARE(bytes(file.read()), QByteArray());
}

void PolledFileTest::readsTheKernel()
{
    PolledFile file(QStringLiteral("/proc/uptime"));
    const QByteArray uptime = bytes(file.read());
    QVERIFY(uptime.endsWith('\n'));
    QTRY_VERIFY(bytes(file.read()) != uptime);
}

/// Like the files of a process or device that is gone: the descriptor stays open, but reading
/// fails.
void PolledFileTest::returnsNothingOfADeviceThatHasGone()
{
    QProcess process;
    process.start(QStringLiteral("sleep"), {QStringLiteral("60")});
    QVERIFY(process.waitForStarted());
    PolledFile file(QStringLiteral("/proc/%1/stat").arg(process.processId()));
    QVERIFY(bytes(file.read()).startsWith(QByteArray::number(process.processId()) + ' '));
    const int whileOpen = openDescriptors();
    process.kill();
    QVERIFY(process.waitForFinished());
    QCOMPARE(bytes(file.read()), QByteArray());
    QVERIFY(openDescriptors() < whileOpen);
    QCOMPARE(bytes(file.read()), QByteArray());
}

void PolledFileTest::closesItsDescriptor()
{
    QVERIFY(writeFile(m_path, "content"));
    const int before = openDescriptors();
    {
        PolledFile file(m_path);
        QCOMPARE(openDescriptors(), before);
        file.read();
        file.read();
        QCOMPARE(openDescriptors(), before + 1);
        QVERIFY(QFile::remove(m_path));
        file.read();
        QCOMPARE(openDescriptors(), before);
        QVERIFY(writeFile(m_path, "content"));
        file.read();
    }
    QCOMPARE(openDescriptors(), before);
}

QTEST_GUILESS_MAIN(PolledFileTest)
#include "tst_polledfile.moc"
