#include "system_monitor_lib/live/memory/MemoryPages.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

Q_DECLARE_METATYPE(MemoryPages)

class MemoryPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsInKibibytes_data();
    void countsInKibibytes();
};

void MemoryPagesTest::countsInKibibytes_data()
{
    QTest::addColumn<MemoryPages>("pages");
    QTest::addColumn<QStringList>("labels");
    constexpr quint64 size = 4096;
    QTest::newRow("all is told") << MemoryPages{size, 512, {{2560, 256}}, 3.0 * 1024 * 1024}
                                 << texts({"m | Memory Cached = 2 MB", "m | Memory Dirty = 3 MB",
                                           "m | Swap Total = 10 MB", "m | Swap Used = 1 MB"});
    QTest::newRow("two files") << MemoryPages{size, {}, {{2560, 256}, {256, 256}}, {}}
                               << texts({"m | Swap Total = 11 MB", "m | Swap Used = 2 MB"});
    QTest::newRow("more used than there is")
        << MemoryPages{size, {}, {{256, 2560}}, {}}
        << texts({"m | Swap Total = 1 MB", "m | Swap Used = 1 MB"});
    QTest::newRow("does not swap")
        << MemoryPages{size, 256, {}, {}} << texts({"m | Memory Cached = 1 MB"});
    QTest::newRow("size of a page unknown")
        << MemoryPages{0, 256, {{256, 1}}, 1048576.0} << texts({"m | Memory Dirty = 1 MB"});
    QTest::newRow("counter below 0") << MemoryPages{size, {}, {}, -1.0} << texts({"m"});
    QTest::newRow("counter beyond reason") << MemoryPages{size, {}, {}, 1e30} << texts({"m"});
    QTest::newRow("not a number") << MemoryPages{size, {}, {}, qQNaN()} << texts({"m"});
    QTest::newRow("nothing") << MemoryPages() << texts({"m"});
}

void MemoryPagesTest::countsInKibibytes()
{
    QFETCH(const MemoryPages, pages);
    QStringList lines;
    describe(QStringLiteral("m"), memoryDetailLabels(detailsOfPages(pages)), lines);
    QTEST(lines, "labels");
}

QTEST_APPLESS_MAIN(MemoryPagesTest)
#include "tst_memorypages.moc"
