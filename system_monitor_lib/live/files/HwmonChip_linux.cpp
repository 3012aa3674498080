#include "system_monitor_lib/live/files/HwmonChip.h"

#include "system_monitor_lib/live/files/Attribute.h"

#include <QDir>
#include <QRegularExpression>

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
    const QRegularExpression isLabel(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(label)));
    return temperatureInputs(chip, isLabel).value(0);
}

QStringList temperatureInputs(const HwmonChip &chip, const QRegularExpression &isMeant)
{
    QStringList inputs;
    const QDir directory(chip.directory);
    for (const QString &name :
         directory.entryList({QStringLiteral("temp*_label")}, QDir::Files, QDir::Name)) {
        if (!isMeant.match(attributeWord(directory.filePath(name))).hasMatch())
            continue;
        const QString sensor = name.left(name.indexOf(QLatin1Char('_')));
        inputs += directory.filePath(sensor + QStringLiteral("_input"));
    }
    return inputs;
}
