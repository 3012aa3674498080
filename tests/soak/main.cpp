#include "tests/soak/Measurements.h"
#include "tests/soak/Storm.h"
#include "tests/support/PluginProcess.h"
#include "tests/support/TallyHost.h"
#include "tests/support/Waits.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTest>
#include <QThread>

#include <cstdio>

namespace {

/// A plugin in fast motion, its host, and the events that both have to survive.
class Soak
{
public:
    explicit Soak(qint64 updates)
        : m_updates(updates)
    {
    }

    /// The exit status: 0 when the plugin uses at the end no more than after the warm-up.
    int run(const QString &plotFile);

private:
    bool start();
    bool stormUntil(qint64 pictures);
    Measurements::Sample sample();
    Measurements::Sample rest();
    int judge(const Measurements::Sample &before, const Measurements::Sample &after) const;

    qint64 m_updates;
    TallyHost m_host;
    Storm m_storm{m_host};
    PluginProcess m_plugin;
    Measurements m_measurements;
    QElapsedTimer m_clock;
};

void print(const char *what, const Measurements::Sample &sample)
{
    std::printf("%s: %.1f min, %lld pictures, %.1f MB, %d open files\n", what, sample.minutes,
                static_cast<long long>(sample.pictures), sample.residentMB, sample.descriptors);
    std::fflush(stdout);
}

bool Soak::start()
{
    m_plugin.setProgram(QStringLiteral(SOAK_PLUGIN));
    m_plugin.setStandardErrorFile(QProcess::nullDevice());
    m_plugin.launch(m_host.arguments());
    m_clock.start();
    return QTest::qWaitFor([this] { return m_host.isRegistered(); }, patience);
}

Measurements::Sample Soak::sample()
{
    Measurements::Sample sample;
    sample.minutes = double(m_clock.elapsed()) / 60000;
    sample.residentMB = double(m_plugin.residentMemory()) / (1024 * 1024);
    sample.descriptors = m_plugin.openDescriptors();
    sample.pictures = m_host.pictures();
    m_measurements.add(sample);
    return sample;
}

/// Samples each second. False when the plugin has gone or shows nothing any more.
bool Soak::stormUntil(qint64 pictures)
{
    constexpr int mostIdleSeconds = 60;
    m_storm.start();
    int idleSeconds = 0;
    while (m_host.pictures() < pictures && !m_host.hasLost() && idleSeconds < mostIdleSeconds) {
        const qint64 before = m_host.pictures();
        QTest::qWait(1000);
        sample();
        idleSeconds = m_host.pictures() == before ? idleSeconds + 1 : 0;
        if (idleSeconds > 0)
            std::printf("No picture within a second\n");
    }
    if (m_host.pictures() < pictures)
        std::printf("FAILED: no more pictures\n");
    return m_host.pictures() >= pictures;
}

/// What the plugin takes with nothing to do, once all has been handled and it has found a sound
/// server again, for which it looks every eight seconds at least.
Measurements::Sample Soak::rest()
{
    m_storm.calm();
    QTest::qWait(10000);
    return sample();
}

/// Whether \a sample takes at most \a spareMB more than \a before.
bool isWithin(double spareMB, const Measurements::Sample &before,
              const Measurements::Sample &sample)
{
    return sample.residentMB <= before.residentMB + spareMB;
}

int Soak::judge(const Measurements::Sample &before, const Measurements::Sample &after) const
{
    constexpr double noiseMB = 4;
    const bool sameMemory = isWithin(noiseMB, before, after);
    const bool sameFiles = after.descriptors <= before.descriptors;
    std::printf("%s\n", sameMemory && sameFiles ? "Nothing has grown" : "FAILED: it has grown");
    return sameMemory && sameFiles ? 0 : 1;
}

int Soak::run(const QString &plotFile)
{
    for (const QString &line : m_storm.missing())
        std::printf("Left out: %s\n", qPrintable(line));
    if (!start())
        return 1;
    if (!stormUntil(m_updates / 10))
        return 1;
    const Measurements::Sample before = rest();
    print("After the warm-up", before);
    if (!stormUntil(m_updates / 2))
        return 1;
    // A host that reads nothing for a while.
    QThread::sleep(10);
    const Measurements::Sample paused = sample();
    print("After a host that did not read", paused);
    // The backlogs on the link and of a panel, twice: buffers are seldom full.
    constexpr double backlogMB = 2 * (32 + 16) * 1.05;
    if (!isWithin(backlogMB, before, paused)) {
        std::printf("FAILED: the backlog has no bound\n");
        return 1;
    }
    if (!stormUntil(m_updates))
        return 1;
    const Measurements::Sample after = rest();
    print("At the end", after);
    if (QFile plot(plotFile);
        !plotFile.isEmpty() && plot.open(QIODevice::WriteOnly | QIODevice::Truncate))
        plot.write(m_measurements.plot());
    return judge(before, after);
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("UPDATES"),
                                 QStringLiteral("Key updates to sit through."));
    parser.addPositionalArgument(QStringLiteral("PLOT.svg"), QStringLiteral("The plot's file."));
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    const qint64 updates = arguments.value(0, QStringLiteral("1000000")).toLongLong();
    return Soak(updates).run(arguments.value(1));
}
