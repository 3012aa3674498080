#include "sensors/machine/drives.h"

#include <QDir>
#include <QStorageInfo>
#include <QtTest>

#include <windows.h>

/// The drives of this machine.
class tst_Drives_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsTheSystemDrive();
    void listsFixedDrivesAlone();
    void readsLabelAndSpace();
    void hasNothingOfAnAbsentDrive();
};

namespace {

QStringList rootsOfType(UINT type)
{
    QStringList roots;
    for (const QFileInfo &drive : QDir::drives()) {
        const QString root = QDir::toNativeSeparators(drive.absoluteFilePath());
        if (GetDriveTypeW(root.toStdWString().c_str()) == type)
            roots.append(root);
    }
    return roots;
}

} // namespace

void tst_Drives_windows::listsTheSystemDrive()
{
    const QString systemDrive = qEnvironmentVariable("SystemDrive", QStringLiteral("C:"));
    QVERIFY(machineDrives().fixedRoots().contains(systemDrive.toUpper() + QLatin1Char('\\')));
}

void tst_Drives_windows::listsFixedDrivesAlone()
{
    const QStringList fixed = machineDrives().fixedRoots();
    QCOMPARE(fixed, rootsOfType(DRIVE_FIXED));
    if (qEnvironmentVariableIsSet("WINEPREFIX")) {
        // The machine that tests/support/wine.sh makes.
        QCOMPARE(fixed, (QStringList{QStringLiteral("C:\\"), QStringLiteral("Z:\\")}));
        QCOMPARE(rootsOfType(DRIVE_REMOTE), QStringList{QStringLiteral("N:\\")});
        QCOMPARE(rootsOfType(DRIVE_REMOVABLE), QStringList{QStringLiteral("R:\\")});
    }
}

void tst_Drives_windows::readsLabelAndSpace()
{
    const QStringList roots = machineDrives().fixedRoots();
    for (const QString &root : roots) {
        const QStorageInfo expected(root);
        QCOMPARE(machineDrives().volumeName(root), std::optional(expected.name()));
        const auto space = machineDrives().space(root);
        QVERIFY(space.has_value());
        QCOMPARE(space->totalBytes, quint64(expected.bytesTotal()));
        QVERIFY(space->freeBytes <= space->totalBytes);
        // Other programs use the drive meanwhile.
        const qint64 difference = qint64(space->freeBytes) - expected.bytesAvailable();
        QVERIFY(qAbs(difference) < qint64(1) << 30);
    }
}

void tst_Drives_windows::hasNothingOfAnAbsentDrive()
{
    const QStringList absent{QStringLiteral("Q:\\"), QStringLiteral("no drive"), QString()};
    for (const QString &root : absent) {
        QCOMPARE(machineDrives().volumeName(root), std::nullopt);
        QVERIFY(!machineDrives().space(root));
    }
}

QTEST_APPLESS_MAIN(tst_Drives_windows)
#include "tst_drives_windows.moc"
