#include "sensors/PlaybackDevice.h"

#include <QtTest>

class tst_PlaybackDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void putsTheDefaultDeviceFirst_data();
    void putsTheDefaultDeviceFirst();
    void leavesOutWhatCannotBeHeardOrNamed();
};

namespace {

PlaybackDevice device(const char *id, const char *name, bool active = true)
{
    return {QByteArray(id), QString::fromUtf8(name), 50.0F, active};
}

QStringList namesOf(const QVector<PlaybackDevice> &devices)
{
    QStringList names;
    for (const PlaybackDevice &each : devices)
        names.append(each.name);
    return names;
}

} // namespace

void tst_PlaybackDevice::putsTheDefaultDeviceFirst_data()
{
    QTest::addColumn<QByteArray>("defaultId");
    QTest::addColumn<QStringList>("names");
    const QString a = QStringLiteral("A");
    const QString b = QStringLiteral("B");
    const QString c = QStringLiteral("C");
    QTest::newRow("first") << QByteArray("a") << QStringList{a, b, c};
    QTest::newRow("last") << QByteArray("c") << QStringList{c, a, b};
    QTest::newRow("unknown") << QByteArray("x") << QStringList{a, b, c};
    QTest::newRow("none") << QByteArray() << QStringList{a, b, c};
}

void tst_PlaybackDevice::putsTheDefaultDeviceFirst()
{
    QFETCH(QByteArray, defaultId);
    QTEST(namesOf(activeDevices({device("a", "A"), device("b", "B"), device("c", "C")}, defaultId)),
          "names");
}

void tst_PlaybackDevice::leavesOutWhatCannotBeHeardOrNamed()
{
    QCOMPARE(namesOf(activeDevices({device("a", "unplugged", false), device("b", ""),
                                    device("c", "Kopfhörer"), device("d", "Kopfhörer")},
                                   "a")),
             (QStringList{QStringLiteral("Kopfhörer"), QStringLiteral("Kopfhörer")}));
    QVERIFY(activeDevices({}, "a").isEmpty());
}

QTEST_APPLESS_MAIN(tst_PlaybackDevice)
#include "tst_playbackdevice.moc"
