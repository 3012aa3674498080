#include "deck_simulator/deck/EntrySettings.h"

#include <tuple>

namespace deck {

namespace {

constexpr int longestText = 4096;

auto members(const EntrySettings &settings)
{
    return std::tie(settings.text, settings.showTitle, settings.fontFamily, settings.fontSize,
                    settings.color, settings.opacity, settings.temperatureType, settings.titleLines,
                    settings.diskMode, settings.volumeNameItem, settings.switchFrequency,
                    settings.showVolumeName, settings.selectValue, settings.selectCpuFan,
                    settings.selectPhysicalDisk, settings.audioDevice, settings.fillsKey,
                    settings.display);
}

void take(const QJsonObject &object, const char *name, QString &text)
{
    const QJsonValue value = object.value(QLatin1String(name));
    if (value.isString() && value.toString().size() <= longestText)
        text = value.toString();
}

void take(const QJsonObject &object, const char *name, bool &flag)
{
    flag = object.value(QLatin1String(name)).toBool(flag);
}

void take(const QJsonObject &object, const char *name, int &number, int least, int greatest)
{
    const int value = object.value(QLatin1String(name)).toInt(least - 1);
    if (value >= least && value <= greatest)
        number = value;
}

void insertChoice(QJsonObject &object, const char *name, const QString &choice)
{
    if (!choice.isEmpty())
        object.insert(QLatin1String(name), choice);
}

} // namespace

bool operator==(const EntrySettings &left, const EntrySettings &right)
{
    return members(left) == members(right);
}

bool operator!=(const EntrySettings &left, const EntrySettings &right)
{
    return !(left == right);
}

QJsonObject settingsMessage(const EntrySettings &settings, const QSize &geometry)
{
    QJsonObject parameters{
        {QStringLiteral("text"), settings.text},
        {QStringLiteral("showTitle"), settings.showTitle},
        {QStringLiteral("fontFamily"), settings.fontFamily},
        {QStringLiteral("fontSize"), settings.fontSize},
        {QStringLiteral("color"), settings.color},
        {QStringLiteral("opacity"), settings.opacity},
        {QStringLiteral("temperatureType"), settings.temperatureType},
        {QStringLiteral("titleLines"), settings.titleLines},
        {QStringLiteral("diskMode"), settings.diskMode},
        {QStringLiteral("volumeNameItem"), settings.volumeNameItem},
        {QStringLiteral("switchFrequency"), settings.switchFrequency},
        {QStringLiteral("showVolumeName"), settings.showVolumeName},
    };
    // A panel sends its choice of a sensor under the first name, the plugin stores it under the
    // second.
    insertChoice(parameters, "SystemDataSelect", settings.selectValue);
    insertChoice(parameters, "SelectValue", settings.selectValue);
    insertChoice(parameters, "SelectCPUFan", settings.selectCpuFan);
    insertChoice(parameters, "SelectPhysicalDisk", settings.selectPhysicalDisk);
    QJsonObject message{
        {QStringLiteral("titleParameters"), parameters},
        {QStringLiteral("ActionGeometry"),
         QJsonObject{{QStringLiteral("width"), geometry.width()},
                     {QStringLiteral("height"), geometry.height()}}},
    };
    insertChoice(message, "select", settings.audioDevice);
    // A key without it is the key that it was before there were gauges.
    const QJsonObject display = displayObject(settings.display);
    if (!display.isEmpty())
        message.insert(QStringLiteral("display"), display);
    return message;
}

EntrySettings settingsFrom(const QJsonObject &message, const EntrySettings &settings)
{
    const QJsonObject parameters = message.value(QLatin1String("titleParameters")).toObject();
    EntrySettings result = settings;
    take(parameters, "text", result.text);
    take(parameters, "showTitle", result.showTitle);
    take(parameters, "fontFamily", result.fontFamily);
    take(parameters, "fontSize", result.fontSize, 1, 600);
    take(parameters, "color", result.color);
    const double opacity = parameters.value(QLatin1String("opacity")).toDouble(-1);
    if (opacity >= 0 && opacity <= 1)
        result.opacity = opacity;
    take(parameters, "temperatureType", result.temperatureType);
    take(parameters, "titleLines", result.titleLines);
    take(parameters, "diskMode", result.diskMode);
    take(parameters, "volumeNameItem", result.volumeNameItem);
    take(parameters, "switchFrequency", result.switchFrequency, 1, 86400);
    take(parameters, "showVolumeName", result.showVolumeName);
    take(parameters, "SelectValue", result.selectValue);
    take(parameters, "SelectCPUFan", result.selectCpuFan);
    take(parameters, "SelectPhysicalDisk", result.selectPhysicalDisk);
    take(message, "select", result.audioDevice);
    const QJsonValue display = message.value(QLatin1String("display"));
    if (display.isObject())
        result.display = displayFrom(display.toObject());
    return result;
}

} // namespace deck
