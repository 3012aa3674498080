#include "sensors/readings/DriveTemperatures.h"

#include <QJsonDocument>
#include <QtTest>

class tst_DriveTemperatures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsDriveTemperatures();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_DriveTemperatures::readsDriveTemperatures()
{
    const auto temperatures = driveTemperatures(object(R"({
        "c both": {"Drive Temperature":[{"value":40}],"Drive Temperature 2":[{"value":50}]},
        "a second": {"Drive Temperature 2":[{"value":51}]},
        "b airflow": {"Drive Airflow Temperature":[{"value":33}]},
        "d empty first": {"Drive Temperature":[],"Drive Airflow Temperature":[{"value":34}]},
        "e not whole": {"Drive Temperature":[{"value":40.5}]},
        "f none": {"Power On Hours":[{"value":1}]},
        "g no tree": 7
    })"));
    const auto entry = [](const char *drive, int temperature) {
        return QPair<QString, int>(QString::fromLatin1(drive), temperature);
    };
    QCOMPARE(temperatures, (QList<QPair<QString, int>>{
                               entry("a second", 51), entry("b airflow", 33), entry("c both", 40),
                               entry("d empty first", 34), entry("e not whole", 0),
                               entry("f none", 0), entry("g no tree", 0)}));
    QVERIFY(driveTemperatures({}).isEmpty());
}

QTEST_APPLESS_MAIN(tst_DriveTemperatures)
#include "tst_drivetemperatures.moc"
