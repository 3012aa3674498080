#include "json/ParseJson.h"

#include <QJsonObject>
#include <QtTest>

/// Reading of JSON. The leak check of the sanitizers would find here what Qt never frees.
class tst_ParseJson : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsLikeTheFramework_data();
    void readsLikeTheFramework();
    void lastOfOneNameCounts_data();
    void lastOfOneNameCounts();
    void keepsNothingOfBrokenTexts_data();
    void keepsNothingOfBrokenTexts();
    void readsManyMembersOfOneName();
    void readsManyLevels_data();
    void readsManyLevels();
    void readsManyLevelsOfRepeatedMembers();
};

void tst_ParseJson::readsLikeTheFramework_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *name, const char *text) {
        QTest::newRow(name) << QByteArray(text);
    };
    row("nothing", "");
    row("blank", " \n");
    row("object", R"({"a":1,"b":[1,{"a":"x"},{"a":2}],"c":{"a":null,"b":true}})");
    row("array", R"([{"a":[1]},{"a":[2]},"a","a"])");
    row("names as values", R"({"a":"a","b":"a","c":["a","b","a"]})");
    row("marks in texts", R"({"a\"b":"{,}","c":"\\","d":"\\\"","e":[",","\"a\":1"]})");
    row("escaped names", R"({"\u0061":1,"\ud83d\ude00":2,"\ud800":3,"\ud801":4})");
    row("nothing named", R"({"":1})");
    row("number alone", "1");
    row("text alone", R"("a")");
    row("no end", R"({"a":[1,2)");
    row("no end of a text", R"({"a":"x)");
    row("no end of an escape", "{\"a\":\"\\");
    row("end of another kind", R"({"a":[},"b":1})");
    row("more ends than beginnings", R"({"a":1}]})");
    row("two commas", R"({"a":1,,"b":2})");
    row("comma at first", R"({,"a":2})");
    row("comma at last", R"({"a":2,})");
    row("comma alone", ",");
    row("invalid UTF-8", "{\"\xff\":1}");
    QTest::newRow("names with a zero") << QByteArrayLiteral("{\"a\":1,\"a\0b\":2,\"a\0c\":3}");
    row("something behind", R"({"a":1} x)");
    row("no value, again", R"({"event":bogus,"event":"keyDown"})");
    row("no mark behind a name, again", R"({"a","a":1})");
    row("no value behind the mark, again", R"({"a":,"a":1})");
    row("two values, again", R"({"a":1 2,"a":3})");
    row("two names, again", R"({"a" "b":1,"a":2})");
    row("two elements without a comma, again", R"({"a":[1 2],"a":1})");
    row("fault inside, again", R"({"a":{"b":[{"c":tru}]},"a":1})");
    row("fault before, again", R"({x"a":1,"a":2})");
    row("array before, again", R"({[1]"a":1,"a":2})");
    row("fault between", R"({"a":1,x "a":2})");
    row("fault between, third time", R"({"a":1,x"a":2,"a":3})");
    row("fault behind", R"({"a":1,"a":2 x})");
    row("no end, again", R"({"a":1,"a":2)");
    row("object without a comma before it, again", R"(["x"{"a":1,"a":2}])");
    row("the same, blanks and several", "[null { \n\"a\":1 , \"a\":2,\t\"a\":3}]");
    row("object without a comma behind it, again", R"([{"a":1,"a":2}"x"])");
    row("comma at last, again", R"({"a":1,"a":2,})");
    row("invalid UTF-8, again", "{\"a\":\"\xff\",\"a\":1}");
    row("invalid UTF-8 as a name, again", "{\"\xff\":1,\"\xfe\":2}");
    row("invalid escapes as names", R"({"\u00":1,"\uxyzw":2})");
}

void tst_ParseJson::readsLikeTheFramework()
{
    QFETCH(QByteArray, text);
    QJsonParseError error{};
    QJsonParseError expected{};
    QCOMPARE(parseJson(text, &error), QJsonDocument::fromJson(text, &expected));
    QCOMPARE(error.error, expected.error);
    QCOMPARE(error.offset, expected.offset);
    QCOMPARE(parseJson(text), QJsonDocument::fromJson(text));
}

