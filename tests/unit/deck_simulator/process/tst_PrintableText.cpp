#include "deck_simulator/process/PrintableText.h"

#include <QtTest>

using namespace deck;

class tst_PrintableText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesTextPrintable_data();
    void makesTextPrintable();
};

void tst_PrintableText::makesTextPrintable_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("plain") << "上传: 1.0KB/s"
                           << "上传: 1.0KB/s";
    QTest::newRow("two lines") << "Up: 1\nDown: 2"
                               << "Up: 1 / Down: 2";
    QTest::newRow("windows line end") << "a\r\nb"
                                      << "a / b";
    QTest::newRow("escape sequence") << "\x1b[2J"
                                     << "\uFFFD[2J";
    QTest::newRow("C1 control") << QString(QChar(0x9b)) << "\uFFFD";
    QTest::newRow("direction override") << QStringLiteral("a\u202Eb") << "ab";
    QTest::newRow("lone surrogate") << QString(QChar(0xd800)) << "\uFFFD";
    QTest::newRow("null character") << QString(QChar(0)) << "\uFFFD";
}

void tst_PrintableText::makesTextPrintable()
{
    QFETCH(QString, text);
    QTEST(printable(text), "result");
}

QTEST_GUILESS_MAIN(tst_PrintableText)
#include "tst_PrintableText.moc"
