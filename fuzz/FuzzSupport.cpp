#include "fuzz/FuzzSupport.h"

#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/readings/SensorRefresh.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/TestFonts.h"
#include "json/ParseJson.h"

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

void dropMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/,
                 const QString & /*message*/)
{
}

QJsonObject member(const QJsonObject &object, const char *name)
{
    return object.value(QLatin1String(name)).toObject();
}

quint64 bytes(const QJsonValue &value)
{
    constexpr double most = 1e19;
    return static_cast<quint64>(std::clamp(value.toDouble(), 0.0, most));
}

InMemoryMachine::Drive driveOf(const QJsonObject &object)
{
    InMemoryMachine::Drive drive;
    drive.root = object.value(QLatin1String("root")).toString();
    const QJsonValue name = object.value(QLatin1String("name"));
    if (name.isString())
        drive.volumeName = name.toString();
    const QJsonValue free = object.value(QLatin1String("free"));
    if (free.isDouble())
        drive.space = DriveSpace{bytes(free), bytes(object.value(QLatin1String("total")))};
    return drive;
}

float volumeOf(const QJsonObject &object)
{
    return static_cast<float>(
        std::clamp(object.value(QLatin1String("volume")).toDouble(-1), -1.0, 100.0));
}

void serveMachine(const QJsonObject &object)
{
    InMemoryMachine::reset();
    for (const QJsonValue drive : object.value(QLatin1String("drives")).toArray())
        InMemoryMachine::drives.append(driveOf(drive.toObject()));
    for (const QJsonValue device : object.value(QLatin1String("devices")).toArray())
        InMemoryMachine::devices.append({device.toObject().value(QLatin1String("name")).toString(),
                                         volumeOf(device.toObject())});
}

} // namespace

namespace fuzz {

void silence()
{
    qInstallMessageHandler(dropMessage);
}

void makeApplication()
{
    silence();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testfonts::hideMachineFonts();
    static std::array<char, 5> name{"fuzz"};
    static std::array<char *, 2> arguments{name.data(), nullptr};
    static int count = 1;
    static auto *const application = new QGuiApplication(count, arguments.data());
    Q_UNUSED(application)
    testfonts::registerFile(QStringLiteral("Roboto-Bold.ttf"));
}

QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<int>(size)};
}

QString textOf(const std::uint8_t *data, std::size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void keepSmall(normalAction &key)
{
    constexpr int largestFont = 66;
    constexpr int longestTitle = 64;
    if (key.font.pixelSize() > largestFont)
        key.font.setPixelSize(largestFont);
    key.titleText.truncate(longestTitle);
}

void serve(const QJsonObject &object)
{
    InMemoryLibrary::reset();
    InMemoryLibrary::systemInfo = member(object, "getSystemInfo");
    InMemoryLibrary::cpuInfo = member(object, "getCPUInfo");
    InMemoryLibrary::cpuDtsInfo = member(object, "getCPUDTSInfo");
    InMemoryLibrary::cpuEnhancedInfo = member(object, "getCPUEnhancedInfo");
    InMemoryLibrary::gpuInfo = member(object, "getGPUInfo");
    InMemoryLibrary::networkInfo = member(object, "getNetworkInfo");
    InMemoryLibrary::smartInfo = member(object, "getSMARTInfo");
    InMemoryLibrary::presentMon = member(object, "getPresentMon");
    InMemoryLibrary::allSensors = member(object, "getAllSensorsData");
    serveMachine(object);
}

void takeDesktopReadings()
{
    QFile file(QStringLiteral(FIXTURES_DIRECTORY "/recordings/desktop.json"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("No recording to fuzz with");
    serve(parseJson(file.readAll()).object());
    constexpr quint64 freeGB = 120;
    constexpr quint64 totalGB = 500;
    InMemoryMachine::drives = {{QStringLiteral("/"), QStringLiteral("System"),
                                InMemoryMachine::gigabytes(freeGB, totalGB)},
                               {QStringLiteral("/home"), QString(), {}}};
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 45.0F}};
    VqSystemMonitorLib library(false, nullptr);
    refreshSystemInfor(&library, 0);
    refreshModelNames(&library);
}

ScratchFile::ScratchFile(const QString &name)
    : m_path(m_folder.filePath(name))
{
}

void ScratchFile::write(const QByteArray &content) const
{
    QFile file(m_path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

} // namespace fuzz
