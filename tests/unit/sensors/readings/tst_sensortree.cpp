#include "sensors/readings/SensorTree.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

using namespace sensortree;

class tst_SensorTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheFirstKeyInOrder_data();
    void findsTheFirstKeyInOrder();
    void takesTheFirstReading_data();
    void takesTheFirstReading();
    void readsWholeValues_data();
    void readsWholeValues();
    void fallsBackToUnits();
    void knowsWhetherThereIsAValue_data();
    void knowsWhetherThereIsAValue();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_SensorTree::findsTheFirstKeyInOrder_data()
{
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("key");
    QTest::newRow("whole key") << QByteArray(R"({"GPU Clock":1})") << QStringLiteral("GPU Clock")
                               << QStringLiteral("GPU Clock");
    QTest::newRow("within") << QByteArray(R"({"My GPU Clock #1":1})") << QStringLiteral("GPU Clock")
                            << QStringLiteral("My GPU Clock #1");
    QTest::newRow("other letters") << QByteArray(R"({"gpu CLOCK":1})")
                                   << QStringLiteral("GPU Clock") << QStringLiteral("gpu CLOCK");
    QTest::newRow("sorted order, not the text's")
        << QByteArray(R"({"b GPU Clock":1,"a GPU Clock":2})") << QStringLiteral("GPU Clock")
        << QStringLiteral("a GPU Clock");
    QTest::newRow("none") << QByteArray(R"({"GPU Load":1})") << QStringLiteral("GPU Clock")
                          << QString();
    QTest::newRow("empty tree") << QByteArray("{}") << QStringLiteral("GPU Clock") << QString();
}

void tst_SensorTree::findsTheFirstKeyInOrder()
{
    QFETCH(QByteArray, tree);
    QFETCH(QString, label);
    QFETCH(QString, key);
    const auto found = findLabel(object(tree), label);
    QCOMPARE(found.has_value(), !key.isEmpty());
    QCOMPARE(found.value_or(QString()), key);
}

void tst_SensorTree::takesTheFirstReading_data()
{
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<double>("value");
    QTest::newRow("one") << QByteArray(R"({"x":[{"value":4.5}]})") << 4.5;
    QTest::newRow("first of two") << QByteArray(R"({"x":[{"value":1},{"value":2}]})") << 1.0;
    QTest::newRow("empty array") << QByteArray(R"({"x":[]})") << 0.0;
    QTest::newRow("object") << QByteArray(R"({"x":{"value":3}})") << 0.0;
    QTest::newRow("array of numbers") << QByteArray(R"({"x":[7]})") << 0.0;
    QTest::newRow("value by text") << QByteArray(R"({"x":[{"value":"8"}]})") << 0.0;
    QTest::newRow("no value") << QByteArray(R"({"x":[{"units":"V"}]})") << 0.0;
    QTest::newRow("null") << QByteArray(R"({"x":null})") << 0.0;
    QTest::newRow("no key") << QByteArray("{}") << 0.0;
}

void tst_SensorTree::takesTheFirstReading()
{
    QFETCH(QByteArray, tree);
    QFETCH(double, value);
    QCOMPARE(valueOf(readingOf(object(tree), QStringLiteral("x"))), value);
}

void tst_SensorTree::readsWholeValues_data()
{
    QTest::addColumn<QByteArray>("reading");
    QTest::addColumn<int>("value");
    QTest::newRow("whole") << QByteArray(R"({"value":8123})") << 8123;
    QTest::newRow("whole by a point") << QByteArray(R"({"value":8123.0})") << 8123;
    QTest::newRow("not whole") << QByteArray(R"({"value":8123.4})") << 0;
    QTest::newRow("negative") << QByteArray(R"({"value":-3})") << -3;
    QTest::newRow("beyond an integer") << QByteArray(R"({"value":1e12})") << 0;
    QTest::newRow("text") << QByteArray(R"({"value":"8123"})") << 0;
    QTest::newRow("missing") << QByteArray("{}") << 0;
}

void tst_SensorTree::readsWholeValues()
{
    QFETCH(QByteArray, reading);
    QFETCH(int, value);
    QCOMPARE(wholeValueOf(object(reading)), value);
}

void tst_SensorTree::fallsBackToUnits()
{
    const QString fallback = QStringLiteral("MHz");
    QCOMPARE(unitsOf(object(R"({"units":"GHz"})"), fallback), QStringLiteral("GHz"));
    QCOMPARE(unitsOf(object(R"({"units":""})"), fallback), fallback);
    QCOMPARE(unitsOf(object(R"({"units":5})"), fallback), fallback);
    QCOMPARE(unitsOf({}, fallback), fallback);
}

void tst_SensorTree::knowsWhetherThereIsAValue_data()
{
    QTest::addColumn<QByteArray>("reading");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<bool>("isWhole");
    const auto row = [](const char *reading, bool isNumber, bool isWhole) {
        QTest::newRow(reading) << QByteArray(reading) << isNumber << isWhole;
    };
    row("{}", false, false);
    row(R"({"value":0})", true, true);
    row(R"({"value":-7})", true, true);
    row(R"({"value":1.5})", true, false);
    row(R"({"value":1e300})", true, false);
    row(R"({"value":"7"})", false, false);
    row(R"({"value":null})", false, false);
}

void tst_SensorTree::knowsWhetherThereIsAValue()
{
    QFETCH(QByteArray, reading);
    QFETCH(bool, isNumber);
    const QJsonObject tree = object(reading);
    QCOMPARE(hasValue(tree), isNumber);
    QTEST(hasWholeValue(tree), "isWhole");
    const Reading<double> number = numberOf(tree, QString());
    QCOMPARE(number.isMissing, !isNumber);
    QCOMPARE(wholeNumber(number, 100).isMissing, !isNumber);
    QCOMPARE(shareOf(number).isMissing, !isNumber);
    QCOMPARE(heldTo(number, 0, 1).isMissing, !isNumber);
}

QTEST_APPLESS_MAIN(tst_SensorTree)
#include "tst_sensortree.moc"
