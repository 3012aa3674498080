#include "deck_simulator/deck/DeckProfile.h"
#include "deck_simulator/host/DeckRunner.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

// A runner with the scripted plugin, which keeps what it receives in its working folder.
class tst_DeckRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void runsTheDeckOfTheModel();
    void tellsWhatChanges();
    void moves();
    void leavesOutWhatLiesOutside();
    void sendsTheWholeSettings();
    void fillsKeys();
    void fillsDials();
    void fitsNoGauge();
    void takesOverWhatThePluginMakesOfSettings();
    void waitsForTheLastReply();
    void pressesAndTurns();
    void saysWhatIsInspected();
    void startsAgain();
    void letsTheHostDie();
    void changesTheServicePort();
    void passesTheLaunchChoicesOn();
    void tellsOfAPluginThatFails();
    void isCalmWithoutAPlugin();

private:
    void start(const char *script = "panel");
    void stop();
    [[nodiscard]] QVector<QJsonObject> received(const QString &event = {}) const;
    [[nodiscard]] QVector<int> toldWidths(const QString &context) const;
    [[nodiscard]] QByteArray content(const char *fileName) const;
    [[nodiscard]] QString context(int column, int row = 0) const
    {
        return m_model->at({column, row})->context;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DeckModel> m_model;
    std::unique_ptr<DeckRunner> m_runner;
};

namespace {

QString cpuAction()
{
    return keyuuid::cpu;
}

QJsonObject payloadOf(const QJsonObject &message)
{
    return message.value(QLatin1String("payload")).toObject();
}

QJsonObject parametersOf(const QJsonObject &message)
{
    return payloadOf(message)
        .value(QLatin1String("settings"))
        .toObject()
        .value(QLatin1String("titleParameters"))
        .toObject();
}

} // namespace

void tst_DeckRunner::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_model = std::make_unique<DeckModel>();
    m_model->put({0, 0}, cpuAction(), {});
    m_model->put({3, 1}, cpuAction(), {});
    SessionSettings settings;
    settings.program = QStringLiteral(SCRIPTED_PLUGIN);
    settings.workFolder = m_folder->path();
    m_runner = std::make_unique<DeckRunner>(settings, m_model.get());
}

void tst_DeckRunner::cleanup()
{
    m_runner.reset();
    m_model.reset();
}

void tst_DeckRunner::start(const char *script)
{
    qputenv("SCRIPT", script);
    QSignalSpy linked(m_runner.get(), &DeckRunner::linked);
    m_runner->start();
    QTRY_COMPARE(linked.count(), 1);
    QVERIFY(m_runner->isLinked());
}

void tst_DeckRunner::stop()
{
    m_runner->stop();
    QTRY_VERIFY(!m_runner->isRunning());
}

