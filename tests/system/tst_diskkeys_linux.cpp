#include "tests/support/DataServerClient.h"
#include "tests/support/DriveText.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MountFolder.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QProcess>
#include <QSet>
#include <QtTest>

#include <memory>

/// Disk keys with real drives that are mounted, fill up and are unmounted.
class tst_DiskKeys_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void listsTheDrives();
    void showsTheChosenDrive();
    void showsAllDrives();
    void loopsOverTheDrives();
    void loopsAtMostOnceASecond_data();
    void loopsAtMostOnceASecond();
    void showsNothingPastTheLastDrive();
    void agreesWithDf();
    void forgetsADriveThatVanishes();

private:
    QJsonObject setting(const QJsonObject &parameters) const
    {
        return {{QStringLiteral("settings"), FakeHost::keySettings(parameters)}};
    }
    void change(const QJsonObject &parameters);
    int indexOf(const QString &drive);
    QJsonObject drive(const QString &root);
    QString nextTitle() const;

    std::unique_ptr<MountFolder> m_folder;
    std::unique_ptr<RunningPlugin> m_plugin;
    std::unique_ptr<DataServerClient> m_panel;
    FakeHost *m_host = nullptr;
    QString m_small;
    QString m_large;
};

namespace {

const QString uuid = keyuuid::physicalDisk;
const QString key = QStringLiteral("disk");

} // namespace

void tst_DiskKeys_linux::initTestCase()
{
    m_folder = std::make_unique<MountFolder>();
    if (!m_folder->mountExt4(QStringLiteral("small"), QStringLiteral("Small one"),
                             QStringLiteral("48M")))
        QSKIP("file systems cannot be mounted on this machine: the warning above says why");
    // Sparse: it takes no space until it is written to.
    QVERIFY(m_folder->mountExt4(QStringLiteral("large"), QString(), QStringLiteral("8G")));
    m_small = QDir(m_folder->path(QStringLiteral("small"))).canonicalPath();
    m_large = QDir(m_folder->path(QStringLiteral("large"))).canonicalPath();

    m_plugin = std::make_unique<RunningPlugin>();
    m_host = &m_plugin->host;
    QVERIFY(m_plugin->start());
    m_panel = std::make_unique<DataServerClient>();
    QVERIFY(m_panel->open());
    m_host->appear(
        uuid, key,
        FakeHost::keySettings({{QStringLiteral("diskMode"), QStringLiteral("Single_Disk")}}));
    QVERIFY(m_host->waitForMessages(QStringLiteral("setSettings"), key, 1));
}

void tst_DiskKeys_linux::cleanupTestCase()
{
    if (!m_plugin)
        return;
    QVERIFY(m_plugin->process.isRunning());
    m_panel.reset();
    m_plugin.reset();
    m_folder.reset();
}

/// Sends the settings and waits for the reply.
void tst_DiskKeys_linux::change(const QJsonObject &parameters)
{
    QJsonObject all = parameters;
    all.insert(QStringLiteral("showTitle"), false);
    const auto replies = m_host->settings(key).size();
    m_host->sendEvent(QStringLiteral("didReceiveSettings"), uuid, key, setting(all));
    QVERIFY(m_host->waitForMessages(QStringLiteral("setSettings"), key, replies + 1));
}

int tst_DiskKeys_linux::indexOf(const QString &drive)
{
    const QJsonValue names = m_host->settings(key).constLast().value(QStringLiteral("DriveNames"));
    return static_cast<int>(names.toArray().toVariantList().indexOf(drive));
}

/// The data server's reply on a drive; empty when it does not know it.
QJsonObject tst_DiskKeys_linux::drive(const QString &root)
{
    const QJsonArray drives = json(m_panel->ask(QStringLiteral("drives")).toUtf8())
                                  .value(QStringLiteral("info"))
                                  .toArray();
    for (const QJsonValue &each : drives) {
        if (each.toObject().value(QStringLiteral("driveName")).toString() == root)
            return each.toObject();
    }
    return {};
}

