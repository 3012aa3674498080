#include "deck_simulator/terminal/TerminalTable.h"

#include <QtTest>

using namespace deck;

class tst_TerminalTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void measuresText_data();
    void measuresText();
    void fitsText_data();
    void fitsText();
    void alignsColumns();
    void keepsColumnsStraightWithWideCharacters();
    void narrowsColumnsThenLeavesThemOut();
    void staysWithinAnyWidth();
    void cutsInTheMiddle();
    void countsRowsThatDoNotFit();
};

void tst_TerminalTable::measuresText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("latin") << QStringLiteral("CPU: 12%") << 8;
    QTest::newRow("degree sign") << QStringLiteral("45°") << 3;
    QTest::newRow("chinese") << QStringLiteral("双行显示") << 8;
    QTest::newRow("mixed") << QStringLiteral("CPU温度") << 7;
    QTest::newRow("full-width colon") << QStringLiteral("：") << 2;
    QTest::newRow("kana") << QStringLiteral("メモリ") << 6;
    QTest::newRow("hangul") << QStringLiteral("한국") << 4;
    QTest::newRow("outside the basic plane") << QStringLiteral("𠀀") << 2;
    QTest::newRow("emoji") << QStringLiteral("🔥") << 2;
    QTest::newRow("combining mark") << QStringLiteral("e\u0301") << 1;
}

void tst_TerminalTable::measuresText()
{
    QFETCH(QString, text);
    QTEST(displayWidth(text), "width");
}

void tst_TerminalTable::fitsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("rightAligned");
    QTest::addColumn<QString>("result");
    QTest::newRow("padded") << "ab" << 4 << false << "ab  ";
    QTest::newRow("padded left") << "ab" << 4 << true << "  ab";
    QTest::newRow("exact") << "abcd" << 4 << false << "abcd";
    QTest::newRow("cut") << "abcde" << 4 << false << "abc…";
    QTest::newRow("wide, cut between characters") << "双行显示" << 5 << false << "双行…";
    QTest::newRow("wide, half a place left") << "双行显示" << 6 << false << "双行… ";
    QTest::newRow("one place") << "abc" << 1 << false << "…";
    QTest::newRow("no place") << "abc" << 0 << false << "";
}

void tst_TerminalTable::fitsText()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(bool, rightAligned);
    const QString result = fitted(text, width, rightAligned);
    QTEST(result, "result");
    QCOMPARE(displayWidth(result), width);
}

void tst_TerminalTable::alignsColumns()
{
    const QStringList lines = tableLines({{QStringLiteral("Key")}, {QStringLiteral("No"), true}},
                                         {{QStringLiteral("CPU usage"), QStringLiteral("7")},
                                          {QStringLiteral("Net"), QStringLiteral("1234")}},
                                         80);
    const QStringList expected{QStringLiteral("Key          No"), QStringLiteral("CPU usage     7"),
                               QStringLiteral("Net        1234")};
    QCOMPARE(lines, expected);
}

void tst_TerminalTable::keepsColumnsStraightWithWideCharacters()
{
    const QStringList lines = tableLines({{QStringLiteral("Title")}, {QStringLiteral("x")}},
                                         {{QStringLiteral("内存: 40%"), QStringLiteral("x")},
                                          {QStringLiteral("Mem"), QStringLiteral("x")}},
                                         80);
    for (const QString &line : lines) {
        QVERIFY2(line.endsWith(QLatin1Char('x')), qPrintable(line));
        QCOMPARE(displayWidth(line), 12);
    }
}

void tst_TerminalTable::narrowsColumnsThenLeavesThemOut()
{
    const QVector<TableColumn> columns{{QStringLiteral("K"), false, 4},
                                       {QStringLiteral("T"), false, 6},
                                       {QStringLiteral("N"), true}};
    const QVector<QStringList> rows{
        {QStringLiteral("memory"), QStringLiteral("a long title"), QStringLiteral("99")}};
    QCOMPARE(tableLines(columns, rows, 24).at(1), QStringLiteral("memory  a long title  99"));
    QCOMPARE(tableLines(columns, rows, 20).at(1), QStringLiteral("memory  a long …  99"));
    QCOMPARE(tableLines(columns, rows, 16).at(1), QStringLiteral("mem…  a lon…  99"));
    QCOMPARE(tableLines(columns, rows, 15).at(1), QStringLiteral("mem…  a lon…"));
    QCOMPARE(tableLines(columns, rows, 5).at(1), QStringLiteral("mem…"));
    QCOMPARE(tableLines(columns, rows, 2).at(1), QStringLiteral("m…"));
}

void tst_TerminalTable::staysWithinAnyWidth()
{
    const QVector<TableColumn> columns{{QStringLiteral("键"), false, 5},
                                       {QStringLiteral("标题"), false, 7},
                                       {QStringLiteral("大小"), true}};
    const QVector<QStringList> rows{
        {QStringLiteral("内存使用率"), QStringLiteral("CPU封装功率: 12.3W"), QStringLiteral("9")},
        {QStringLiteral("x")},
        {}};
    for (int width = 0; width < 60; ++width) {
        const QStringList lines = tableLines(columns, rows, width);
        QCOMPARE(lines.size(), 4);
        for (const QString &line : lines)
            QVERIFY(displayWidth(line) <= width);
    }
}

void tst_TerminalTable::cutsInTheMiddle()
{
    const QString text = QStringLiteral("CPU封装功率: 12.3W");
    QCOMPARE(fittedInTheMiddle(QStringLiteral("abcdef"), 5), QStringLiteral("ab…ef"));
    QCOMPARE(fittedInTheMiddle(QStringLiteral("abcdef"), 6), QStringLiteral("abcdef"));
    QCOMPARE(fittedInTheMiddle(QStringLiteral("ab"), 4), QStringLiteral("ab  "));
    for (int width = 0; width < 25; ++width)
        QCOMPARE(displayWidth(fittedInTheMiddle(text, width)), width);
    QVERIFY(fittedInTheMiddle(text, 12).startsWith(QLatin1String("CPU")));
    QVERIFY(fittedInTheMiddle(text, 12).contains(QLatin1String("12.3W")));
}

void tst_TerminalTable::countsRowsThatDoNotFit()
{
    QStringList lines{QStringLiteral("header")};
    for (int row = 0; row < 14; ++row)
        lines.append(QString::number(row));
    lines.append(QStringLiteral("status"));
    QCOMPARE(cutRows(lines, 16), lines);
    QCOMPARE(cutRows(lines, 6), (QStringList{QStringLiteral("header"), QStringLiteral("0"),
                                             QStringLiteral("1"), QStringLiteral("2"),
                                             QStringLiteral("11 more"), QStringLiteral("status")}));
    QCOMPARE(cutRows(lines, 4).at(2), QStringLiteral("13 more"));
    for (int most = 0; most < 16; ++most)
        QCOMPARE(cutRows(lines, most).size(), most);
    QVERIFY(cutRows({}, 0).isEmpty());
}

QTEST_GUILESS_MAIN(tst_TerminalTable)
#include "tst_TerminalTable.moc"
