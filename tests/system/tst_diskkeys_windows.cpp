#include "tests/support/DataServerClient.h"
#include "tests/support/DriveText.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QJsonArray>
#include <QtTest>

#include <windows.h>

#include <memory>

/// Disk keys over the drives of this machine.
class tst_DiskKeys_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void listsFixedDrivesOnly();
    void showsTheChosenDrive();
    void loopsOverTheDrives();

private:
    QJsonObject change(const QJsonObject &parameters);
    QString nextTitle() const;

    std::unique_ptr<RunningPlugin> m_plugin;
    FakeHost *m_host = nullptr;
    QStringList m_roots;
};

namespace {

const QString uuid = keyuuid::physicalDisk;
const QString key = QStringLiteral("disk");

} // namespace

void tst_DiskKeys_windows::initTestCase()
{
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const QString root = QLatin1Char(letter) + QStringLiteral(":\\");
        if (GetDriveTypeW(qUtf16Printable(root)) == DRIVE_FIXED)
            m_roots.append(root);
    }
    m_plugin = std::make_unique<RunningPlugin>();
    m_host = &m_plugin->host;
    QVERIFY(m_plugin->start());
    m_host->appear(
        uuid, key,
        FakeHost::keySettings({{QStringLiteral("diskMode"), QStringLiteral("Single_Disk")}}));
    QVERIFY(m_host->waitForMessages(QStringLiteral("setSettings"), key, 1));
}

void tst_DiskKeys_windows::cleanupTestCase()
{
    QVERIFY(m_plugin->process.isRunning());
    m_plugin.reset();
}

/// Sends the settings; the reply.
QJsonObject tst_DiskKeys_windows::change(const QJsonObject &parameters)
{
    QJsonObject all = parameters;
    all.insert(QStringLiteral("showTitle"), false);
    const int replies = m_host->settings(key).size();
    m_host->sendEvent(QStringLiteral("didReceiveSettings"), uuid, key,
                      {{QStringLiteral("settings"), FakeHost::keySettings(all)}});
    return m_host->waitForMessages(QStringLiteral("setSettings"), key, replies + 1)
               ? m_host->settings(key).constLast()
               : QJsonObject();
}

QString tst_DiskKeys_windows::nextTitle() const
{
    return m_host->waitForUpdate(key) ? m_host->titles(key).constLast() : QString();
}

void tst_DiskKeys_windows::listsFixedDrivesOnly()
{
    QVERIFY(!m_roots.isEmpty());
    const QVariantList names = m_host->settings(key)
                                   .constLast()
                                   .value(QStringLiteral("DriveNames"))
                                   .toArray()
                                   .toVariantList();
    QStringList listed;
    for (const QVariant &name : names)
        listed.append(name.toString());
    QCOMPARE(listed, m_roots);
    DataServerClient panel;
    QVERIFY(panel.open());
    const QJsonArray drives =
        json(panel.ask(QStringLiteral("drives")).toUtf8()).value(QStringLiteral("info")).toArray();
    QCOMPARE(drives.size(), m_roots.size());
}

void tst_DiskKeys_windows::showsTheChosenDrive()
{
    for (int drive = 0; drive < m_roots.size(); ++drive) {
        QVERIFY(!change({{QStringLiteral("volumeNameItem"), QString::number(drive)},
                         {QStringLiteral("showVolumeName"), true}})
                     .isEmpty());
        QVERIFY(!nextTitle().isEmpty());
        const QString shown = nextTitle();
        QCOMPARE(shown, m_roots.at(drive) + QStringLiteral("  ") + spaceOf(m_roots.at(drive)));
        QVERIFY(FakeHost::hasInk(m_host->images(key).constLast()));
    }
}

void tst_DiskKeys_windows::loopsOverTheDrives()
{
    QVERIFY(!change({{QStringLiteral("diskMode"), QStringLiteral("Disk_Loop")},
                     {QStringLiteral("switchFrequency"), 1},
                     {QStringLiteral("showVolumeName"), true}})
                 .isEmpty());
    for (const QString &root : qAsConst(m_roots))
        QTRY_VERIFY(m_host->titles(key).constLast().startsWith(root));
}

QTEST_GUILESS_MAIN(tst_DiskKeys_windows)
#include "tst_diskkeys_windows.moc"
