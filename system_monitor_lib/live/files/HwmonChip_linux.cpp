#include "system_monitor_lib/live/files/HwmonChip.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/FolderNames.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

/// The inputs of the temperatures whose labels \a isMeant accepts.
template <typename Predicate>
QStringList inputsOf(const HwmonChip &chip, const Predicate &isMeant)
{
    QStringList inputs;
    const QString folder = chip.directory + QLatin1Char('/');
    for (const QString &name : folderNames(folder)) {
        if (!name.startsWith(QLatin1String("temp")) || !name.endsWith(QLatin1String("_label")) ||
            !isMeant(attributeWord(folder + name)))
            continue;
        const QString sensor = name.left(name.indexOf(QLatin1Char('_')));
        inputs += folder + sensor + QStringLiteral("_input");
    }
    return inputs;
}

} // namespace

std::vector<HwmonChip> hwmonChips(const MachineRoots &roots)
{
    const QString root = roots.sys + QStringLiteral("/class/hwmon/");
    std::vector<HwmonChip> chips;
    for (const QString &entry : folderNames(root)) {
        const QString directory = QFileInfo(root + entry).canonicalFilePath();
        const QString name = attributeWord(directory + QStringLiteral("/name"));
        if (!directory.isEmpty() && !name.isEmpty())
            chips.push_back({name, directory});
    }
    return chips;
}

QString temperatureInput(const HwmonChip &chip, const QString &label)
{
    return inputsOf(chip, [&label](const QString &word) { return word == label; }).value(0);
}

QStringList temperatureInputs(const HwmonChip &chip, const QRegularExpression &isMeant)
{
    return inputsOf(chip,
                    [&isMeant](const QString &label) { return isMeant.match(label).hasMatch(); });
}
