#include "system_monitor_lib/live/graphics/SysfsGpus.h"

#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/graphics/SysfsGpu.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

SysfsGpus::SysfsGpus(const MachineRoots &roots)
    : m_roots(roots)
{
}

SysfsGpus::~SysfsGpus() = default;

void SysfsGpus::look()
{
    // Other entries are the connectors of the cards.
    static const QRegularExpression isCard(QStringLiteral("^card\\d+$"));
    constexpr std::size_t longestUevent = 4096;
    std::vector<std::unique_ptr<SysfsGpu>> gpus;
    const QString root = m_roots.sys + QStringLiteral("/class/drm/");
    for (const QString &name : folderNames(root)) {
        if (!isCard.match(name).hasMatch())
            continue;
        const QString card = QFileInfo(root + name).canonicalFilePath();
        PolledFile uevent(card + QStringLiteral("/device/uevent"), longestUevent);
        const QString driver = parseUevent(uevent.read(), "DRIVER");
        if (!SysfsGpu::isKnown(driver))
            continue;
        const QString place = SysfsGpu::placeOf(card);
        const auto known = std::find_if(m_gpus.begin(), m_gpus.end(), [&place](const auto &gpu) {
            return gpu && gpu->place() == place;
        });
        gpus.push_back(known != m_gpus.end() ? std::move(*known)
                                             : std::make_unique<SysfsGpu>(card, driver, m_roots));
    }
    m_gpus = std::move(gpus);
}

std::vector<GpuState> SysfsGpus::read(qint64 nowNs)
{
    if (m_listing.isDue(nowNs))
        look();
    std::vector<GpuState> states;
    for (const auto &gpu : m_gpus)
        states.push_back(gpu->read(nowNs));
    return states;
}
