#include "sensors/machine/drives.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/TestDisplay.h"
#include "tests/support/Waits.h"

#include <QColor>
#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <iterator>
#include <memory>

/// The deck simulator and the plugin, as ./run starts them, on a recorded machine.
class tst_Simulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void playsScripts_data();
    void playsScripts();
    void showsEveryKindOfKey();
    void playsAProfileInTheTerminal();
    void showsTheWindow();

private:
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder->filePath(QString::fromLatin1(name));
    }
    [[nodiscard]] bool writeProfile() const;
    void run(const QStringList &arguments, const TestDisplay *display = nullptr);

    // The plugin waits long for one where the simulator's cannot be found.
    FakeHardwareService m_service;
    std::unique_ptr<QTemporaryDir> m_folder;
    QProcess m_simulator;
};

namespace {

QString recording()
{
    return QStringLiteral(RECORDINGS_FOLDER "/desktop.json");
}

// A profile: two keys on the readings of a recorded machine, which is not that of the other tests.
QByteArray profile()
{
    const QString hotMachine = QStringLiteral(RECORDINGS_FOLDER "/machine-hot.json");
    const auto key = [](const QString &action, int column) {
        const QJsonObject parameters{{QStringLiteral("showTitle"), false}};
        return QJsonObject{{QStringLiteral("action"), action},
                           {QStringLiteral("column"), column},
                           {QStringLiteral("row"), 0},
                           {QStringLiteral("settings"),
                            QJsonObject{{QStringLiteral("titleParameters"), parameters}}}};
    };
    const QJsonObject root{
        {QStringLiteral("keys"), QJsonArray{key(keyuuid::cpu, 0), key(keyuuid::memory, 1)}},
        {QStringLiteral("grid"), QJsonObject{{QStringLiteral("columns"), 2},
                                             {QStringLiteral("rows"), 1},
                                             {QStringLiteral("dials"), 0}}},
        {QStringLiteral("plugin"), QJsonObject{{QStringLiteral("recording"), hotMachine}}}};
    return QJsonDocument(root).toJson();
}

/// A kind of key, and the pattern of what it shows behind its name.
struct Kind
{
    const char *name;
    const char *reading;
};

// Volume and drive are those of the machine that runs this.
const Kind kinds[] = {
    {"CPU usage", "37%"},
    {"CPU temperature", "45°"},
    {"CPU frequency", "4150MHz"},
    {"CPU package power", R"(65\.3W)"},
    {"CPU voltage", R"(1\.225V)"},
    {"CPU model", "AMD Ryzen 9 5900X"},
    {"GPU core usage", "99%"},
    {"GPU temperature", "51°"},
    {"GPU core frequency", "1905MHz"},
    {"GPU memory frequency", "9501MHz"},
    {"GPU memory usage", "49%"},
    {"Used GPU memory", "2048MB"},
    {"GPU power", R"(120\.0W)"},
    {"GPU voltage", R"(0\.913V)"},
    {"GPU model", "NVIDIA GeForce RTX 3080"},
    {"Memory load", "90%"},
    {"Available memory (GB)", R"(1\.5GB)"},
    {"Used memory (GB)", R"(14\.3GB)"},
    {"Total memory (GB)", R"(15\.8GB)"},
    {"Available memory (MB)", "1536MB"},
    {"Used memory (MB)", "14592MB"},
    {"Total memory (MB)", "16128MB"},
    {"Memory model", "16G"},
    {"Network speed", R"(1\.2Kb/s  3\.0MB/s)"},
    {"Upload speed", R"(1\.2Kb/s)"},
    {"Download speed", R"(3\.0MB/s)"},
    {"Drive space", R"(.*\d+% Used  \d+G Free)"},
    {"Drive temperature", "40°"},
    {"Volume", R"(-?\d+%)"},
    {"CPU fan speed", "1200RPM"},
    {"Pump speed", "1850RPM"},
    {"Any sensor", "51°C"},
};

// The titles by the names of their keys, from the table that the output ends with. They are its
// first two columns, the other way round.
QMap<QString, QString> titlesIn(const QString &output)
{
    QMap<QString, QString> titles;
    const QStringList lines = output.split(QLatin1Char('\n'));
    const auto header = lines.indexOf(QRegularExpression(QStringLiteral("^Title +Key .*$")));
    if (header < 0)
        return titles;
    const auto column = lines.at(header).indexOf(QLatin1String("Key"));
    const QRegularExpression picture(QStringLiteral(" +\\d+x\\d+ .*$"));
    for (const QString &line : lines.mid(header)) {
        if (line.contains(picture))
            titles.insert(line.mid(column).remove(picture), line.left(column).trimmed());
    }
    return titles;
}

} // namespace

