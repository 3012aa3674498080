#include "sensors/AudioReadings.h"

#include "sensors/audio.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

class tst_AudioReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsEveryDevice();
    void truncatesTheSelectedVolume();
    void indexPastTheLastDevice_data();
    void indexPastTheLastDevice();
};

void tst_AudioReadings::init()
{
    InMemoryLibrary::reset();
    InMemoryMachine::reset();
}

void tst_AudioReadings::readsEveryDevice()
{
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 100.0F},
                                {QStringLiteral("Headset"), -1.0F},
                                {QStringLiteral("Speakers"), 12.25F}};
    const AudioReadings readings = readAudio(machineAudio(), 2);
    QCOMPARE(readings.names, (QStringList{QStringLiteral("Speakers"), QStringLiteral("Headset"),
                                          QStringLiteral("Speakers")}));
    QCOMPARE(readings.volumes, (QList<float>{100.0F, -1.0F, 12.25F}));
    QCOMPARE(readings.selectedVolume, 12);
    QCOMPARE(InMemoryLibrary::queries,
             (QStringList{QStringLiteral("devices"), QStringLiteral("volume 0"),
                          QStringLiteral("volume 1"), QStringLiteral("volume 2"),
                          QStringLiteral("volume 2")}));
}

void tst_AudioReadings::truncatesTheSelectedVolume()
{
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 0.355F * 100}};
    const AudioReadings readings = readAudio(machineAudio(), 0);
    QCOMPARE(readings.volumes, QList<float>{35.5F});
    QCOMPARE(readings.selectedVolume, 35);
}

void tst_AudioReadings::indexPastTheLastDevice_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("one past") << 1;
    QTest::newRow("negative") << -1;
}

void tst_AudioReadings::indexPastTheLastDevice()
{
    QFETCH(int, index);
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 50.0F}};
    const MessageCapture capture;
    const AudioReadings readings = readAudio(machineAudio(), index);
    QCOMPARE(readings.volumes, QList<float>{50.0F});
    QCOMPARE(readings.selectedVolume, -1);
    QCOMPARE(MessageCapture::messages(),
             QStringList{QStringLiteral("\"AudioERR: Invalid device index\"")});
}

QTEST_APPLESS_MAIN(tst_AudioReadings)
#include "tst_audioreadings.moc"
