#include "tests/support/DataServerClient.h"
#include "tests/support/HostPage.h"
#include "tests/support/Json.h"
#include "tests/support/JsonPattern.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MountFolder.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/SoundServer.h"
#include "tests/support/TestFonts.h"
#include "tests/support/Waits.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QWebSocketServer>
#include <QtTest>

#include <memory>

/// Plays the examples of docs/hosts.md, in their order, against the plugin on a recorded machine.
class tst_HostExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void showsEveryAction_data();
    void showsEveryAction();
    void answersEveryRequest_data();
    void answersEveryRequest();
    void playsExamples_data();
    void playsExamples();

private:
    using Example = HostPage::Example;
    using Player = void (tst_HostExamples::*)(const Example &);

    static const QHash<QString, Player> &players();
    const Example *first(const QString &kind) const;
    QStringList argumentsOf(const Example &commandLine) const;
    QString info() const;

    void startedBefore(const Example &example);
    void sendToPlugin(const Example &example);
    void awaitFromPlugin(const Example &example);
    void request(const Example &example);
    void reply(const Example &example);
    void logAtStart(const Example &example);
    void logAtEnd(const Example &example);
    void exitsWithOne(const Example &example);
    void standardError(const Example &example);

    void sendPortChange(const QString &text, quint16 port);
    void verifyNoAnswer(const QString &text);
    void verifySilence(const QString &context);
    QString closest(const QJsonObject &pattern) const;
    bool isWithoutSound(const QString &text) const;

    const Example *endOfExamples() const
    {
        return m_page.examples().constData() + m_page.examples().size();
    }

    HostPage m_page;
    std::unique_ptr<SoundServer> m_sound;
    bool m_hasSound = false;
    MountFolder m_drives;
    std::unique_ptr<RunningPlugin> m_plugin;
    std::unique_ptr<PluginProcess> m_refused; ///< The last one with a wrong command line.
    DataServerClient m_panel;
    FakeHost *m_host = nullptr;
    int m_barriers = 0;
    QStringList::size_type m_since =
        0; ///< What came before the last message to the plugin is not its effect.
};

