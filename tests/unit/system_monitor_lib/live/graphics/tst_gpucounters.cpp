#include "system_monitor_lib/live/graphics/GpuCounters.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::vector<CounterValue>)

namespace {

constexpr quint64 luid = 0xd3a4;

CounterValue engine(int process, const char *part, double load)
{
    return {QStringLiteral("pid_%1_luid_0x00000000_0x0000D3A4_%2")
                .arg(process)
                .arg(QLatin1String(part)),
            load};
}

CounterValue memory(const char *instance, double bytes)
{
    return {QString::fromLatin1(instance), bytes};
}

} // namespace

/// Names and values as the performance counters list them.
class GpuCountersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadIsThatOfTheBusiestEngine_data();
    void loadIsThatOfTheBusiestEngine();
    void memoryIsSummedUp_data();
    void memoryIsSummedUp();
    void enginesAreSortedByKind_data();
    void enginesAreSortedByKind();
    void adaptersAreToldApart();
};

void GpuCountersTest::loadIsThatOfTheBusiestEngine_data()
{
    using Values = std::vector<CounterValue>;
    QTest::addColumn<Values>("engines");
    QTest::addColumn<double>("load"); // -1: none.
    const char *const drawing = "phys_0_eng_0_engtype_3D";
    const char *const video = "phys_0_eng_4_engtype_VideoDecode";
    const char *const linked = "phys_1_eng_0_engtype_3D";
    QTest::newRow("processes of an engine")
        << Values{engine(4, drawing, 12.5), engine(1210, drawing, 30)} << 42.5;
    QTest::newRow("the busiest engine")
        << Values{engine(4, drawing, 12), engine(4, video, 55), engine(9, video, 6)} << 61.0;
    QTest::newRow("linked GPUs") << Values{engine(4, drawing, 40), engine(4, linked, 41)} << 41.0;
    QTest::newRow("more than all")
        << Values{engine(4, drawing, 70), engine(5, drawing, 70)} << 100.0;
    QTest::newRow("idle") << Values{engine(4, drawing, 0)} << 0.0;
    QTest::newRow("negative, endless and no number")
        << Values{engine(4, drawing, 7), engine(5, drawing, -3), engine(6, drawing, qInf()),
                  engine(7, drawing, qQNaN())}
        << 7.0;
    QTest::newRow("used by none")
        << Values{{QStringLiteral("pid_1_luid_0x00000000_0x00000001_phys_0_eng_0_engtype_3D"), 9}}
        << 0.0;
    QTest::newRow("other names") << Values{{QStringLiteral("_Total"), 50},
                                           {QString(), 50},
                                           engine(4, "eng_0", 50),
                                           {QStringLiteral("luid_0x000000001_0x0000D3A4_phys_0"),
                                            50}}
                                 << 0.0;
    QTest::newRow("no engines") << Values{} << -1.0;
}

void GpuCountersTest::loadIsThatOfTheBusiestEngine()
{
    QFETCH(const std::vector<CounterValue>, engines);
    const auto usage = gpuUsage(engines, {memory("luid_0x00000000_0x0000D3A4_phys_0", 1)});
    QTEST(usage.value(luid).loadPercent.value_or(-1), "load");
}

void GpuCountersTest::memoryIsSummedUp_data()
{
    using Values = std::vector<CounterValue>;
    QTest::addColumn<Values>("counted");
    QTest::addColumn<qint64>("bytes"); // -1: none.
    QTest::newRow("one GPU") << Values{memory("luid_0x00000000_0x0000D3A4_phys_0", 3221225472)}
                             << qint64{3221225472};
    QTest::newRow("in small letters")
        << Values{memory("luid_0x00000000_0x0000d3a4_phys_0", 5)} << qint64{5};
    QTest::newRow("linked GPUs") << Values{memory("luid_0x00000000_0x0000D3A4_phys_0", 5),
                                           memory("luid_0x00000000_0x0000D3A4_phys_1", 6)}
                                 << qint64{11};
    QTest::newRow("nothing in use")
        << Values{memory("luid_0x00000000_0x0000D3A4_phys_0", 0)} << qint64{0};
    QTest::newRow("another GPU") << Values{memory("luid_0x00000001_0x0000D3A4_phys_0", 5)}
                                 << qint64{-1};
    QTest::newRow("absurd") << Values{memory("luid_0x00000000_0x0000D3A4_phys_0", 1e30)}
                            << qint64{-1};
    QTest::newRow("nothing") << Values{} << qint64{-1};
}

