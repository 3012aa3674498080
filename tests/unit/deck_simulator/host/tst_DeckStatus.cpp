#include "deck_simulator/host/DeckStatus.h"

#include <QtTest>

using namespace deck;

class tst_DeckStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesBytes_data();
    void namesBytes();
    void namesRefusalsOnlyWhenThereAreAny();
};

void tst_DeckStatus::namesBytes_data()
{
    QTest::addColumn<double>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << "0 B";
    QTest::newRow("bytes") << 1023.0 << "1023 B";
    QTest::newRow("kilobytes") << 1536.0 << "1.5 KB";
    QTest::newRow("megabytes") << 2.0 * 1024 * 1024 << "2.0 MB";
}

void tst_DeckStatus::namesBytes()
{
    QFETCH(double, bytes);
    QTEST(byteText(bytes), "text");
}

void tst_DeckStatus::namesRefusalsOnlyWhenThereAreAny()
{
    DeckStatus status;
    QVERIFY(!statusText(status).contains(QLatin1String("unknown")));
    status.counters.unknownContexts = 3;
    status.counters.brokenPictures = 1;
    QVERIFY(
        statusText(status).contains(QLatin1String("3 for unknown keys, 1 with broken pictures")));
}

QTEST_GUILESS_MAIN(tst_DeckStatus)
#include "tst_DeckStatus.moc"
