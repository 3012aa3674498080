#include "plugin/SettingsReply.h"
#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "tests/support/HostPage.h"
#include "tests/support/Json.h"
#include "tests/support/MessageCapture.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <algorithm>

/// docs/hosts.md beside the code: what the code reads, sends and answers is on the page.
class tst_HostPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void hasItsSections();
    void playsOnlyWhatItCan();
    void listsEveryAction();
    void hasTheActionsTitles();
    void namesEverySettingThatIsRead();
    void namesEveryMemberThatIsRead();
    void namesEverySettingThatIsSent();
    void listsEveryRequest();
    void showsEveryEvent();
    void showsEveryMessage();
    void namesEveryVariable();

private:
    QStringList column(const char *heading, int index) const;
    QSet<QString> eventsOf(const char *kind) const;

    HostPage m_page;
};

namespace {

const QString source = QStringLiteral(SOURCE_FOLDER "/");

/// What the first group of \a pattern finds in the file or, if \a name ends in a slash, in all
/// sources of the folder.
QStringList findInSources(const char *name, const char *pattern)
{
    QStringList files{source + QString::fromLatin1(name)};
    if (files.constFirst().endsWith(QLatin1Char('/'))) {
        const QDir folder(files.takeFirst());
        const QStringList names = folder.entryList({QStringLiteral("*.cpp")}, QDir::Files);
        for (const QString &each : names)
            files.append(folder.filePath(each));
    }
    const QRegularExpression expression(QString::fromLatin1(pattern),
                                        QRegularExpression::MultilineOption);
    QStringList found;
    for (const QString &fileName : qAsConst(files)) {
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        auto match = expression.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext())
            found.append(match.next().captured(1));
    }
    return found;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

void tst_HostPage::initTestCase()
{
    m_page = HostPage::read(source + QStringLiteral("docs/hosts.md"));
    QVERIFY(!m_page.text().isEmpty());
}

/// The texts between backticks in a column of the tables with the first heading \a heading.
QStringList tst_HostPage::column(const char *heading, int index) const
{
    QStringList texts;
    const QVector<QStringList> rows = m_page.rows(QString::fromLatin1(heading));
    for (const QStringList &row : rows)
        texts += HostPage::code(row.value(index));
    return texts;
}

QSet<QString> tst_HostPage::eventsOf(const char *kind) const
{
    QSet<QString> events;
    for (const HostPage::Example &example : m_page.examples()) {
        if (example.kind == QLatin1String(kind))
            events.insert(json(example.text.toUtf8()).value(QLatin1String("event")).toString());
    }
    return events;
}

void tst_HostPage::hasItsSections()
{
    for (const char *const heading :
         {"The shortest host", "Start", "Environment variables", "The link", "The life of a key",
          "Messages to the plugin", "Messages from the plugin", "Actions", "Settings",
          "The settings reply", "The data server", "Fonts", "The end", "Signals", "Linux",
          "What to copy where", "Permissions", "Sound", "Containers"})
        QVERIFY2(m_page.headings().contains(QString::fromLatin1(heading)), heading);
}

/// tst_hostexamples plays these kinds, and people those by hand.
void tst_HostPage::playsOnlyWhatItCan()
{
    const QStringList kinds{QStringLiteral("command-line"),   QStringLiteral("info"),
                            QStringLiteral("host-to-plugin"), QStringLiteral("plugin-to-host"),
                            QStringLiteral("request"),        QStringLiteral("reply"),
                            QStringLiteral("log-at-start"),   QStringLiteral("log-at-end"),
                            QStringLiteral("exits-with-1"),   QStringLiteral("standard-error"),
                            QStringLiteral("by-hand")};
    QSet<QString> found;
    for (const HostPage::Example &example : m_page.examples()) {
        QVERIFY2(kinds.contains(example.kind), qPrintable(QString::number(example.line)));
        found.insert(example.kind);
    }
    QCOMPARE(found.size(), kinds.size());
}

void tst_HostPage::listsEveryAction()
{
    const QStringList uuids = findInSources("render/ActionUuids.h", R"rx("(com\.[\w.]+)")rx");
    QCOMPARE(uuids.size(), 32);
    QCOMPARE(sorted(column("action", 0)), sorted(uuids));
}

void tst_HostPage::hasTheActionsTitles()
{
    const QVector<QStringList> rows = m_page.rows(QStringLiteral("action"));
    QVERIFY(!rows.isEmpty());
    const auto &catalogue = actionCatalogue();
    for (const QStringList &row : rows) {
        const QString uuid = HostPage::code(row.value(0)).value(0);
        const auto titles = std::find_if(catalogue.begin(), catalogue.end(),
                                         [&uuid](const auto &each) { return each.uuid == uuid; });
        const bool has = titles != catalogue.end();
        const QString none = QStringLiteral("none");
        QCOMPARE(row.value(1), has ? titles->englishTitle : none);
        QCOMPARE(row.value(2), has ? titles->chineseTitle : none);
    }
}

void tst_HostPage::namesEverySettingThatIsRead()
{
    // The other table with this heading is about the reply and has fewer columns.
    QStringList cells;
    const QVector<QStringList> rows = m_page.rows(QStringLiteral("member"));
    for (const QStringList &row : rows) {
        if (row.size() == 5)
            cells += row;
    }
    const QString table = cells.join(QLatin1Char('\n'));
    const QStringList names =
        findInSources("render/KeySettings.cpp",
                      R"rx((?:\btext|parameters\.value\(QLatin1String)\("([^"]+)"\))rx");
    QVERIFY(names.size() >= 16);
    for (const QString &name : names)
        QVERIFY2(cells.contains(QStringLiteral("`%1`").arg(name)), qPrintable(name));
    const QStringList modes = findInSources(
        "render/KeySettings.cpp", R"rx(== (?:QStringLiteral|QLatin1String)\("([^"]+)"\))rx");
    QVERIFY(modes.size() >= 5);
    for (const QString &mode : modes)
        QVERIFY2(table.contains(QStringLiteral("\"%1\"").arg(mode)), qPrintable(mode));
}

void tst_HostPage::namesEveryMemberThatIsRead()
{
    QStringList names;
    for (const char *const place : {"plugin/", "render/", "SDK/HostEvents.cpp", "SDK/Plugin.cpp",
                                    "SDK/LaunchParameters.cpp"}) {
        const QStringList found = findInSources(
            place, R"rx((?:\bvalue\((?:QLatin1String|QStringLiteral)|\btext)\("([^"]+)"\))rx");
        QVERIFY2(!found.isEmpty(), place);
        names += found;
    }
    const QString text = m_page.text();
    for (const QString &name : qAsConst(names)) {
        QVERIFY2(text.contains(QStringLiteral("\"%1\"").arg(name)) ||
                     text.contains(QStringLiteral("`%1`").arg(name)),
                 qPrintable(name));
    }
}

void tst_HostPage::namesEverySettingThatIsSent()
{
    const MessageCapture capture;
    const QStringList members = column("member", 0);
    VqSystemMonitorLib library(false, nullptr);
    const QStringList uuids = column("action", 0);
    QVERIFY(!uuids.isEmpty());
    for (const QString &uuid : uuids) {
        const normalAction key(nullptr, uuid, QStringLiteral("c"));
        for (const auto occasion :
             {SettingsOccasion::WillAppear, SettingsOccasion::DidReceiveSettings}) {
            const QJsonObject reply = settingsReply({}, key, occasion, &library);
            QStringList names = reply.keys();
            QVERIFY(names.removeOne(QStringLiteral("titleParameters")));
            names += reply.value(QLatin1String("titleParameters")).toObject().keys();
            for (const QString &name : qAsConst(names))
                QVERIFY2(members.contains(name), qPrintable(uuid + QLatin1Char(' ') + name));
        }
    }
}

void tst_HostPage::listsEveryRequest()
{
    QStringList names =
        findInSources("inspector_server/RequestTable.cpp", R"rx(^    \{"([^"]+)",)rx");
    names += findInSources("inspector_server/WebSocketServer.cpp",
                           R"rx(== (?:QLatin1String|QStringLiteral)\("([^"]+)"\))rx");
    QVERIFY(names.contains(QStringLiteral("GetAllSensorsData")));
    QCOMPARE(names.size(), 29);
    QCOMPARE(sorted(column("request", 0)), sorted(names));
}

void tst_HostPage::showsEveryEvent()
{
    const QStringList names = findInSources("SDK/HostEvents.cpp", R"rx(^    \{"(\w+)",)rx");
    QCOMPARE(names.size(), 18);
    const QStringList listed = column("event", 0);
    const QSet<QString> shown = eventsOf("host-to-plugin");
    for (const QString &name : names) {
        QVERIFY2(listed.contains(name), qPrintable(name));
        QVERIFY2(shown.contains(name), qPrintable(name));
    }
}

void tst_HostPage::showsEveryMessage()
{
    const QStringList names = findInSources("SDK/HostMessages.h", R"rx(^QString (set\w+)\()rx");
    const QSet<QString> distinct(names.begin(), names.end());
    QCOMPARE(distinct.size(), 3);
    for (const QString &name : distinct) {
        QVERIFY2(column("event", 0).contains(name), qPrintable(name));
        QVERIFY2(eventsOf("plugin-to-host").contains(name), qPrintable(name));
    }
}

void tst_HostPage::namesEveryVariable()
{
    QStringList names;
    for (const char *const folder : {"shell/", "sensors/services/", "system_monitor_lib/"})
        names += findInSources(folder, R"rx(qEnvironmentVariable\w*\("(\w+)"\))rx");
    QVERIFY(names.contains(QStringLiteral("SYSTEM_MONITOR_RECORDING")));
    QVERIFY(names.contains(QStringLiteral("SystemDrive")));
    for (const QString &name : qAsConst(names))
        QVERIFY2(column("variable", 0).contains(name), qPrintable(name));
}

QTEST_MAIN(tst_HostPage)
#include "tst_hostpage.moc"
