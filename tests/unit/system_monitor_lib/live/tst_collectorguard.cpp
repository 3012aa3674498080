#include "system_monitor_lib/live/CollectorGuard.h"

#include <QtTest>

namespace {

constexpr qint64 millisecond = 1'000'000;
constexpr qint64 second = 1000 * millisecond;

const QString label = QStringLiteral("asked");

/// Counts its calls, and takes some time for each.
class Slow : public Collector
{
public:
    Slow(qint64 &watch, const qint64 &spends, int &asked)
        : m_watch(watch)
        , m_spends(spends)
        , m_asked(asked)
    {
    }

    bool collect(qint64 /*nowNs*/, SensorTrees &trees) override
    {
        m_watch += m_spends;
        const QJsonObject labels{{label, reading(++m_asked, QStringLiteral("times"))}};
        trees.addDevice(Query::GpuInfo, QStringLiteral("GPU"), labels);
        trees.addGroup({QStringLiteral("group"), QStringLiteral("GPU"), {}, {label}}, labels);
        return true;
    }

private:
    qint64 &m_watch;
    const qint64 &m_spends;
    int &m_asked;
};

} // namespace

class CollectorGuardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void quickCollectorIsAskedEachTime();
    void singleSlowSampleIsNoFault();
    void slowCollectorRests_data();
    void slowCollectorRests();
    void oldReadingsGo();
    void collectorThatIsQuickAgainIsAskedEachTime();
    void clockThatGoesBackEndsTheRest();

private:
    /// The content of the trees after a sample at \a time.
    SensorTrees at(qint64 time)
    {
        SensorTrees trees;
        m_readable = m_guard->collect(time, trees);
        return trees;
    }

    qint64 m_watch = 0;
    qint64 m_spends = 0;
    int m_asked = 0;
    bool m_readable = false;
    std::unique_ptr<CollectorGuard> m_guard;
};

void CollectorGuardTest::init()
{
    m_watch = 0;
    m_spends = 0;
    m_asked = 0;
    m_guard = std::make_unique<CollectorGuard>(std::make_unique<Slow>(m_watch, m_spends, m_asked),
                                               [this] { return m_watch; });
}

void CollectorGuardTest::quickCollectorIsAskedEachTime()
{
    m_spends = 50 * millisecond;
    for (int pass = 0; pass < 5; ++pass)
        at(pass * second);
    QCOMPARE(m_asked, 5);
}

void CollectorGuardTest::singleSlowSampleIsNoFault()
{
    m_spends = 10 * second;
    at(0);
    m_spends = 0;
    for (int pass = 1; pass < 4; ++pass)
        at(pass * second);
    QCOMPARE(m_asked, 4);
}

void CollectorGuardTest::slowCollectorRests_data()
{
    QTest::addColumn<qint64>("spends");
    QTest::addColumn<qint64>("rest");
    QTest::newRow("slow") << 60 * millisecond << 6 * second;
    QTest::newRow("hangs") << 500 * millisecond << 50 * second;
    QTest::newRow("hangs for long") << 20 * second << 300 * second;
}

void CollectorGuardTest::slowCollectorRests()
{
    QFETCH(const qint64, spends);
    QFETCH(const qint64, rest);
    m_spends = spends;
    at(0);
    at(second);
    QCOMPARE(m_asked, 2);
    const SensorTrees trees = at(second + rest - 1);
    QCOMPARE(m_asked, 2);
    QVERIFY(m_readable);
    if (rest < CollectorGuard::oldest.count())
        QVERIFY(!trees.tree(Query::GpuInfo).isEmpty());
    at(second + rest);
    QCOMPARE(m_asked, 3);
    at(second + 2 * rest - 1);
    QVERIFY2(m_asked == 3, "it has not been quick since");
}

void CollectorGuardTest::oldReadingsGo()
{
    m_spends = 20 * second;
    at(0);
    at(second);
    const qint64 oldest = second + CollectorGuard::oldest.count();
    const QJsonObject kept = at(oldest).tree(Query::GpuInfo);
    QVERIFY(kept.value(QStringLiteral("GPU")).toObject().contains(label));
    const SensorTrees trees = at(oldest + 1);
    QVERIFY(trees.tree(Query::GpuInfo).isEmpty());
    QCOMPARE(trees.tree(Query::AllSensorsData),
             (QJsonObject{{QStringLiteral("group"), QJsonObject()}}));

    SensorTrees both = trees;
    both.addGroup({QStringLiteral("other"), QStringLiteral("Other"), {}, {}},
                  {{label, reading(1, {})}});
    QCOMPARE(both.allSensors().value(QStringLiteral("other")).toObject().keys(),
             QStringList{QStringLiteral("Other asked")});
}

void CollectorGuardTest::collectorThatIsQuickAgainIsAskedEachTime()
{
    m_spends = 60 * millisecond;
    at(0);
    at(second);
    m_spends = 0;
    at(10 * second);
    at(11 * second);
    at(12 * second);
    QCOMPARE(m_asked, 5);
    m_spends = 60 * millisecond;
    at(13 * second);
    at(14 * second);
    QCOMPARE(m_asked, 7);
}

void CollectorGuardTest::clockThatGoesBackEndsTheRest()
{
    m_spends = 60 * millisecond;
    at(10 * second);
    at(11 * second);
    at(10 * second);
    QCOMPARE(m_asked, 3);
}

QTEST_APPLESS_MAIN(CollectorGuardTest)
#include "tst_collectorguard.moc"
