#pragma once

#include "system_monitor_lib/TreeSource.h"
#include "tools/sensor_recorder/Anonymizer.h"
#include "tools/sensor_recorder/RecorderOptions.h"

#include <QObject>
#include <QTimer>

/// Writes the samples that were asked for, one per interval.
class SensorRecorder : public QObject
{
    Q_OBJECT

public:
    SensorRecorder(const RecorderOptions &options, TreeSource &source, QObject *parent = nullptr);

    /// Takes the sample that the first rates are counted from.
    void start();

Q_SIGNALS:
    /// The last sample is written, or one could not be; \a complaint is empty in the first case.
    void sigFinished(const QString &complaint);

private:
    void record();
    /// Why the sample could not be written; empty when it could.
    QString write(const QString &file);

    const RecorderOptions m_options;
    TreeSource &m_source;
    Anonymizer m_anonymizer;
    QTimer m_timer;
    int m_sample = 0;
};
