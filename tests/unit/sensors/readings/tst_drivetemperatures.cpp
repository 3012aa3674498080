#include "sensors/readings/DriveTemperatures.h"

#include <QJsonDocument>
#include <QtTest>

class tst_DriveTemperatures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsDriveTemperatures();
    void namesDrivesWithoutTemperature();

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

void tst_DriveTemperatures::namesDrivesWithoutTemperature()
{
    const QStringList drives = drivesWithoutTemperature(object(R"({
        "a zero": {"Drive Temperature":[{"value":0}]},
        "b not whole": {"Drive Temperature":[{"value":40.5}]},
        "c a text": {"Drive Temperature":[{"value":"40"}]},
        "d second": {"Drive Temperature":[],"Drive Temperature 2":[{"value":51}]},
        "e none": {},
        "f no tree": 7
    })"));
    QCOMPARE(drives.join(QStringLiteral(", ")),
             QStringLiteral("b not whole, c a text, e none, f no tree"));
    QVERIFY(drivesWithoutTemperature({}).isEmpty());
}

QTEST_APPLESS_MAIN(tst_DriveTemperatures)
#include "tst_drivetemperatures.moc"
