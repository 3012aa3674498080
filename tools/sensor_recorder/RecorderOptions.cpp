#include "tools/sensor_recorder/RecorderOptions.h"

#include <QCommandLineParser>
#include <QFileInfo>

std::variant<RecorderOptions, RecorderMessage> parseRecorderOptions(const QStringList &arguments)
{
    constexpr int mostSamples = 100'000;
    constexpr double longestInterval = 86'400;
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this text."));
    const QCommandLineOption samples(
        QStringLiteral("samples"),
        QStringLiteral("Takes N samples; for FILE.json into FILE-1.json, FILE-2.json, ... "
                       "(default: 1, into FILE)."),
        QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption interval(
        QStringLiteral("interval"),
        QStringLiteral("Waits so long before each sample (default: 1)."), QStringLiteral("SECONDS"),
        QStringLiteral("1"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Records the sensors of this machine.\n\n"
        "Set SYSTEM_MONITOR_RECORDING=FILE to have the recording shown in their stead. It holds "
        "the\n"
        "names of processor, GPUs, drives, chips and network adapters, and no serial numbers or\n"
        "addresses of adapters; where one is part of a name, it is taken out."));
    parser.addOptions({help, samples, interval});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Where to write to."));

    const bool understood = parser.parse(arguments);
    if (understood && parser.isSet(help))
        return RecorderMessage{parser.helpText(), 0};
    if (!understood)
        return RecorderMessage{parser.errorText() + QLatin1Char('\n'), 2};
    if (parser.positionalArguments().size() != 1)
        return RecorderMessage{QStringLiteral("Name one file to write to.\n"), 2};

    bool isCount = false;
    bool isTime = false;
    const int count = parser.value(samples).toInt(&isCount);
    const double seconds = parser.value(interval).toDouble(&isTime);
    if (!isCount || count < 1 || count > mostSamples)
        return RecorderMessage{QStringLiteral("--samples takes a number from 1 on.\n"), 2};
    // With a shorter interval the readings would not be refreshed.
    if (!isTime || !(seconds >= 0.5) || seconds > longestInterval)
        return RecorderMessage{QStringLiteral("--interval takes seconds, 0.5 or more.\n"), 2};
    return RecorderOptions{parser.positionalArguments().constFirst(), count,
                           static_cast<int>(seconds * 1000)};
}

QString sampleFile(const RecorderOptions &options, int sample)
{
    if (options.samples == 1)
        return options.file;
    const QString suffix = QFileInfo(options.file).suffix();
    const QString end = suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix;
    return QStringLiteral("%1-%2%3").arg(options.file.chopped(end.size())).arg(sample).arg(end);
}
