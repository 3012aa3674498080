#include "system_monitor_lib/live/files/HwmonChip.h"

#include "system_monitor_lib/live/files/Attribute.h"

#include <QDir>

std::vector<HwmonChip> hwmonChips(const MachineRoots &roots)
{
    const QDir root(roots.sys + QStringLiteral("/class/hwmon"));
    std::vector<HwmonChip> chips;
    for (const QFileInfo &entry : root.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString directory = entry.canonicalFilePath();
        const QString name = attributeWord(directory + QStringLiteral("/name"));
        if (!directory.isEmpty() && !name.isEmpty())
            chips.push_back({name, directory});
    }
    return chips;
}

QString temperatureInput(const HwmonChip &chip, const QString &label)
{
    const QDir directory(chip.directory);
    for (const QString &name :
         directory.entryList({QStringLiteral("temp*_label")}, QDir::Files, QDir::Name)) {
        if (attributeWord(directory.filePath(name)) == label) {
            const QString sensor = name.left(name.indexOf(QLatin1Char('_')));
            return directory.filePath(sensor + QStringLiteral("_input"));
        }
    }
    return {};
}
