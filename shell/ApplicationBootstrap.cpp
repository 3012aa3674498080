#include "shell/ApplicationBootstrap.h"

#include "SDK/LanguageUtilities.h"
#include "SDK/Logger/Logger.h"
#include "sensors/services/BlockingWebSocketClient.h"
#include "shell/leftovers.h"

#include <QUrl>

namespace {

/// How long another instance may take to answer.
constexpr unsigned probeTimeoutMs = 1500;

QStringList textsOf(int argc, char **argv)
{
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts.append(QString::fromLocal8Bit(argv[i]));
    return texts;
}

} // namespace

ApplicationBootstrap::ApplicationBootstrap(int argc, char **argv)
{
    const QStringList arguments = textsOf(argc, argv);
    for (int i = 0; i < arguments.size(); ++i)
        LogDebug(QStringLiteral("args%1: %2").arg(QString::number(i), arguments.at(i)));
    const QString language = languageFromArguments(arguments);
    LogDebug(labelled("Language:", language));
    LogDebug(QStringLiteral("初始化翻译"));
    LanguageUtilities::instance()->LoadLanguages();
    LanguageUtilities::instance()->SetLanguage(language);
    checkInstance();
}

QString ApplicationBootstrap::languageFromArguments(const QStringList &arguments)
{
    // Compatibility: language-scan
    static const QString label = QStringLiteral("language:");
    QString language = QStringLiteral("en");
    for (const QString &argument : arguments) {
        const auto found = argument.indexOf(label);
        if (found < 0)
            continue;
        const auto start = found + label.size();
        const auto comma = argument.indexOf(QLatin1Char(','), start);
        language = argument.mid(start, comma < 0 ? -1 : comma - start).trimmed();
    }
    return language;
}

void ApplicationBootstrap::checkInstance()
{
    // Never deleted: an answering instance keeps its connection.
    auto *const probe = new BlockingWebSocketClient(QUrl(QStringLiteral("ws://localhost:24509")),
                                                    probeTimeoutMs, this);
    // Compatibility: instance-lives-on
    if (probe->isConnected()) {
        LogDebug(
            QStringLiteral("Connect to PROT: 24509 Success(SystemMonitorIsAlearyRunning), Exit"));
        return;
    }
    LogDebug(QStringLiteral("Connect to PROT: 24509 Failed, try to killProcess and Running.."));
    leftovers::end();
}
