#include "plugin/gauges/NumberText.h"

#include <QtTest>

Q_DECLARE_METATYPE(NumberStyle)
Q_DECLARE_METATYPE(std::optional<int>)

/// Numbers as gauges show them.
class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsPlainNumbers_data();
    void showsPlainNumbers();
    void showsTemperatures_data();
    void showsTemperatures();
    void showsRates_data();
    void showsRates();
    void showsADashForNothing();
    void convertsDegrees();
    void countsDecimals_data();
    void countsDecimals();
};

namespace {

NumberStyle styleWith(Digits digits, std::optional<int> decimals = {})
{
    NumberStyle style;
    style.digits = digits;
    style.decimals = decimals;
    return style;
}

QString joined(const NumberText &text)
{
    return text.value + QLatin1Char(' ') + text.unit;
}

} // namespace

void tst_NumberText::showsPlainNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<NumberStyle>("style");
    QTest::addColumn<bool>("isMean");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, double number, const NumberStyle &style, bool isMean,
                        const char *value) {
        QTest::newRow(name) << number << style << isMean << QString::fromLatin1(value);
    };
    row("whole, as the text", 49.9, styleWith(Digits::Whole), false, "49");
    row("whole, a mean", 49.9, styleWith(Digits::Whole), true, "50");
    row("whole, beyond all integers", 1e300, styleWith(Digits::Whole), false, "2147483647");
    row("one", 65.26, styleWith(Digits::One), false, "65.3");
    row("three", 0.9127, styleWith(Digits::Three), false, "0.913");
    row("general", 1850.25, styleWith(Digits::General), false, "1850.25");
    row("general, large", 1234567, styleWith(Digits::General), false, "1.23457e+06");
    row("none", 65.6, styleWith(Digits::Three, 0), false, "66");
    row("two", 49.9, styleWith(Digits::Whole, 2), false, "49.90");
    row("two of general", 1234567, styleWith(Digits::General, 2), false, "1234567.00");
}

void tst_NumberText::showsPlainNumbers()
{
    QFETCH(double, number);
    QFETCH(NumberStyle, style);
    QFETCH(bool, isMean);
    const NumberText text = numberText(number, Quantity::Plain, QStringLiteral("W"), style, isMean);
    QTEST(text.value, "value");
    QCOMPARE(text.unit, QStringLiteral("W"));
}

void tst_NumberText::showsTemperatures_data()
{
    QTest::addColumn<double>("celsius");
    QTest::addColumn<bool>("isFahrenheit");
    QTest::addColumn<std::optional<int>>("decimals");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, double celsius, bool isFahrenheit,
                        std::optional<int> decimals = {}) {
        QTest::newRow(text) << celsius << isFahrenheit << decimals << QString::fromUtf8(text);
    };
    row("45 °C", 45, false);
    row("113 °F", 45, true);
    // Cut off, as in the text of the key.
    row("98 °F", 37, true);
    row("98.6 °F", 37, true, 1);
    row("-4 °F", -20, true);
}

void tst_NumberText::showsTemperatures()
{
    QFETCH(double, celsius);
    QFETCH(bool, isFahrenheit);
    QFETCH(std::optional<int>, decimals);
    NumberStyle style = styleWith(Digits::Whole, decimals);
    style.isFahrenheit = isFahrenheit;
    QTEST(joined(numberText(celsius, Quantity::Temperature, QStringLiteral("x"), style, false)),
          "text");
}

void tst_NumberText::showsRates_data()
{
    QTest::addColumn<double>("kilobytes");
    QTest::addColumn<bool>("isInBits");
    QTest::addColumn<std::optional<int>>("decimals");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, double kilobytes, bool isInBits,
                        std::optional<int> decimals = {}) {
        QTest::newRow(text) << kilobytes << isInBits << decimals << QString::fromLatin1(text);
    };
    row("0.0 Kb/s", 0, false);
    row("1.2 Kb/s", 1.24, false);
    row("1024.0 Kb/s", 1024, false);
    row("3.0 MB/s", 3 * 1024, false);
    row("2.00 GB/s", 2.0 * 1024 * 1024, false, 2);
    row("0.0 kbit/s", 0, true);
    row("8.2 kbit/s", 1, true);
    row("999.9 kbit/s", 122.0581, true);
    // 999.96 would be shown as a thousand.
    row("1.0 Mbit/s", 122.0654, true);
    row("1.05 Mbit/s", 128, true, 2);
    row("2 Gbit/s", 244140, true, 0);
    row("16777.2 Gbit/s", 2048.0 * 1e6, true);
}

void tst_NumberText::showsRates()
{
    QFETCH(double, kilobytes);
    QFETCH(bool, isInBits);
    QFETCH(std::optional<int>, decimals);
    NumberStyle style = styleWith(Digits::One, decimals);
    style.isInBits = isInBits;
    QTEST(joined(numberText(kilobytes, Quantity::Rate, QStringLiteral("x"), style, false)), "text");
}

void tst_NumberText::showsADashForNothing()
{
    QCOMPARE(missingNumber().value, QStringLiteral("–"));
    QCOMPARE(missingNumber().unit, QString());
}

void tst_NumberText::convertsDegrees()
{
    QCOMPARE(fahrenheit(100), 212.0);
    QCOMPARE(celsius(68), 20.0);
}

void tst_NumberText::countsDecimals_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("decimals");
    QTest::newRow("whole") << 1850.0 << 0;
    QTest::newRow("one") << 45.5 << 1;
    QTest::newRow("all six digits") << 1234.5678 << 2;
    QTest::newRow("small") << 0.001 << 3;
    QTest::newRow("exponent") << 1234567.0 << 0;
    QTest::newRow("small exponent") << 1.5e-7 << 0;
}

void tst_NumberText::countsDecimals()
{
    QFETCH(double, number);
    QTEST(decimalsOf(number), "decimals");
}

QTEST_APPLESS_MAIN(tst_NumberText)
#include "tst_numbertext.moc"
