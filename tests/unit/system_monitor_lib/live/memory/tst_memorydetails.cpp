#include "system_monitor_lib/live/memory/MemoryDetails.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class MemoryDetailsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesMegabytes();
    void leavesOutWhatIsUnknown();
};

void MemoryDetailsTest::givesMegabytes()
{
    QStringList lines;
    describe(QStringLiteral("t"), memoryDetailLabels({4096, 1024, 512, 256, 8192}), lines);
    QCOMPARE(lines, (texts({"t | Memory Cached = 0.5 MB", "t | Memory Compressed = 8 MB",
                            "t | Memory Dirty = 0.25 MB", "t | Swap Total = 4 MB",
                            "t | Swap Used = 1 MB"})));
}

void MemoryDetailsTest::leavesOutWhatIsUnknown()
{
    QVERIFY(memoryDetailLabels({}).isEmpty());
}

QTEST_APPLESS_MAIN(MemoryDetailsTest)
#include "tst_memorydetails.moc"