namespace {

const QString recording = QStringLiteral(SOURCE_FOLDER "/tests/fixtures/recordings/desktop.json");
/// What changes the machine is not played here.
const QString onlyByHand = QStringLiteral("by-hand");
const QString unanswered = QStringLiteral("unanswered");
const QString setTitle = QStringLiteral("setTitle");
const QString setImage = QStringLiteral("setImage");

const QJsonObject untitled = FakeHost::keySettings({{QStringLiteral("showTitle"), false}});

QString tableKey(const QString &uuid)
{
    return QStringLiteral("table ") + uuid;
}

QJsonObject object(const QString &text)
{
    return json(text.toUtf8());
}

QString eventOf(const QJsonObject &message)
{
    return message.value(QLatin1String("event")).toString();
}

QString contextOf(const QJsonObject &message)
{
    return message.value(QLatin1String("context")).toString();
}

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

void tst_HostExamples::initTestCase()
{
    m_page = HostPage::read(QStringLiteral(SOURCE_FOLDER "/docs/hosts.md"));
    QVERIFY(first(QStringLiteral("info")));
    QVERIFY(first(QStringLiteral("command-line")));
    testfonts::hideMachineFonts();
    if (testfonts::find(QStringLiteral("Roboto-Bold.ttf")).isEmpty()) {
        QVERIFY2(!testfonts::areRequired(), "Roboto-Bold.ttf is missing");
        QSKIP("Roboto-Bold.ttf of fonts-roboto-unhinted is missing");
    }
    m_sound = std::make_unique<SoundServer>();
    m_hasSound = m_sound->start() &&
                 m_sound->control({QStringLiteral("set-default-sink"), QStringLiteral("phones")}) &&
                 m_sound->control({QStringLiteral("set-sink-volume"), QStringLiteral("phones"),
                                   QStringLiteral("32768")});
    if (!m_drives.mountExt4(QStringLiteral("drive"), QStringLiteral("Data"), QStringLiteral("48M")))
        qWarning("The lists of drives may be empty here: no file system can be mounted");

    m_plugin = std::make_unique<RunningPlugin>();
    m_host = &m_plugin->host;
    m_plugin->process.setVariable(QStringLiteral("SYSTEM_MONITOR_RECORDING"), recording);
    m_plugin->process.launch(argumentsOf(*first(QStringLiteral("command-line"))));
    QVERIFY(m_host->waitForRegistration());
    QVERIFY(m_panel.open());
    // All together, so that one pass serves them all.
    const QVector<QStringList> actions = m_page.rows(QStringLiteral("action"));
    for (const QStringList &row : actions) {
        const QString uuid = HostPage::code(row.value(0)).value(0);
        m_host->appear(uuid, tableKey(uuid), untitled);
    }
}

void tst_HostExamples::cleanupTestCase()
{
    m_panel.close();
    m_refused.reset();
    m_plugin.reset();
    m_sound.reset();
}

const HostPage::Example *tst_HostExamples::first(const QString &kind) const
{
    for (const Example &example : m_page.examples()) {
        if (example.kind == kind)
            return &example;
    }
    return nullptr;
}

/// With the fonts where this machine has them.
QString tst_HostExamples::info() const
{
    QJsonObject info = object(first(QStringLiteral("info"))->text);
    QJsonArray fonts;
    const QJsonArray named = info.value(QLatin1String("fonts")).toArray();
    for (const QJsonValue each : named) {
        QJsonObject font = each.toObject();
        const QString url = font.value(QLatin1String("url")).toString();
        font.insert(QStringLiteral("url"), testfonts::find(QFileInfo(url).fileName()));
        fonts.append(font);
    }
    info.insert(QStringLiteral("fonts"), fonts);
    return compact(info);
}

/// With this test's port in place of the page's, and without the name of the program.
QStringList tst_HostExamples::argumentsOf(const Example &commandLine) const
{
    QStringList arguments = commandLine.text.trimmed().split(QLatin1Char(' '));
    if (arguments.takeFirst() != QLatin1String("QtSystemMonitor"))
        return {};
    FakeHost *const host = m_host;
    arguments.replaceInStrings(QStringLiteral("28196"), QString::number(host->port()));
    arguments.replaceInStrings(QStringLiteral("\"$INFO\""), info());
    return arguments;
}

bool tst_HostExamples::isWithoutSound(const QString &text) const
{
    return !m_hasSound &&
           (text.contains(QLatin1String("Head Phones")) ||
            text.contains(QLatin1String("AudioEndpointVolume")) || text.contains(keyuuid::volume));
}

void tst_HostExamples::showsEveryAction_data()
{
    QTest::addColumn<QString>("shown");
    const QVector<QStringList> rows = m_page.rows(QStringLiteral("action"));
    for (const QStringList &row : rows) {
        const QStringList uuids = HostPage::code(row.value(0));
        QTest::newRow(qPrintable(uuids.value(0))) << HostPage::code(row.value(4)).value(0);
    }
}

void tst_HostExamples::showsEveryAction()
{
    QFETCH(const QString, shown);
    const QString uuid = QString::fromUtf8(QTest::currentDataTag());
    if (isWithoutSound(uuid))
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    QVERIFY(!shown.isEmpty());
    const QString key = tableKey(uuid);
    QVERIFY(m_host->waitForMessages(setTitle, key, 1));
    const QString title = m_host->titles(key).constLast();
    QVERIFY2(jsonpattern::matches(shown, title), qPrintable(title));
    QVERIFY(FakeHost::hasInk(m_host->images(key).constLast()));
    m_host->disappear(uuid, key);
}

void tst_HostExamples::answersEveryRequest_data()
{
    QTest::addColumn<QString>("info");
    const QVector<QStringList> rows = m_page.rows(QStringLiteral("request"));
    for (const QStringList &row : rows) {
        const QStringList info = HostPage::code(row.value(2));
        if (!info.isEmpty())
            QTest::newRow(qPrintable(HostPage::code(row.value(0)).value(0))) << info.constFirst();
    }
}

void tst_HostExamples::answersEveryRequest()
{
    QFETCH(const QString, info);
    const QString name = QString::fromUtf8(QTest::currentDataTag());
    if (isWithoutSound(name))
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    const QString reply = m_panel.ask(name);
    const QJsonObject expected{{QStringLiteral("event"), name}, {QStringLiteral("info"), info}};
    const QString difference = jsonpattern::difference(expected, object(reply));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

const QHash<QString, tst_HostExamples::Player> &tst_HostExamples::players()
{
    static const QHash<QString, Player> table{
        {QStringLiteral("command-line"), &tst_HostExamples::startedBefore},
        {QStringLiteral("info"), &tst_HostExamples::startedBefore},
        {QStringLiteral("host-to-plugin"), &tst_HostExamples::sendToPlugin},
        {QStringLiteral("plugin-to-host"), &tst_HostExamples::awaitFromPlugin},
        {QStringLiteral("request"), &tst_HostExamples::request},
        {QStringLiteral("reply"), &tst_HostExamples::reply},
        {QStringLiteral("log-at-start"), &tst_HostExamples::logAtStart},
        {QStringLiteral("log-at-end"), &tst_HostExamples::logAtEnd},
        {QStringLiteral("exits-with-1"), &tst_HostExamples::exitsWithOne},
        {QStringLiteral("standard-error"), &tst_HostExamples::standardError},
    };
    return table;
}

void tst_HostExamples::playsExamples_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < m_page.examples().size(); ++index) {
        const Example &example = m_page.examples().at(index);
        if (example.kind == onlyByHand)
            continue;
        const QJsonObject message = object(example.text);
        QTest::newRow(qPrintable(QStringLiteral("line %1, %2 %3 %4")
                                     .arg(QString::number(example.line), example.kind,
                                          eventOf(message), contextOf(message))))
            << index;
    }
}

