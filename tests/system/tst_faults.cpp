#include "tests/support/DataServerClient.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MountFolder.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TestFonts.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

#include <csignal>
#include <memory>
#include <vector>

/// Faults of the machine while the plugin runs.
class tst_Faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsWhenItsHostIsKilled();
    void outlivesAHostThatIsStopped();
    void startsWithoutANameService();
    void outlivesItsWorkingFolder();
    void outlivesALogThatCannotBeWritten();
    void outlivesAFullDisk();
    void outlivesALackOfDescriptors();
    void outlivesAClockThatIsSet_data();
    void outlivesAClockThatIsSet();
    void goesOnAfterAPause();
    void showsAFontWhoseFileIsGone();
    void takesAMessageOfManyMegabytes();
    void updatesTenThousandKeys();
};

namespace {

const QString cpu = keyuuid::cpu;
const QString key = QStringLiteral("key");
const QString passEnd = QStringLiteral("-------------------updateImages over---------------------");

/// Whether the key gets its next picture and title, \a times times.
bool updates(const FakeHost &host, int times = 2)
{
    for (int update = 0; update < times; ++update) {
        if (!host.waitForUpdate(key))
            return false;
    }
    return !FakeHost::picture(host.images(key).constLast()).isNull();
}

/// A host in a process of its own: tests/support/programs/host_process.cpp.
class HostProcess : public QProcess
{
public:
    explicit HostProcess(int keys)
    {
        start(QStringLiteral(HOST_EXECUTABLE), {QString::number(keys)});
    }
    ~HostProcess() override
    {
        kill();
        waitForFinished();
    }
    Q_DISABLE_COPY(HostProcess)

    /// The command line of the plugin; none yet at first.
    QStringList arguments() { return lines().value(0).split(QLatin1Char(' '), Qt::SkipEmptyParts); }

    bool hasRegistered() { return lines().value(1) == QLatin1String("registered"); }

    /// The number of pictures that it has received.
    int pictures() { return lines().constLast().toInt(); }

    void stop() { ::kill(pid_t(processId()), SIGSTOP); }
    void goOn() { ::kill(pid_t(processId()), SIGCONT); }

private:
    const QStringList &lines()
    {
        while (canReadLine())
            m_lines.append(QString::fromUtf8(readLine().trimmed()));
        return m_lines;
    }

    QStringList m_lines;
};

bool isBlank(const QImage &picture)
{
    QImage blank(picture.size(), QImage::Format_ARGB32);
    blank.fill(Qt::transparent);
    return picture.convertToFormat(QImage::Format_ARGB32) == blank;
}

} // namespace

void tst_Faults::endsWhenItsHostIsKilled()
{
    HostProcess host(0);
    PluginProcess plugin;
    QTRY_PATIENTLY(!host.arguments().isEmpty());
    plugin.launch(host.arguments());
    QTRY_PATIENTLY(host.hasRegistered());
    host.kill();
    QVERIFY(plugin.endsWithStatus(0));
    QVERIFY(plugin.content(QStringLiteral("log.txt")).contains("Disonnected-serverPort: "));
}

void tst_Faults::outlivesAHostThatIsStopped()
{
    constexpr int keys = 1000;
    constexpr qint64 backlog = 32LL * 1024 * 1024;
    HostProcess host(keys);
    PluginProcess plugin;
    QTRY_PATIENTLY(!host.arguments().isEmpty());
    plugin.launch(host.arguments());
    QTRY_PATIENTLY(host.hasRegistered());
    QTRY_PATIENTLY(host.pictures() >= 2 * keys);
    const qint64 before = plugin.residentMemory();

    host.stop();
    const QByteArray line("The host does not read: pictures are dropped until it does");
    const auto log = [&plugin] { return plugin.content(QStringLiteral("log.txt")); };
    QTRY_PATIENTLY(log().contains(line));
    // A few more passes.
    const int passes = plugin.timesLogged(passEnd);
    QTRY_PATIENTLY(plugin.timesLogged(passEnd) >= passes + 5);
    const qint64 meanwhile = plugin.residentMemory();
    // The sanitizers keep freed memory for a while.
    constexpr int most = isSanitized ? 12 : 3;
    QVERIFY2(meanwhile < before + most * backlog, qPrintable(QString::number(meanwhile - before)));

    host.goOn();
    const int read = host.pictures();
    // More than can have been waiting.
    QTRY_PATIENTLY(host.pictures() >= read + 10 * keys);
    QCOMPARE(log().count(line), 1);
}

void tst_Faults::startsWithoutANameService()
{
    const MountFolder folder;
    if (!folder.run(QStringLiteral("touch hosts && mount --bind hosts /etc/hosts")))
        QSKIP("nothing can be mounted on this machine: the warning above says why");
    if (QProcess::execute(QStringLiteral("getent"),
                          {QStringLiteral("ahosts"), QStringLiteral("localhost")}) == 0) {
        QVERIFY(folder.run(QStringLiteral("umount /etc/hosts")));
        QSKIP("another name service of this machine knows localhost");
    }
    RunningPlugin plugin;
    const bool started = plugin.start();
    if (started)
        plugin.host.appear(cpu, key);
    const bool updated = started && updates(plugin.host, 1);
    QVERIFY(folder.run(QStringLiteral("umount /etc/hosts")));
    QVERIFY(started);
    QVERIFY(updated);
}

