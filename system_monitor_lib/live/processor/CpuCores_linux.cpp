#include "system_monitor_lib/live/processor/CpuCores.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/files/SysfsText.h"

#include <algorithm>

std::vector<int> firstProcessors(const MachineRoots &roots)
{
    std::vector<int> found;
    const QString root = roots.sys + QStringLiteral("/devices/system/cpu/");
    for (const QString &name : folderNames(root)) {
        bool isNumber = false;
        const int processor = name.mid(3).toInt(&isNumber);
        const QString entry = root + name;
        if (!isNumber || !name.startsWith(QLatin1String("cpu")) ||
            attributeWord(entry + QStringLiteral("/online")) == QLatin1String("0"))
            continue;
        const QByteArray siblings =
            attributeWord(entry + QStringLiteral("/topology/thread_siblings_list")).toLatin1();
        if (parseFirstProcessor({siblings.constData(), static_cast<std::size_t>(siblings.size())})
                .value_or(processor) == processor)
            found.push_back(processor);
    }
    std::sort(found.begin(), found.end());
    return found;
}
