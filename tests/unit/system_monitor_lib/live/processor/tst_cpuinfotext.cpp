#include "system_monitor_lib/live/processor/ArmCores.h"
#include "system_monitor_lib/live/processor/CpuInfoText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class CpuInfoTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsModel_data();
    void findsModel();
    void findsArmCores_data();
    void findsArmCores();
    void knowsWhetherClocksChange_data();
    void knowsWhetherClocksChange();
};

void CpuInfoTextTest::findsModel_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("model");

    QTest::newRow("x86") << fixture(QStringLiteral("proc/virtual-machine-epyc/cpuinfo"))
                         << QStringLiteral("AMD EPYC");
    QTest::newRow("blanks run together")
        << fixture(QStringLiteral("proc/linux-2.6.32-server/cpuinfo"))
        << QStringLiteral("Intel(R) Core(TM) i7 CPU 920 @ 2.67GHz");
    QTest::newRow("ARM board") << fixture(QStringLiteral("proc/raspberry-pi-zero/cpuinfo"))
                               << QStringLiteral("BCM2835");
    QTest::newRow("ARM board without hardware line")
        << QByteArray("processor\t: 0\nModel\t\t: Raspberry Pi 4 Model B Rev 1.1\n")
        << QStringLiteral("Raspberry Pi 4 Model B Rev 1.1");
    QTest::newRow("model number is no name") << QByteArray("model\t\t: 2\n") << QString();
    QTest::newRow("empty name, later a good one")
        << QByteArray("model name\t: \n\nmodel name\t: Second\n") << QStringLiteral("Second");
    QTest::newRow("POWER") << QByteArray("processor\t: 0\ncpu\t\t: POWER9, altivec supported\n"
                                         "clock\t\t: 2300.000000MHz\nmachine\t\t: PowerNV\n")
                           << QStringLiteral("POWER9");
    QTest::newRow("LoongArch") << QByteArray("system type\t\t: generic-loongson-machine\n"
                                             "Model Name\t\t: Loongson-3A5000\n")
                               << QStringLiteral("Loongson-3A5000");
    QTest::newRow("RISC-V") << QByteArray("processor\t: 0\nhart\t\t: 1\nisa\t\t: rv64imafdc\n"
                                          "uarch\t\t: sifive,u74-mc\n")
                            << QStringLiteral("sifive,u74-mc");
    QTest::newRow("MIPS") << QByteArray("system type\t\t: a board\ncpu model\t\t: MIPS 24Kc V5.5\n")
                          << QStringLiteral("MIPS 24Kc V5.5");
    QTest::newRow("x86 without a name")
        << QByteArray("model name\t: unknown\ncpu family\t: 6\n") << QString();
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("cut") << QByteArray("model name\t: AMD EP") << QString();
    QTest::newRow("no colon") << QByteArray("model name AMD\n") << QString();
    QTest::newRow("not UTF-8") << QByteArray("model name\t: A\xff"
                                             "B\n")
                               << QStringLiteral("A\ufffdB");
}

void CpuInfoTextTest::findsModel()
{
    QFETCH(const QByteArray, text);
    QTEST(parseCpuModel(view(text)), "model");
}

void CpuInfoTextTest::findsArmCores_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("cores");
    const QByteArray little = "CPU implementer\t: 0x41\nCPU part\t: 0xd05\n";
    const QByteArray big = "CPU implementer\t: 0x41\nCPU part\t: 0xd0b\n";
    const QByteArray unknown = "CPU implementer\t: 0x41\nCPU part\t: 0xfff\n";
    QTest::newRow("one kind") << little + little << QStringLiteral("ARM Cortex-A55");
    QTest::newRow("two kinds") << little + little + big + big
                               << QStringLiteral("ARM Cortex-A76 / Cortex-A55");
    QTest::newRow("another maker") << QByteArray("CPU implementer : 0xc0\nCPU part : 0xac3\n")
                                   << QStringLiteral("Ampere Ampere-1");
    QTest::newRow("unknown") << unknown << QString();
    QTest::newRow("one of two unknown") << little + unknown << QString();
    QTest::newRow("no maker") << QByteArray("CPU part\t: 0xd05\n") << QString();
    QTest::newRow("letters") << QByteArray("CPU implementer\t: arm\nCPU part\t: x\n") << QString();
    QTest::newRow("empty") << QByteArray() << QString();
}

void CpuInfoTextTest::findsArmCores()
{
    QFETCH(const QByteArray, text);
    QTEST(armCores(view(text)), "cores");
}

void CpuInfoTextTest::knowsWhetherClocksChange_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("change");
    QTest::newRow("virtual machine")
        << fixture(QStringLiteral("proc/virtual-machine-epyc/cpuinfo")) << false;
    QTest::newRow("no flags") << fixture(QStringLiteral("proc/linux-2.6.32-server/cpuinfo"))
                              << true;
    QTest::newRow("first flag") << QByteArray("flags\t\t:aperfmperf fpu\n") << true;
    QTest::newRow("last flag") << QByteArray("flags\t\t: fpu aperfmperf\n") << true;
    QTest::newRow("part of a flag") << QByteArray("flags\t\t: fpu noaperfmperf2\n") << false;
    QTest::newRow("no flags of that name") << QByteArray("vmx flags\t: vnmi\n") << true;
    QTest::newRow("cut") << QByteArray("flags\t\t: fpu") << true;
    QTest::newRow("empty") << QByteArray() << true;
}

void CpuInfoTextTest::knowsWhetherClocksChange()
{
    QFETCH(const QByteArray, text);
    QTEST(hasChangingClocks(view(text)), "change");
}

QTEST_APPLESS_MAIN(CpuInfoTextTest)
#include "tst_cpuinfotext.moc"
