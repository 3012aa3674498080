#include "system_monitor_lib/live/drives/StorageAnswers.h"
#include "tests/unit/system_monitor_lib/bytes.h"

#include <QtTest>

namespace {

QByteArray sensor(quint16 index, qint16 celsius)
{
    return bytes(index) + bytes(celsius) + bytes<qint16>(80) + bytes<qint16>(0) +
           QByteArray(8, '\0');
}

/// Version, size, critical and warning temperature, number of sensors, reserved.
QByteArray temperatures(quint16 count, const QByteArray &sensors)
{
    return bytes<quint32>(24) + bytes<quint32>(40) + bytes<qint16>(85) + bytes<qint16>(81) +
           bytes(count) + QByteArray(10, '\0') + sensors;
}

/// Version, size, type, modifier, two flags, and the offsets of vendor, product, revision and
/// serial number.
QByteArray device(quint32 maker, quint32 product, const QByteArray &texts)
{
    return bytes<quint32>(40) + bytes<quint32>(200) + QByteArray(4, '\0') + bytes(maker) +
           bytes(product) + bytes<quint32>(0) + bytes<quint32>(0) + bytes<quint32>(17) +
           bytes<quint32>(0) + texts;
}

constexpr quint32 textsOffset = 36;

/// A DISK_PERFORMANCE: bytes read and written, times of reading, writing and idling, numbers of
/// reads and writes, depth of the queue, splits, time of the question, number, name and a gap.
QByteArray performance(qint64 read, qint64 written, quint32 reads, quint32 writes, qint64 idle = 7)
{
    return bytes(read) + bytes(written) + bytes<qint64>(1) + bytes<qint64>(2) + bytes(idle) +
           bytes(reads) + bytes(writes) + bytes<quint32>(0) + bytes<quint32>(3) + bytes(idle) +
           bytes<quint32>(0) + gap(20);
}

} // namespace

/// Answers of drives, as bytes.
class StorageAnswersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheTemperature_data();
    void findsTheTemperature();
    void findsTheModel_data();
    void findsTheModel();
    void findsWhetherItRotates_data();
    void findsWhetherItRotates();
    void servedChangesWithEachUse_data();
    void servedChangesWithEachUse();
    void counts();
    void countsTheTimeWithoutRest();
    void countersGoingBelowZeroAreNone();
    void survivesEveryCut();
};

void StorageAnswersTest::findsTheTemperature_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<double>("celsius"); // -1: none.
    constexpr qint16 notReported = -0x8000;
    QTest::newRow("one sensor") << temperatures(1, sensor(0, 38)) << 38.0;
    QTest::newRow("its own before its parts")
        << temperatures(3, sensor(0, 41) + sensor(1, 52) + sensor(2, 63)) << 41.0;
    QTest::newRow("its own is silent")
        << temperatures(2, sensor(0, notReported) + sensor(1, 52)) << 52.0;
    QTest::newRow("all silent") << temperatures(1, sensor(0, notReported)) << -1.0;
    QTest::newRow("no sensor") << temperatures(0, sensor(0, 38)) << -1.0;
    QTest::newRow("frost") << temperatures(1, sensor(0, -40)) << -1.0;
    QTest::newRow("fire") << temperatures(1, sensor(0, 300)) << -1.0;
    QTest::newRow("fewer than promised") << temperatures(60000, sensor(0, 33)) << 33.0;
    QTest::newRow("promised, none there") << temperatures(60000, {}) << -1.0;
    QTest::newRow("nothing") << QByteArray() << -1.0;
}

void StorageAnswersTest::findsTheTemperature()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const double, celsius);
    QCOMPARE(parseDriveCelsius(answer).value_or(-1), celsius);
}

void StorageAnswersTest::findsTheModel_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("model");
    const QByteArray texts("Maker   \0Disk 2000  X \0", 23);
    QTest::newRow("maker and product")
        << device(textsOffset, textsOffset + 9, texts) << "Maker Disk 2000 X";
    QTest::newRow("product alone") << device(0, textsOffset + 9, texts) << "Disk 2000 X";
    QTest::newRow("maker alone") << device(textsOffset, 0, texts) << "Maker";
    QTest::newRow("no name") << device(0, 0, texts) << "";
    QTest::newRow("blanks") << device(0, textsOffset, QByteArray("    ", 5)) << "";
    QTest::newRow("no end") << device(0, textsOffset, "Disk") << "Disk";
    QTest::newRow("outside") << device(4000000000U, 37 + 23, texts) << "";
    QTest::newRow("nothing") << QByteArray() << "";
}