void tst_Faults::outlivesItsWorkingFolder()
{
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    QVERIFY(QDir(plugin.process.workingFolder()).removeRecursively());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    plugin.process.pressConsoleHotKey();
    QVERIFY(updates(plugin.host));
    plugin.host.closeLink();
    QVERIFY(plugin.process.endsWithStatus(0));
}

void tst_Faults::outlivesALogThatCannotBeWritten()
{
    RunningPlugin plugin;
    QVERIFY(QDir(plugin.process.workingFolder()).mkdir(QStringLiteral("log.txt")));
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    plugin.host.closeLink();
    QVERIFY(plugin.process.endsWithStatus(0));
}

void tst_Faults::outlivesAFullDisk()
{
    const MountFolder folder;
    if (!folder.run(QStringLiteral("mkdir full && mount -t tmpfs -o size=16k tmpfs full")))
        QSKIP("nothing can be mounted on this machine: the warning above says why");
    folder.run(QStringLiteral("head -c 1M /dev/zero >full/file 2>/dev/null; true"));
    RunningPlugin plugin;
    plugin.process.setWorkingDirectory(folder.path(QStringLiteral("full")));
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));

    const auto written = [&folder] {
        QFile log(folder.path(QStringLiteral("full/log.txt")));
        log.open(QIODevice::ReadOnly);
        return log.readAll();
    };
    QVERIFY2(!written().contains("Connect-serverPort: "), "the disk was not full");

    // There is space again: the next line is complete.
    QVERIFY(folder.run(QStringLiteral("rm full/file")));
    plugin.host.closeLink();
    QVERIFY(plugin.process.endsWithStatus(0));
    const QByteArray text = written();
    QVERIFY2(text.contains("SDK/Logger Disonnected-serverPort: ") && text.endsWith("\r\n"),
             text.constData());
}

void tst_Faults::outlivesALackOfDescriptors()
{
    if (isSanitized)
        QSKIP("the sanitizers need descriptors themselves");
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));

    constexpr int spare = 4;
    plugin.process.limitDescriptors(plugin.process.openDescriptors() + spare);
    std::vector<std::unique_ptr<DataServerClient>> panels;
    for (int panel = 0; panel < 2 * spare; ++panel) {
        panels.push_back(std::make_unique<DataServerClient>());
        panels.back()->openSoon();
    }
    QVERIFY(updates(plugin.host));
    QVERIFY(!panels.back()->isOpen());
    // Pictures cost no descriptors; log lines do and are lost.
    panels.clear();
    QVERIFY(updates(plugin.host));
    plugin.process.limitDescriptors(1024);
    DataServerClient panel;
    QVERIFY(panel.open());
    QVERIFY(!panel.ask(QStringLiteral("Cpu Usage")).isEmpty());
}

void tst_Faults::outlivesAClockThatIsSet_data()
{
    QTest::addColumn<QByteArray>("offset");
    QTest::newRow("back a day") << QByteArray("-1d");
    QTest::newRow("forward a day") << QByteArray("+1d");
    QTest::newRow("back to the beginning") << QByteArray("-50y");
}

void tst_Faults::outlivesAClockThatIsSet()
{
    QFETCH(QByteArray, offset);
    const QStringList libraries =
        QDir(QStringLiteral("/usr/lib")).entryList({QStringLiteral("*-linux-gnu*")}, QDir::Dirs);
    QString faketime;
    for (const QString &folder : libraries) {
        const QString file = QStringLiteral("/usr/lib/%1/faketime/libfaketime.so.1").arg(folder);
        if (QFile::exists(file))
            faketime = file;
    }
    if (faketime.isEmpty())
        QSKIP("libfaketime is not installed");
    if (isSanitized)
        QSKIP("the sanitizers and libfaketime do not go together");

    QTemporaryDir folder;
    const QString clock = folder.filePath(QStringLiteral("clock"));
    const auto set = [&clock](const QByteArray &to) {
        QFile file(clock);
        return file.open(QIODevice::WriteOnly) && file.write(to + '\n') > 0;
    };
    QVERIFY(set("+0"));
    RunningPlugin plugin;
    plugin.process.setVariable(QStringLiteral("LD_PRELOAD"), faketime);
    plugin.process.setVariable(QStringLiteral("FAKETIME_TIMESTAMP_FILE"), clock);
    plugin.process.setVariable(QStringLiteral("FAKETIME_NO_CACHE"), QStringLiteral("1"));
    plugin.process.setVariable(QStringLiteral("FAKETIME_DONT_FAKE_MONOTONIC"), QStringLiteral("1"));
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));

    QVERIFY(set(offset));
    const int before = plugin.host.titles(key).size();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(plugin.host.waitForMessages(QStringLiteral("setTitle"), key, before + 4));
    QVERIFY2(timer.elapsed() > 2000 && timer.elapsed() < 8000,
             qPrintable(QString::number(timer.elapsed())));
    plugin.host.closeLink();
    QVERIFY(plugin.process.endsWithStatus(0));
    // The stamps show that the clock was set at all.
    const QByteArray log = plugin.process.content(QStringLiteral("log.txt"));
    QVERIFY(log.mid(1, 10) != log.mid(log.lastIndexOf("\r\n[") + 3, 10));
}

