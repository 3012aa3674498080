#include "system_monitor_lib/recorded/FileStamp_windows.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

#include <limits>

class tst_FileStamp_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsFrom1970_data();
    void countsFrom1970();
    void describesTheTargetOfALink();
    void describesAFileThatIsHeld();
};

void tst_FileStamp_windows::countsFrom1970_data()
{
    QTest::addColumn<quint64>("ticks");
    QTest::addColumn<qint64>("nanoseconds");
    constexpr quint64 year1970 = 116'444'736'000'000'000;
    constexpr qint64 most = std::numeric_limits<qint64>::max() / 100 * 100;
    QTest::newRow("1970") << year1970 << qint64{0};
    QTest::newRow("a tick later") << year1970 + 1 << qint64{100};
    QTest::newRow("a tick earlier") << year1970 - 1 << qint64{-100};
    QTest::newRow("2025-03-02 09:05:03")
        << quint64{133'853'655'030'000'000} << qint64{1'740'891'903'000'000'000};
    QTest::newRow("none known") << quint64{0} << -most;
    QTest::newRow("1601") << quint64{1} << -most;
    QTest::newRow("first in range") << year1970 - quint64{most / 100} << -most;
    QTest::newRow("last in range") << year1970 + quint64{most / 100} << most;
    QTest::newRow("beyond it") << year1970 + quint64{most / 100} + 1 << most;
    QTest::newRow("largest") << std::numeric_limits<quint64>::max() << most;
}

void tst_FileStamp_windows::countsFrom1970()
{
    QFETCH(quint64, ticks);
    QTEST(nanosecondsSince1970(ticks), "nanoseconds");
}

void tst_FileStamp_windows::describesTheTargetOfALink()
{
    const QTemporaryDir folder;
    QFile target(folder.filePath(QStringLiteral("target")));
    QVERIFY(target.open(QIODevice::WriteOnly));
    QCOMPARE(target.write("12345"), 5);
    target.close();
    const QString link = folder.filePath(QStringLiteral("link"));
    constexpr DWORD withoutPrivilege = 2;
    CreateSymbolicLinkW(link.toStdWString().c_str(), target.fileName().toStdWString().c_str(),
                        withoutPrivilege);
    if (GetFileAttributesW(link.toStdWString().c_str()) == INVALID_FILE_ATTRIBUTES)
        QSKIP("Links cannot be made here: Wine makes none, Windows asks for the developer mode");
    QCOMPARE(fileStamp(link).size, 5);
    QVERIFY(fileStamp(link) == fileStamp(target.fileName()));
}

void tst_FileStamp_windows::describesAFileThatIsHeld()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("held"));
    HANDLE held =
        CreateFileW(path.toStdWString().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    QVERIFY(held != INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(held, "1234", 4, &written, nullptr);
    const FileStamp stamp = fileStamp(path);
    CloseHandle(held);
    QCOMPARE(stamp.kind, FileStamp::Kind::Regular);
    QCOMPARE(stamp.size, 4);
}

QTEST_APPLESS_MAIN(tst_FileStamp_windows)
#include "tst_filestamp_windows.moc"
