#include "bench/PluginMeter.h"
#include "tests/support/FakeHardwareService.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdlib>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures a plugin from its host's side and prints the results as JSON."));
    parser.addHelpOption();
    const QCommandLineOption keys(QStringLiteral("keys"), QStringLiteral("Keys on the deck."),
                                  QStringLiteral("N"), QStringLiteral("32"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("Time to measure."),
                                     QStringLiteral("S"), QStringLiteral("10"));
    const QCommandLineOption sample(QStringLiteral("sample"),
                                    QStringLiteral("Print the memory each S seconds."),
                                    QStringLiteral("S"), QStringLiteral("0"));
    const QCommandLineOption style(QStringLiteral("style"),
                                   QStringLiteral("Gauges instead of texts: bar, ring, graph."),
                                   QStringLiteral("STYLE"));
    parser.addOptions({keys, style, seconds, sample});
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("The plugin and its first arguments."));
    parser.process(application);
    const QStringList command = parser.positionalArguments();
    if (command.isEmpty())
        parser.showHelp(EXIT_FAILURE);

    // Without this service the plugin would look for it for about twelve seconds.
    const FakeHardwareService service;
    PluginMeter meter({command.first(), command.mid(1), parser.value(keys).toInt(),
                       parser.value(style), parser.value(seconds).toInt(),
                       parser.value(sample).toInt()});
    QObject::connect(&meter, &PluginMeter::finished, qApp, [](bool succeeded) {
        QCoreApplication::exit(succeeded ? EXIT_SUCCESS : EXIT_FAILURE);
    });
    if (!meter.start())
        return EXIT_FAILURE;
    return QCoreApplication::exec();
}
