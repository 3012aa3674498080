#include "bench/BenchReadings.h"

#include "tests/support/InMemoryLibrary.h"

#include <QJsonArray>

namespace {

constexpr int cores = 8;

/// Adds a reading to \a tree. The value varies by up to 10 %.
void add(QJsonObject &tree, const QString &label, double value, const char *units, int step)
{
    constexpr int steps = 10;
    const double varied = value * (1 + 0.01 * (step % steps));
    const QJsonObject reading = InMemoryLibrary::reading(label, varied, QString::fromUtf8(units));
    tree.insert(label, reading.value(label));
}

QJsonObject memoryTree(int step)
{
    QJsonObject tree;
    add(tree, QStringLiteral("Physical Memory Load"), 41.7, "%", step);
    add(tree, QStringLiteral("Physical Memory Used"), 13107, "MB", step);
    add(tree, QStringLiteral("Physical Memory Available"), 18919, "MB", step);
    return tree;
}

QJsonObject cpuTree(int step)
{
    QJsonObject tree;
    add(tree, QStringLiteral("Total CPU Usage"), 37.2, "%", step);
    for (int core = 0; core < cores; ++core) {
        add(tree, QStringLiteral("Core %1 Clock").arg(core), 3593.2 + core, "MHz", step);
        add(tree, QStringLiteral("Core %1 VID").arg(core), 1.087, "V", step);
    }
    return tree;
}

QJsonObject heatTree(int step)
{
    QJsonObject tree;
    add(tree, QStringLiteral("CPU Package"), 52.5, "°C", step);
    add(tree, QStringLiteral("CPU Package Power"), 65.4, "W", step);
    return tree;
}

QJsonObject gpuTree(int step)
{
    QJsonObject tree;
    add(tree, QStringLiteral("GPU Temperature"), 61, "°C", step);
    add(tree, QStringLiteral("GPU Clock"), 1807, "MHz", step);
    add(tree, QStringLiteral("GPU Core Load"), 42, "%", step);
    add(tree, QStringLiteral("GPU Memory Clock"), 7501, "MHz", step);
    add(tree, QStringLiteral("GPU Memory Usage"), 25, "%", step);
    add(tree, QStringLiteral("GPU Memory Allocated"), 3072, "MB", step);
    add(tree, QStringLiteral("GPU Memory Total"), 12288, "MB", 0);
    add(tree, QStringLiteral("GPU Power"), 128.5, "W", step);
    add(tree, QStringLiteral("GPU Core Voltage"), 0.912, "V", step);
    return tree;
}

QJsonObject networkTree(int step)
{
    QJsonObject tree;
    add(tree, QStringLiteral("Current UP rate"), 812.3, "KB/s", step);
    add(tree, QStringLiteral("Current DL rate"), 5301.9, "KB/s", step);
    return tree;
}

QJsonObject boardTree(int step)
{
    QJsonObject tree;
    add(tree, QStringLiteral("CPU Fan"), 1213, "RPM", step);
    add(tree, QStringLiteral("AIO Pump"), 2417, "RPM", step);
    add(tree, QStringLiteral("Chassis Fan 1"), 803, "RPM", step);
    for (int rail = 0; rail < cores; ++rail)
        add(tree, QStringLiteral("Voltage %1").arg(rail), 1.2 + rail, "V", step);
    return tree;
}

QJsonObject driveTrees(int step)
{
    QJsonObject trees;
    for (const char *drive : {"Drive A [0]", "Drive B [1]"}) {
        QJsonObject tree;
        add(tree, QStringLiteral("Drive Temperature"), 38, "°C", step);
        trees.insert(QString::fromLatin1(drive), tree);
    }
    return trees;
}

} // namespace

void writeReadings(int step)
{
    using Library = InMemoryLibrary;
    Library::systemInfo = memoryTree(step);
    Library::cpuInfo = cpuTree(step);
    Library::cpuDtsInfo = heatTree(step);
    Library::cpuEnhancedInfo = heatTree(step);
    Library::gpuInfo = {{QStringLiteral("Graphics card"), gpuTree(step)}};
    Library::networkInfo = {{QStringLiteral("eth0"), networkTree(step)}};
    Library::smartInfo = driveTrees(step);
    Library::allSensors = {{QStringLiteral("CPU [#0]: Eight cores"), cpuTree(step)},
                           {QStringLiteral("CPU [#0]: heat"), heatTree(step)},
                           {QStringLiteral("GPU [#0]: Graphics card"), gpuTree(step)},
                           {QStringLiteral("System: memory"), memoryTree(step)},
                           {QStringLiteral("Network: eth0"), networkTree(step)},
                           {QStringLiteral("Board"), boardTree(step)}};
}
