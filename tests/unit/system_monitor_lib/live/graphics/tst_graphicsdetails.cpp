#include "system_monitor_lib/live/graphics/GraphicsDetails.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class GraphicsDetailsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesLabels();
    void leavesOutWhatIsUnknown();
};

void GraphicsDetailsTest::givesLabels()
{
    const QJsonObject labels = graphicsDetailLabels({1.0, 2.0, 3.0, 4.0, 16.0, 5.0});
    QStringList lines;
    describe(QStringLiteral("t"), labels, lines);
    QCOMPARE(
        lines,
        (texts({"t | Graphics 3D Load = 1 %", "t | Graphics Copy Load = 2 %",
                "t | Graphics Link Generation = 5 ", "t | Graphics Link Width = 16 lanes",
                "t | Graphics Video Decode Load = 3 %", "t | Graphics Video Encode Load = 4 %"})));
    for (const QString &label : labels.keys())
        QVERIFY2(graphicsDetailLabelNames().contains(label), qPrintable(label));
}

void GraphicsDetailsTest::leavesOutWhatIsUnknown()
{
    QVERIFY(graphicsDetailLabels({}).isEmpty());
}

QTEST_APPLESS_MAIN(GraphicsDetailsTest)
#include "tst_graphicsdetails.moc"
