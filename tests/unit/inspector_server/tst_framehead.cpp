#include "inspector_server/FrameHead.h"

#include <QtTest>

using Kind = FrameHead::Kind;

Q_DECLARE_METATYPE(FrameHead::Kind)

class tst_FrameHead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reads_data();
    void reads();
    void waitsForTheWholeHead_data();
    void waitsForTheWholeHead();
};

void tst_FrameHead::reads_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("size");
    QTest::addColumn<quint64>("payloadSize");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("isFinal");
    const auto row = [](const char *name, const char *hex, int size, quint64 payloadSize, Kind kind,
                        bool isFinal) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << size << payloadSize << kind << isFinal;
    };
    row("text",
        "8185"
        "01020304",
        6, 5, Kind::Data, true);
    row("not masked", "8105", 2, 5, Kind::Data, true);
    row("empty",
        "8180"
        "00000000",
        6, 0, Kind::Data, true);
    row("binary",
        "82fd"
        "00000000",
        6, 125, Kind::Data, true);
    row("first part",
        "0185"
        "00000000",
        6, 5, Kind::Data, false);
    row("middle part",
        "0085"
        "00000000",
        6, 5, Kind::Continuation, false);
    row("last part",
        "8085"
        "00000000",
        6, 5, Kind::Continuation, true);
    row("close",
        "8880"
        "00000000",
        6, 0, Kind::Control, true);
    row("ping",
        "89fd"
        "00000000",
        6, 125, Kind::Control, true);
    row("pong",
        "8a80"
        "00000000",
        6, 0, Kind::Control, true);
    row("16 bits",
        "81fe"
        "f000"
        "00000000",
        8, 0xf000, Kind::Data, true);
    row("16 bits, short",
        "81fe"
        "0001"
        "00000000",
        8, 1, Kind::Data, true);
    row("64 bits",
        "81ff"
        "0000000006400000"
        "00000000",
        14, 0x6400000, Kind::Data, true);
    row("64 bits, all",
        "81ff"
        "ffffffffffffffff"
        "00000000",
        14, ~quint64(0), Kind::Data, true);
    row("64 bits, not masked",
        "817f"
        "0000000000010000",
        10, 0x10000, Kind::Data, true);
    row("reserved bits",
        "f385"
        "00000000",
        6, 5, Kind::Data, true);
}

void tst_FrameHead::reads()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, size);
    QFETCH(quint64, payloadSize);
    QFETCH(Kind, kind);
    QFETCH(bool, isFinal);
    QVERIFY(size <= FrameHead::longest);
    // The bytes after it do not matter.
    for (const QByteArray &frame : {bytes, bytes + QByteArray(20, '\xff')}) {
        const FrameHead head = frameHead(frame.constData(), frame.size());
        QCOMPARE(head.size, size);
        QCOMPARE(head.payloadSize, payloadSize);
        QCOMPARE(head.kind, kind);
        QCOMPARE(head.isFinal, isFinal);
    }
}

void tst_FrameHead::waitsForTheWholeHead_data()
{
    reads_data();
}

void tst_FrameHead::waitsForTheWholeHead()
{
    QFETCH(QByteArray, bytes);
    for (int count = 0; count < bytes.size(); ++count)
        QCOMPARE(frameHead(bytes.constData(), count).size, 0);
    QCOMPARE(frameHead(nullptr, -1).size, 0);
}

QTEST_APPLESS_MAIN(tst_FrameHead)
#include "tst_framehead.moc"
