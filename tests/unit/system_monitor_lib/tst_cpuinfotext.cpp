#include "system_monitor_lib/live/processor/CpuInfoText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class CpuInfoTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsModel_data();
    void findsModel();
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

QTEST_APPLESS_MAIN(CpuInfoTextTest)
#include "tst_cpuinfotext.moc"
