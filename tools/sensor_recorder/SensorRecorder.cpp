#include "tools/sensor_recorder/SensorRecorder.h"

#include "system_monitor_lib/recorded/Recording.h"

#include <QJsonDocument>
#include <QSaveFile>

SensorRecorder::SensorRecorder(const RecorderOptions &options, TreeSource &source, QObject *parent)
    : QObject(parent)
    , m_options(options)
    , m_source(source)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(options.intervalMs);
    connect(&m_timer, &QTimer::timeout, this, &SensorRecorder::record);
}

void SensorRecorder::start()
{
    m_source.open();
    m_timer.start();
}

void SensorRecorder::record()
{
    ++m_sample;
    const QString complaint = write(sampleFile(m_options, m_sample));
    if (complaint.isEmpty() && m_sample < m_options.samples)
        return;
    m_timer.stop();
    Q_EMIT sigFinished(complaint);
}

QString SensorRecorder::write(const QString &file)
{
    SensorTrees trees;
    for (std::size_t query = 0; query < queryCount; ++query)
        trees.add(static_cast<Query>(query), m_source.tree(static_cast<Query>(query)));
    const QByteArray json =
        QJsonDocument(m_anonymizer.anonymized(recordingOf(trees))).toJson(QJsonDocument::Indented);
    QSaveFile target(file);
    if (target.open(QIODevice::WriteOnly) && target.write(json) == json.size() && target.commit())
        return {};
    return QStringLiteral("%1: %2").arg(file, target.errorString());
}
