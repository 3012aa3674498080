#include "tests/support/InMemoryMachine.h"

#include "sensors/machine/audio.h"
#include "tests/support/InMemoryLibrary.h"

namespace {

void note(const QString &query, const QString &subject)
{
    InMemoryLibrary::queries.append(query + QLatin1Char(' ') + subject);
}

InMemoryMachine::Drive driveAt(const QString &root)
{
    for (const InMemoryMachine::Drive &drive : qAsConst(InMemoryMachine::drives)) {
        if (drive.root == root)
            return drive;
    }
    return {};
}

class Drives : public DriveSource
{
public:
    QStringList fixedRoots() override
    {
        InMemoryLibrary::queries.append(QStringLiteral("drives"));
        QStringList roots;
        for (const InMemoryMachine::Drive &drive : qAsConst(InMemoryMachine::drives))
            roots.append(drive.root);
        return roots;
    }

    std::optional<QString> volumeName(const QString &root) override
    {
        note(QStringLiteral("volume name"), root);
        return driveAt(root).volumeName;
    }

    std::optional<DriveSpace> space(const QString &root) override
    {
        note(QStringLiteral("space"), root);
        return driveAt(root).space;
    }
};

class Devices : public AudioSource
{
public:
    QStringList deviceNames() override
    {
        InMemoryLibrary::queries.append(QStringLiteral("devices"));
        QStringList names;
        for (const InMemoryMachine::Device &device : qAsConst(InMemoryMachine::devices))
            names.append(device.name);
        return names;
    }

    float volume(int index) override
    {
        note(QStringLiteral("volume"), QString::number(index));
        if (index >= 0 && index < InMemoryMachine::devices.size())
            return InMemoryMachine::devices.at(index).volume;
        return -1.0F;
    }
};

} // namespace

void InMemoryMachine::reset()
{
    drives.clear();
    devices.clear();
}

DriveSpace InMemoryMachine::gigabytes(quint64 freeGB, quint64 totalGB)
{
    return {freeGB << 30, totalGB << 30};
}

DriveSource &machineDrives()
{
    static Drives drives;
    return drives;
}

AudioSource &machineAudio()
{
    static Devices devices;
    return devices;
}
