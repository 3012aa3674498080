#include "shell/desktop.h"

#include <QString>
#include <QtTest>

#include <windows.h>

#include <array>
#include <thread>

class tst_Desktop_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attachesTheThreadToTheDefaultDesktop();
    void leavesTheEnvironmentAlone();
};

namespace {

QString desktopOfThisThread()
{
    std::array<wchar_t, 64> name{};
    GetUserObjectInformationW(GetThreadDesktop(GetCurrentThreadId()), UOI_NAME, name.data(),
                              sizeof(name), nullptr);
    return QString::fromWCharArray(name.data());
}

} // namespace

void tst_Desktop_windows::attachesTheThreadToTheDefaultDesktop()
{
    std::array<wchar_t, 12> name{L"tst_desktop"};
    HDESK other = CreateDesktopW(name.data(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    QVERIFY(other != nullptr);
    QString before;
    QString after;
    // A thread that has windows cannot change its desktop; a new one has none.
    std::thread([&] {
        SetThreadDesktop(other);
        before = desktopOfThisThread();
        desktop::attach();
        after = desktopOfThisThread();
    }).join();
    CloseDesktop(other);
    QCOMPARE(before, QStringLiteral("tst_desktop"));
    QCOMPARE(after, QStringLiteral("Default"));
}

void tst_Desktop_windows::leavesTheEnvironmentAlone()
{
    qunsetenv("QT_QPA_PLATFORM");
    desktop::choosePlatform();
    QVERIFY(!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"));
}

QTEST_APPLESS_MAIN(tst_Desktop_windows)
#include "tst_desktop_windows.moc"