void tst_HostExamples::playsExamples()
{
    QFETCH(const int, index);
    const Example &example = m_page.examples().at(index);
    const Player play = players().value(example.kind);
    QVERIFY2(play, qPrintable(QStringLiteral("no way to play \"%1\"").arg(example.kind)));
    QVERIFY(!example.text.trimmed().isEmpty());
    (this->*play)(example);
}

void tst_HostExamples::startedBefore(const Example &example)
{
    QCOMPARE(&example, first(example.kind));
    QVERIFY(example.kind != QLatin1String("info") || !object(example.text).isEmpty());
}

void tst_HostExamples::sendToPlugin(const Example &example)
{
    const QJsonObject message = object(example.text);
    QVERIFY(!eventOf(message).isEmpty());
    QVERIFY(example.option.isEmpty() || example.option == unanswered);
    // Anything that is not marked as unanswered has its answer behind it.
    const Example *const next = &example + 1;
    QVERIFY(!example.option.isEmpty() ||
            (next != endOfExamples() && next->kind == QLatin1String("plugin-to-host")));

    m_since = m_host->texts().size();
    const QString port = message.value(QLatin1String("hwInfoPort")).toString();
    if (!port.isEmpty())
        sendPortChange(example.text, port.toUShort());
    else if (example.option == unanswered)
        verifyNoAnswer(example.text);
    else
        m_host->sendText(example.text);
    if (!QTest::currentTestFailed() && eventOf(message) == QLatin1String("willDisappear"))
        verifySilence(contextOf(message));
}

void tst_HostExamples::sendPortChange(const QString &text, quint16 port)
{
    QWebSocketServer service(QStringLiteral("service"), QWebSocketServer::NonSecureMode);
    QVERIFY2(service.listen(QHostAddress::LocalHost, port), qPrintable(service.errorString()));
    verifyNoAnswer(text);
    QTRY_VERIFY(service.hasPendingConnections());
}

/// Sends \a text and verifies that nothing but the keys' updates comes before the answer to the
/// message after it.
void tst_HostExamples::verifyNoAnswer(const QString &text)
{
    const auto before = m_host->texts().size();
    const QString uuid = keyuuid::prefix + QStringLiteral("barrier");
    const QString barrier = QStringLiteral("barrier %1").arg(++m_barriers);
    m_host->sendText(text);
    m_host->appear(uuid, barrier);
    QVERIFY(m_host->waitForMessages(QStringLiteral("setSettings"), barrier, 1));
    m_host->disappear(uuid, barrier);
    for (const QString &received : m_host->texts().mid(before)) {
        const QJsonObject message = object(received);
        QVERIFY2(eventOf(message) == setImage || eventOf(message) == setTitle ||
                     contextOf(message) == barrier,
                 qPrintable(received));
    }
}