void tst_ParseJson::lastOfOneNameCounts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("same");
    const auto row = [](const char *name, const char *text, const char *same) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(same);
    };
    row("numbers", R"({"a":1,"a":2})", R"({"a":2})");
    row("arrays", R"({"a":[1],"a":[2]})", R"({"a":[2]})");
    row("object, number", R"({"a":{"b":1},"a":2})", R"({"a":2})");
    row("three", R"({"a":[1],"b":[2],"a":[3],"c":[4],"a":[5]})", R"({"a":[5],"b":[2],"c":[4]})");
    row("no names", R"({"":[{}],"":{}})", R"({"":{}})");
    row("inside", R"([{"a":{"b":[1,2],"b":[2]}}])", R"([{"a":{"b":[2]}}])");
    row("inside of one that goes", R"({"a":{"b":[1],"b":[2]},"a":{"b":[3]}})",
        R"({"a":{"b":[3]}})");
    row("escaped", R"({"a":[1],"\u0061":[2]})", R"({"a":[2]})");
    row("escaped first", R"({"\u0061":[1],"a":[2]})", R"({"a":[2]})");
    row("half a character", R"({"\ud800":[1],"\ud801":[2],"\uD800":[3]})",
        R"({"\ud800":[3],"\ud801":[2]})");
    row("a zero", R"({"a\u0000":[1],"a":[2],"a\u0000b":[3],"a\u0000":[4]})",
        R"({"a\u0000":[4],"a":[2],"a\u0000b":[3]})");
    row("more than a few", R"({"h":[1],"g":[2],"f":[3],"e":[4],"d":[5],"c":[6],"b":[7],"a":[8],
                               "h":[9],"d":[10],"a":[11],"h":[12]})",
        R"({"h":[12],"g":[2],"f":[3],"e":[4],"d":[10],"c":[6],"b":[7],"a":[11]})");
    row("blanks between", "{ \"a\" : [ 1 ] , \"b\" : 1 ,\n\"a\" : [ 2 ] }", R"({"a":[2],"b":1})");
    row("marks in it", R"({"a":["},]\"",{"x":"{"}],"a":2})", R"({"a":2})");
}

void tst_ParseJson::lastOfOneNameCounts()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, same);
    QJsonParseError error{};
    const QJsonDocument document = parseJson(text, &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    QVERIFY(!document.isEmpty());
    QCOMPARE(document, QJsonDocument::fromJson(same));
}

void tst_ParseJson::keepsNothingOfBrokenTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *name, const char *text) {
        QTest::newRow(name) << QByteArray(text);
    };
    row("cut", R"({"a":[1],"a":[2],"b":1)");
    row("cut inside", R"({"a":[1],"a":[2],"b":{"c":[3],"c":[4])");
    row("broken behind an object", R"({"b":{"a":[1],"a":[2]},"c":x})");
    row("another mark", R"([{"a":[1],"a":[2]],1])");
    row("broken behind", R"({"a":[1],"a":[2],"b":x})");
    row("broken inside", R"({"a":[1],"a":[2],"b":{"c":[x],"c":[4]}})");
    row("broken in a name", R"({"a":[1],"a":[2],"\u":[4]})");
}

/// What the framework does not free, the address sanitizer's search for leaks finds.
void tst_ParseJson::keepsNothingOfBrokenTexts()
{
    QFETCH(QByteArray, text);
    QVERIFY(parseJson(text).isNull());
}

void tst_ParseJson::readsManyMembersOfOneName()
{
    QByteArray text = "{";
    for (int number = 0; number < 20000; ++number)
        text += "\"a\":[" + QByteArray::number(number) + "],";
    text += "\"b\":{}}";
    QCOMPARE(parseJson(text), QJsonDocument::fromJson(R"({"a":[19999],"b":{}})"));
}

void tst_ParseJson::readsManyLevels_data()
{
    QTest::addColumn<int>("levels");
    QTest::newRow("as many as the framework reads") << 1024;
    QTest::newRow("one more") << 1025;
    QTest::newRow("a million") << 1000000;
}

void tst_ParseJson::readsManyLevels()
{
    QFETCH(int, levels);
    const QByteArray text = QByteArray(levels, '[') + QByteArray(levels, ']');
    QJsonParseError error{};
    QJsonParseError expected{};
    QCOMPARE(parseJson(text, &error), QJsonDocument::fromJson(text, &expected));
    QCOMPARE(error.error, expected.error);
}

void tst_ParseJson::readsManyLevelsOfRepeatedMembers()
{
    constexpr int levels = 1000;
    const QByteArray blanks(1000, ' ');
    QByteArray text;
    for (int level = 0; level < levels; ++level)
        text += "{\"b\":[1]," + blanks + "\"a\":";
    text += "{}";
    for (int level = 0; level < levels; ++level)
        text += ",\"a\":" + QByteArray::number(level) + '}';

    QElapsedTimer timer;
    timer.start();
    QCOMPARE(parseJson(text), QJsonDocument::fromJson(R"({"a":999,"b":[1]})"));
    constexpr qint64 longest = 500;
    QVERIFY2(timer.elapsed() < longest, qPrintable(QString::number(timer.elapsed())));
    qDebug() << text.size() << "bytes:" << timer.elapsed() << "ms";
}

QTEST_APPLESS_MAIN(tst_ParseJson)
#include "tst_parsejson.moc"
