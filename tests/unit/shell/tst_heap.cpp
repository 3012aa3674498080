#include "shell/heap.h"
#include "tests/support/Sanitizers.h"

#include <QFile>
#include <QtTest>

#include <memory>
#include <unistd.h>
#include <vector>

class tst_Heap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnsWhatLiesBetweenUsedBlocks();
};

namespace {

qint64 residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly)
               ? file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE)
               : 0;
}

} // namespace

void tst_Heap::returnsWhatLiesBetweenUsedBlocks()
{
    if (isSanitized)
        QSKIP("the sanitizers have a heap of their own");
    constexpr std::size_t blockSize = 16 * 1024;
    constexpr std::size_t blocks = 4000;
    constexpr qint64 all = blocks * blockSize;
    std::vector<std::unique_ptr<char[]>> taken(blocks);
    for (auto &block : taken) {
        block = std::make_unique<char[]>(blockSize);
        std::fill_n(block.get(), blockSize, 'x');
    }
    const qint64 full = residentMemory();
    // The last block keeps the system from releasing memory from the end of the heap by itself.
    for (std::size_t index = 0; index + 1 < blocks; ++index)
        taken[index].reset();
    QVERIFY(residentMemory() > full - all / 2);
    returnFreedMemory();
    QVERIFY2(residentMemory() < full - all / 10 * 9, qPrintable(QString::number(residentMemory())));
}

QTEST_APPLESS_MAIN(tst_Heap)
#include "tst_heap.moc"
