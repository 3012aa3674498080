#include "system_monitor_lib/live/LiveSource.h"
#include "tools/sensor_recorder/SensorRecorder.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

namespace {

void say(FILE *stream, const QString &text)
{
    QTextStream(stream) << text;
}

int record(const RecorderOptions &options)
{
    LiveSource source;
    SensorRecorder recorder(options, source);
    int status = 0;
    QObject::connect(&recorder, &SensorRecorder::sigFinished, QCoreApplication::instance(),
                     [&status](const QString &complaint) {
                         if (!complaint.isEmpty())
                             say(stderr, complaint + QLatin1Char('\n'));
                         status = complaint.isEmpty() ? 0 : 1;
                         QCoreApplication::quit();
                     });
    recorder.start();
    QCoreApplication::exec();
    return status;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const auto parsed = parseRecorderOptions(QCoreApplication::arguments());
    if (const auto *message = std::get_if<RecorderMessage>(&parsed)) {
        say(message->status == 0 ? stdout : stderr, message->text);
        return message->status;
    }
    return record(std::get<RecorderOptions>(parsed));
}