void tst_Faults::goesOnAfterAPause()
{
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    // Like sleep of the machine, a stop halts the process but not the clock.
    plugin.process.freeze();
    const int before = plugin.host.titles(key).size();
    QVERIFY(!QTest::qWaitFor([&] { return plugin.host.titles(key).size() > before + 1; }, 4000));
    plugin.process.thaw();
    plugin.host.sendEvent(QStringLiteral("systemDidWakeUp"), QString(), QString());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(plugin.host.waitForMessages(QStringLiteral("setTitle"), key, before + 4));
    // Missed passes are not repeated.
    QVERIFY2(timer.elapsed() > 900, qPrintable(QString::number(timer.elapsed())));
}

void tst_Faults::showsAFontWhoseFileIsGone()
{
    const QString installed = testfonts::find(QStringLiteral("DejaVuSans.ttf"));
    if (installed.isEmpty())
        QSKIP("this machine has no DejaVu fonts");
    const QString other = testfonts::find(QStringLiteral("Roboto-Bold.ttf"));
    if (other.isEmpty())
        QSKIP("this machine has no Roboto fonts");
    // Only another family of the machine's fonts can replace it.
    QTemporaryDir folder;
    QFile fontConfig(folder.filePath(QStringLiteral("fonts.conf")));
    QVERIFY(fontConfig.open(QIODevice::WriteOnly));
    fontConfig.write(QStringLiteral("<fontconfig><dir>%1</dir><cachedir>%2</cachedir></fontconfig>")
                         .arg(QFileInfo(other).path(), folder.path())
                         .toUtf8());
    fontConfig.close();
    const QString file = folder.filePath(QStringLiteral("deck.ttf"));
    QVERIFY(QFile::copy(installed, file));
    const QJsonObject font{{QStringLiteral("name"), QStringLiteral("Deck")},
                           {QStringLiteral("url"), file}};
    const QJsonObject info{{QStringLiteral("fonts"), QJsonArray{font}}};
    RunningPlugin plugin;
    plugin.process.setVariable(QStringLiteral("FONTCONFIG_FILE"), fontConfig.fileName());
    QVERIFY(plugin.start(QString::fromUtf8(QJsonDocument(info).toJson(QJsonDocument::Compact))));
    QVERIFY(QFile::remove(file));
    plugin.host.appear(
        cpu, key,
        FakeHost::keySettings({{QStringLiteral("fontFamily"), QStringLiteral("DejaVu Sans")}}));
    QVERIFY(updates(plugin.host));
    QVERIFY(!isBlank(FakeHost::picture(plugin.host.images(key).constLast())));
    const QJsonArray fonts = plugin.host.settings(key)
                                 .constFirst()
                                 .value(QStringLiteral("titleParameters"))
                                 .toObject()
                                 .value(QStringLiteral("FontList"))
                                 .toArray();
    QVERIFY(fonts.at(0)
                .toObject()
                .value(QStringLiteral("name"))
                .toString()
                .startsWith(QStringLiteral("deck ")));
}

void tst_Faults::takesAMessageOfManyMegabytes()
{
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    constexpr int megabytes = 50;
    const QString huge(megabytes * 1024 * 1024, QLatin1Char('x'));
    plugin.host.sendText(QStringLiteral(R"({"event":"keyDown","context":"%1"})").arg(huge));
    plugin.host.sendText(huge);
    QVERIFY(updates(plugin.host, 3));
    QVERIFY2(plugin.process.residentMemory() < 1500LL * 1024 * 1024,
             qPrintable(QString::number(plugin.process.residentMemory())));
}

void tst_Faults::updatesTenThousandKeys()
{
    constexpr int keys = 10000;
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    for (int index = 0; index < keys; ++index)
        plugin.host.appear(cpu, QStringLiteral("key %1").arg(index));
    const QString last = QStringLiteral("key %1").arg(keys - 1);
    QTRY_VERIFY_WITH_TIMEOUT(!plugin.host.titles(last).isEmpty() || !plugin.process.isRunning(),
                             10 * patience);
    QVERIFY(plugin.process.isRunning());
    QVERIFY(!FakeHost::picture(plugin.host.images(last).constFirst()).isNull());
    for (int index = 0; index < keys; ++index)
        plugin.host.disappear(cpu, QStringLiteral("key %1").arg(index));
    plugin.host.appear(cpu, key);
    QTRY_VERIFY_WITH_TIMEOUT(!plugin.host.titles(key).isEmpty(), 10 * patience);
}

QTEST_GUILESS_MAIN(tst_Faults)
#include "tst_faults.moc"