void StorageAnswersTest::findsTheModel()
{
    QFETCH(const QByteArray, answer);
    QTEST(parseDriveModel(answer), "model");
}

void StorageAnswersTest::findsWhetherItRotates_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("rotates");
    const QByteArray head = bytes<quint32>(12) + bytes<quint32>(12);
    QTest::newRow("hard disk") << head + bytes<quint8>(1) + gap(3) << true;
    QTest::newRow("no moving parts") << head + bytes<quint8>(0) + gap(3) << false;
    QTest::newRow("cut") << head << true;
    QTest::newRow("unknown") << QByteArray() << true;
}

void StorageAnswersTest::findsWhetherItRotates()
{
    QFETCH(const QByteArray, answer);
    QTEST(parseIsRotating(answer), "rotates");
}

void StorageAnswersTest::servedChangesWithEachUse_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("changes");
    QTest::newRow("read") << performance(4608, 512, 11, 3) << true;
    QTest::newRow("written") << performance(4096, 1024, 10, 4) << true;
    QTest::newRow("read nothing") << performance(4096, 512, 11, 3) << true;
    QTest::newRow("time has passed") << performance(4096, 512, 10, 3, 99) << false;
}

void StorageAnswersTest::servedChangesWithEachUse()
{
    QFETCH(const QByteArray, answer);
    QTEST(parseServed(answer) != parseServed(performance(4096, 512, 10, 3)), "changes");
    QCOMPARE(answer.size(), 88);
    QVERIFY(parseServed(answer.left(47)).isEmpty());
    QVERIFY(!parseServed(answer.left(48)).isEmpty());
}

void StorageAnswersTest::countsTheTimeWithoutRest()
{
    // Rest, and the time of the question.
    const auto busyNs = [](qint64 idle, qint64 clock) {
        QByteArray answer = performance(4096, 512, 10, 3);
        answer.replace(32, 8, bytes(idle)).replace(56, 8, bytes(clock));
        return parseDriveCounters(answer)->busyNs;
    };
    QCOMPARE(busyNs(7, 9), quint64{200});
    QCOMPARE(busyNs(9, 7), quint64{0});
}

void StorageAnswersTest::counts()
{
    const QByteArray answer = performance(4096, 512, 4'294'967'295U, 3, 99);
    const std::optional<DriveCounters> counters = parseDriveCounters(answer);
    QVERIFY(counters.has_value());
    QCOMPARE(counters->readBytes, quint64{4096});
    QCOMPARE(counters->writtenBytes, quint64{512});
    QCOMPARE(counters->readNs, quint64{100});
    QCOMPARE(counters->writeNs, quint64{200});
    QCOMPARE(counters->requests, quint64{4'294'967'298U});
    for (int length = 0; length < answer.size(); ++length)
        QCOMPARE(parseDriveCounters(answer.left(length)).has_value(), length >= 64);
}

void StorageAnswersTest::countersGoingBelowZeroAreNone()
{
    QVERIFY(!parseDriveCounters(performance(-1, 512, 1, 1)).has_value());
    QVERIFY(!parseDriveCounters(performance(4096, -1, 1, 1)).has_value());
    QVERIFY(!parseDriveCounters(performance(4096, 512, 1, 1, -1)).has_value());
}

void StorageAnswersTest::survivesEveryCut()
{
    const QByteArray whole = temperatures(2, sensor(0, 38) + sensor(1, 52));
    for (int length = 0; length < whole.size(); ++length) {
        const QByteArray cut = whole.left(length);
        QCOMPARE(parseDriveCelsius(cut).has_value(), length >= 40);
        QVERIFY(parseDriveModel(cut).size() <= length);
    }
}

QTEST_APPLESS_MAIN(StorageAnswersTest)
#include "tst_storageanswers.moc"
