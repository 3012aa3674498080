#include "system_monitor_lib/live/files/HwmonChip.h"

#include "system_monitor_lib/live/files/Attribute.h"

#include <QDir>
#include <QRegularExpression>

namespace {

/// The inputs of the temperatures whose labels \a isMeant accepts.
template <typename Predicate>
QStringList inputsOf(const HwmonChip &chip, const Predicate &isMeant)
{
    QStringList inputs;
    const QDir directory(chip.directory);
    for (const QString &name : directory.entryList(QDir::Files, QDir::Name)) {
        if (!name.startsWith(QLatin1String("temp")) || !name.endsWith(QLatin1String("_label")) ||
            !isMeant(attributeWord(directory.filePath(name))))
            continue;
        const QString sensor = name.left(name.indexOf(QLatin1Char('_')));
        inputs += directory.filePath(sensor + QStringLiteral("_input"));
    }
    return inputs;
}

} // namespace

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
    return inputsOf(chip, [&label](const QString &word) { return word == label; }).value(0);
}

QStringList temperatureInputs(const HwmonChip &chip, const QRegularExpression &isMeant)
{
    return inputsOf(chip,
                    [&isMeant](const QString &label) { return isMeant.match(label).hasMatch(); });
}
