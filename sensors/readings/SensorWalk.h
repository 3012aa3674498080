#pragma once

#include "sensors/systemInfor.h"
#include "values/Reading.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>

/// What a walk over sensor trees collects.
struct SensorWalk
{
    systemInfor::SensorTexts sensors; ///< Every sensor, parents' direct sensors first.
    systemInfor::SensorTexts cpuFans; ///< Sensors named after CPU and fan, in "RPM".
    QString pump = QStringLiteral("nodata");
    // The readings of these texts.
    systemInfor::SensorNumbers sensorNumbers;
    systemInfor::SensorNumbers cpuFanNumbers;
    Reading<double> pumpNumber{0, QString(), true};

    /// Walks \a tree and adds what it holds. Of several pumps the last one counts.
    void visit(const QJsonObject &tree);

private:
    void visitArray(const QString &label, const QJsonArray &array, QVector<QJsonObject> &groups);
    void visitObject(const QString &label, const QJsonObject &object, QVector<QJsonObject> &groups);
    void takeReading(const QString &label, const Reading<double> &number);
    void addSensor(const QString &label, const Reading<double> &number);
};

/// Value in at most six digits, directly followed by the units.
QString sensorText(const QJsonObject &reading);

/// The list as a sensor tree: "1850RPM" becomes "value": "1850" (a text) and "units": "RPM"; both
/// are empty where the text does not begin with a number. A label that occurs twice keeps the later
/// one.
QJsonObject pairsToTree(const systemInfor::SensorTexts &pairs);
