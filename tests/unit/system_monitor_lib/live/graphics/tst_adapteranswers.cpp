#include "system_monitor_lib/live/graphics/AdapterAnswers.h"
#include "tests/unit/system_monitor_lib/live/graphics/FakeGraphics.h"

#include <QtTest>

using namespace adapter_answers;

namespace {

/// -1 stands for no reading.
double orNone(std::optional<double> value)
{
    return value.value_or(-1);
}

} // namespace

/// Bytes as the graphics kernel answers them.
class AdapterAnswersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void questionsHaveTheSizesOfTheirAnswers_data();
    void questionsHaveTheSizesOfTheirAnswers();
    void findsTheAddress_data();
    void findsTheAddress();
    void findsTheType_data();
    void findsTheType();
    void findsTheKindOfANode();
    void findsTheAdaptersReadings_data();
    void findsTheAdaptersReadings();
    void findsTheNodesReadings_data();
    void findsTheNodesReadings();
    void survivesEveryCut();
};

void AdapterAnswersTest::questionsHaveTheSizesOfTheirAnswers_data()
{
    QTest::addColumn<quint32>("topic");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("address") << quint32(Topic::Address) << 6 << addressAnswer(1, 0, 0);
    QTest::newRow("type") << quint32(Topic::Type) << 15 << bytes<quint32>(0);
    QTest::newRow("node") << quint32(Topic::NodeMetadata) << 25 << nodeAnswer(1);
    QTest::newRow("node's readings")
        << quint32(Topic::NodePerformance) << 61 << nodePerformance(1, 1);
    QTest::newRow("adapter's readings")
        << quint32(Topic::AdapterPerformance) << 62 << adapterPerformance(1, 1, 1);
}

void AdapterAnswersTest::questionsHaveTheSizesOfTheirAnswers()
{
    QFETCH(const quint32, topic);
    QFETCH(const int, number);
    QFETCH(const QByteArray, answer);
    QCOMPARE(static_cast<int>(topic), number);
    const bool isOfNode =
        topic == quint32(Topic::NodeMetadata) || topic == quint32(Topic::NodePerformance);
    const QByteArray asked = question(static_cast<Topic>(topic), 3);
    QCOMPARE(asked.size(), answer.size());
    QCOMPARE(asked.left(4), isOfNode ? bytes<quint32>(3) : gap(4));
    QCOMPARE(asked.mid(4), gap(static_cast<int>(asked.size()) - 4));
}

void AdapterAnswersTest::findsTheAddress_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("address");
    QTest::newRow("card") << addressAnswer(1, 0, 0) << "0000:01:00.0";
    QTest::newRow("high numbers") << addressAnswer(0xc3, 0x1f, 7) << "0000:c3:1f.7";
    QTest::newRow("part of the processor") << addressAnswer(0, 2, 0) << "0000:00:02.0";
    QTest::newRow("not on the bus") << addressAnswer(~0U, ~0U, ~0U) << "";
    QTest::newRow("absurd device") << addressAnswer(1, 32, 0) << "";
    QTest::newRow("absurd function") << addressAnswer(1, 0, 8) << "";
    QTest::newRow("cut") << addressAnswer(1, 0, 0).left(11) << "";
    QTest::newRow("nothing") << QByteArray() << "";
}

void AdapterAnswersTest::findsTheAddress()
{
    QFETCH(const QByteArray, answer);
    QTEST(parseAddress(answer), "address");
}

void AdapterAnswersTest::findsTheType_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isHardware");
    QTest::addColumn<bool>("maySleep");
    const quint32 usual = 0b1011;
    QTest::newRow("single card") << bytes(usual) << true << false;
    QTest::newRow("second card of a laptop") << bytes(usual | hybridDiscrete) << true << true;
    QTest::newRow("first card of a laptop") << bytes(usual | 1U << 5U) << true << false;
    QTest::newRow("turned off when idle") << bytes(usual | 1U << 13U) << true << true;
    QTest::newRow("software") << bytes<quint32>(0b100) << false << false;
    QTest::newRow("indirect display") << bytes(indirectDisplay) << false << false;
    QTest::newRow("cut") << bytes(~0U).left(3) << true << false;
    QTest::newRow("nothing") << QByteArray() << true << false;
}

void AdapterAnswersTest::findsTheType()
{
    QFETCH(const QByteArray, answer);
    QTEST(parseType(answer).isHardware, "isHardware");
    QTEST(parseType(answer).maySleep, "maySleep");
}

