#include "sensors/readings/GpuReadings.h"
#include "tests/support/InMemoryLibrary.h"

#include <QJsonDocument>
#include <QtTest>

#include <functional>

namespace {

using NumberAndUnits = QPair<double, QString>;

/// \a reading with its number as a double.
template <typename Number>
NumberAndUnits pairOf(const Reading<Number> &reading)
{
    return {static_cast<double>(reading.value), reading.units};
}

/// A metric of the readings as a number and units.
struct Metric
{
    const char *name;
    const char *units;
    NumberAndUnits (*of)(const GpuReadings &);
};

const Metric temperature{"temperature", "°C",
                         [](const GpuReadings &gpu) { return pairOf(gpu.temperature); }};
const Metric clockRate{"clock", "MHz", [](const GpuReadings &gpu) { return pairOf(gpu.clock); }};
const Metric load{"load", "%", [](const GpuReadings &gpu) { return pairOf(gpu.load); }};
const Metric memoryClock{"memory clock", "MHz",
                         [](const GpuReadings &gpu) { return pairOf(gpu.memoryClock); }};
const Metric memoryUsage{"memory usage", "%",
                         [](const GpuReadings &gpu) { return pairOf(gpu.memoryUsage); }};
const Metric memoryAllocated{"memory allocated", "MB",
                             [](const GpuReadings &gpu) { return pairOf(gpu.memoryAllocated); }};
const Metric power{"power", "W", [](const GpuReadings &gpu) { return pairOf(gpu.power); }};
const Metric voltage{"voltage", "V", [](const GpuReadings &gpu) { return pairOf(gpu.voltage); }};

/// The labels of a metric in order of preference; the last one is looked up in the enhanced tree.
struct Chain
{
    const Metric *metric;
    QStringList labels;
    QString enhancedLabel;
};

QList<Chain> chains()
{
    const auto text = [](const char *label) { return QString::fromLatin1(label); };
    return {
        {&temperature,
         {text("GPU Temperature"), text("GPU TS0 (DispIO)"), text("GPU Core Temperature"),
          text("GPU Global Temperature"), text("GPU Memory Temperature")},
         text("CPU Package")},
        {&clockRate, {text("GPU Clock")}, text("GPU Clock")},
        {&load, {text("GPU Core Load"), text("GPU D3D Usage")}, text("GPU D3D Usage")},
        {&memoryClock, {text("GPU Memory Clock")}, text("Imaging Unit (IMGU) Clock")},
        {&memoryUsage, {text("GPU Memory Usage")}, QString()},
        {&memoryAllocated, {text("GPU Memory Allocated")}, text("GPU D3D Memory Dynamic")},
        {&power,
         {text("GPU Power (Total)"), text("GPU ASIC Power"), text("GPU Power"),
          text("Total GPU Power")},
         text("GT Cores Power")},
        {&voltage,
         {text("GPU Core Voltage"), text("GPU Core Voltage (VDDCR_GFX)")},
         text("iGPU VID")},
    };
}

QJsonObject with(QJsonObject tree, const QString &label, const QJsonValue &value,
                 const QString &units = QString())
{
    tree.insert(label, InMemoryLibrary::reading(label, value, units).value(label));
    return tree;
}

} // namespace

Q_DECLARE_METATYPE(const Metric *)

class tst_GpuReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesTheGpuWithTheMostMemory_data();
    void choosesTheGpuWithTheMostMemory();
    void readsEachLabelOfAChain_data();
    void readsEachLabelOfAChain();
    void prefersTheEarlierLabel_data();
    void prefersTheEarlierLabel();
    void fallsBackToTheEnhancedTree_data();
    void fallsBackToTheEnhancedTree();
    void namesDegreesOfTheFallback();
    void staysAtZeroWithoutAnyLabel();
    void holdsTheRanges_data();
    void holdsTheRanges();
    void matchesWithinKeys();
};

void tst_GpuReadings::choosesTheGpuWithTheMostMemory_data()
{
    QTest::addColumn<QByteArray>("gpus");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *title, const char *gpus, const char *name) {
        QTest::newRow(title) << QByteArray(gpus) << QString::fromLatin1(name);
    };
    row("none", "{}", "NustIN");
    row("larger total",
        R"({"A":{"GPU Memory Total":[{"value":4096}]},"B":{"GPU Memory Total":[{"value":8192}]}})",
        "B");
    row("equal: the first",
        R"({"A":{"GPU Memory Total":[{"value":8192}]},"B":{"GPU Memory Total":[{"value":8192}]}})",
        "A");
    row("available before total",
        R"({"A":{"GPU Memory Available":[{"value":1}],"GPU Memory Total":[{"value":9000}]},"B":{"GPU Memory Total":[{"value":8192}]}})",
        "B");
    row("dedicated last",
        R"({"A":{"GPU D3D Memory Dedicated":[{"value":5}]},"B":{"GPU Memory Total":[{"value":4}]}})",
        "A");
    row("no memory label at all", R"({"A":{"GPU Clock":[{"value":5}]}})", "A");
    row("not an object", R"({"A":7})", "A");
    row("negative memory", R"({"A":{"GPU Memory Total":[{"value":-2}]}})", "NustIN");
    row("a name after the sentinel's", R"({"Zed":{}})", "Zed");
}

