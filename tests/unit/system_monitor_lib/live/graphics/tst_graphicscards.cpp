#include "system_monitor_lib/live/graphics/GraphicsCards.h"
#include "tests/unit/system_monitor_lib/live/graphics/FakeGraphics.h"

#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr quint32 amd = 0x1002;
constexpr quint32 microsoft = 0x1414;

} // namespace

class GraphicsCardsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void describesEachCard();
    void leavesOutWhatIsNoHardware_data();
    void leavesOutWhatIsNoHardware();
    void leavesOutASecondEntry();
    void listsRarely();
    void examinesNewCardsAlone();

private:
    FakeGraphics *m_system = nullptr;
    std::unique_ptr<GraphicsCards> m_cards;
};

void GraphicsCardsTest::init()
{
    auto system = std::make_unique<FakeGraphics>();
    m_system = system.get();
    m_system->present = {{7, QStringLiteral("Card"), amd, 4096, false}};
    m_system->answers = {{7, {{FakeGraphics::Topic::Address, addressAnswer(9, 0, 0)}}}};
    m_cards = std::make_unique<GraphicsCards>(std::move(system));
}

void GraphicsCardsTest::describesEachCard()
{
    m_system->present.push_back({8, QString(), 0x8086, 0, false});
    m_system->answers[8][FakeGraphics::Topic::Type] = bytes(hybridDiscrete);
    const std::vector<GraphicsCard> cards = m_cards->look(0);
    QCOMPARE(cards.size(), std::size_t{2});
    QCOMPARE(cards[0].luid, quint64{7});
    QCOMPARE(cards[0].name, QStringLiteral("Card"));
    QCOMPARE(cards[0].memoryBytes, quint64{4096});
    QCOMPARE(cards[0].address, QStringLiteral("0000:09:00.0"));
    QVERIFY(!cards[0].maySleep);
    QCOMPARE(cards[1].name, QStringLiteral("GPU 8086"));
    QVERIFY(cards[1].address.isEmpty());
    QVERIFY(cards[1].maySleep);
}

void GraphicsCardsTest::leavesOutWhatIsNoHardware_data()
{
    QTest::addColumn<quint32>("vendor");
    QTest::addColumn<bool>("isSoftware");
    QTest::addColumn<quint32>("type");
    QTest::newRow("software") << amd << true << 0U;
    QTest::newRow("of Windows") << microsoft << false << 0U;
    QTest::newRow("of nobody") << 0U << false << 0U;
    QTest::newRow("software for the kernel") << amd << false << 0b100U;
    QTest::newRow("indirect display") << amd << false << indirectDisplay;
}

void GraphicsCardsTest::leavesOutWhatIsNoHardware()
{
    QFETCH(const quint32, vendor);
    QFETCH(const bool, isSoftware);
    QFETCH(const quint32, type);
    m_system->present.push_back({8, QStringLiteral("Other"), vendor, 1, isSoftware});
    m_system->answers[8][FakeGraphics::Topic::Type] = bytes(type);
    const std::vector<GraphicsCard> cards = m_cards->look(0);
    QCOMPARE(cards.size(), std::size_t{1});
    QCOMPARE(cards[0].luid, quint64{7});
}

void GraphicsCardsTest::leavesOutASecondEntry()
{
    m_system->present.push_back({8, QStringLiteral("Card"), amd, 4096, false});
    m_system->answers[8] = m_system->answers[7];
    m_system->present.push_back(m_system->present.front());
    QCOMPARE(m_cards->look(0).size(), std::size_t{1});
}

void GraphicsCardsTest::listsRarely()
{
    for (qint64 time = 0; time < 10; ++time)
        m_cards->look(time * second);
    QCOMPARE(m_system->listed, 1);
    m_system->present.clear();
    QCOMPARE(m_cards->look(9 * second).size(), std::size_t{1});
    QVERIFY(m_cards->look(10 * second).empty());
    QCOMPARE(m_system->listed, 2);
}

void GraphicsCardsTest::examinesNewCardsAlone()
{
    m_cards->look(0);
    m_system->answers.clear();
    QCOMPARE(m_cards->look(10 * second).front().address, QStringLiteral("0000:09:00.0"));
    QVERIFY(m_system->questions.isEmpty());
}

QTEST_APPLESS_MAIN(GraphicsCardsTest)
#include "tst_graphicscards.moc"