void GpuCountersTest::memoryIsSummedUp()
{
    QFETCH(const std::vector<CounterValue>, counted);
    QFETCH(const qint64, bytes);
    const std::optional<quint64> used = gpuUsage({}, counted).value(luid).memoryBytes;
    QCOMPARE(used ? static_cast<qint64>(*used) : -1, bytes);
}

void GpuCountersTest::enginesAreSortedByKind_data()
{
    using Values = std::vector<CounterValue>;
    QTest::addColumn<Values>("engines");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("all kinds") << Values{engine(4, "phys_0_eng_0_engtype_3D", 10),
                                         engine(4, "phys_0_eng_1_engtype_Copy", 20),
                                         engine(4, "phys_0_eng_2_engtype_VideoDecode", 30),
                                         engine(4, "phys_0_eng_3_engtype_videoencode", 40)}
                               << texts({"g | Graphics 3D Load = 10 %",
                                         "g | Graphics Copy Load = 20 %",
                                         "g | Graphics Video Decode Load = 30 %",
                                         "g | Graphics Video Encode Load = 40 %"});
    QTest::newRow("several of a kind") << Values{engine(4, "phys_0_eng_1_engtype_Copy", 20),
                                                 engine(5, "phys_0_eng_1_engtype_Copy", 15),
                                                 engine(4, "phys_0_eng_2_engtype_Copy", 30),
                                                 engine(4, "phys_1_eng_2_engtype_Copy", 8)}
                                       << texts({"g | Graphics Copy Load = 35 %"});
    QTest::newRow("more than all") << Values{engine(4, "phys_0_eng_0_engtype_3D", 70),
                                             engine(5, "phys_0_eng_0_engtype_3D", 70)}
                                   << texts({"g | Graphics 3D Load = 100 %"});
    QTest::newRow("other kinds") << Values{engine(4, "phys_0_eng_0_engtype_Compute_0", 10),
                                           engine(4, "phys_0_eng_1_engtype_VideoProcessing", 10),
                                           engine(4, "phys_0_eng_2_engtype_", 10),
                                           engine(4, "phys_0_eng_3", 10),
                                           engine(4, "phys_0_3D", 10)}
                                 << texts({"g"});
    QTest::newRow("nothing") << Values{} << texts({"g"});
}

void GpuCountersTest::enginesAreSortedByKind()
{
    QFETCH(const std::vector<CounterValue>, engines);
    QStringList lines;
    describe(QStringLiteral("g"), graphicsDetailLabels(gpuUsage(engines, {}).value(luid).engines),
             lines);
    QTEST(lines, "labels");
}

void GpuCountersTest::adaptersAreToldApart()
{
    const auto usage =
        gpuUsage({{QStringLiteral("pid_4_luid_0x00000001_0x00000002_phys_0_eng_0_engtype_3D"), 10},
                  {QStringLiteral("pid_4_luid_0xFFFFFFFF_0xFFFFFFFE_phys_0_eng_0_engtype_3D"), 20}},
                 {});
    QCOMPARE(usage.size(), 2);
    QCOMPARE(usage.value(0x1'0000'0002).loadPercent.value_or(-1), 10.0);
    QCOMPARE(usage.value(0xffff'ffff'ffff'fffe).loadPercent.value_or(-1), 20.0);
}

QTEST_APPLESS_MAIN(GpuCountersTest)
#include "tst_gpucounters.moc"
