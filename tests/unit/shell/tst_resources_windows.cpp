#include <QCoreApplication>
#include <QVersionNumber>
#include <QtTest>

#include <windows.h>

#include <vector>

/// The icon and the version that the plugin's file carries; this program carries them too.
class tst_Resources_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bearsTheVersion();
    void bearsItsNames_data();
    void bearsItsNames();
    void hasAnIconOfEverySize_data();
    void hasAnIconOfEverySize();

private:
    std::vector<char> m_information;
};

namespace {

quint64 packed(const QVersionNumber &version)
{
    return quint64(version.majorVersion()) << 48U | quint64(version.minorVersion()) << 32U |
           quint64(version.microVersion()) << 16U;
}

} // namespace

void tst_Resources_windows::initTestCase()
{
    const std::wstring path = QCoreApplication::applicationFilePath().toStdWString();
    DWORD unused = 0;
    m_information.resize(GetFileVersionInfoSizeW(path.c_str(), &unused));
    QVERIFY(!m_information.empty());
    QVERIFY(
        GetFileVersionInfoW(path.c_str(), 0, DWORD(m_information.size()), m_information.data()));
}

void tst_Resources_windows::bearsTheVersion()
{
    void *found = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(m_information.data(), L"\\", &found, &size));
    QCOMPARE(size, UINT(sizeof(VS_FIXEDFILEINFO)));
    const auto *const fixed = static_cast<const VS_FIXEDFILEINFO *>(found);
    const quint64 expected = packed(QVersionNumber::fromString(QStringLiteral(PROJECT_VERSION)));
    QCOMPARE(quint64(fixed->dwFileVersionMS) << 32U | fixed->dwFileVersionLS, expected);
    QCOMPARE(quint64(fixed->dwProductVersionMS) << 32U | fixed->dwProductVersionLS, expected);
}

void tst_Resources_windows::bearsItsNames_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("ProductName") << "QtSystemMonitor";
    QTest::newRow("OriginalFilename") << "QtSystemMonitor.exe";
    QTest::newRow("FileVersion") << PROJECT_VERSION;
    QTest::newRow("ProductVersion") << PROJECT_VERSION;
}

void tst_Resources_windows::bearsItsNames()
{
    const QString key = QStringLiteral("\\StringFileInfo\\040904B0\\%1")
                            .arg(QLatin1String(QTest::currentDataTag()));
    void *found = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(m_information.data(), key.toStdWString().c_str(), &found, &size));
    QTEST(QString::fromWCharArray(static_cast<const wchar_t *>(found)), "value");
}

void tst_Resources_windows::hasAnIconOfEverySize_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 20, 24, 32, 48, 256})
        QTest::addRow("%d", size) << size;
}

void tst_Resources_windows::hasAnIconOfEverySize()
{
    QFETCH(int, size);
    HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, size, size,
                             LR_DEFAULTCOLOR);
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
