#include "render/KeySettings.h"

#include "values/WholeNumber.h"

#include <QJsonValue>

#include <algorithm>

namespace {

constexpr double smallestFont = 1.0;
constexpr double largestFont = 600.0;

int lengthFrom(const QJsonValue &value)
{
    const int number = wholenumber::truncated(value.toDouble());
    return number != 0 ? number : wholenumber::truncated(value.toString().toDouble());
}

} // namespace

bool KeySettings::isFahrenheit() const
{
    return temperatureType == QStringLiteral("华氏度");
}

bool KeySettings::isOneLine() const
{
    return titleLines == QStringLiteral("单行显示");
}

bool KeySettings::isTwoLines() const
{
    return titleLines == QStringLiteral("双行显示");
}

bool KeySettings::showsAllDrives() const
{
    return diskMode == QLatin1String("Total_Disks");
}

bool KeySettings::loopsOverDrives() const
{
    return diskMode == QLatin1String("Disk_Loop");
}

KeySettings parseKeySettings(const QJsonObject &payload)
{
    const QJsonObject settings = payload.value(QLatin1String("settings")).toObject();
    const QJsonObject parameters = settings.value(QLatin1String("titleParameters")).toObject();
    const QJsonObject geometry = settings.value(QLatin1String("ActionGeometry")).toObject();
    const auto text = [&parameters](const char *name) {
        return parameters.value(QLatin1String(name)).toString();
    };

    // Compatibility: absent-counts
    KeySettings result;
    result.titleText = text("text");
    result.showTitle = parameters.value(QLatin1String("showTitle")).toBool();
    result.fontSpec = text("fontFamily");
    result.fontSize = parameters.value(QLatin1String("fontSize")).toInt();
    result.color = text("color");
    result.opacity = parameters.value(QLatin1String("opacity")).toDouble();
    result.temperatureType = text("temperatureType");
    result.titleLines = text("titleLines");
    result.diskMode = text("diskMode");
    result.volumeNameItem = text("volumeNameItem");
    result.switchFrequency = parameters.value(QLatin1String("switchFrequency")).toInt();
    result.showVolumeName = parameters.value(QLatin1String("showVolumeName")).toBool();
    result.chosenDisk = text("SelectPhysicalDisk");
    result.chosenFan = text("SelectCPUFan");
    result.chosenSensor = text("SelectValue");
    result.newlyChosenSensor = text("SystemDataSelect");
    result.keyWidth = lengthFrom(geometry.value(QLatin1String("width")));
    result.display = parseDisplaySettings(settings.value(QLatin1String("display")).toObject());
    return result;
}

int fontPixelSize(int fontSize, int keyWidth, int imageWidth)
{
    const double ratio = imageWidth == 0 ? 1.0 : static_cast<double>(keyWidth) / imageWidth;
    return static_cast<int>(std::clamp(ratio * fontSize, smallestFont, largestFont));
}
