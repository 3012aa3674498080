#include <QDir>
#include <QVersionNumber>
#include <QtTest>

#include <windows.h>

#include <vector>

/// The version and the icon that the files of the programs carry.
class tst_Resources_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bearsTheVersion_data();
    void bearsTheVersion();
    void bearsItsNames_data();
    void bearsItsNames();
    void hasAnIconOfEverySize_data();
    void hasAnIconOfEverySize();
};

namespace {

std::wstring pathOf(const QString &name)
{
    const QString path = QDir(QStringLiteral(FOLDER)).filePath(name);
    return QDir::toNativeSeparators(path).toStdWString();
}

std::vector<char> versionInformation(const QString &name)
{
    const std::wstring path = pathOf(name);
    DWORD unused = 0;
    std::vector<char> information(GetFileVersionInfoSizeW(path.c_str(), &unused));
    if (!GetFileVersionInfoW(path.c_str(), 0, DWORD(information.size()), information.data()))
        return {};
    return information;
}

quint64 packed(const QVersionNumber &version)
{
    return quint64(version.majorVersion()) << 48U | quint64(version.minorVersion()) << 32U |
           quint64(version.microVersion()) << 16U;
}

const char *const files[] = {"QtSystemMonitor.exe", "SystemMonitorLib1.dll", "deck_simulator.exe",
                             "sensor_recorder.exe"};

} // namespace

void tst_Resources_windows::bearsTheVersion_data()
{
    QTest::addColumn<DWORD>("type");
    for (const char *file : files)
        QTest::newRow(file) << DWORD(QByteArray(file).endsWith(".dll") ? VFT_DLL : VFT_APP);
}

void tst_Resources_windows::bearsTheVersion()
{
    const std::vector<char> information =
        versionInformation(QLatin1String(QTest::currentDataTag()));
    void *found = nullptr;
    UINT size = 0;
    QVERIFY(!information.empty());
    QVERIFY(VerQueryValueW(information.data(), L"\\", &found, &size));
    QCOMPARE(size, UINT(sizeof(VS_FIXEDFILEINFO)));
    const auto *const fixed = static_cast<const VS_FIXEDFILEINFO *>(found);
    const quint64 expected = packed(QVersionNumber::fromString(QStringLiteral(PROJECT_VERSION)));
    QCOMPARE(quint64(fixed->dwFileVersionMS) << 32U | fixed->dwFileVersionLS, expected);
    QCOMPARE(quint64(fixed->dwProductVersionMS) << 32U | fixed->dwProductVersionLS, expected);
    QTEST(fixed->dwFileType, "type");
}

void tst_Resources_windows::bearsItsNames_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *file, const char *key, const char *value) {
        QTest::addRow("%s, %s", file, key)
            << QString::fromLatin1(file) << QString::fromLatin1(key) << QString::fromLatin1(value);
    };
    for (const char *file : files) {
        row(file, "ProductName", "QtSystemMonitor");
        row(file, "OriginalFilename", file);
        row(file, "FileVersion", PROJECT_VERSION);
        row(file, "ProductVersion", PROJECT_VERSION);
    }
    row("QtSystemMonitor.exe", "FileDescription", "Hardware gauges for the keys of a control deck");
}

void tst_Resources_windows::bearsItsNames()
{
    QFETCH(QString, file);
    QFETCH(QString, key);
    const std::vector<char> information = versionInformation(file);
    const QString block = QStringLiteral("\\StringFileInfo\\040904B0\\%1").arg(key);
    void *found = nullptr;
    UINT size = 0;
    QVERIFY(!information.empty());
    QVERIFY(VerQueryValueW(information.data(), block.toStdWString().c_str(), &found, &size));
    QTEST(QString::fromWCharArray(static_cast<const wchar_t *>(found)), "value");
}

void tst_Resources_windows::hasAnIconOfEverySize_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("size");
    for (const char *file : {"QtSystemMonitor.exe", "deck_simulator.exe"}) {
        for (const int size : {16, 20, 24, 32, 48, 256})
            QTest::addRow("%s, %d", file, size) << QString::fromLatin1(file) << size;
    }
}

void tst_Resources_windows::hasAnIconOfEverySize()
{
    QFETCH(QString, file);
    QFETCH(int, size);
    HMODULE module = LoadLibraryExW(pathOf(file).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    QVERIFY(module != nullptr);
    HANDLE icon = LoadImageW(module, MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_DEFAULTCOLOR);
    FreeLibrary(module);
    QVERIFY(icon != nullptr);
    ICONINFO information = {};
    QVERIFY(GetIconInfo(static_cast<HICON>(icon), &information));
    BITMAP bitmap = {};
    GetObjectW(information.hbmColor, sizeof(bitmap), &bitmap);
    DeleteObject(information.hbmColor);
    DeleteObject(information.hbmMask);
    DestroyIcon(static_cast<HICON>(icon));
    QCOMPARE(int(bitmap.bmWidth), size);
    QCOMPARE(int(bitmap.bmHeight), size);
}

QTEST_GUILESS_MAIN(tst_Resources_windows)
#include "tst_resources_windows.moc"
