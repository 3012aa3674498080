#include "tests/soak/Storm.h"

#include "tests/support/DataServerClient.h"
#include "tests/support/FakeHost.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/TallyHost.h"

#include <iterator>

namespace {

const QString kinds[] = {keyuuid::memory,
                         keyuuid::cpu,
                         keyuuid::cpuTemperature,
                         keyuuid::cpuClock,
                         keyuuid::netWork,
                         keyuuid::gpuTemperature,
                         keyuuid::memoryFreeMB,
                         keyuuid::memoryTotalGB,
                         keyuuid::volume,
                         keyuuid::cpuModel,
                         keyuuid::diskTemperature,
                         keyuuid::memoryModel,
                         keyuuid::physicalDisk,
                         keyuuid::upload,
                         keyuuid::prefix + QStringLiteral("no such kind")};

const char *const requests[] = {"GetAllSensorsData",      "Cpu Usage", "drives",
                                "AllAudioEndpointVolume", "nonsense",  "Disk Temperature"};

template <std::size_t size>
QString anyOf(const char *const (&texts)[size], QRandomGenerator &random)
{
    return QString::fromUtf8(texts[random.bounded(static_cast<int>(size))]);
}

QString contextOf(int key)
{
    return QStringLiteral("key %1").arg(key);
}

} // namespace

Storm::Storm(TallyHost &host)
    : m_host(host)
    , m_hasSound(m_sound.start())
    , m_canMount(m_folder.mountExt4(QStringLiteral("drive"), QStringLiteral("soak"),
                                    QStringLiteral("48M")))
    , m_isMounted(m_canMount)
{
    if (!m_hasSound)
        m_missing.append(QStringLiteral("no sound server: ") + m_sound.reason());
    if (!m_canMount)
        m_missing.append(QStringLiteral("no drives that come and go: mounting failed"));
}

Storm::~Storm() = default;

void Storm::every(int milliseconds, void (Storm::*step)())
{
    auto *const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, step);
    timer->start(milliseconds);
    m_timers.append(timer);
}

void Storm::start()
{
    if (!m_timers.isEmpty())
        return;
    every(20, &Storm::changeAKey);
    every(150, &Storm::visit);
    if (m_hasSound)
        every(15000, &Storm::restartTheSoundServer);
    if (m_canMount)
        every(4000, &Storm::mountOrUnmount);
}

QString Storm::anyAction()
{
    return m_random.bounded(8) == 0 ? keyuuid::allData
                                    : kinds[m_random.bounded(static_cast<int>(std::size(kinds)))];
}

QJsonObject Storm::anySettings()
{
    static const char *const modes[] = {"Single_Disk", "Disk_Loop", "Total_Disks"};
    static const char *const lines[] = {"单行显示", "双行显示"};
    return FakeHost::keySettings(
        {{QStringLiteral("text"), QString(m_random.bounded(12), QLatin1Char('T'))},
         {QStringLiteral("fontSize"), m_random.bounded(10, 60)},
         {QStringLiteral("color"), QColor::fromRgb(m_random.generate()).name()},
         {QStringLiteral("opacity"), m_random.bounded(1.0)},
         {QStringLiteral("showTitle"), m_random.bounded(2) == 0},
         {QStringLiteral("titleLines"), anyOf(lines, m_random)},
         {QStringLiteral("diskMode"), anyOf(modes, m_random)},
         {QStringLiteral("switchFrequency"), m_random.bounded(3)},
         {QStringLiteral("volumeNameItem"), QString::number(m_random.bounded(4))}});
}

void Storm::changeAKey()
{
    const int key = m_random.bounded(mostKeys);
    QString &action = m_actions[key];
    if (action.isEmpty()) {
        action = anyAction();
        m_host.send(QStringLiteral("willAppear"), action, contextOf(key), anySettings());
    } else if (m_random.bounded(6) == 0) {
        m_host.send(QStringLiteral("willDisappear"), action, contextOf(key));
        action.clear();
    } else {
        m_host.send(QStringLiteral("didReceiveSettings"), action, contextOf(key), anySettings());
    }
}

void Storm::visit()
{
    if (!m_panel) {
        m_panel = std::make_unique<DataServerClient>();
        m_panel->openSoon();
    } else if (m_panel->isOpen() && m_random.bounded(4) != 0) {
        m_panel->sendText(anyOf(requests, m_random));
    } else {
        m_panel.reset();
    }
}

void Storm::restartTheSoundServer()
{
    m_sound.kill();
    m_sound.start();
}

void Storm::mountOrUnmount()
{
    m_isMounted = m_isMounted ? !m_folder.run(QStringLiteral("umount drive"))
                              : m_folder.run(QStringLiteral("mount -o loop drive.img drive"));
}

void Storm::calm()
{
    qDeleteAll(m_timers);
    m_timers.clear();
    m_panel.reset();
    for (int key = 0; key < mostKeys; ++key) {
        if (!m_actions.at(key).isEmpty())
            m_host.send(QStringLiteral("willDisappear"), m_actions.at(key), contextOf(key));
        m_actions[key].clear();
    }
    if (m_canMount && !m_isMounted)
        mountOrUnmount();
}