void tst_Simulator::init()
{
    m_service.announceToPrograms();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_Simulator::run(const QStringList &arguments, const TestDisplay *display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    if (display) {
        display->addTo(environment);
        // The libraries of the X platform free nothing until the process ends.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    }
    environment.insert(QStringLiteral("SYSTEM_MONITOR_RECORDING"), recording());
    m_simulator.setProcessEnvironment(environment);
    m_simulator.start(QStringLiteral(DECK_SIMULATOR),
                      QStringList{QStringLiteral("--work-dir"), path("work")} + arguments);
    QTRY_VERIFY(m_simulator.state() == QProcess::NotRunning);
    const QByteArray errors = m_simulator.readAllStandardError();
    QCOMPARE(m_simulator.exitStatus(), QProcess::NormalExit);
    QVERIFY2(m_simulator.exitCode() == 0, errors.constData());
}

void tst_Simulator::playsScripts_data()
{
    QTest::addColumn<QString>("script");
    const QDir scripts(QStringLiteral(SCRIPTS_FOLDER));
    const QStringList names = scripts.entryList({QStringLiteral("*.jsonl")}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << scripts.filePath(name);
}

void tst_Simulator::playsScripts()
{
    QFETCH(const QString, script);
    if (script.endsWith(QLatin1String("/drives.jsonl")) && machineDrives().fixedRoots().isEmpty())
        QSKIP("this machine has no fixed drive");
    run({QStringLiteral("--deck=empty"), QStringLiteral("--quiet"), QStringLiteral("--script"),
         script});
    QFile log(path("work/log.txt"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QVERIFY(log.readAll().contains("Connect-serverPort: "));
}

void tst_Simulator::showsEveryKindOfKey()
{
    run({QStringLiteral("--deck=kinds"), QStringLiteral("--columns=8"),
         QStringLiteral("--snapshot"), path("sheet.png")});
    const QString table = QString::fromUtf8(m_simulator.readAllStandardOutput());
    const QMap<QString, QString> titles = titlesIn(table);
    QVERIFY2(titles.size() == int(std::size(kinds)), qPrintable(table));
    for (const Kind &kind : kinds) {
        const QString name = QString::fromUtf8(kind.name);
        const QString title = titles.value(name);
        const QRegularExpression expected(QRegularExpression::anchoredPattern(
            QRegularExpression::escape(name) + QStringLiteral(": ") +
            QString::fromUtf8(kind.reading)));
        QVERIFY2(expected.match(title).hasMatch(), qPrintable(name + QLatin1Char('\n') + table));
    }
    const QImage sheet(path("sheet.png"));
    QVERIFY(sheet.width() > 8 * 144 && sheet.height() > 4 * 144);
}

void tst_Simulator::playsAProfileInTheTerminal()
{
    QVERIFY(writeProfile());
    run({QStringLiteral("--headless"), QStringLiteral("--profile"), path("deck.json"),
         QStringLiteral("--snapshot"), path("sheet.png")});
    const QString table = QString::fromUtf8(m_simulator.readAllStandardOutput());
    const QMap<QString, QString> expected{{QStringLiteral("CPU usage"), QStringLiteral("98%")},
                                          {QStringLiteral("Memory load"), QStringLiteral("97%")}};
    QVERIFY2(titlesIn(table) == expected, qPrintable(table));
    QFile file(path("deck.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), profile());
}

bool tst_Simulator::writeProfile() const
{
    QFile file(path("deck.json"));
    return file.open(QIODevice::WriteOnly) && file.write(profile()) > 0;
}

void tst_Simulator::showsTheWindow()
{
    const TestDisplay display;
    if (!display.isThere())
        QSKIP("There is no display to open a window on (Debian package xvfb)");
    QVERIFY(writeProfile());

    run({QStringLiteral("--profile"), path("deck.json"), QStringLiteral("--screenshot"),
         path("window.png"), QStringLiteral("--colors=light")},
        &display);
    const QImage window(path("window.png"));
    QVERIFY(window.width() > 600 && window.height() > 400);
    // The keys are the largest dark part of a light window, the readings are white on them.
    int dark = 0;
    int white = 0;
    for (int y = 0; y < window.height(); ++y) {
        for (int x = 0; x < window.width(); ++x) {
            if (qGray(window.pixel(x, y)) > 24)
                continue;
            ++dark;
            for (int right = 1; right < 12 && x + right < window.width(); ++right)
                white += qGray(window.pixel(x + right, y)) > 240 ? 1 : 0;
        }
    }
    QVERIFY2(dark > 10000, qPrintable(QString::number(dark)));
    QVERIFY2(white > 1000, qPrintable(QString::number(white)));
    // The plugin ran and ended as it should: its folder has its log, and the profile is there.
    QVERIFY(QFile::exists(path("work/log.txt")));
    QVERIFY(QFile::exists(path("deck.json")));
    QVERIFY(!QFile::exists(path("deck.json.broken")));
}

QTEST_GUILESS_MAIN(tst_Simulator)
#include "tst_simulator.moc"
