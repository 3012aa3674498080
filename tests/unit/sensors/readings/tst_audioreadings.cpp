#include "sensors/readings/AudioReadings.h"

#include "sensors/machine/audio.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"

#include <QtTest>

class tst_AudioReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsEveryDevice();
    void truncatesTheSelectedVolume();
    void selectedVolumeThatCannotBeRead();
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

void tst_AudioReadings::selectedVolumeThatCannotBeRead()
{
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 50.0F},
                                {QStringLiteral("Headset"), -1.0F}};
    const AudioReadings readings = readAudio(machineAudio(), 1);
    QCOMPARE(readings.volumes, (QList<float>{50.0F, -1.0F}));
    QCOMPARE(readings.selectedVolume, -1);
    // The selected device is queried even if the list is shorter.
    InMemoryLibrary::queries.clear();
    QCOMPARE(readAudio(machineAudio(), 2).selectedVolume, -1);
    QCOMPARE(InMemoryLibrary::queries.constLast(), QStringLiteral("volume 2"));
}

QTEST_APPLESS_MAIN(tst_AudioReadings)
#include "tst_audioreadings.moc"
