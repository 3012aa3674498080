#include "system_monitor_lib/live/graphics/PciMemory.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

namespace {

constexpr qint64 none = -1;

qint64 orNone(std::optional<quint64> size)
{
    return size ? static_cast<qint64>(*size) : none;
}

} // namespace

class PciMemoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheLargestWindow_data();
    void findsTheLargestWindow();
    void findsTheLargestSize_data();
    void findsTheLargestSize();
};

void PciMemoryTest::findsTheLargestWindow_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("none") << QByteArray() << none;
    QTest::newRow("registers only")
        << QByteArray("0x00000000a1000000 0x00000000a1ffffff 0x0000000000140204\n") << none;
    QTest::newRow("256 MiB") << QByteArray(
                                    "0x00000000a1000000 0x00000000a1ffffff 0x0000000000140204\n"
                                    "0x0000004000000000 0x000000400fffffff 0x000000000014220c\n")
                             << qint64{256} * 1024 * 1024;
    QTest::newRow("the larger one")
        << QByteArray("0x0000004000000000 0x000000400fffffff 0x000000000014220c\n"
                      "0x0000005000000000 0x00000053ffffffff 0x000000000014220c\n")
        << qint64{16} * 1024 * 1024 * 1024;
    QTest::newRow("upside down") << QByteArray("0x2 0x1 0x2200\n") << none;
    QTest::newRow("absurd") << QByteArray("0x0 0xffffffffffffffff 0x2200\n") << none;
    QTest::newRow("cut off") << QByteArray("0x0000004000000000 0x000000400fffffff 0x00") << none;
    QTest::newRow("letters") << QByteArray("a window there is\n") << none;
}

void PciMemoryTest::findsTheLargestWindow()
{
    QFETCH(const QByteArray, text);
    QFETCH(const qint64, bytes);
    QCOMPARE(orNone(parseLargestWindow(view(text))), bytes);
}

void PciMemoryTest::findsTheLargestSize_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("up to 16 GiB") << QByteArray("0000000000007f00\n")
                                  << qint64{16} * 1024 * 1024 * 1024;
    QTest::newRow("1 MiB") << QByteArray("0000000000000001\n") << qint64{1024} * 1024;
    QTest::newRow("no size") << QByteArray("0000000000000000\n") << none;
    QTest::newRow("absurd") << QByteArray("8000000000000000\n") << none;
    QTest::newRow("too many digits") << QByteArray("10000000000000000\n") << none;
    QTest::newRow("letters") << QByteArray("f00 and more\n") << none;
    QTest::newRow("empty") << QByteArray() << none;
}

void PciMemoryTest::findsTheLargestSize()
{
    QFETCH(const QByteArray, text);
    QFETCH(const qint64, bytes);
    QCOMPARE(orNone(parseLargestSize(view(text))), bytes);
}

QTEST_APPLESS_MAIN(PciMemoryTest)
#include "tst_pcimemory.moc"
