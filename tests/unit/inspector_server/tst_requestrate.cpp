#include "inspector_server/RequestRate.h"

#include <QtTest>

class tst_RequestRate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void admitsSoManyInASecond();
    void beginsAnewEachSecond();
    void forgivesAClockThatStandsStill();
};

namespace {

int admitted(RequestRate &rate, int requests, qint64 nowMs)
{
    int count = 0;
    for (int request = 0; request < requests; ++request)
        count += rate.admits(nowMs) ? 1 : 0;
    return count;
}

} // namespace

void tst_RequestRate::admitsSoManyInASecond()
{
    RequestRate rate;
    QCOMPARE(admitted(rate, 600, 5000), 600);
    QCOMPARE(admitted(rate, 600, 5999), 400);
    QVERIFY(!rate.admits(5999));
}

void tst_RequestRate::beginsAnewEachSecond()
{
    RequestRate rate;
    QCOMPARE(admitted(rate, 2000, 5000), RequestRate::most);
    QCOMPARE(admitted(rate, 2000, 6000), RequestRate::most);
    QCOMPARE(admitted(rate, 1, 6500), 0);
    QCOMPARE(admitted(rate, 1, 60000), 1);
}

void tst_RequestRate::forgivesAClockThatStandsStill()
{
    RequestRate rate;
    QCOMPARE(admitted(rate, RequestRate::most, 0), RequestRate::most);
    QVERIFY(!rate.admits(0));
}

QTEST_APPLESS_MAIN(tst_RequestRate)
#include "tst_requestrate.moc"
