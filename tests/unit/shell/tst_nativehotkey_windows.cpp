#include "qt/QtVersions.h"
#include "shell/NativeHotKey.h"
#include "tests/support/Waits.h"

#include <QApplication>
#include <QWidget>
#include <QtTest>

#include <windows.h>

class tst_NativeHotKey_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheIdentifier_data();
    void findsTheIdentifier();
    void reachesAHiddenWindow();
};

namespace {

/// Whether windows can be found by their titles.
bool hasDesktop()
{
    HWND probe = CreateWindowExW(0, L"STATIC", L"tst_nativehotkey probe", WS_OVERLAPPED, 0, 0, 1, 1,
                                 nullptr, nullptr, nullptr, nullptr);
    const bool found = probe && FindWindowW(nullptr, L"tst_nativehotkey probe") == probe;
    DestroyWindow(probe);
    return found;
}

/// Like the plugin's window: native, never shown, found by its title.
class HiddenWindow : public QWidget
{
public:
    HiddenWindow()
    {
        setWindowTitle(QStringLiteral("tst_nativehotkey"));
        winId();
    }

    QVector<quint64> identifiers;

protected:
    bool nativeEvent(const QByteArray &eventType, void *message, NativeEventResult *result) override
    {
        const auto identifier = hotKeyIdentifier(eventType, message);
        if (identifier)
            identifiers.append(*identifier);
        return QWidget::nativeEvent(eventType, message, result);
    }
};

} // namespace

void tst_NativeHotKey_windows::findsTheIdentifier_data()
{
    QTest::addColumn<QByteArray>("eventType");
    QTest::addColumn<uint>("message");
    QTest::addColumn<quint64>("parameter");
    QTest::addColumn<bool>("found");
    const QByteArray windowMessage("windows_generic_MSG");
    QTest::newRow("first") << windowMessage << uint(WM_HOTKEY) << quint64(1) << true;
    QTest::newRow("second") << windowMessage << uint(WM_HOTKEY) << quint64(2) << true;
    QTest::newRow("dispatcher") << QByteArray("windows_dispatcher_MSG") << uint(WM_HOTKEY)
                                << quint64(1) << true;
    QTest::newRow("key") << windowMessage << uint(WM_KEYDOWN) << quint64(1) << false;
    QTest::newRow("other system") << QByteArray("xcb_generic_event_t") << uint(WM_HOTKEY)
                                  << quint64(1) << false;
    QTest::newRow("no type") << QByteArray() << uint(WM_HOTKEY) << quint64(1) << false;
}

void tst_NativeHotKey_windows::findsTheIdentifier()
{
    QFETCH(QByteArray, eventType);
    QFETCH(uint, message);
    QFETCH(quint64, parameter);
    QFETCH(bool, found);
    MSG native = {};
    native.message = message;
    native.wParam = parameter;
    const std::optional<quint64> identifier = hotKeyIdentifier(eventType, &native);
    QCOMPARE(identifier.has_value(), found);
    QCOMPARE(identifier.value_or(parameter), parameter);
}

void tst_NativeHotKey_windows::reachesAHiddenWindow()
{
    if (!hasDesktop())
        QSKIP("No display to have windows on");
    HiddenWindow window;
    HWND found = FindWindowW(nullptr, L"tst_nativehotkey");
    QCOMPARE(found, reinterpret_cast<HWND>(window.winId()));
    QVERIFY(PostMessageW(found, WM_HOTKEY, 1, 0));
    QTRY_COMPARE(window.identifiers, QVector<quint64>{1});
    QVERIFY(PostMessageW(found, WM_APP, 2, 0));
    QVERIFY(PostMessageW(found, WM_HOTKEY, 3, 0));
    QTRY_COMPARE(window.identifiers, (QVector<quint64>{1, 3}));
}

int main(int argc, char **argv)
{
    // The offscreen platform has no native windows.
    qputenv("QT_QPA_PLATFORM", "windows");
    QApplication application(argc, argv);
    tst_NativeHotKey_windows test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_nativehotkey_windows.moc"
