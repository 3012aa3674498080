#include "plugin/gauges/ExtremeTurn.h"

#include <QtTest>

/// What a key shows after presses, pass by pass: - is the present, then low, high, mean.
class tst_ExtremeTurn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goesThroughThem_data();
    void goesThroughThem();
    void resetsWhenHeld_data();
    void resetsWhenHeld();
};

namespace {

char letterOf(gauge::Extreme extreme)
{
    return "-lhm"[static_cast<int>(extreme)];
}

/// Plays "p", a short press, "r", a release alone, and ".", a pass; returns what the passes show.
QByteArray played(const QByteArray &events)
{
    ExtremeTurn turn;
    QByteArray shown;
    for (const char event : events) {
        if (event == 'p')
            turn.press(0);
        if (event == 'p' || event == 'r')
            turn.release(999);
        if (event == '.') {
            shown.append(letterOf(turn.shown()));
            turn.pass();
        }
    }
    return shown;
}

} // namespace

void tst_ExtremeTurn::goesThroughThem_data()
{
    QTest::addColumn<QByteArray>("events");
    QTest::addColumn<QByteArray>("shown");
    const auto row = [](const char *name, const char *events, const char *shown) {
        QTest::newRow(name) << QByteArray(events) << QByteArray(shown);
    };
    row("no press", "..", "--");
    row("one press", ".p...........", "-lllhhhmmm--");
    row("a release without a press", "r....", "lllh");
    row("another press", "p.p.p.p..", "lhm--");
    row("another press has its own three passes", "p..p.......", "llhhhmmm-");
    row("two at once", "pp....", "hhhm");
    row("four at once", "pppp..", "--");
    row("again after the last", "p..........p..", "lllhhhmmm-ll");
}

void tst_ExtremeTurn::goesThroughThem()
{
    QFETCH(QByteArray, events);
    QFETCH(QByteArray, shown);
    QCOMPARE(played(events), shown);
}

void tst_ExtremeTurn::resetsWhenHeld_data()
{
    QTest::addColumn<qint64>("held");
    QTest::addColumn<bool>("resets");
    QTest::newRow("tapped") << qint64(0) << false;
    QTest::newRow("almost") << qint64(999) << false;
    QTest::newRow("a second") << qint64(1000) << true;
    QTest::newRow("longer") << qint64(60000) << true;
}

void tst_ExtremeTurn::resetsWhenHeld()
{
    QFETCH(qint64, held);
    QFETCH(bool, resets);
    ExtremeTurn turn;
    turn.release(0);
    QVERIFY(turn.shown() == gauge::Extreme::Minimum);
    turn.press(5000);
    QCOMPARE(turn.release(5000 + held) == ExtremeTurn::Release::Resets, resets);
    QCOMPARE(letterOf(turn.shown()), resets ? '-' : 'h');
    // The press is over.
    QVERIFY(turn.release(90000) == ExtremeTurn::Release::GoesOn);
}

QTEST_APPLESS_MAIN(tst_ExtremeTurn)
#include "tst_extremeturn.moc"