void tst_GpuReadings::choosesTheGpuWithTheMostMemory()
{
    QFETCH(QByteArray, gpus);
    QTEST(chosenGpu(QJsonDocument::fromJson(gpus).object()), "name");
}

void tst_GpuReadings::readsEachLabelOfAChain_data()
{
    QTest::addColumn<const Metric *>("metric");
    QTest::addColumn<QString>("label");
    for (const Chain &chain : chains()) {
        for (const QString &label : chain.labels)
            QTest::addRow("%s: %s", chain.metric->name, qPrintable(label)) << chain.metric << label;
    }
}

void tst_GpuReadings::readsEachLabelOfAChain()
{
    QFETCH(const Metric *, metric);
    QFETCH(QString, label);
    QCOMPARE(metric->of(gpuReadings(with({}, label, 41, QStringLiteral("u")), {})),
             NumberAndUnits(41, QStringLiteral("u")));
    QCOMPARE(metric->of(gpuReadings(with({}, label, 41), {})),
             NumberAndUnits(41, QString::fromUtf8(metric->units)));
}

void tst_GpuReadings::prefersTheEarlierLabel_data()
{
    QTest::addColumn<const Metric *>("metric");
    QTest::addColumn<QString>("earlier");
    QTest::addColumn<QString>("later");
    for (const Chain &chain : chains()) {
        for (int i = 1; i < chain.labels.size(); ++i) {
            QTest::addRow("%s %d", chain.metric->name, i)
                << chain.metric << chain.labels.at(i - 1) << chain.labels.at(i);
        }
    }
}

void tst_GpuReadings::prefersTheEarlierLabel()
{
    QFETCH(const Metric *, metric);
    QFETCH(QString, earlier);
    QFETCH(QString, later);
    const QJsonObject gpu = with(with({}, later, 2), earlier, 1);
    QCOMPARE(metric->of(gpuReadings(gpu, {})).first, 1.0);
}

void tst_GpuReadings::fallsBackToTheEnhancedTree_data()
{
    QTest::addColumn<const Metric *>("metric");
    QTest::addColumn<QString>("label");
    for (const Chain &chain : chains()) {
        if (!chain.enhancedLabel.isEmpty())
            QTest::newRow(chain.metric->name) << chain.metric << chain.enhancedLabel;
    }
}

void tst_GpuReadings::fallsBackToTheEnhancedTree()
{
    QFETCH(const Metric *, metric);
    QFETCH(QString, label);
    QCOMPARE(metric->of(gpuReadings({}, with({}, label, 41, QStringLiteral("u")))),
             NumberAndUnits(41, QStringLiteral("u")));
    QCOMPARE(metric->of(gpuReadings({}, with({}, label, 41))),
             NumberAndUnits(41, QString::fromUtf8(metric->units)));
}

void tst_GpuReadings::namesDegreesOfTheFallback()
{
    const QString letter = QStringLiteral("C");
    const QString package = QStringLiteral("CPU Package");
    QCOMPARE(gpuReadings({}, with({}, package, 40, letter)).temperature.units,
             QStringLiteral("°C"));
    QCOMPARE(
        gpuReadings(with({}, QStringLiteral("GPU Temperature"), 40, letter), {}).temperature.units,
        letter);
}

void tst_GpuReadings::staysAtZeroWithoutAnyLabel()
{
    const GpuReadings gpu = gpuReadings({}, {});
    for (const Chain &chain : chains())
        QCOMPARE(chain.metric->of(gpu), NumberAndUnits(0, QString::fromUtf8(chain.metric->units)));
}

void tst_GpuReadings::holdsTheRanges_data()
{
    QTest::addColumn<const Metric *>("metric");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("held");
    const auto row = [](const Metric &metric, double value, double held) {
        QTest::addRow("%s %g", metric.name, value) << &metric << value << held;
    };
    row(temperature, 150, 150);
    row(temperature, 180, 150);
    row(temperature, -3, 150);
    row(temperature, 45.9, 45);
    row(clockRate, 100001, 100000);
    row(clockRate, -1, 100000);
    row(load, 101, 100);
    row(load, -1, 100);
    row(memoryClock, 1e300, 100000);
    row(memoryUsage, 100.5, 100);
    row(memoryUsage, -0.5, 0);
    row(memoryUsage, 37.5, 37.5);
    row(memoryAllocated, -1, 0);
    row(memoryAllocated, 1e9, 1e9);
    row(power, -1, 0);
    row(power, 100000.5, 100000);
    row(voltage, -0.5, -0.5);
}

void tst_GpuReadings::holdsTheRanges()
{
    QFETCH(const Metric *, metric);
    QFETCH(double, value);
    QJsonObject gpu;
    for (const Chain &chain : chains()) {
        if (chain.metric == metric)
            gpu = with({}, chain.labels.constFirst(), value);
    }
    QTEST(metric->of(gpuReadings(gpu, {})).first, "held");
}

void tst_GpuReadings::matchesWithinKeys()
{
    // The third label is part of the first one's name.
    const QJsonObject gpu = with({}, QStringLiteral("My gpu power (TOTAL) #2"), 12);
    QCOMPARE(gpuReadings(gpu, {}).power.value, 12.0);
    QCOMPARE(gpuReadings(with({}, QStringLiteral("Total GPU Power (x)"), 13), {}).power.value,
             13.0);
}

QTEST_APPLESS_MAIN(tst_GpuReadings)
#include "tst_gpureadings.moc"
