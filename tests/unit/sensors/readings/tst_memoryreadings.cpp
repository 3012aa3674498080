#include "sensors/readings/MemoryReadings.h"
#include "tests/support/InMemoryLibrary.h"

#include <QJsonDocument>
#include <QtTest>

class tst_MemoryReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsMemory();
    void roundsTotalMemoryHalfUp_data();
    void roundsTotalMemoryHalfUp();
    void readsMemoryLoad_data();
    void readsMemoryLoad();
    void readsNoMemoryFromNothing();
    void knowsWhatIsMissing();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
    static QJsonObject memoryTree(double used, double available)
    {
        QJsonObject tree = InMemoryLibrary::reading(QStringLiteral("Physical Memory Used"), used);
        const QString label = QStringLiteral("Physical Memory Available");
        tree.insert(label, InMemoryLibrary::reading(label, available).value(label));
        return tree;
    }
};

void tst_MemoryReadings::readsMemory()
{
    const MemoryReadings memory = memoryReadings(memoryTree(8000, 8400));
    QCOMPARE(memory.usedMB, 8000);
    QCOMPARE(memory.availableMB, 8400);
    QCOMPARE(memory.totalMB, 16400);
    QCOMPARE(memory.usedGB, 7.8125);
    QCOMPARE(memory.availableGB, 8.203125);
    QCOMPARE(memory.totalGB, 16.015625);
    QCOMPARE(memory.totalGBRounded, 16);
}

void tst_MemoryReadings::roundsTotalMemoryHalfUp_data()
{
    QTest::addColumn<int>("megabytes");
    QTest::addColumn<int>("gigabytes");
    QTest::newRow("15.75") << 16128 << 16;
    QTest::newRow("15.499") << 15871 << 15;
    QTest::newRow("15.5") << 15872 << 16;
    QTest::newRow("15.6") << 15974 << 16;
    QTest::newRow("0") << 0 << 0;
}

void tst_MemoryReadings::roundsTotalMemoryHalfUp()
{
    QFETCH(int, megabytes);
    QTEST(memoryReadings(memoryTree(megabytes, 0)).totalGBRounded, "gigabytes");
}

void tst_MemoryReadings::readsMemoryLoad_data()
{
    QTest::addColumn<QByteArray>("reading");
    QTest::addColumn<uint>("load");
    QTest::newRow("truncated") << QByteArray(R"({"value":61.99,"units":"%"})") << 61U;
    QTest::newRow("above") << QByteArray(R"({"value":101})") << 100U;
    QTest::newRow("negative") << QByteArray(R"({"value":-0.5})") << 0U;
    QTest::newRow("below -1") << QByteArray(R"({"value":-1})") << 100U;
}

void tst_MemoryReadings::readsMemoryLoad()
{
    QFETCH(QByteArray, reading);
    const MemoryReadings memory =
        memoryReadings({{QStringLiteral("Physical Memory Load"), QJsonArray{object(reading)}}});
    QTEST(memory.load.value, "load");
    QCOMPARE(memory.load.units, QStringLiteral("%"));
}

void tst_MemoryReadings::readsNoMemoryFromNothing()
{
    const MemoryReadings memory = memoryReadings({});
    QCOMPARE(memory.load.value, 0U);
    QCOMPARE(memory.load.units, QStringLiteral("%"));
    QCOMPARE(memory.totalMB, 0);
    QCOMPARE(memory.totalGBRounded, 0);
    // Megabytes are whole numbers; a sum beyond an integer is held at its end.
    QCOMPARE(memoryReadings(memoryTree(8123.4, 1)).totalMB, 1);
    QCOMPARE(memoryReadings(memoryTree(2147483647.0, 2147483647.0)).totalMB, 2147483647);
}

void tst_MemoryReadings::knowsWhatIsMissing()
{
    QVERIFY(!memoryReadings(memoryTree(0, 8400)).isUsedMissing);
    QVERIFY(!memoryReadings(memoryTree(0, 8400)).isAvailableMissing);
    QVERIFY(memoryReadings(memoryTree(8000.5, 8400)).isUsedMissing);
    QVERIFY(memoryReadings(memoryTree(8000, 8400.5)).isAvailableMissing);
    QVERIFY(memoryReadings({}).isUsedMissing);
    QVERIFY(memoryReadings({}).isAvailableMissing);
    QVERIFY(memoryReadings({}).load.isMissing);
}

QTEST_APPLESS_MAIN(tst_MemoryReadings)
#include "tst_memoryreadings.moc"