QByteArray tst_DeckRunner::content(const char *fileName) const
{
    QFile file(m_folder->filePath(QString::fromLatin1(fileName)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// All messages of the host, or those of one event.
QVector<QJsonObject> tst_DeckRunner::received(const QString &event) const
{
    QVector<QJsonObject> messages;
    const QList<QByteArray> lines = content("received.txt").split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject message = QJsonDocument::fromJson(line).object();
        if (!message.isEmpty() &&
            (event.isEmpty() || message.value(QLatin1String("event")).toString() == event))
            messages.append(message);
    }
    return messages;
}

// The widths in the changes of a key's settings.
QVector<int> tst_DeckRunner::toldWidths(const QString &context) const
{
    QVector<int> widths;
    const QVector<QJsonObject> changes = received(QStringLiteral("didReceiveSettings"));
    for (const QJsonObject &change : changes) {
        const QJsonObject geometry = payloadOf(change)
                                         .value(QLatin1String("settings"))
                                         .toObject()
                                         .value(QLatin1String("ActionGeometry"))
                                         .toObject();
        if (change.value(QLatin1String("context")).toString() == context)
            widths.append(geometry.value(QLatin1String("width")).toInt());
    }
    return widths;
}

void tst_DeckRunner::runsTheDeckOfTheModel()
{
    QCOMPARE(m_runner->stateText(), QStringLiteral("stopped"));
    QSignalSpy changed(m_runner.get(), &DeckRunner::keyChanged);
    start();
    QTRY_COMPARE(received(QStringLiteral("willAppear")).size(), 2);
    QTRY_VERIFY(m_runner->key(context(3, 1))->lastUpdate().has_value());
    QTRY_COMPARE(m_runner->key(context(3, 1))->picture().size(), QSize(60, 20));
    QCOMPARE(m_runner->key(context(3, 1))->title(), QStringLiteral("drawn"));
    QVERIFY(changed.count() > 0);
    QVERIFY(m_runner->pluginPid() > 0);
    QTRY_VERIFY(m_runner->framesPerSecond() >= 0);
    stop();
    QCOMPARE(m_runner->lastExit(), QStringLiteral("exit status 0"));
    QCOMPARE(m_runner->pluginPid(), qint64(0));
    QCOMPARE(m_runner->key(context(3, 1)), nullptr);
}

void tst_DeckRunner::tellsWhatChanges()
{
    start();
    m_model->put({5, 2}, keyuuid::allData);
    QTRY_COMPARE(received(QStringLiteral("willAppear")).size(), 3);
    const QJsonObject appeared = received(QStringLiteral("willAppear")).at(2);
    QCOMPARE(appeared.value(QLatin1String("action")).toString(), keyuuid::allData);
    const QString gone = context(0);
    m_model->remove({0, 0});
    QTRY_COMPARE(received(QStringLiteral("willDisappear")).size(), 1);
    QCOMPARE(
        received(QStringLiteral("willDisappear")).at(0).value(QLatin1String("context")).toString(),
        gone);
}

void tst_DeckRunner::moves()
{
    start();
    QTRY_COMPARE(received(QStringLiteral("willAppear")).size(), 2);
    m_model->move({0, 0}, {7, 3});
    QTRY_COMPARE(received(QStringLiteral("willAppear")).size(), 3);
    QCOMPARE(received(QStringLiteral("willDisappear")).size(), 1);
    const QJsonObject coordinates = payloadOf(received(QStringLiteral("willAppear")).at(2))
                                        .value(QLatin1String("coordinates"))
                                        .toObject();
    QCOMPARE(coordinates.value(QLatin1String("column")).toInt(), 7);
    QCOMPARE(coordinates.value(QLatin1String("row")).toInt(), 3);
}

void tst_DeckRunner::leavesOutWhatLiesOutside()
{
    start();
    m_model->setGrid({2, 2});
    QTRY_COMPARE(received(QStringLiteral("willDisappear")).size(), 1);
    m_model->setGrid({8, 4});
    QTRY_COMPARE(received(QStringLiteral("willAppear")).size(), 3);
}

void tst_DeckRunner::sendsTheWholeSettings()
{
    start();
    QTRY_VERIFY(!m_runner->key(context(0))->pictureSize().isEmpty());
    EntrySettings settings = m_model->at({0, 0})->settings;
    settings.color = QStringLiteral("red");
    m_model->changeSettings(context(0), settings);
    QTRY_COMPARE(received(QStringLiteral("didReceiveSettings")).size(), 1);
    const QJsonObject message = received(QStringLiteral("didReceiveSettings")).at(0);
    const QJsonObject whole = settingsMessage(settings, {60, 20}); // of the picture
    QCOMPARE(payloadOf(message).value(QLatin1String("settings")).toObject(), whole);

    settings.fillsKey = true;
    m_model->changeSettings(context(0), settings);
    const QJsonObject filling = settingsMessage(settings, {deckKeyPixels, deckKeyPixels});
    QTRY_COMPARE(payloadOf(received(QStringLiteral("didReceiveSettings")).constLast())
                     .value(QLatin1String("settings"))
                     .toObject(),
                 filling);
}

// A picture shows how wide the text is; the key's width is told once for each.
void tst_DeckRunner::fillsKeys()
{
    m_model->put({5, 0}, cpuAction());
    QVERIFY(m_model->at({5, 0})->settings.fillsKey);
    start();
    QTRY_COMPARE(toldWidths(context(5)), (QVector<int>{144}));
    QSignalSpy replies(m_runner.get(), &DeckRunner::settingsReplied);
    EntrySettings settings = m_model->at({5, 0})->settings;
    for (const char *text : {"a", "ab", "abc"}) {
        settings.text = QString::fromLatin1(text);
        m_model->changeSettings(context(5), settings);
    }
    QTRY_COMPARE(toldWidths(context(5)), (QVector<int>{144, 144, 60, 60, 144}));
    // That it still does not fill the key leads to nothing more.
    settings.fillsKey = false;
    m_model->changeSettings(context(5), settings);
    QTRY_COMPARE(toldWidths(context(5)).size(), 6);
    QCOMPARE(toldWidths(context(5)).constLast(), 60);
    QVERIFY(toldWidths(context(0)).isEmpty());
}

void tst_DeckRunner::fillsDials()
{
    m_model->put({1, 0, true}, cpuAction());
    start();
    const QString dial = m_model->at({1, 0, true})->context;
    QTRY_COMPARE(toldWidths(dial), (QVector<int>{288}));
}

void tst_DeckRunner::fitsNoGauge()
{
    EntrySettings settings;
    settings.fillsKey = true;
    settings.display.style = QStringLiteral("ring");
    m_model->put({5, 0}, cpuAction(), settings);
    start();
    QTRY_COMPARE(m_runner->key(context(5))->picture().size(), QSize(60, 60));
    settings.color = QStringLiteral("red");
    m_model->changeSettings(context(5), settings);
    QTRY_COMPARE(m_runner->key(context(5))->pictures(), quint64(2));
    QCOMPARE(toldWidths(context(5)), (QVector<int>{60}));
}

void tst_DeckRunner::takesOverWhatThePluginMakesOfSettings()
{
    QSignalSpy replies(m_runner.get(), &DeckRunner::settingsReplied);
    QSignalSpy adopted(m_model.get(), &DeckModel::settingsAdopted);
    start();
    QTRY_COMPARE(replies.count(), 2);
    QCOMPARE(adopted.count(), 0); // the same
    QVERIFY(replies.at(0).at(1).toJsonObject().value(QLatin1String("seen")).toBool());
}

void tst_DeckRunner::waitsForTheLastReply()
{
    QSignalSpy replies(m_runner.get(), &DeckRunner::settingsReplied);
    start();
    EntrySettings settings = m_model->at({0, 0})->settings;
    for (const char *text : {"a", "ab", "abc"}) {
        settings.text = QString::fromLatin1(text);
        m_model->changeSettings(context(0), settings);
    }
    QTRY_VERIFY(received(QStringLiteral("didReceiveSettings")).size() == 3);
    QTRY_COMPARE(replies.count(), 5);
    QCOMPARE(m_model->at({0, 0})->settings.text, QStringLiteral("abc"));
    QCOMPARE(parametersOf(received(QStringLiteral("didReceiveSettings")).at(0))
                 .value(QLatin1String("text"))
                 .toString(),
             QStringLiteral("a"));
}

void tst_DeckRunner::pressesAndTurns()
{
    m_model->put({0, 0, true}, cpuAction());
    start();
    const QString dial = m_model->at({0, 0, true})->context;
    m_runner->press(context(0), true);
    m_runner->press(context(0), false);
    m_runner->pressDial(dial, true);
    m_runner->rotate(dial, -3, true);
    m_runner->pressDial(dial, false);
    QTRY_COMPARE(received(QStringLiteral("dialPress")).size(), 2);
    QCOMPARE(received(QStringLiteral("keyDown")).size(), 1);
    QCOMPARE(received(QStringLiteral("keyUp")).size(), 1);
    const QJsonObject turned = payloadOf(received(QStringLiteral("dialRotate")).at(0));
    QCOMPARE(turned.value(QLatin1String("ticks")).toInt(), -3);
    QVERIFY(turned.value(QLatin1String("pressed")).toBool());
    QVERIFY(payloadOf(received(QStringLiteral("dialPress")).at(0))
                .value(QLatin1String("pressed"))
                .toBool());
}

void tst_DeckRunner::saysWhatIsInspected()
{
    m_runner->inspect(context(0));
    start();
    QTRY_COMPARE(received(QStringLiteral("propertyInspectorDidAppear")).size(), 1);
    m_runner->inspect(context(0));
    m_runner->inspect(context(3, 1));
    QTRY_COMPARE(received(QStringLiteral("propertyInspectorDidAppear")).size(), 2);
    QCOMPARE(received(QStringLiteral("propertyInspectorDidDisappear")).size(), 1);
    QCOMPARE(received(QStringLiteral("propertyInspectorDidDisappear"))
                 .at(0)
                 .value(QLatin1String("context"))
                 .toString(),
             context(0));
}

void tst_DeckRunner::startsAgain()
{
    start();
    const qint64 pid = m_runner->pluginPid();
    QSignalSpy linked(m_runner.get(), &DeckRunner::linked);
    m_runner->restart();
    QTRY_COMPARE(linked.count(), 1);
    QVERIFY(m_runner->pluginPid() != pid);
    stop();
    m_runner->restart();
    QTRY_COMPARE(linked.count(), 2);
}

void tst_DeckRunner::letsTheHostDie()
{
    start();
    QTRY_COMPARE(received(QStringLiteral("willAppear")).size(), 2);
    QSignalSpy notices(m_runner.get(), &DeckRunner::notice);
    m_runner->letHostDie();
    QTRY_VERIFY(!m_runner->isRunning());
    QCOMPARE(m_runner->lastExit(), QStringLiteral("exit status 0"));
    QCOMPARE(notices.count(), 1);
    QVERIFY(received(QStringLiteral("willDisappear")).isEmpty());
}

void tst_DeckRunner::changesTheServicePort()
{
    start();
    QVERIFY(m_runner->changeServicePort());
    QTRY_COMPARE(received(QStringLiteral("hwInfoPort")).size(), 1);
    const QString port =
        received(QStringLiteral("hwInfoPort")).at(0).value(QLatin1String("hwInfoPort")).toString();
    QVERIFY(port.toInt() > 0);
}

void tst_DeckRunner::passesTheLaunchChoicesOn()
{
    qputenv("SYSTEM_MONITOR_RECORDING", "/of/the/environment");
    start();
    stop();
    QVERIFY(content("info.txt").contains("\"language\":\"en\""));
    QCOMPARE(content("recording.txt"), QByteArray("\n")); // live
    const QString recording = QDir::temp().absoluteFilePath(QStringLiteral("a/recording.json"));
    m_runner->setLaunch({QStringLiteral("zh_CN"), true, recording});
    start();
    stop();
    qunsetenv("SYSTEM_MONITOR_RECORDING");
    const QByteArray info = content("info.txt").split('\n').at(1);
    QVERIFY2(info.contains("language:zh_CN,"), info.constData());
    QVERIFY(!info.contains('"'));
    QCOMPARE(content("recording.txt"), '\n' + recording.toUtf8() + '\n');
}

void tst_DeckRunner::tellsOfAPluginThatFails()
{
    qputenv("SCRIPT", "refuse");
    QSignalSpy notices(m_runner.get(), &DeckRunner::notice);
    m_runner->start();
    QTRY_VERIFY(!m_runner->isRunning());
    QCOMPARE(m_runner->lastExit(), QStringLiteral("exit status 3"));
    QCOMPARE(notices.count(), 1);
    QVERIFY(notices.at(0).at(0).toString().contains(QLatin1String("exit status 3")));

    SessionSettings settings;
    settings.program = QStringLiteral("/no/such/plugin");
    DeckRunner runner(settings, m_model.get());
    QSignalSpy missing(&runner, &DeckRunner::notice);
    runner.start();
    QTRY_VERIFY(!runner.isRunning());
    QCOMPARE(missing.count(), 1);
}

void tst_DeckRunner::isCalmWithoutAPlugin()
{
    m_runner->stop();
    m_runner->letHostDie();
    m_runner->press(context(0), true);
    m_runner->inspect(context(0));
    QVERIFY(!m_runner->changeServicePort());
    QVERIFY(!m_runner->isLinked());
    m_model->put({1, 1}, cpuAction());
    QCOMPARE(m_runner->lastExit(), QString());
}

QTEST_GUILESS_MAIN(tst_DeckRunner)
#include "tst_DeckRunner.moc"
