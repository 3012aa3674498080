#include "system_monitor_lib/live/graphics/DisplayDevices.h"

#include <QtTest>

/// Names and numbers of Windows' tree of devices.
class DisplayDevicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsThePciId_data();
    void findsThePciId();
    void findsTheAddress_data();
    void findsTheAddress();
    void domainDoesNotCount_data();
    void domainDoesNotCount();
};

void DisplayDevicesTest::findsThePciId_data()
{
    QTest::addColumn<QString>("instance");
    QTest::addColumn<QString>("id");
    QTest::newRow("card") << R"(PCI\VEN_10DE&DEV_2504&SUBSYS_39741462&REV_A1\4&1&0&0019)"
                          << "10de:2504";
    QTest::newRow("without more") << R"(PCI\VEN_1002&DEV_73BF)"
                                  << "1002:73bf";
    QTest::newRow("not on PCI") << R"(ROOT\BASICDISPLAY\0000)"
                                << "";
    QTest::newRow("within") << R"(X\PCI\VEN_10DE&DEV_2504)"
                            << "";
    QTest::newRow("longer number") << R"(PCI\VEN_10DE&DEV_25040&X)"
                                   << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void DisplayDevicesTest::findsThePciId()
{
    QFETCH(const QString, instance);
    QTEST(pciIdOfInstance(instance), "id");
}

void DisplayDevicesTest::findsTheAddress_data()
{
    QTest::addColumn<quint32>("bus");
    QTest::addColumn<quint32>("address");
    QTest::addColumn<QString>("text");
    QTest::newRow("card") << 1U << 0U << "0000:01:00.0";
    QTest::newRow("part of the processor") << 0U << 0x20000U << "0000:00:02.0";
    QTest::newRow("function") << 0xc3U << 0x1f0007U << "0000:c3:1f.7";
    QTest::newRow("domain") << 0x10005U << 0U << "0100:05:00.0";
}

void DisplayDevicesTest::findsTheAddress()
{
    QFETCH(const quint32, bus);
    QFETCH(const quint32, address);
    QTEST(pciAddress(bus, address), "text");
}

void DisplayDevicesTest::domainDoesNotCount_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("isSame");
    QTest::newRow("same") << "0000:c1:00.0"
                          << "0000:C1:00.0" << true;
    QTest::newRow("other domain") << "0000:01:00.0"
                                  << "0100:01:00.0" << true;
    QTest::newRow("other bus") << "0000:01:00.0"
                               << "0000:02:00.0" << false;
    QTest::newRow("other function") << "0000:01:00.0"
                                    << "0000:01:00.1" << false;
    QTest::newRow("unknown") << ""
                             << "" << false;
    QTest::newRow("numbers") << "0"
                             << "0" << false;
}

void DisplayDevicesTest::domainDoesNotCount()
{
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    QTEST(isSamePlace(first, second), "isSame");
}

QTEST_APPLESS_MAIN(DisplayDevicesTest)
#include "tst_displaydevices.moc"