QString tst_DiskKeys_linux::nextTitle() const
{
    return m_host->waitForUpdate(key) ? m_host->titles(key).constLast() : QString();
}

void tst_DiskKeys_linux::listsTheDrives()
{
    const QJsonObject reply = m_host->settings(key).constLast();
    const int index = indexOf(m_small);
    QVERIFY2(index >= 0, qPrintable(m_small));
    QVERIFY(indexOf(m_large) > index);
    const QJsonArray names = reply.value(QStringLiteral("VolumeNames")).toArray();
    QCOMPARE(names.at(index).toString(), QStringLiteral("Small one"));
    QTRY_VERIFY(m_plugin->process.hasLoggedInOrder(
        {QStringLiteral("处理硬盘操作"),
         QStringLiteral("driveName: %1 VolumeName: Small one").arg(m_small),
         QStringLiteral("currentOperator->diskMode;: Single_Disk")}));
}

void tst_DiskKeys_linux::showsTheChosenDrive()
{
    QStringList pictures;
    for (const QString &root : {m_large, m_small}) {
        change({{QStringLiteral("volumeNameItem"), QString::number(indexOf(root))},
                {QStringLiteral("showVolumeName"), true}});
        QVERIFY(!nextTitle().isEmpty());
        QCOMPARE(nextTitle(), root + QStringLiteral("  ") + spaceOf(root));
        pictures.append(m_host->images(key).constLast());
        QVERIFY(FakeHost::hasInk(pictures.constLast()));
    }
    QVERIFY(FakeHost::picture(pictures.at(0)) != FakeHost::picture(pictures.at(1)));
    QVERIFY(spaceOf(m_large).endsWith(QLatin1String("  6G Free")));
    QVERIFY(m_folder->run(QStringLiteral("head -c 20M /dev/zero >small/file && sync small/file")));
    QVERIFY(!nextTitle().isEmpty());
    QCOMPARE(nextTitle(), m_small + QStringLiteral("  ") + spaceOf(m_small));
    change({{QStringLiteral("volumeNameItem"), QString::number(indexOf(m_small))},
            {QStringLiteral("showVolumeName"), false}});
    QVERIFY(!nextTitle().isEmpty());
    QCOMPARE(nextTitle(), spaceOf(m_small));
}

void tst_DiskKeys_linux::showsAllDrives()
{
    change({{QStringLiteral("diskMode"), QStringLiteral("Total_Disks")},
            {QStringLiteral("showVolumeName"), true}});
    QVERIFY(!nextTitle().isEmpty());
    const QString title = nextTitle();
    const auto request = [this](const char *name) {
        return json(m_panel->ask(QString::fromLatin1(name)).toUtf8())
            .value(QStringLiteral("info"))
            .toString()
            .toLongLong();
    };
    const qint64 freeGB = request("totalDisksFreeSpace");
    const qint64 totalGB = request("totalDisksTotalSpace");
    QVERIFY(totalGB >= 7 && freeGB >= 6 && freeGB <= totalGB);
    QCOMPARE(title, QStringLiteral("TotalDisks  %1% Used  %2G Free")
                        .arg((totalGB - freeGB) * 100 / totalGB)
                        .arg(freeGB));
}

void tst_DiskKeys_linux::loopsOverTheDrives()
{
    const auto drives =
        m_host->settings(key).constLast().value(QStringLiteral("DriveNames")).toArray().size();
    change({{QStringLiteral("diskMode"), QStringLiteral("Disk_Loop")},
            {QStringLiteral("switchFrequency"), 1},
            {QStringLiteral("showVolumeName"), true}});
    const auto before = m_host->titles(key).size();
    const auto picturesBefore = m_host->images(key).size();
    // Each step and each pass sends one.
    QVERIFY(m_host->waitForMessages(QStringLiteral("setTitle"), key, before + 2 * drives + 2));
    QSet<QString> shown;
    for (const QString &title : m_host->titles(key).mid(before))
        shown.insert(title.section(QStringLiteral("  "), 0, 0));
    QCOMPARE(shown.size(), drives);
    QVERIFY(shown.contains(m_small));
    QVERIFY(shown.contains(m_large));
    QSet<QString> pictures;
    for (const QString &picture : m_host->images(key).mid(picturesBefore)) {
        QVERIFY(FakeHost::hasInk(picture));
        pictures.insert(picture);
    }
    QVERIFY(pictures.size() >= drives);
    // Pictures and titles stay in step.
    QVERIFY(qAbs(m_host->images(key).size() - m_host->titles(key).size()) <= 1);
}

