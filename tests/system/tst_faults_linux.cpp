#include "tests/support/DataServerClient.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MountFolder.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TestFonts.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include <memory>
#include <vector>

#include <sys/resource.h>

/// What a machine with Linux can do to the plugin while it runs, beside what every machine can.
class tst_Faults_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutANameService();
    void outlivesItsWorkingFolder();
    void outlivesAFullDisk();
    void outlivesALackOfDescriptors();
    void outlivesAClockThatIsSet_data();
    void outlivesAClockThatIsSet();
    void showsAFontWhoseFileIsGone();
};

namespace {

const QString cpu = keyuuid::cpu;
const QString key = QStringLiteral("key");

/// Whether the key gets its next picture and title, \a times times.
bool updates(const FakeHost &host, int times = 2)
{
    for (int update = 0; update < times; ++update) {
        if (!host.waitForUpdate(key))
            return false;
    }
    return !FakeHost::picture(host.images(key).constLast()).isNull();
}

/// Lets the process have at most this many open files from now on.
void limitDescriptors(const PluginProcess &process, int most)
{
    rlimit limit{};
    const auto id = static_cast<pid_t>(process.processId());
    ::prlimit(id, RLIMIT_NOFILE, nullptr, &limit);
    limit.rlim_cur = static_cast<rlim_t>(most);
    ::prlimit(id, RLIMIT_NOFILE, &limit, nullptr);
}

bool isBlank(const QImage &picture)
{
    QImage blank(picture.size(), QImage::Format_ARGB32);
    blank.fill(Qt::transparent);
    return picture.convertToFormat(QImage::Format_ARGB32) == blank;
}

} // namespace

void tst_Faults_linux::startsWithoutANameService()
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

void tst_Faults_linux::outlivesItsWorkingFolder()
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

void tst_Faults_linux::outlivesAFullDisk()
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

    // Space again: the next line is whole.
    QVERIFY(folder.run(QStringLiteral("rm full/file")));
    plugin.host.closeLink();
    QVERIFY(plugin.process.endsWithStatus(0));
    const QByteArray text = written();
    QVERIFY2(text.contains("SDK/Logger Disonnected-serverPort: ") && text.endsWith("\r\n"),
             text.constData());
}

void tst_Faults_linux::outlivesALackOfDescriptors()
{
    if (isSanitized)
        QSKIP("the sanitizers need descriptors themselves");
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));

    constexpr int spare = 4;
    limitDescriptors(plugin.process, plugin.process.openDescriptors() + spare);
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
    limitDescriptors(plugin.process, 1024);
    DataServerClient panel;
    QVERIFY(panel.open());
    QVERIFY(!panel.ask(QStringLiteral("Cpu Usage")).isEmpty());
}

void tst_Faults_linux::outlivesAClockThatIsSet_data()
{
    QTest::addColumn<QByteArray>("offset");
    QTest::newRow("back a day") << QByteArray("-1d");
    QTest::newRow("forward a day") << QByteArray("+1d");
    QTest::newRow("back to the beginning") << QByteArray("-50y");
}

void tst_Faults_linux::outlivesAClockThatIsSet()
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
    const auto before = plugin.host.titles(key).size();
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

void tst_Faults_linux::showsAFontWhoseFileIsGone()
{
    const QString installed = testfonts::find(QStringLiteral("DejaVuSans.ttf"));
    if (installed.isEmpty())
        QSKIP("this machine has no DejaVu fonts");
    const QString other = testfonts::find(QStringLiteral("Roboto-Bold.ttf"));
    if (other.isEmpty())
        QSKIP("this machine has no Roboto fonts");
    // Of the machine's fonts only another family can stand in for it.
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

QTEST_GUILESS_MAIN(tst_Faults_linux)
#include "tst_faults_linux.moc"
