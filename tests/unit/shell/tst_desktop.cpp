#include "shell/desktop.h"

#include <QtTest>

class tst_Desktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesThePlatform_data();
    void choosesThePlatform();
    void doesWithoutOpenGL();
};

void tst_Desktop::choosesThePlatform_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QByteArray>("waylandDisplay");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray unset;
    const QByteArray empty("");
    const QByteArray offscreen("offscreen");
    QTest::newRow("no display") << unset << unset << unset << offscreen;
    QTest::newRow("empty displays") << empty << empty << unset << offscreen;
    QTest::newRow("nothing chosen") << unset << unset << empty << offscreen;
    QTest::newRow("X") << QByteArray(":0") << unset << unset << QByteArray("xcb;offscreen");
    QTest::newRow("Wayland") << unset << QByteArray("wayland-0") << unset
                             << QByteArray("wayland;offscreen");
    QTest::newRow("both") << QByteArray(":0") << QByteArray("wayland-0") << empty
                          << QByteArray("wayland;xcb;offscreen");
    QTest::newRow("chosen") << unset << unset << QByteArray("minimal") << QByteArray("minimal");
    QTest::newRow("chosen on a display")
        << QByteArray(":0") << unset << QByteArray("minimal") << QByteArray("minimal");
}

void tst_Desktop::choosesThePlatform()
{
    QFETCH(QByteArray, display);
    QFETCH(QByteArray, waylandDisplay);
    QFETCH(QByteArray, before);
    const auto set = [](const char *name, const QByteArray &value) {
        return value.isNull() ? qunsetenv(name) : qputenv(name, value);
    };
    QVERIFY(set("DISPLAY", display));
    QVERIFY(set("WAYLAND_DISPLAY", waylandDisplay));
    QVERIFY(set("QT_QPA_PLATFORM", before));

    desktop::choosePlatform();
    QTEST(qgetenv("QT_QPA_PLATFORM"), "after");
}

void tst_Desktop::doesWithoutOpenGL()
{
    const char *const integration = "QT_XCB_GL_INTEGRATION";
    QVERIFY(qunsetenv(integration));
    desktop::choosePlatform();
    QCOMPARE(qgetenv(integration), QByteArray("none"));
    for (const char *chosen : {"xcb_egl", ""}) {
        QVERIFY(qputenv(integration, chosen));
        desktop::choosePlatform();
        QCOMPARE(qgetenv(integration), QByteArray(chosen));
    }
}

QTEST_APPLESS_MAIN(tst_Desktop)
#include "tst_desktop.moc"
