#include "sensors/machine/PoolSpace.h"

#include <QMap>
#include <QSet>
#include <QtTest>

Q_DECLARE_METATYPE(DriveSpace)

/// A pool whose data sets answer as the test wants.
class tst_PoolSpace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void addsUpDataSets_data();
    void addsUpDataSets();
    void tellsNothingWithoutAnswers();
    void leavesOutWhatDoesNotAnswer();
    void asksAllOfASmallPoolEachTime();
    void asksFewOfALargePoolAndAllInTurn();
    void seesAtOnceWhatALargePoolHasFree();
    void followsTheMostFreeWhenItMoves();
    void keepsAnswersWhenDataSetsChange();

private:
    void mount(int count);
    DriveSpace refresh();

    PoolSpace m_pool;
    QMap<QString, DriveSpace> m_answers;
    QStringList m_asked; ///< The data sets asked by the last refresh.
};

namespace {

QString placeOf(int dataSet)
{
    return QStringLiteral("/tank/%1").arg(dataSet);
}

} // namespace

void tst_PoolSpace::init()
{
    m_pool = PoolSpace();
    m_answers.clear();
}

/// \a count data sets, each of which holds 5 and could hold 1000 more.
void tst_PoolSpace::mount(int count)
{
    QStringList places;
    for (int dataSet = 0; dataSet < count; ++dataSet) {
        places.append(placeOf(dataSet));
        m_answers.insert(places.constLast(), {1000, 1005});
    }
    m_pool.setDataSets(places);
}

DriveSpace tst_PoolSpace::refresh()
{
    m_asked.clear();
    const std::optional<DriveSpace> space =
        m_pool.refresh([this](const QString &place) -> std::optional<DriveSpace> {
            m_asked.append(place);
            const auto answer = m_answers.constFind(place);
            return answer == m_answers.constEnd() ? std::nullopt : std::make_optional(*answer);
        });
    return space.value_or(DriveSpace{});
}

void tst_PoolSpace::addsUpDataSets_data()
{
    QTest::addColumn<QVector<DriveSpace>>("dataSets");
    QTest::addColumn<DriveSpace>("pool");
    const auto row = [](const char *name, const QVector<DriveSpace> &dataSets, DriveSpace pool) {
        QTest::newRow(name) << dataSets << pool;
    };
    row("one", {{60, 100}}, {60, 100});
    row("two", {{60, 100}, {60, 65}}, {60, 105});
    row("one with a quota", {{60, 100}, {5, 10}}, {60, 105});
    row("a reserve", {{60, 100}, {80, 80}}, {80, 120});
    row("more free than there is", {{60, 100}, {20, 10}}, {60, 100});
    row("none", {}, {0, 0});
}

void tst_PoolSpace::addsUpDataSets()
{
    QFETCH(QVector<DriveSpace>, dataSets);
    QFETCH(DriveSpace, pool);
    mount(static_cast<int>(dataSets.size()));
    for (int index = 0; index < dataSets.size(); ++index)
        m_answers[placeOf(index)] = dataSets.at(index);
    const DriveSpace space = refresh();
    QCOMPARE(space.freeBytes, pool.freeBytes);
    QCOMPARE(space.totalBytes, pool.totalBytes);
}

void tst_PoolSpace::tellsNothingWithoutAnswers()
{
    const auto none = [](const QString &) { return std::optional<DriveSpace>(); };
    QVERIFY(!m_pool.refresh(none).has_value());
    mount(3);
    QVERIFY(!m_pool.refresh(none).has_value());
}

void tst_PoolSpace::leavesOutWhatDoesNotAnswer()
{
    mount(3);
    QCOMPARE(refresh().totalBytes, quint64(1015));
    m_answers.remove(placeOf(1));
    QCOMPARE(refresh().totalBytes, quint64(1010));
}

void tst_PoolSpace::asksAllOfASmallPoolEachTime()
{
    mount(PoolSpace::mostAsked);
    for (int second = 0; second < 3; ++second) {
        refresh();
        QCOMPARE(m_asked.size(), PoolSpace::mostAsked);
        QCOMPARE(QSet<QString>(m_asked.begin(), m_asked.end()).size(), PoolSpace::mostAsked);
    }
}

void tst_PoolSpace::asksFewOfALargePoolAndAllInTurn()
{
    constexpr int count = 1000;
    mount(count);
    QCOMPARE(refresh().totalBytes, quint64(1000 + 5 * count));
    QCOMPARE(m_asked.size(), count);
    QSet<QString> asked;
    for (int second = 0; second < count / (PoolSpace::mostAsked - 1) + 1; ++second) {
        QCOMPARE(refresh().totalBytes, quint64(1000 + 5 * count));
        QCOMPARE(m_asked.size(), PoolSpace::mostAsked);
        asked += QSet<QString>(m_asked.begin(), m_asked.end());
    }
    QCOMPARE(asked.size(), count);
}

void tst_PoolSpace::seesAtOnceWhatALargePoolHasFree()
{
    mount(1000);
    refresh();
    for (DriveSpace &answer : m_answers)
        answer = {800, 805};
    QCOMPARE(refresh().freeBytes, quint64(800));
}

/// Such as when the data set without a quota gets one.
void tst_PoolSpace::followsTheMostFreeWhenItMoves()
{
    mount(1000);
    for (DriveSpace &answer : m_answers)
        answer = {10, 15};
    m_answers[placeOf(400)] = {900, 905};
    m_answers[placeOf(800)] = {700, 705};
    QCOMPARE(refresh().freeBytes, quint64(900));
    QCOMPARE(refresh().freeBytes, quint64(900));
    m_answers[placeOf(400)] = {10, 15};
    refresh();
    for (int second = 0; second < 3; ++second)
        QCOMPARE(refresh().freeBytes, quint64(700));
}

void tst_PoolSpace::keepsAnswersWhenDataSetsChange()
{
    mount(1000);
    refresh();
    m_answers.insert(placeOf(1000), {1000, 1200});
    QStringList places;
    for (int dataSet = 1; dataSet <= 1000; ++dataSet)
        places.append(placeOf(dataSet));
    m_pool.setDataSets(places);
    QCOMPARE(refresh().totalBytes, quint64(1000 + 5 * 999 + 200));
    QVERIFY(m_asked.contains(placeOf(1000)));
    QCOMPARE(m_asked.size(), PoolSpace::mostAsked);
}

QTEST_APPLESS_MAIN(tst_PoolSpace)
#include "tst_poolspace.moc"
