#include "system_monitor_lib/live/graphics/GraphicsDetails.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class GraphicsDetailsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesLabels();
    void leavesOutWhatIsUnknown();
    void knowsGenerationsOfLinks_data();
    void knowsGenerationsOfLinks();
};

void GraphicsDetailsTest::givesLabels()
{
    GraphicsDetails details;
    details.drawPercent = 1;
    details.copyPercent = 2;
    details.decodePercent = 3;
    details.encodePercent = 4;
    details.videoPercent = 5;
    details.memoryPercent = 6;
    details.fanPercent = 7;
    details.linkLanes = 16;
    details.linkGeneration = 4;
    const QJsonObject labels = graphicsDetailLabels(details);
    QStringList lines;
    describe(QStringLiteral("t"), labels, lines);
    QCOMPARE(
        lines,
        texts({"t | Graphics 3D Load = 1 %", "t | Graphics Copy Load = 2 %",
               "t | Graphics Fan Speed = 7 %", "t | Graphics Link Generation = 4 ",
               "t | Graphics Link Width = 16 lanes", "t | Graphics Memory Controller Load = 6 %",
               "t | Graphics Video Decode Load = 3 %", "t | Graphics Video Encode Load = 4 %",
               "t | Graphics Video Load = 5 %"}));
    for (const QString &label : labels.keys())
        QVERIFY2(graphicsDetailLabelNames().contains(label), qPrintable(label));
}

void GraphicsDetailsTest::leavesOutWhatIsUnknown()
{
    QVERIFY(graphicsDetailLabels({}).isEmpty());
}

void GraphicsDetailsTest::knowsGenerationsOfLinks_data()
{
    QTest::addColumn<QString>("speed");
    QTest::addColumn<double>("generation"); // 0 for none
    QTest::newRow("first") << QStringLiteral("2.5 GT/s PCIe") << 1.0;
    QTest::newRow("third, old kernel") << QStringLiteral("8 GT/s") << 3.0;
    QTest::newRow("fourth") << QStringLiteral("16.0 GT/s PCIe") << 4.0;
    QTest::newRow("sixth") << QStringLiteral("64.0 GT/s PCIe") << 6.0;
    QTest::newRow("unknown") << QStringLiteral("Unknown") << 0.0;
    QTest::newRow("odd") << QStringLiteral("3.0 GT/s PCIe") << 0.0;
    QTest::newRow("empty") << QString() << 0.0;
}

void GraphicsDetailsTest::knowsGenerationsOfLinks()
{
    QFETCH(const QString, speed);
    QTEST(linkGeneration(speed).value_or(0), "generation");
}

QTEST_APPLESS_MAIN(GraphicsDetailsTest)
#include "tst_graphicsdetails.moc"
