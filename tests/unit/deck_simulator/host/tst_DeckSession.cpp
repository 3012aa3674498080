#include "deck_simulator/host/DeckSession.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest>

using namespace deck;

using namespace std::chrono_literals;

class tst_DeckSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void runsAPluginFromStartToEnd();
    void keepsAGivenWorkFolder();
    void findsARecordingFromItsOwnFolder();
    void changesItsRecording();
    void beginsWithoutReadings();
    void keepsAGivenRecording();
    void failsWithoutAPlugin();
    void failsWithAnUnusableWorkFolder();
    void reportsAPluginThatEndsAtOnce();
    void reportsAWrongRegistration();
    void reportsAPluginThatNeverRegisters();
    void reportsAPluginThatDies();
    void reportsAPluginThatLeaves();
    void terminatesAPluginThatStays();
    void doesNotWaitWhenToldTwice();
    void endsBeforeTheRegistration();

private:
    SessionSettings m_settings;
};

namespace {

void play(const char *script)
{
    qputenv("SCRIPT", script);
}

QByteArray content(const QString &file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

QString makeFile(const QTemporaryDir &folder, const char *name, const QByteArray &text)
{
    QFile file(folder.filePath(QString::fromLatin1(name)));
    file.open(QIODevice::WriteOnly);
    file.write(text);
    return file.fileName();
}

/// On Windows it may be in use for a moment longer than the process that worked in it.
bool removeFolder(const QString &path)
{
    return QTest::qWaitFor([&path] { return QDir(path).removeRecursively(); });
}

} // namespace

void tst_DeckSession::init()
{
    m_settings = SessionSettings();
    m_settings.program = QStringLiteral(SCRIPTED_PLUGIN);
}

void tst_DeckSession::runsAPluginFromStartToEnd()
{
    play("draw");
    QString workFolder;
    {
        DeckSession session(m_settings, defaultDeck(5));
        QSignalSpy appeared(&session, &DeckSession::keysAppeared);
        QSignalSpy changed(&session, &DeckSession::keyChanged);
        QSignalSpy ended(&session, &DeckSession::ended);
        session.start();
        QTRY_COMPARE(appeared.count(), 1);
        QCOMPARE(session.stateText(), QStringLiteral("registered"));
        QVERIFY(session.pluginPid() > 0);
        const QVector<DeckKey> &keys = session.host().keys();
        QTRY_COMPARE(changed.count(), 3 * keys.size());
        for (const DeckKey &key : keys) {
            QCOMPARE(key.title(), QStringLiteral("drawn"));
            QCOMPARE(key.picture().width(), 60);
            QVERIFY(key.settings().value(QLatin1String("seen")).toBool());
        }
        workFolder = session.workFolder();
        QVERIFY(QFile::exists(workFolder));

        session.end();
        QTRY_COMPARE(ended.count(), 1);
        QCOMPARE(session.failure(), QString());
        QCOMPARE(session.pluginPid(), qint64(0));
        session.end();
        QCOMPARE(ended.count(), 1);
    }
    QVERIFY(!QFile::exists(workFolder));
}

void tst_DeckSession::keepsAGivenWorkFolder()
{
    play("draw");
    const QTemporaryDir folder;
    m_settings.workFolder = folder.filePath(QStringLiteral("new/folder"));
    {
        DeckSession session(m_settings, defaultDeck(5));
        QSignalSpy appeared(&session, &DeckSession::keysAppeared);
        session.start();
        QTRY_COMPARE(appeared.count(), 1);
        QCOMPARE(session.workFolder(), m_settings.workFolder);
    }
    QVERIFY(QFile::exists(m_settings.workFolder + QStringLiteral("/plugin-stderr.txt")));
}

void tst_DeckSession::findsARecordingFromItsOwnFolder()
{
    play("panel");
    const QTemporaryDir folder;
    m_settings.workFolder = folder.path();
    qputenv("SYSTEM_MONITOR_RECORDING", "recordings/mine.json");
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy notices(&session, &DeckSession::notice);
    QSignalSpy appeared(&session, &DeckSession::keysAppeared);
    session.start();
    qunsetenv("SYSTEM_MONITOR_RECORDING");
    QTRY_COMPARE(appeared.count(), 1);

    QFile file(folder.filePath(QStringLiteral("recording.txt")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString absolute =
        QDir::current().absoluteFilePath(QStringLiteral("recordings/mine.json"));
    QCOMPARE(QString::fromUtf8(file.readAll()).trimmed(), absolute);
    QCOMPARE(notices.count(), 1);
    QVERIFY(notices.at(0).at(0).toString().contains(QDir::toNativeSeparators(absolute)));
}

void tst_DeckSession::changesItsRecording()
{
    play("panel");
    const QTemporaryDir folder;
    const QString first = makeFile(folder, "first.json", "{\"a\": 1}");
    m_settings.recording = first;
    m_settings.changesRecording = true;
    DeckSession session(m_settings, emptyDeck(5));
    QSignalSpy appeared(&session, &DeckSession::keysAppeared);
    session.start();
    QTRY_COMPARE(appeared.count(), 1);
    const QString used = session.workFolder() + QStringLiteral("/recording.json");
    QCOMPARE(content(session.workFolder() + QStringLiteral("/recording.txt")),
             used.toUtf8() + '\n');
    QCOMPARE(content(used), QByteArray("{\"a\": 1}"));
    QVERIFY(session.changeRecording(makeFile(folder, "second.json", "{\"b\": 2}")));
    QCOMPARE(content(used), QByteArray("{\"b\": 2}"));
    QCOMPARE(content(first), QByteArray("{\"a\": 1}"));
    QVERIFY(!session.changeRecording(makeFile(folder, "broken.json", "{")));
    QVERIFY(!session.changeRecording(folder.filePath(QStringLiteral("missing.json"))));
    QCOMPARE(content(used), QByteArray("{\"b\": 2}"));
}

void tst_DeckSession::beginsWithoutReadings()
{
    play("draw");
    m_settings.changesRecording = true;
    for (const QString &recording : {QString(), QStringLiteral("/no/such/file")}) {
        m_settings.recording = recording;
        DeckSession session(m_settings, emptyDeck(5));
        QSignalSpy appeared(&session, &DeckSession::keysAppeared);
        QSignalSpy notices(&session, &DeckSession::notice);
        session.start();
        QTRY_COMPARE(appeared.count(), 1);
        QCOMPARE(content(session.workFolder() + QStringLiteral("/recording.json")),
                 QByteArray("{}"));
        QCOMPARE(notices.count(), recording.isEmpty() ? 0 : 1);
    }
}

void tst_DeckSession::keepsAGivenRecording()
{
    play("draw");
    const QTemporaryDir folder;
    m_settings.recording = makeFile(folder, "first.json", "{}");
    DeckSession session(m_settings, emptyDeck(5));
    QSignalSpy appeared(&session, &DeckSession::keysAppeared);
    session.start();
    QTRY_COMPARE(appeared.count(), 1);
    QVERIFY(!session.changeRecording(makeFile(folder, "second.json", "{\"b\": 2}")));
    QCOMPARE(content(*m_settings.recording), QByteArray("{}"));
}

void tst_DeckSession::failsWithoutAPlugin()
{
    m_settings.program = QStringLiteral("/no/such/plugin");
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY2(session.failure().contains(QDir::toNativeSeparators(m_settings.program) +
                                        QStringLiteral(" cannot be started")),
             qPrintable(session.failure()));
}

void tst_DeckSession::failsWithAnUnusableWorkFolder()
{
    const QTemporaryDir folder;
    QFile obstacle(folder.filePath(QStringLiteral("file")));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    m_settings.workFolder = obstacle.fileName() + QStringLiteral("/below");
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(session.failure().contains(QLatin1String("cannot be used")));
}

void tst_DeckSession::reportsAPluginThatEndsAtOnce()
{
    play("refuse");
    QString workFolder;
    {
        DeckSession session(m_settings, defaultDeck(5));
        QSignalSpy ended(&session, &DeckSession::ended);
        session.start();
        QTRY_COMPARE(ended.count(), 1);
        const QString failure = session.failure();
        QVERIFY2(failure.contains(QLatin1String("exit status 3 before it registered")),
                 qPrintable(failure));
        QVERIFY(failure.contains(QStringLiteral("this plugin \uFFFD[31mrefuses")));
        workFolder = session.workFolder();
        QVERIFY(failure.contains(QDir::toNativeSeparators(workFolder)));
    }
    // The folder named by the message still exists.
    QVERIFY(QFile::exists(workFolder));
    QVERIFY(removeFolder(workFolder));
}

void tst_DeckSession::reportsAWrongRegistration()
{
    play("impostor");
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy notices(&session, &DeckSession::notice);
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(notices.count(), 1);
    QVERIFY(notices.at(0).at(0).toString().contains(QLatin1String("somebody else")));
    QVERIFY(session.failure().contains(QLatin1String("exit status 0 before it registered")));
    QVERIFY(removeFolder(session.workFolder()));
}

void tst_DeckSession::reportsAPluginThatNeverRegisters()
{
    play("mute");
    m_settings.registrationLimit = 200ms;
    m_settings.endingPatience = 100ms;
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY2(
        session.failure().startsWith(QLatin1String("The plugin did not register within 0.2 s")),
        qPrintable(session.failure()));
    QVERIFY(removeFolder(session.workFolder()));
}

void tst_DeckSession::reportsAPluginThatDies()
{
    play("die");
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(ended.count(), 1);
    // As each platform tells of abort().
    static const QRegularExpression aborted(QStringLiteral(
        "\\AThe plugin ended with (signal 6 \\(Aborted\\)|exit status 3) while its keys"));
    QVERIFY2(aborted.match(session.failure()).hasMatch(), qPrintable(session.failure()));
    QVERIFY(removeFolder(session.workFolder()));
}

void tst_DeckSession::reportsAPluginThatLeaves()
{
    play("leave");
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY2(session.failure().startsWith(
                 QLatin1String("The plugin ended with exit status 0 while its keys")),
             qPrintable(session.failure()));
    QVERIFY(removeFolder(session.workFolder()));
}

void tst_DeckSession::terminatesAPluginThatStays()
{
    play("stubborn");
    m_settings.endingPatience = 100ms;
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy appeared(&session, &DeckSession::keysAppeared);
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(appeared.count(), 1);
    session.end();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY2(session.failure().contains(QLatin1String("did not end within 0.1 s")),
             qPrintable(session.failure()));
    QVERIFY(removeFolder(session.workFolder()));
}

void tst_DeckSession::doesNotWaitWhenToldTwice()
{
    play("stubborn");
    m_settings.endingPatience = 10min;
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy appeared(&session, &DeckSession::keysAppeared);
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_COMPARE(appeared.count(), 1);
    session.end();
    session.end();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(removeFolder(session.workFolder()));
}

void tst_DeckSession::endsBeforeTheRegistration()
{
    play("mute");
    m_settings.endingPatience = 10min;
    DeckSession session(m_settings, defaultDeck(5));
    QSignalSpy ended(&session, &DeckSession::ended);
    session.start();
    QTRY_VERIFY(session.pluginPid() > 0);
    session.end();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(session.failure(), QString());
}

QTEST_GUILESS_MAIN(tst_DeckSession)
#include "tst_DeckSession.moc"
