#include "system_monitor_lib/live/PacedGroup.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class PacedGroupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsItsReadings();
    void groupWithoutReadingsIsNone();

private:
    QStringList collect(qint64 seconds)
    {
        constexpr qint64 second = 1'000'000'000;
        SensorTrees trees;
        m_isReadable = m_group.collect(seconds * second, trees);
        QStringList lines;
        describe(QStringLiteral("s"), trees.allSensors(), lines);
        return lines;
    }

    QJsonObject m_labels;
    bool m_isReadable = false;
    PacedGroup m_group{QStringLiteral("Group"), [this](qint64 /*nowNs*/) { return m_labels; }};
};

void PacedGroupTest::keepsItsReadings()
{
    m_labels = {{QStringLiteral("A"), reading(1, QStringLiteral("h"))}};
    QCOMPARE(collect(0), texts({"s | Group | A = 1 h"}));
    QVERIFY(m_isReadable);
    m_labels = {{QStringLiteral("A"), reading(2, QStringLiteral("h"))}};
    QCOMPARE(collect(4), texts({"s | Group | A = 1 h"}));
    QCOMPARE(collect(5), texts({"s | Group | A = 2 h"}));
}

void PacedGroupTest::groupWithoutReadingsIsNone()
{
    m_labels = {};
    QCOMPARE(collect(100), texts({"s"}));
    QVERIFY(!m_isReadable);
}

QTEST_APPLESS_MAIN(PacedGroupTest)
#include "tst_pacedgroup.moc"