void tst_DiskKeys_linux::loopsAtMostOnceASecond_data()
{
    QTest::addColumn<int>("seconds");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -3;
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
    QTest::newRow("largest") << std::numeric_limits<int>::max();
}

void tst_DiskKeys_linux::loopsAtMostOnceASecond()
{
    QFETCH(int, seconds);
    change({{QStringLiteral("diskMode"), QStringLiteral("Disk_Loop")},
            {QStringLiteral("switchFrequency"), seconds}});
    const auto before = m_host->titles(key).size();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(m_host->waitForMessages(QStringLiteral("setTitle"), key, before + 3));
    // Three updates, of passes and steps together.
    QVERIFY2(timer.elapsed() >= 900, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(!m_panel->ask(QStringLiteral("Cpu Usage")).isEmpty());
}

void tst_DiskKeys_linux::showsNothingPastTheLastDrive()
{
    change({{QStringLiteral("volumeNameItem"), QStringLiteral("1000")},
            {QStringLiteral("showVolumeName"), false}});
    QVERIFY(!nextTitle().isEmpty());
    QCOMPARE(nextTitle(), QStringLiteral("0% Used  0G Free"));
    change({{QStringLiteral("volumeNameItem"), QStringLiteral("no number")},
            {QStringLiteral("showVolumeName"), true}});
    QVERIFY(!nextTitle().isEmpty());
    const QString first = m_host->settings(key)
                              .constLast()
                              .value(QStringLiteral("DriveNames"))
                              .toArray()
                              .at(0)
                              .toString();
    QVERIFY2(nextTitle().startsWith(first + QStringLiteral("  ")),
             qPrintable(m_host->titles(key).constLast()));
}

void tst_DiskKeys_linux::agreesWithDf()
{
    QProcess df;
    df.start(QStringLiteral("df"),
             {QStringLiteral("--block-size=1"), QStringLiteral("--output=avail,size"), m_small});
    QVERIFY(df.waitForFinished());
    const QStringList figures = QString::fromLatin1(df.readAll())
                                    .split(QLatin1Char('\n'))
                                    .at(1)
                                    .simplified()
                                    .split(QLatin1Char(' '));
    QCOMPARE(figures.size(), 2);
    const qint64 available = figures.at(0).toLongLong();
    const QJsonObject told = drive(m_small);
    QCOMPARE(told.value(QStringLiteral("volumeName")).toString(), QStringLiteral("Small one"));
    QCOMPARE(told.value(QStringLiteral("freeSpaceGB")).toInt(), static_cast<int>(available >> 30));
    QCOMPARE(told.value(QStringLiteral("freeSpacePercent")).toInt(),
             static_cast<int>(available * 100 / figures.at(1).toLongLong()));
}

void tst_DiskKeys_linux::forgetsADriveThatVanishes()
{
    change({{QStringLiteral("diskMode"), QStringLiteral("Disk_Loop")},
            {QStringLiteral("switchFrequency"), 1},
            {QStringLiteral("showVolumeName"), true}});
    QVERIFY(m_folder->run(QStringLiteral("umount small")));
    QTRY_VERIFY(drive(m_small).isEmpty());
    QVERIFY(!nextTitle().isEmpty());
    const auto before = m_host->titles(key).size();
    QVERIFY(m_host->waitForMessages(QStringLiteral("setTitle"), key, before + 8));
    QVERIFY(m_host->titles(key).mid(before).filter(m_small + QStringLiteral("  ")).isEmpty());
    QVERIFY(!drive(m_large).isEmpty());
}

QTEST_GUILESS_MAIN(tst_DiskKeys_linux)
#include "tst_diskkeys_linux.moc"
