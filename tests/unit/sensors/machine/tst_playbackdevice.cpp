#include "sensors/machine/PlaybackDevice.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

class tst_PlaybackDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void putsTheDefaultDeviceFirst_data();
    void putsTheDefaultDeviceFirst();
    void leavesOutWhatCannotBeHeardOrNamed();
    void givesTheVolumeAtAnIndex_data();
    void givesTheVolumeAtAnIndex();
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

void tst_PlaybackDevice::givesTheVolumeAtAnIndex_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<bool>("listed");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, bool connected, bool listed, int index,
                        const char *error) {
        QTest::newRow(name) << connected << listed << index << QString::fromLatin1(error);
    };
    row("known", true, true, 0, "");
    row("no server", false, false, 0, "AudioERR: Unable to create audio device enumerator");
    row("no list", true, false, 0, "AudioERR: Unable to get audio device collection");
    row("one past the last", true, true, 2, "AudioERR: Invalid device index");
    row("negative", true, true, -1, "AudioERR: Invalid device index");
    row("volume unknown", true, true, 1, "AudioERR: Unable to retrieve the volume");
}

void tst_PlaybackDevice::givesTheVolumeAtAnIndex()
{
    QFETCH(bool, connected);
    QFETCH(bool, listed);
    QFETCH(int, index);
    QFETCH(QString, error);
    PlaybackDevice silent = device("b", "B");
    silent.volume = -1;
    const MessageCapture capture;
    QCOMPARE(volumeAt({connected, listed, {device("a", "A"), silent}}, index),
             error.isEmpty() ? 50.0F : -1.0F);
    QCOMPARE(MessageCapture::messages(),
             error.isEmpty() ? QStringList() : QStringList(MessageCapture::quoted(error)));
}

QTEST_APPLESS_MAIN(tst_PlaybackDevice)
#include "tst_playbackdevice.moc"
