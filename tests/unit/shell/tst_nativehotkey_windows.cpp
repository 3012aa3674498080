#include "shell/NativeHotKey.h"

#include <QtTest>

#include <windows.h>

class tst_NativeHotKey_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheIdentifier_data();
    void findsTheIdentifier();
};

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

QTEST_APPLESS_MAIN(tst_NativeHotKey_windows)
#include "tst_nativehotkey_windows.moc"