/// Verifies that nothing comes for a key during two passes.
void tst_HostExamples::verifySilence(const QString &context)
{
    const auto before = m_host->events(context).size();
    const QString uuid = keyuuid::prefix + QStringLiteral("barrier");
    const QString barrier = QStringLiteral("barrier %1").arg(++m_barriers);
    m_host->appear(uuid, barrier);
    QVERIFY(m_host->waitForMessages(setTitle, barrier, 2));
    m_host->disappear(uuid, barrier);
    QCOMPARE(m_host->events(context).size(), before);
}

void tst_HostExamples::awaitFromPlugin(const Example &example)
{
    const QJsonObject pattern = object(example.text);
    QVERIFY(!pattern.isEmpty());
    if (isWithoutSound(example.text))
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    const auto hasCome = [this, &pattern] { return closest(pattern).isEmpty(); };
    QVERIFY2(QTest::qWaitFor(hasCome, patience), qPrintable(closest(pattern)));
    if (eventOf(pattern) == setImage)
        QVERIFY(FakeHost::hasInk(m_host->images(contextOf(pattern)).constLast()));
}

/// How the last message of the pattern's kind differs from it; empty when any does not.
QString tst_HostExamples::closest(const QJsonObject &pattern) const
{
    QString difference = QStringLiteral("nothing of this kind has come");
    for (const QString &text : m_host->texts().mid(m_since)) {
        const QJsonObject message = object(text);
        if (eventOf(message) != eventOf(pattern) || contextOf(message) != contextOf(pattern))
            continue;
        difference = jsonpattern::difference(pattern, message);
        if (difference.isEmpty())
            break;
    }
    return difference;
}

void tst_HostExamples::request(const Example &example)
{
    const Example *const next = &example + 1;
    QVERIFY(next != endOfExamples() && next->kind == QLatin1String("reply"));
    QVERIFY(!m_panel.ask(example.text.trimmed()).isEmpty());
}

void tst_HostExamples::reply(const Example &example)
{
    QVERIFY(QJsonDocument::fromJson(example.text.toUtf8()).isObject());
    if (isWithoutSound(example.text))
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    QVERIFY(!m_panel.replies().isEmpty());
    const QString difference =
        jsonpattern::difference(object(example.text), object(m_panel.replies().constLast()));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_HostExamples::logAtStart(const Example &example)
{
    const QString log = QString::fromUtf8(m_plugin->process.content(QStringLiteral("log.txt")));
    const QStringList lines = log.split(QStringLiteral("\r\n"));
    const QStringList expected = example.text.split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), expected.size());
    for (int index = 0; index < lines.size(); ++index)
        QVERIFY2(jsonpattern::matches(expected.at(index), lines.at(index)),
                 qPrintable(lines.at(index)));
}

/// Ends the plugin by closing the link.
void tst_HostExamples::logAtEnd(const Example &example)
{
    const auto before = m_plugin->process.fileLog().size();
    m_host->closeLink();
    QVERIFY(m_plugin->process.endsWithStatus(0));
    const QString log = QString::fromUtf8(m_plugin->process.content(QStringLiteral("log.txt")));
    const QStringList lines = log.split(QStringLiteral("\r\n")).mid(before);
    const QStringList expected = example.text.split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), expected.size());
    for (int index = 0; index < lines.size(); ++index)
        QVERIFY2(jsonpattern::matches(expected.at(index), lines.at(index)),
                 qPrintable(lines.at(index)));
}

void tst_HostExamples::exitsWithOne(const Example &example)
{
    m_refused = std::make_unique<PluginProcess>();
    m_refused->launch(argumentsOf(example));
    QVERIFY(m_refused->endsWithStatus(1));
    const Example *const next = &example + 1;
    QVERIFY(next != endOfExamples() && next->kind == QLatin1String("standard-error"));
}

void tst_HostExamples::standardError(const Example &example)
{
    QVERIFY(m_refused);
    const QStringList expected = example.text.trimmed().split(QLatin1Char('\n'));
    for (const QString &line : expected)
        QVERIFY2(m_refused->lines().contains(line), qPrintable(line));
}

QTEST_GUILESS_MAIN(tst_HostExamples)
#include "tst_hostexamples.moc"
