#include "sensors/machine/PulseAudioDevices_linux.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/SoundServer.h"
#include "tests/support/Waits.h"

#include <QElapsedTimer>
#include <QtTest>

#include <memory>

/// A real sound server that starts, changes, hangs and ends.
class tst_PulseAudioDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void listsTheDevices();
    void tellsTheVolume_data();
    void tellsTheVolume();
    void tellsTheLoudestChannel();
    void followsTheDefaultDevice();
    void followsDevicesThatComeAndGo();
    void failsPastTheLastDevice_data();
    void failsPastTheLastDevice();
    void failsWithoutAServer();
    void findsAServerThatStartsLater();
    void comesBackAfterTheServer();
    void doesNotWaitForAServerThatHangs();

private:
    /// The server has its own steps of volume.
    bool isVolume(int index, float percent) const
    {
        return qAbs(m_devices->volume(index) - percent) < 0.01F;
    }

    bool control(const char *command) const
    {
        return m_server->control(QString::fromLatin1(command).split(QLatin1Char(' ')));
    }

    std::unique_ptr<SoundServer> m_server;
    std::unique_ptr<PulseAudioDevices> m_devices;
};

namespace {

const QStringList bothDevices{QStringLiteral("Desk Speakers"), QStringLiteral("Head Phones")};
const QString noServer = QStringLiteral("\"AudioERR: Unable to create audio device enumerator\"");

} // namespace

void tst_PulseAudioDevices::initTestCase()
{
    SoundServer server;
    if (!server.start())
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + server.reason()));
}

void tst_PulseAudioDevices::init()
{
    m_server = std::make_unique<SoundServer>();
    QVERIFY2(m_server->start(), qPrintable(m_server->reason()));
    QVERIFY(control("set-default-sink speakers"));
    m_devices = std::make_unique<PulseAudioDevices>();
    QTRY_COMPARE(m_devices->deviceNames(), bothDevices);
}

void tst_PulseAudioDevices::cleanup()
{
    m_devices.reset();
    m_server.reset();
}

void tst_PulseAudioDevices::listsTheDevices()
{
    QCOMPARE(m_devices->volume(0), 100.0F);
    QCOMPARE(m_devices->volume(1), 100.0F);
}

void tst_PulseAudioDevices::tellsTheVolume_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<float>("percent");
    QTest::newRow("half") << QStringLiteral("50%") << 50.0F;
    QTest::newRow("silent") << QStringLiteral("0%") << 0.0F;
    QTest::newRow("a third") << QStringLiteral("23265") << 100.0F * 23265 / 65536;
    QTest::newRow("amplified") << QStringLiteral("150%") << 100.0F;
}

void tst_PulseAudioDevices::tellsTheVolume()
{
    QFETCH(QString, setting);
    QFETCH(float, percent);
    // From another value, so that there is a change even if the volume ends as it began.
    QVERIFY(control("set-sink-volume phones 77%"));
    QTRY_VERIFY(isVolume(1, 77.0F));
    QVERIFY(
        m_server->control({QStringLiteral("set-sink-volume"), QStringLiteral("phones"), setting}));
    QTRY_VERIFY(isVolume(1, percent));
    QCOMPARE(m_devices->volume(0), 100.0F);
}

void tst_PulseAudioDevices::tellsTheLoudestChannel()
{
    QVERIFY(control("set-sink-volume speakers 20% 40%"));
    QTRY_VERIFY(isVolume(0, 40.0F));
    QVERIFY(control("set-sink-mute speakers 1"));
    QVERIFY(control("set-sink-volume speakers 20% 60%"));
    QTRY_VERIFY(isVolume(0, 60.0F));
}

void tst_PulseAudioDevices::followsTheDefaultDevice()
{
    QVERIFY(control("set-default-sink phones"));
    QTRY_COMPARE(m_devices->deviceNames(), (QStringList{bothDevices.at(1), bothDevices.at(0)}));
}

void tst_PulseAudioDevices::followsDevicesThatComeAndGo()
{
    QVERIFY(control("load-module module-null-sink sink_name=third"));
    QTRY_COMPARE(m_devices->deviceNames().size(), 3);
    QVERIFY(control("unload-module module-null-sink"));
    QTRY_VERIFY(!m_devices->deviceNames().contains(bothDevices.at(0)));
}

void tst_PulseAudioDevices::failsPastTheLastDevice_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("one past the last") << 2;
    QTest::newRow("negative") << -1;
}

void tst_PulseAudioDevices::failsPastTheLastDevice()
{
    QFETCH(int, index);
    const MessageCapture capture;
    QCOMPARE(m_devices->volume(index), -1.0F);
    QCOMPARE(MessageCapture::messages(),
             QStringList{QStringLiteral("\"AudioERR: Invalid device index\"")});
}

void tst_PulseAudioDevices::failsWithoutAServer()
{
    m_server->kill();
    QTRY_VERIFY(m_devices->deviceNames().isEmpty());
    const MessageCapture capture;
    QCOMPARE(m_devices->volume(0), -1.0F);
    QCOMPARE(MessageCapture::messages(), QStringList{noServer});
}

void tst_PulseAudioDevices::findsAServerThatStartsLater()
{
    m_server->kill();
    PulseAudioDevices early;
    QVERIFY(early.deviceNames().isEmpty());
    QVERIFY(m_server->start());
    QTRY_COMPARE(early.deviceNames().size(), 2);
}

void tst_PulseAudioDevices::comesBackAfterTheServer()
{
    for (int restart = 0; restart < 2; ++restart) {
        m_server->kill();
        QTRY_VERIFY(m_devices->deviceNames().isEmpty());
        QVERIFY(m_server->start());
        QTRY_COMPARE(m_devices->deviceNames().size(), 2);
    }
    QVERIFY(control("set-sink-volume speakers 25%"));
    const int speakers = static_cast<int>(m_devices->deviceNames().indexOf(bothDevices.at(0)));
    QTRY_VERIFY(isVolume(speakers, 25.0F));
}

void tst_PulseAudioDevices::doesNotWaitForAServerThatHangs()
{
    m_server->freeze();
    QElapsedTimer timer;
    timer.start();
    for (int query = 0; query < 1000; ++query) {
        m_devices->deviceNames();
        m_devices->volume(0);
    }
    const auto another = std::make_unique<PulseAudioDevices>();
    another->deviceNames();
    // Far more than the calls cost, far less than any time-out for a server.
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_devices->volume(0), 100.0F);
    m_server->thaw();
    QVERIFY(control("set-sink-volume speakers 30%"));
    QTRY_VERIFY(isVolume(0, 30.0F));
}

QTEST_GUILESS_MAIN(tst_PulseAudioDevices)
#include "tst_pulseaudiodevices.moc"