void AdapterAnswersTest::findsTheKindOfANode()
{
    QVERIFY(parseNodeKind(nodeAnswer(1)) == NodeKind::Drawing);
    QVERIFY(parseNodeKind(nodeAnswer(2)) == NodeKind::VideoDecode);
    QVERIFY(parseNodeKind(nodeAnswer(3)) == NodeKind::VideoEncode);
    QVERIFY(parseNodeKind(nodeAnswer(6)) == NodeKind::Copy);
    for (const quint32 other : {0U, 4U, 5U, 7U, 4'000'000'000U})
        QVERIFY(parseNodeKind(nodeAnswer(other)) == NodeKind::Other);
    QVERIFY(parseNodeKind(nodeAnswer(1).left(7)) == NodeKind::Other);
    QVERIFY(parseNodeKind({}) == NodeKind::Other);
}

void AdapterAnswersTest::findsTheAdaptersReadings_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<double>("celsius");
    QTest::addColumn<double>("megahertz");
    QTest::addColumn<double>("rpm");
    QTest::newRow("busy") << adapterPerformance(8'751'000'000, 1430, 675) << 67.5 << 8751.0
                          << 1430.0;
    QTest::newRow("fan stands still")
        << adapterPerformance(405'000'000, 0, 412) << 41.2 << 405.0 << 0.0;
    QTest::newRow("no temperature")
        << adapterPerformance(405'000'000, 900, 0) << -1.0 << 405.0 << 900.0;
    QTest::newRow("hottest") << adapterPerformance(0, 0, 1400) << 140.0 << -1.0 << 0.0;
    QTest::newRow("absurd") << adapterPerformance(20'000'000'001, 50'001, 1401) << -1.0 << -1.0
                            << -1.0;
    QTest::newRow("all bits") << QByteArray(64, '\xff') << -1.0 << -1.0 << -1.0;
    QTest::newRow("filled in nothing") << gap(64) << -1.0 << -1.0 << -1.0;
    QTest::newRow("nothing but the question")
        << bytes<quint32>(1) + gap(60) << -1.0 << -1.0 << -1.0;
    QTest::newRow("without temperature and fan")
        << adapterPerformance(405'000'000, 900, 412).left(48) << -1.0 << 405.0 << -1.0;
    QTest::newRow("nothing") << QByteArray() << -1.0 << -1.0 << -1.0;
}

void AdapterAnswersTest::findsTheAdaptersReadings()
{
    QFETCH(const QByteArray, answer);
    const AdapterPerformance performance = parseAdapterPerformance(answer);
    QTEST(orNone(performance.celsius), "celsius");
    QTEST(orNone(performance.memoryMegahertz), "megahertz");
    QTEST(orNone(performance.fanRpm), "rpm");
}

void AdapterAnswersTest::findsTheNodesReadings_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<double>("megahertz");
    QTest::addColumn<double>("volts");
    QTest::newRow("busy") << nodePerformance(2'535'000'000, 1062) << 2535.0 << 1.062;
    QTest::newRow("no voltage") << nodePerformance(210'000'000, 0) << 210.0 << -1.0;
    QTest::newRow("no clock") << nodePerformance(0, 650) << -1.0 << 0.65;
    QTest::newRow("absurd") << nodePerformance(20'000'000'001, 10'001) << -1.0 << -1.0;
    QTest::newRow("cut") << nodePerformance(210'000'000, 650).left(35) << 210.0 << -1.0;
    QTest::newRow("nothing") << QByteArray() << -1.0 << -1.0;
}

void AdapterAnswersTest::findsTheNodesReadings()
{
    QFETCH(const QByteArray, answer);
    const NodePerformance performance = parseNodePerformance(answer);
    QTEST(orNone(performance.megahertz), "megahertz");
    QTEST(orNone(performance.volts), "volts");
}

void AdapterAnswersTest::survivesEveryCut()
{
    const QByteArray adapter = adapterPerformance(405'000'000, 900, 412);
    for (int length = 0; length < adapter.size(); ++length) {
        const AdapterPerformance cut = parseAdapterPerformance(adapter.left(length));
        QCOMPARE(cut.memoryMegahertz.has_value(), length >= 16);
        QCOMPARE(cut.fanRpm.has_value(), length >= 52);
        QCOMPARE(cut.celsius.has_value(), length >= 60);
    }
    const QByteArray node = nodePerformance(210'000'000, 650);
    for (int length = 0; length < node.size(); ++length) {
        const NodePerformance cut = parseNodePerformance(node.left(length));
        QCOMPARE(cut.megahertz.has_value(), length >= 16);
        QCOMPARE(cut.volts.has_value(), length >= 36);
    }
}

QTEST_APPLESS_MAIN(AdapterAnswersTest)
#include "tst_adapteranswers.moc"
