#include "plugin/gauges/WidestText.h"

#include <QtTest>

class tst_WidestText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void remembersForAMinute();
    void takesTheLatestOfALength();
};

namespace {

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

} // namespace

void tst_WidestText::remembersForAMinute()
{
    WidestText widest;
    QCOMPARE(widest.with(text("100"), 0), text("100"));
    QCOMPARE(widest.with(text("9"), 1000), text("100"));
    QCOMPARE(widest.with(text("42"), 2000), text("100"));
    QCOMPARE(widest.with(text("7"), 60000), text("100"));
    QCOMPARE(widest.with(text("7"), 60001), text("42"));
    QCOMPARE(widest.with(text("7"), 62001), text("7"));
}

void tst_WidestText::takesTheLatestOfALength()
{
    WidestText widest;
    widest.with(text("111"), 0);
    QCOMPARE(widest.with(text("999"), 50000), text("999"));
    QCOMPARE(widest.with(text("5"), 110000), text("999"));
    QCOMPARE(widest.with(text("5"), 110001), text("5"));
}

QTEST_APPLESS_MAIN(tst_WidestText)
#include "tst_widesttext.moc"
