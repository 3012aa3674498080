#include "deck_simulator/gui/ActionPalette.h"
#include "deck_simulator/gui/DeckBar.h"
#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckMenu.h"
#include "deck_simulator/gui/DeckNameDialog.h"
#include "deck_simulator/gui/DeckStatusBar.h"
#include "deck_simulator/gui/DeckWindow.h"
#include "deck_simulator/gui/EditActions.h"
#include "deck_simulator/gui/LogView.h"
#include "deck_simulator/gui/MessageBar.h"
#include "deck_simulator/gui/PluginBar.h"
#include "deck_simulator/gui/SettingsForm.h"
#include "deck_simulator/gui/SettingsPanel.h"
#include "deck_simulator/gui/WindowStyle.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/Waits.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>
#include <QWebSocket>
#include <QWebSocketServer>
#include <QtTest>

using namespace deck;

// The whole window with the scripted plugin, used like a user does.
class tst_DeckWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsAndKeepsADeck();
    void savesEveryChangeAtOnce();
    void setsABrokenProfileAside();
    void tellsOfAProfileThatIsInUse();
    void showsLivePictures();
    void putsAnActionFromTheList();
    void returnsToTheDeck();
    void putsOnTheFirstFreeKey();
    void editsTheSelectedKey();
    void undoesAndRedoes();
    void tellsThePluginOfUndoneChanges();
    void copiesKeys();
    void pastesNothingStrange();
    void spreadsALook();
    void sendsKeysAndDials();
    void startsAndStopsThePlugin();
    void tellsOfAPluginThatStandsStill();
    void tellsOfARecordingThatBreaks();
    void playsTheDeathOfTheHost();
    void changesTheServicePort();
    void showsTheLog();
    void startsAgainInAnotherLanguage();
    void speaksChinese();
    void beginsInChinese();
    void startsAgainWithARecording();
    void resizesTheDeck();
    void showsPreviews();
    void tellsOfMissingFans();
    void tellsWhenThePluginCannotStart();
    void endsThePluginWhenItIsClosed();
    void takesAScreenshot();
    void givesUpAScreenshotWithoutAPlugin();
    void tellsWhenAScreenshotCannotBeWritten();
    void bringsUpClosedDocks();
    void showsMessagesInFull();
    void forgetsWhatItToldOfAnEarlierRun();
    void fitsOnTheScreen();
    void warnsOfAMissingRecording();
    void takesALanguageInPlaceOfTheProfiles();
    void hasColoursThatCanBeRead_data();
    void hasColoursThatCanBeRead();
    void cutsNoTextOffInLargeLetters();
    void keepsDecksByName();
    void asksForANameThatCanBeKept();
    void bringsTheLastDeckBack();
    void opensADeckWhileThePluginRuns();
    void worksOnACopyOfADeckThatIsInUse();
    void tellsOfADeckThatIsGone();
    void keepsADeckThatCannotBeSaved();
    void writesNothingForAScreenshot();

private:
    void open(const char *script = "panel");
    void reopen();
    [[nodiscard]] QByteArray content(const QString &file) const;
    [[nodiscard]] QByteArray received() const
    {
        return content(m_folder->filePath(QStringLiteral("work/received.txt")));
    }
    [[nodiscard]] QJsonArray storedKeys() const;
    [[nodiscard]] QString status() const
    {
        return m_window->deckStatus()->texts().join(QLatin1Char('|'));
    }
    [[nodiscard]] QString context(int column, int row = 0) const
    {
        return m_window->model()->at({column, row})->context;
    }
    [[nodiscard]] QString deckFile(const char *name) const
    {
        return m_folder->filePath(QStringLiteral("decks/%1.json").arg(QLatin1String(name)));
    }
    [[nodiscard]] QStringList deckNames() const;
    void press(Qt::Key key) { QTest::keyClick(m_window->grid(), key); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWebSocketServer> m_dataServer;
    std::unique_ptr<DeckWindow> m_window;
    WindowSettings m_settings;
};

void tst_DeckWindow::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_dataServer =
        std::make_unique<QWebSocketServer>(QStringLiteral("data"), QWebSocketServer::NonSecureMode);
    QVERIFY(m_dataServer->listen(QHostAddress::LocalHost));
    m_settings.session.program = QStringLiteral(SCRIPTED_PLUGIN);
    m_settings.session.workFolder = m_folder->filePath(QStringLiteral("work"));
    m_settings.profileFile = m_folder->filePath(QStringLiteral("deck.json"));
    m_settings.dataServerPort = m_dataServer->serverPort();
}

void tst_DeckWindow::cleanup()
{
    m_window.reset();
    m_dataServer.reset();
}

void tst_DeckWindow::reopen()
{
    m_window.reset();
    m_window = std::make_unique<DeckWindow>(m_settings);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

// Waits until the plugin has drawn on the first key.
void tst_DeckWindow::open(const char *script)
{
    qputenv("SCRIPT", script);
    reopen();
    m_window->start();
    QTRY_VERIFY(!m_window->grid()->cell({0, 0})->face().picture.isNull());
}

QByteArray tst_DeckWindow::content(const QString &name) const
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonArray tst_DeckWindow::storedKeys() const
{
    return QJsonDocument::fromJson(content(m_settings.profileFile))
        .object()
        .value(QLatin1String("keys"))
        .toArray();
}

void tst_DeckWindow::showsAndKeepsADeck()
{
    reopen();
    QVERIFY(m_window->grid()->cell({0, 0})->isOccupied());
    QCOMPARE(m_window->grid()->cell({0, 0})->face().caption, QStringLiteral("CPU usage"));
    QVERIFY2(status().contains(QLatin1String("stopped")), qPrintable(status()));
    const auto keys = m_window->model()->entries().size();
    m_window->model()->move({0, 0}, {7, 3});
    m_window->close();
    reopen();
    QCOMPARE(m_window->model()->entries().size(), keys);
    QVERIFY(m_window->grid()->cell({7, 3})->isOccupied());
    QVERIFY(!m_window->grid()->cell({0, 0})->isOccupied());
}

void tst_DeckWindow::savesEveryChangeAtOnce()
{
    reopen();
    QVERIFY(!QFile::exists(m_settings.profileFile));
    press(Qt::Key_Delete);
    QTRY_VERIFY(!storedKeys().isEmpty());
    QCOMPARE(storedKeys().size(), m_window->model()->entries().size());
    EntrySettings settings = m_window->model()->at({1, 0})->settings;
    settings.text = QStringLiteral("kept");
    m_window->model()->changeSettings(context(1), settings);
    QTRY_VERIFY(content(m_settings.profileFile).contains("\"kept\""));
}

void tst_DeckWindow::setsABrokenProfileAside()
{
    QFile file(m_settings.profileFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{broken");
    file.close();
    reopen();
    QVERIFY(m_window->grid()->cell({0, 0})->isOccupied());
    QCOMPARE(content(m_settings.profileFile + QStringLiteral(".broken")), QByteArray("{broken"));
    QVERIFY(m_window->messages()->message().contains(QLatin1String("deck.json.broken")));
    QVERIFY(m_window->logView()->view()->toPlainText().contains(QLatin1String("deck.json.broken")));
}

void tst_DeckWindow::tellsOfAProfileThatIsInUse()
{
    reopen();
    const DeckWindow second(m_settings);
    QVERIFY2(second.messages()->message().contains(QLatin1String("works on a copy")),
             qPrintable(second.messages()->message()));
    QCOMPARE(m_window->messages()->message(), QString());
}

void tst_DeckWindow::showsLivePictures()
{
    open();
    const KeyCell *cell = m_window->grid()->cell({0, 0});
    QCOMPARE(cell->face().picture.size(), QSize(60, 60));
    QVERIFY(cell->face().isGauge);
    const auto *size = m_window->panel()->findChild<QLabel *>(QStringLiteral("pictureText"));
    QTRY_COMPARE(size->text(), QStringLiteral("Picture 60 × 60, key 144 × 144: scaled to 240 %"));
    QVERIFY(!m_window->grid()->cell({0, 2})->face().isGauge);
    QVERIFY(cell->toolTip().contains(QLatin1String("drawn")));
    QTRY_VERIFY2(status().contains(QLatin1String("Link: registered")), qPrintable(status()));
    QVERIFY(status().contains(QLatin1String("frames/s")));
    QVERIFY(status().contains(QLatin1String("B/s")));
    m_window->runner()->stop();
    QTRY_VERIFY(cell->face().picture.isNull());
    QTRY_COMPARE(size->text(), QString());
    QVERIFY2(status().contains(QLatin1String("exit status 0")), qPrintable(status()));
}

void tst_DeckWindow::putsAnActionFromTheList()
{
    open();
    m_window->grid()->setCurrent({6, 2});
    press(Qt::Key_F2);
    QLineEdit *search = m_window->actionList()->searchField();
    QTest::keyClicks(search, QStringLiteral("pump"));
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(m_window->model()->at({6, 2})->action, keyuuid::pumpSpeed);
    QTRY_VERIFY(received().contains(keyuuid::pumpSpeed.toUtf8()));
    QTRY_VERIFY(!m_window->grid()->cell({6, 2})->face().picture.isNull());
    QCOMPARE(m_window->panel()->context(), context(6, 2));
}

void tst_DeckWindow::returnsToTheDeck()
{
    reopen();
    m_window->activateWindow();
    DeckGrid *grid = m_window->grid();
    auto *title = m_window->panel()->findChild<QLineEdit *>(QStringLiteral("title"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        press(Qt::Key_F2);
        QTRY_VERIFY(title->hasFocus());
        QTest::keyClick(title, key);
        QTRY_VERIFY(grid->hasFocus());
    }
    grid->setCurrent({7, 3});
    press(Qt::Key_F2);
    QLineEdit *search = m_window->actionList()->searchField();
    QTRY_VERIFY(search->hasFocus());
    QTest::keyClicks(search, QStringLiteral("pump"));
    QTest::keyClick(search, Qt::Key_Escape);
    QTRY_VERIFY(grid->hasFocus());
    QCOMPARE(m_window->model()->at({7, 3}), nullptr);
}

void tst_DeckWindow::putsOnTheFirstFreeKey()
{
    reopen();
    const DeckPlace free = m_window->model()->firstEmptyKey();
    Q_EMIT m_window->actionList()->actionChosen(keyuuid::allData);
    QVERIFY(m_window->model()->at(free) != nullptr);
    QVERIFY(m_window->grid()->current() == free);
    m_window->model()->setGrid({1, 1});
    const auto keys = m_window->model()->entries().size();
    Q_EMIT m_window->actionList()->actionChosen(keyuuid::allData);
    QCOMPARE(m_window->model()->entries().size(), keys);
    QVERIFY(m_window->messages()->message().contains(QLatin1String("No key is free")));
}

void tst_DeckWindow::editsTheSelectedKey()
{
    open();
    press(Qt::Key_F2);
    auto *title = m_window->panel()->findChild<QLineEdit *>(QStringLiteral("title"));
    QVERIFY(title != nullptr);
    QCOMPARE(title->text(), QStringLiteral("CPU"));
    QTest::keyClicks(title, QStringLiteral("Processor"));
    QCOMPARE(m_window->model()->at({0, 0})->settings.text, QStringLiteral("Processor"));
    QTRY_VERIFY(received().contains("\"text\":\"Processor\""));
    QVERIFY(received().contains("didReceiveSettings"));
    QVERIFY(received().contains("propertyInspectorDidAppear"));
    QCOMPARE(title->text(), QStringLiteral("Processor"));

    press(Qt::Key_Right);
    QCOMPARE(m_window->panel()->context(), context(1));
    QVERIFY(title->text() != QLatin1String("Processor"));
    QTRY_VERIFY(received().contains("propertyInspectorDidDisappear"));
    press(Qt::Key_Delete);
    QCOMPARE(m_window->panel()->context(), QString());
}

void tst_DeckWindow::undoesAndRedoes()
{
    reopen();
    m_window->activateWindow();
    QTRY_VERIFY(m_window->grid()->hasFocus());
    const DeckModel *model = m_window->model();
    const auto keyClick = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(m_window->grid(), key, modifiers);
    };
    press(Qt::Key_Delete);
    QVERIFY(model->at({0, 0}) == nullptr);
    keyClick(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(model->at({0, 0}) != nullptr);
    keyClick(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(model->at({0, 0}) == nullptr);
    keyClick(Qt::Key_Z, Qt::ControlModifier);
    keyClick(Qt::Key_Y, Qt::ControlModifier);
    QVERIFY(model->at({0, 0}) == nullptr);
    keyClick(Qt::Key_Z, Qt::ControlModifier);

    // The panel shows what is undone.
    press(Qt::Key_F2);
    auto *title = m_window->panel()->findChild<QLineEdit *>(QStringLiteral("title"));
    QTest::keyClicks(title, QStringLiteral("Processor"));
    QTest::keyClick(title, Qt::Key_Escape);
    QTRY_VERIFY(m_window->grid()->hasFocus());
    QCOMPARE(m_window->edits()->undoStack()->index(), 1);
    QVERIFY(m_window->edits()->undoAction()->text().contains(QLatin1String("settings")));
    keyClick(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(model->at({0, 0})->settings.text, QStringLiteral("CPU"));
    QCOMPARE(title->text(), QStringLiteral("CPU"));

    // An edit is not merged with one before another key was selected.
    press(Qt::Key_F2);
    QTest::keyClicks(title, QStringLiteral("a"));
    m_window->grid()->setCurrent({1, 0});
    m_window->grid()->setCurrent({0, 0});
    QTest::keyClicks(title, QStringLiteral("b"));
    QCOMPARE(m_window->edits()->undoStack()->index(), 2);

    // The size of the deck, as the numbers below it change it.
    auto *columns = m_window->deckBar()->findChildren<QSpinBox *>().constFirst();
    columns->setValue(7);
    columns->setValue(6);
    QCOMPARE(m_window->edits()->undoStack()->index(), 3);
    m_window->edits()->undoAction()->trigger();
    QCOMPARE(columns->value(), 8);
}

void tst_DeckWindow::tellsThePluginOfUndoneChanges()
{
    open();
    const QByteArray removed = context(1).toUtf8();
    const auto count = [this](const char *event, const QByteArray &key) {
        int times = 0;
        const QList<QByteArray> lines = received().split('\n');
        for (const QByteArray &line : lines)
            times += line.contains(QByteArray("\"") + event + '"') && line.contains(key) ? 1 : 0;
        return times;
    };
    m_window->grid()->setCurrent({1, 0});
    QTRY_COMPARE(count("willAppear", removed), 1);
    press(Qt::Key_Delete);
    QTRY_COMPARE(count("willDisappear", removed), 1);
    m_window->edits()->undoAction()->trigger();
    QTRY_COMPARE(count("willAppear", removed), 2);
    EntrySettings settings = m_window->model()->at({1, 0})->settings;
    settings.color = QStringLiteral("#123456");
    m_window->model()->changeSettings(context(1), settings);
    m_window->edits()->undoAction()->trigger();
    m_window->edits()->redoAction()->trigger();
    QTRY_VERIFY(received().count("#123456") >= 2);
}

void tst_DeckWindow::copiesKeys()
{
    reopen();
    m_window->activateWindow();
    QTRY_VERIFY(m_window->grid()->hasFocus());
    const DeckModel *model = m_window->model();
    const auto control = [this](Qt::Key key) {
        QTest::keyClick(m_window->grid(), key, Qt::ControlModifier);
    };
    const DeckEntry original = *model->at({0, 0});
    control(Qt::Key_C);
    QVERIFY(m_window->edits()->pasteAction()->isEnabled());
    m_window->grid()->setCurrent({7, 3});
    QVERIFY(!m_window->edits()->copyAction()->isEnabled());
    QVERIFY(!m_window->edits()->lookAction()->isEnabled());
    control(Qt::Key_V);
    QVERIFY(model->at({7, 3}) != nullptr);
    QCOMPARE(model->at({7, 3})->action, original.action);
    QVERIFY(model->at({7, 3})->settings == original.settings);
    QVERIFY(model->at({7, 3})->context != original.context);
    QCOMPARE(m_window->panel()->context(), context(7, 3));

    // On a key that is taken, and as one step.
    m_window->grid()->setCurrent({1, 0});
    const QString replaced = context(1);
    control(Qt::Key_V);
    QVERIFY(context(1) != replaced);
    control(Qt::Key_Z);
    QCOMPARE(context(1), replaced);

    m_window->grid()->setCurrent({0, 0});
    control(Qt::Key_X);
    QVERIFY(model->at({0, 0}) == nullptr);
    control(Qt::Key_V);
    QVERIFY(model->at({0, 0})->settings == original.settings);

    // A field that is edited keeps these keys for its text.
    press(Qt::Key_F2);
    auto *title = m_window->panel()->findChild<QLineEdit *>(QStringLiteral("title"));
    QTRY_VERIFY(title->hasFocus());
    QTest::keyClick(title, Qt::Key_X, Qt::ControlModifier);
    QVERIFY(model->at({0, 0}) != nullptr);
    QCOMPARE(model->at({0, 0})->settings.text, QString());
}

void tst_DeckWindow::pastesNothingStrange()
{
    reopen();
    QClipboard *clipboard = QApplication::clipboard();
    const auto keys = m_window->model()->entries().size();
    for (const char *text : {"", "{broken", "{}", "[1]", "{\"action\": 5}"}) {
        auto *data = new QMimeData;
        data->setData(QStringLiteral("application/x-deck-key"), text);
        clipboard->setMimeData(data);
        QVERIFY2(!m_window->edits()->pasteAction()->isEnabled(), text);
    }
    clipboard->setText(QStringLiteral("{\"action\": \"x\"}"));
    m_window->edits()->pasteAction()->trigger();
    QCOMPARE(m_window->model()->entries().size(), keys);
}

void tst_DeckWindow::spreadsALook()
{
    reopen();
    const DeckModel *model = m_window->model();
    const QVector<DeckEntry> before = model->entries();
    EntrySettings settings = model->at({0, 0})->settings;
    settings.fontFamily = QStringLiteral("Roboto|Light");
    settings.color = QStringLiteral("#abcdef");
    m_window->model()->changeSettings(context(0), settings);
    m_window->edits()->lookAction()->trigger();
    for (const DeckEntry &entry : model->entries()) {
        QCOMPARE(entry.settings.fontFamily, QStringLiteral("Roboto|Light"));
        QCOMPARE(entry.settings.color, QStringLiteral("#abcdef"));
    }
    QCOMPARE(model->at({5, 0})->settings.text, QStringLiteral("Free"));
    m_window->edits()->lookAction()->trigger(); // nothing is left to do
    QCOMPARE(m_window->edits()->undoStack()->index(), 2);
    m_window->edits()->undoAction()->trigger();
    m_window->edits()->undoAction()->trigger();
    for (int index = 0; index < before.size(); ++index)
        QVERIFY(model->entries().at(index).settings == before.at(index).settings);
}

void tst_DeckWindow::sendsKeysAndDials()
{
    open();
    QTest::mouseClick(m_window->grid()->cell({0, 0}), Qt::LeftButton);
    QTRY_VERIFY(received().contains("\"keyUp\""));
    QVERIFY(received().contains("\"keyDown\""));
    m_window->model()->put({0, 0, true}, keyuuid::volume);
    m_window->grid()->setCurrent({0, 0, true});
    press(Qt::Key_PageUp);
    press(Qt::Key_Return);
    QTRY_VERIFY(received().count("\"dialPress\"") == 2);
    QVERIFY(received().contains("\"dialRotate\""));
}

void tst_DeckWindow::startsAndStopsThePlugin()
{
    open();
    PluginBar *bar = m_window->pluginBar();
    QVERIFY(!bar->startAction()->isEnabled());
    bar->stopAction()->trigger();
    QTRY_VERIFY(!m_window->runner()->isRunning());
    QVERIFY(bar->startAction()->isEnabled());
    QVERIFY(!bar->stopAction()->isEnabled());
    QVERIFY(!bar->dieAction()->isEnabled());
    bar->startAction()->trigger();
    QTRY_VERIFY(m_window->runner()->isLinked());
    const qint64 pid = m_window->runner()->pluginPid();
    bar->restartAction()->trigger();
    QTRY_VERIFY(m_window->runner()->isLinked() && m_window->runner()->pluginPid() != pid);
}

void tst_DeckWindow::tellsOfAPluginThatStandsStill()
{
    open("freeze");
    const DeckGrid *grid = m_window->grid();
    QVERIFY(!grid->cell({0, 0})->face().isDimmed);
    press(Qt::Key_Return);
    QTRY_VERIFY(grid->cell({0, 0})->face().isDimmed);
    QVERIFY(grid->cell({0, 1})->face().isDimmed);
    QVERIFY(!grid->cell({0, 0})->face().picture.isNull());
    const QString message = m_window->messages()->message();
    QVERIFY2(message.contains(QLatin1String("stands still")), qPrintable(message));
    QVERIFY2(status().contains(QLatin1String("stands still")), qPrintable(status()));

    QFile go(m_folder->filePath(QStringLiteral("work/go")));
    QVERIFY(go.open(QIODevice::WriteOnly));
    QTRY_VERIFY(!grid->cell({0, 0})->face().isDimmed);
    QCOMPARE(m_window->messages()->message(), QString());
    QVERIFY2(status().contains(QLatin1String("registered")), qPrintable(status()));
    QVERIFY(m_window->logView()->view()->toPlainText().contains(QLatin1String("goes on")));
}

void tst_DeckWindow::tellsOfARecordingThatBreaks()
{
    const QString name = m_folder->filePath(QStringLiteral("machine.json"));
    const auto write = [&name](const QByteArray &text) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("{}");
    open();
    QSignalSpy linked(m_window->runner(), &DeckRunner::linked);
    m_window->pluginBar()->useRecording(name);
    QTRY_COMPARE(linked.count(), 1);
    const MessageBar *messages = m_window->messages();
    QVERIFY2(!messages->isVisible(), qPrintable(messages->message()));
    write("{broken");
    QTRY_VERIFY2(messages->message().contains(QLatin1String("cannot be used any more")),
                 qPrintable(messages->message()));
    write("{ }");
    QTRY_VERIFY2(messages->message().contains(QLatin1String("can be used again")),
                 qPrintable(messages->message()));
    QVERIFY(QFile::remove(name));
    QTRY_VERIFY2(messages->message().contains(QLatin1String("no such file")),
                 qPrintable(messages->message()));
}

void tst_DeckWindow::playsTheDeathOfTheHost()
{
    open();
    m_window->pluginBar()->dieAction()->trigger();
    QTRY_VERIFY(!m_window->runner()->isRunning());
    QVERIFY(!received().contains("willDisappear"));
    QVERIFY2(status().contains(QLatin1String("exit status 0")), qPrintable(status()));
}

void tst_DeckWindow::changesTheServicePort()
{
    open();
    m_window->pluginBar()->portAction()->trigger();
    QTRY_VERIFY(received().contains("hwInfoPort"));
    QVERIFY(m_window->messages()->message().contains(QLatin1String("port")));
}

void tst_DeckWindow::showsTheLog()
{
    qputenv("SCRIPT", "refuse");
    reopen();
    m_window->start();
    QTRY_VERIFY(!m_window->runner()->isRunning());
    const QString log = m_window->logView()->view()->toPlainText();
    QVERIFY2(log.contains(QLatin1String("first line\n")), qPrintable(log));
    QVERIFY(log.contains(QLatin1String("exit status 3")));
}

void tst_DeckWindow::startsAgainInAnotherLanguage()
{
    open();
    PluginBar *bar = m_window->pluginBar();
    QSignalSpy linked(m_window->runner(), &DeckRunner::linked);
    bar->languageField()->setCurrentIndex(1);
    Q_EMIT bar->languageField()->activated(1);
    QTRY_COMPARE(linked.count(), 1);
    QTest::mouseClick(bar->stripField(), Qt::LeftButton, {},
                      QPoint(8, bar->stripField()->height() / 2));
    QTRY_COMPARE(linked.count(), 2);
    const QList<QByteArray> infos =
        content(m_folder->filePath(QStringLiteral("work/info.txt"))).split('\n');
    QVERIFY(infos.at(0).contains("\"language\":\"en\""));
    QVERIFY(infos.at(1).contains("\"language\":\"zh_CN\""));
    QVERIFY(infos.at(2).contains("language:zh_CN,"));
    QTRY_VERIFY(content(m_settings.profileFile).contains("\"zh_CN\""));
    reopen();
    QCOMPARE(m_window->pluginBar()->languageField()->currentText(), QStringLiteral("中文"));
    QVERIFY(m_window->pluginBar()->stripField()->isChecked());
}

// Chosen at run time: the panel, the list of actions and new keys; keys keep their titles.
void tst_DeckWindow::speaksChinese()
{
    reopen();
    m_window->grid()->setCurrent({0, 2});
    SettingsPanel *panel = m_window->panel();
    const auto labelOf = [panel](const char *name) {
        const QWidget *field = panel->findChild<QWidget *>(QString::fromLatin1(name));
        const QList<QLabel *> labels = panel->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->buddy() == field)
                return label->text();
        }
        return QString();
    };
    QCOMPARE(labelOf("title"), QStringLiteral("&Title"));
    QComboBox *language = m_window->pluginBar()->languageField();
    const auto choose = [language](const char *value) {
        language->setCurrentIndex(language->findData(QString::fromLatin1(value)));
        Q_EMIT language->activated(language->currentIndex());
    };
    choose("zh_CN");
    QTRY_COMPARE(labelOf("title"), QStringLiteral("标题(&T)"));
    QCOMPARE(panel->findChild<QLineEdit *>(QStringLiteral("title"))->text(), QStringLiteral("CPU"));
    QCOMPARE(m_window->grid()->cell({0, 2})->face().caption, QStringLiteral("CPU使用率"));
    const QAbstractItemModel &actions = *m_window->actionList()->view()->model();
    QCOMPARE(actions.index(2, 0).data().toString(), QStringLiteral("内存"));

    const DeckPlace free = m_window->model()->firstEmptyKey();
    Q_EMIT m_window->actionList()->actionChosen(keyuuid::netWork);
    QCOMPARE(m_window->model()->at(free)->settings.text, QStringLiteral("网速"));
    auto *lines = panel->findChild<QComboBox *>(QStringLiteral("titleLines"));
    lines->setCurrentIndex(lines->findText(QStringLiteral("双行")));
    Q_EMIT lines->activated(lines->currentIndex());
    QCOMPARE(m_window->model()->at(free)->settings.text, QStringLiteral("上传/下载"));
    press(Qt::Key_F2);
    QTest::keyClick(panel->findChild<QLineEdit *>(QStringLiteral("title")), Qt::Key_Escape);
    QTRY_VERIFY(m_window->grid()->hasFocus()); // the new form is as well connected

    choose("en");
    QTRY_COMPARE(labelOf("title"), QStringLiteral("&Title"));
    QCOMPARE(actions.index(2, 0).data().toString(), QStringLiteral("Memory"));
    QCOMPARE(m_window->model()->at(free)->settings.text, QStringLiteral("上传/下载"));
}

void tst_DeckWindow::beginsInChinese()
{
    m_settings.language = QStringLiteral("zh_CN");
    reopen();
    m_settings.language.clear();
    QCOMPARE(m_window->model()->at({0, 0})->settings.text, QStringLiteral("CPU使用率"));
    QCOMPARE(m_window->model()->at({1, 2})->settings.text, QStringLiteral("上传/下载"));
    const auto ring = [this] {
        return m_window->panel()->findChild<QToolButton *>(QStringLiteral("style-ring"));
    };
    QTRY_COMPARE(ring()->text(), QStringLiteral("环形"));
}

void tst_DeckWindow::startsAgainWithARecording()
{
    open();
    QComboBox *readings = m_window->pluginBar()->readingsField();
    QSignalSpy linked(m_window->runner(), &DeckRunner::linked);
    const auto activate = [readings](int index) {
        readings->setCurrentIndex(index);
        Q_EMIT readings->activated(index);
    };
    activate(readings->count() - 1);
    auto *dialog = m_window->findChild<QFileDialog *>();
    QVERIFY(dialog != nullptr);
    QCOMPARE(readings->currentIndex(), 0); // nothing is chosen yet
    dialog->reject();
    const QString file = m_folder->filePath(QStringLiteral("machine.json"));
    m_window->pluginBar()->useRecording(file);
    QTRY_COMPARE(linked.count(), 1);
    QCOMPARE(readings->currentText(), QStringLiteral("machine.json"));
    activate(0);
    QTRY_COMPARE(linked.count(), 2);
    activate(1); // it is still offered
    QTRY_COMPARE(linked.count(), 3);
    const QByteArray recordings = content(m_folder->filePath(QStringLiteral("work/recording.txt")));
    QCOMPARE(recordings, QByteArray("\n") + file.toUtf8() + "\n\n" + file.toUtf8() + "\n");
}

void tst_DeckWindow::resizesTheDeck()
{
    reopen();
    DeckBar *bar = m_window->deckBar();
    QCOMPARE(bar->columnsField()->value(), 8);
    QTest::keyClick(bar->columnsField(), Qt::Key_Down);
    QTest::keyClick(bar->rowsField(), Qt::Key_Up);
    QTest::keyClick(bar->dialsField(), Qt::Key_Down);
    QCOMPARE(m_window->model()->grid(), QSize(7, 5));
    QCOMPARE(m_window->model()->dials(), 3);
    QVERIFY(m_window->grid()->cell({6, 4}) != nullptr);
    m_window->model()->setGrid({2, 2});
    QCOMPARE(bar->rowsField()->value(), 2);
    bar->columnsField()->selectAll();
    QTest::keyClicks(bar->columnsField(), QStringLiteral("12"));
    QCOMPARE(m_window->model()->grid().width(), 2); // half typed
    QTest::keyClick(bar->columnsField(), Qt::Key_Return);
    QCOMPARE(m_window->model()->grid().width(), 12);
}

void tst_DeckWindow::showsPreviews()
{
    QObject::connect(
        m_dataServer.get(), &QWebSocketServer::newConnection, m_dataServer.get(), [this] {
            QWebSocket *client = m_dataServer->nextPendingConnection();
            client->setParent(m_dataServer.get());
            QObject::connect(
                client, &QWebSocket::textMessageReceived, client, [client](const QString &request) {
                    client->sendTextMessage(QStringLiteral("{\"event\":\"%1\",\"info\":"
                                                           "\"37%\"}")
                                                .arg(request));
                });
        });
    open();
    QTRY_COMPARE(m_window->panel()->preview(), QStringLiteral("Now: 37%"));
    m_window->grid()->setCurrent({7, 3});
    QCOMPARE(m_window->panel()->preview(), QString());
    m_window->grid()->setCurrent({0, 0});
    QTRY_COMPARE(m_window->panel()->preview(), QStringLiteral("Now: 37%"));
    m_window->runner()->stop();
    QTRY_COMPARE(m_window->panel()->preview(), QString());
}

void tst_DeckWindow::tellsOfMissingFans()
{
    open("bare");
    m_window->grid()->setCurrent({7, 3});
    Q_EMIT m_window->actionList()->actionChosen(keyuuid::cpuFan);
    QTRY_VERIFY(m_window->panel()->preview().startsWith(
        QLatin1String("Now: not available on this machine")));
    m_window->grid()->setCurrent({0, 0});
    QCOMPARE(m_window->panel()->preview(), QString());
}

void tst_DeckWindow::tellsWhenThePluginCannotStart()
{
    m_settings.session.program = QStringLiteral("/no/such/plugin");
    reopen();
    m_window->start();
    QTRY_VERIFY(!m_window->runner()->isRunning());
    QVERIFY(m_window->messages()->message().contains(
        QDir::toNativeSeparators(m_settings.session.program)));
    QVERIFY(m_window->pluginBar()->startAction()->isEnabled());
}

void tst_DeckWindow::endsThePluginWhenItIsClosed()
{
    open();
    QVERIFY(!m_window->close()); // not before the plugin has ended
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY(!m_window->runner()->isRunning());
    QCOMPARE(m_window->runner()->lastExit(), QStringLiteral("exit status 0"));

    open("stubborn");
    QVERIFY(!m_window->close());
    QVERIFY(!m_window->close()); // does not wait
    QTRY_VERIFY(!m_window->isVisible());
}

void tst_DeckWindow::takesAScreenshot()
{
    qputenv("SCRIPT", "panel");
    reopen();
    const QString file = m_folder->filePath(QStringLiteral("window.png"));
    m_window->takeScreenshot(file, std::chrono::milliseconds(100));
    const QSize size = m_window->size();
    m_window->start();
    QTRY_VERIFY(!m_window->isVisible());
    QCOMPARE(m_window->failure(), QString());
    QCOMPARE(QImage(file).size(), size * m_window->devicePixelRatioF());
}

void tst_DeckWindow::givesUpAScreenshotWithoutAPlugin()
{
    qputenv("SCRIPT", "refuse");
    reopen();
    m_window->takeScreenshot(m_folder->filePath(QStringLiteral("window.png")),
                             std::chrono::milliseconds(0));
    m_window->start();
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY2(m_window->failure().contains(QLatin1String("exit status 3")),
             qPrintable(m_window->failure()));

    m_settings.session.program = QStringLiteral("/no/such/plugin");
    reopen();
    m_window->takeScreenshot(m_folder->filePath(QStringLiteral("window.png")),
                             std::chrono::milliseconds(0));
    m_window->start();
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY(m_window->failure().contains(QDir::toNativeSeparators(m_settings.session.program)));
}

void tst_DeckWindow::tellsWhenAScreenshotCannotBeWritten()
{
    qputenv("SCRIPT", "panel");
    reopen();
    const QString file = m_folder->filePath(QStringLiteral("missing/window.png"));
    m_window->takeScreenshot(file, std::chrono::milliseconds(0));
    m_window->start();
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY2(m_window->failure().contains(QDir::toNativeSeparators(file)),
             qPrintable(m_window->failure()));
}

void tst_DeckWindow::bringsUpClosedDocks()
{
    reopen();
    m_window->activateWindow();
    const QList<QDockWidget *> docks = m_window->findChildren<QDockWidget *>();
    const auto closeDocks = [&docks] {
        for (QDockWidget *dock : docks)
            dock->close();
    };
    closeDocks();
    m_window->grid()->setCurrent({0, 0});
    press(Qt::Key_F2);
    const auto *title = m_window->panel()->findChild<QLineEdit *>(QStringLiteral("title"));
    QVERIFY(title->isVisible());
    QTRY_VERIFY(title->hasFocus());
    closeDocks();
    m_window->grid()->setCurrent({7, 3});
    press(Qt::Key_F2);
    QVERIFY(m_window->actionList()->isVisible());
    QTRY_VERIFY(m_window->actionList()->searchField()->hasFocus());
    closeDocks();
    QTest::mouseDClick(m_window->grid()->cell({6, 3}), Qt::LeftButton);
    QVERIFY(m_window->actionList()->isVisible());
}

void tst_DeckWindow::showsMessagesInFull()
{
    const QString folder = m_folder->filePath(QString(120, QLatin1Char('x')));
    m_settings.profileFile = folder + QStringLiteral("/deck.json");
    QVERIFY(QDir().mkpath(folder));
    QFile file(m_settings.profileFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{broken");
    file.close();
    reopen();
    const int narrowest = m_window->minimumSizeHint().width();
    m_window->resize(m_window->minimumSizeHint());
    QCoreApplication::processEvents();
    const auto *label = m_window->messages()->findChild<QLabel *>(QStringLiteral("message"));
    QVERIFY(label->isVisible());
    QVERIFY(label->height() > 2 * label->fontMetrics().height());
    QVERIFY(label->height() >= label->heightForWidth(label->width()));
    QVERIFY(m_window->messages()->message().endsWith(QLatin1String("deck.json.broken.")));
    QTest::mouseClick(m_window->messages()->closeButton(), Qt::LeftButton);
    QVERIFY(!m_window->messages()->isVisible());
    QCOMPARE(m_window->minimumSizeHint().width(), narrowest); // a long text does not widen it
}

void tst_DeckWindow::forgetsWhatItToldOfAnEarlierRun()
{
    open();
    m_window->runner()->stop();
    QTRY_VERIFY(m_window->messages()->message().contains(QLatin1String("has ended")));
    m_window->start();
    QCOMPARE(m_window->messages()->message(), QString());
    QTRY_VERIFY(m_window->runner()->isLinked());

    // Controls that have nothing to do with the plugin stay.
    m_window->runner()->stop();
    QTRY_VERIFY(!m_window->runner()->isRunning());
    m_window->model()->setGrid({1, 1});
    Q_EMIT m_window->actionList()->actionChosen(keyuuid::allData);
    m_window->start();
    QVERIFY(m_window->messages()->message().contains(QLatin1String("No key is free")));
}

void tst_DeckWindow::fitsOnTheScreen()
{
    reopen();
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize least = m_window->minimumSizeHint();
    QVERIFY(m_window->frameGeometry().height() <= screen.height());
    QVERIFY(m_window->width() <= qMax(least.width(), screen.width()));
    // Half the size of a usual screen, as on one where everything is drawn twice as large.
    QVERIFY2(least.width() <= 940 && least.height() <= 500,
             qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
}

void tst_DeckWindow::warnsOfAMissingRecording()
{
    open();
    QSignalSpy linked(m_window->runner(), &DeckRunner::linked);
    m_window->pluginBar()->useRecording(m_folder->filePath(QStringLiteral("missing.json")));
    QTRY_COMPARE(linked.count(), 1);
    QVERIFY2(m_window->messages()->message().contains(QLatin1String("missing.json")),
             qPrintable(m_window->messages()->message()));
    m_window->pluginBar()->useRecording({});
    QTRY_COMPARE(linked.count(), 2);
    QVERIFY(!m_window->messages()->isVisible());
}

void tst_DeckWindow::takesALanguageInPlaceOfTheProfiles()
{
    m_settings.language = QStringLiteral("zh_CN");
    reopen();
    m_settings.language.clear();
    QCOMPARE(m_window->runner()->launch().language, QStringLiteral("zh_CN"));
    QCOMPARE(m_window->pluginBar()->languageField()->currentData().toString(),
             QStringLiteral("zh_CN"));
}

void tst_DeckWindow::hasColoursThatCanBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isDark");
    QTest::newRow("light") << QStringLiteral("light") << false;
    QTest::newRow("dark") << QStringLiteral("dark") << true;
}

void tst_DeckWindow::hasColoursThatCanBeRead()
{
    QFETCH(const QString, name);
    QFETCH(const bool, isDark);
    reopen();
    applyColors(name);
    const auto window = [this] {
        return m_window->actionList()->palette().color(QPalette::Window).rgb();
    };
    QTRY_COMPARE(qGray(window()) < 128, isDark);
    const QPalette palette = m_window->actionList()->palette();
    const QVector<QPair<QPalette::ColorRole, QPalette::ColorRole>> pairs{
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::HighlightedText, QPalette::Highlight}};
    for (const auto &pair : pairs) {
        const int contrast =
            qAbs(qGray(palette.color(pair.first).rgb()) - qGray(palette.color(pair.second).rgb()));
        QVERIFY2(contrast > 90, qPrintable(QString::number(int(pair.first))));
    }
    // The pictures in the list follow.
    const QAbstractItemModel &actions = *m_window->actionList()->view()->model();
    const QModelIndex first = actions.index(0, 0, actions.index(0, 0));
    const QImage icon = first.data(Qt::DecorationRole).value<QIcon>().pixmap(72, 72).toImage();
    QCOMPARE(QColor(icon.pixel(36, 36)).alpha(), 255);
    bool found = false;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x)
            found = found || icon.pixel(x, y) == palette.color(QPalette::Text).rgb();
    }
    QVERIFY(found);
}

namespace {

// In a dock that lies behind another one.
bool isBehindAnother(const QWidget *widget)
{
    while (widget != nullptr && qobject_cast<const QDockWidget *>(widget) == nullptr)
        widget = widget->parentWidget();
    return widget != nullptr && widget->visibleRegion().isEmpty();
}

} // namespace

void tst_DeckWindow::cutsNoTextOffInLargeLetters()
{
    const QFont usual = QApplication::font();
    applyTextSize(125);
    reopen();
    m_window->messages()->showMessage(QString(40, QLatin1Char('w')) +
                                      QStringLiteral(" and so on").repeated(20));
    QCoreApplication::processEvents();
    const QList<QWidget *> widgets = m_window->findChildren<QWidget *>();
    int texts = 0;
    for (const QWidget *widget : widgets) {
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool hasText = (button != nullptr && !button->text().isEmpty()) ||
                             (label != nullptr && !label->text().isEmpty() && !label->wordWrap());
        if (label != nullptr && label->wordWrap() && label->isVisible() && !isBehindAnother(label))
            QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                     qPrintable(label->text()));
        if (!hasText || !widget->isVisible() || isBehindAnother(widget))
            continue;
        ++texts;
        QVERIFY2(widget->width() >= widget->minimumSizeHint().width() &&
                     widget->height() >= widget->fontMetrics().height(),
                 qPrintable(button != nullptr ? button->text() : label->text()));
        // What is scrolled may lie below the window.
        const QPoint center =
            QRect(widget->mapTo(m_window.get(), QPoint()), widget->size()).center();
        const bool scrolls = m_window->panel()->isAncestorOf(widget);
        QVERIFY(m_window->rect().contains(scrolls ? QPoint(center.x(), 0) : center));
    }
    QVERIFY2(texts > 15, qPrintable(QString::number(texts)));
    QApplication::setFont(usual);
}

QStringList tst_DeckWindow::deckNames() const
{
    m_window->deckMenu()->renew();
    QStringList names;
    const QList<QAction *> actions = m_window->deckMenu()->actions();
    for (const QAction *action : actions) {
        if (action->isCheckable())
            names.append(action->text() + (action->isChecked() ? QStringLiteral("*") : QString()));
    }
    return names;
}

void tst_DeckWindow::keepsDecksByName()
{
    reopen();
    QCOMPARE(deckNames(), QStringList{QStringLiteral("default*")});
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Deck simulator"));
    m_window->saveDeckAs(QStringLiteral("R&D"));
    QCOMPARE(deckNames(), QStringList({QStringLiteral("default"), QStringLiteral("R&&D*")}));
    QVERIFY(m_window->windowTitle().contains(QLatin1String("R&D")));
    QVERIFY(QFile::exists(deckFile("R&D")));
    const auto keys = m_window->model()->entries().size();
    press(Qt::Key_Delete);
    m_window->deckMenu()->deckAction(QStringLiteral("default"))->trigger();
    QCOMPARE(m_window->deckName(), QStringLiteral("default"));
    QCOMPARE(m_window->model()->entries().size(), keys); // only the other deck has lost it
    m_window->deckMenu()->deckAction(QStringLiteral("R&D"))->trigger();
    QCOMPARE(m_window->model()->entries().size(), keys - 1);
    QCOMPARE(m_window->panel()->context(), QString());
    // A name that is taken overwrites nothing.
    const QByteArray before = content(m_settings.profileFile);
    m_window->saveDeckAs(QStringLiteral("Default"));
    m_window->saveDeckAs(QStringLiteral("../outside"));
    QCOMPARE(m_window->deckName(), QStringLiteral("R&D"));
    QCOMPARE(content(m_settings.profileFile), before);
    QVERIFY(m_window->messages()->message().contains(QLatin1String("must have none of")));
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("outside.json"))));
}

void tst_DeckWindow::asksForANameThatCanBeKept()
{
    reopen();
    m_window->deckMenu()->saveAsAction()->trigger();
    auto *dialog = m_window->findChild<DeckNameDialog *>();
    QVERIFY(dialog != nullptr);
    const auto *buttons = dialog->findChild<QDialogButtonBox *>();
    QPushButton *save = buttons->button(QDialogButtonBox::Save);
    QVERIFY(!save->isEnabled());
    QVERIFY(dialog->hint().contains(QLatin1String("empty")));
    for (const char *name : {"con", "a/b", "Default", "a."}) {
        dialog->nameField()->setText(QString::fromLatin1(name));
        QVERIFY2(!save->isEnabled(), name);
        QVERIFY(!dialog->hint().isEmpty());
    }
    dialog->nameField()->setText(QStringLiteral(" games "));
    QVERIFY(save->isEnabled());
    QTest::keyClick(dialog->nameField(), Qt::Key_Return);
    QTRY_COMPARE(m_window->deckName(), QStringLiteral("games"));
    QVERIFY(QFile::exists(deckFile("games")));
}

void tst_DeckWindow::bringsTheLastDeckBack()
{
    reopen();
    m_window->saveDeckAs(QStringLiteral("games"));
    m_window->model()->setGrid({3, 2});
    m_window->close();
    m_settings.deckName = DeckShelf(m_settings.profileFile).last();
    QCOMPARE(m_settings.deckName, QStringLiteral("games"));
    reopen();
    QCOMPARE(m_window->model()->grid(), QSize(3, 2));
    m_window->openDeck(QStringLiteral("default"));
    QCOMPARE(m_window->model()->grid(), QSize(8, 4));
    m_window->close();
    QCOMPARE(DeckShelf(m_settings.profileFile).last(), QStringLiteral("default"));

    // A name that is new begins with the keys that it is given.
    m_settings.deckName = QStringLiteral("empty");
    m_settings.freshDeck = StoredProfile();
    reopen();
    QVERIFY(m_window->model()->entries().isEmpty());
    QCOMPARE(deckNames().constLast(), QStringLiteral("empty*"));
    m_settings.deckName = QStringLiteral("GAMES");
    reopen();
    QCOMPARE(m_window->deckName(), QStringLiteral("games"));
    m_settings.deckName.clear();
    m_settings.freshDeck.reset();
}

void tst_DeckWindow::opensADeckWhileThePluginRuns()
{
    open();
    m_window->saveDeckAs(QStringLiteral("one"));
    m_window->model()->clear();
    m_window->model()->put({0, 0}, keyuuid::volume);
    QTRY_VERIFY(received().contains(keyuuid::volume.toUtf8()));
    const qint64 pid = m_window->runner()->pluginPid();
    m_window->openDeck(QStringLiteral("default"));
    QTRY_VERIFY(!m_window->grid()->cell({0, 0})->face().picture.isNull());
    QCOMPARE(m_window->model()->at({0, 0})->action, keyuuid::cpu);
    QCOMPARE(m_window->runner()->pluginPid(), pid);

    // A deck has its own language and recording.
    QSignalSpy linked(m_window->runner(), &DeckRunner::linked);
    QComboBox *language = m_window->pluginBar()->languageField();
    language->setCurrentIndex(1);
    Q_EMIT language->activated(1);
    QTRY_COMPARE(linked.count(), 1);
    m_window->openDeck(QStringLiteral("one"));
    QTRY_COMPARE(linked.count(), 2);
    QCOMPARE(m_window->runner()->launch().language, QStringLiteral("en"));
    QCOMPARE(m_window->model()->entries().size(), 1);
}

void tst_DeckWindow::worksOnACopyOfADeckThatIsInUse()
{
    reopen();
    m_window->saveDeckAs(QStringLiteral("shared"));
    // The default deck is free again.
    DeckWindow second(m_settings);
    QCOMPARE(second.messages()->message(), QString());
    second.openDeck(QStringLiteral("shared"));
    QVERIFY2(second.messages()->message().contains(QLatin1String("works on a copy")),
             qPrintable(second.messages()->message()));
    const QByteArray before = content(deckFile("shared"));
    second.model()->clear();
    second.saveDeckAs(QStringLiteral("mine"));
    QCOMPARE(second.deckName(), QStringLiteral("mine"));
    QCOMPARE(content(deckFile("shared")), before);
    QVERIFY(content(deckFile("mine")).contains("\"keys\": [\n    ]"));
    second.openDeck(QStringLiteral("default"));
    QCOMPARE(second.messages()->message(), QString());
}

void tst_DeckWindow::tellsOfADeckThatIsGone()
{
    reopen();
    m_window->saveDeckAs(QStringLiteral("gone"));
    m_window->openDeck(QStringLiteral("default"));
    QAction *action = m_window->deckMenu()->deckAction(QStringLiteral("gone"));
    QVERIFY(QFile::remove(deckFile("gone")));
    action->trigger();
    QCOMPARE(m_window->deckName(), QStringLiteral("default"));
    QVERIFY(m_window->messages()->message().contains(QLatin1String("no deck \"gone\"")));
    QCOMPARE(deckNames(), QStringList{QStringLiteral("default*")});
}

void tst_DeckWindow::keepsADeckThatCannotBeSaved()
{
    reopen();
    m_window->saveDeckAs(QStringLiteral("first"));
    m_window->saveDeckAs(QStringLiteral("second"));
    // A folder cannot be replaced by a file.
    QVERIFY(QFile::remove(deckFile("second")));
    QVERIFY(QDir().mkpath(deckFile("second") + QStringLiteral("/x")));
    press(Qt::Key_Delete);
    m_window->openDeck(QStringLiteral("first"));
    QCOMPARE(m_window->deckName(), QStringLiteral("second"));
    QVERIFY2(m_window->messages()->message().contains(QLatin1String("cannot be saved")),
             qPrintable(m_window->messages()->message()));
    m_window->saveDeckAs(QStringLiteral("third"));
    QCOMPARE(m_window->deckName(), QStringLiteral("third"));
}

void tst_DeckWindow::writesNothingForAScreenshot()
{
    reopen();
    m_window->saveDeckAs(QStringLiteral("games"));
    m_window->close();
    m_window.reset();
    const auto files = [this] {
        QMap<QString, QByteArray> all;
        QDirIterator entries(m_folder->path(), QDir::Files | QDir::Hidden,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString name = entries.next();
            if (!name.contains(QLatin1String("/work/")))
                all.insert(name, content(name));
        }
        return all;
    };
    const QMap<QString, QByteArray> before = files();
    qputenv("SCRIPT", "panel");
    m_settings.keepsProfile = false;
    for (const char *name : {"games", "default", "new"}) {
        m_settings.deckName = QLatin1String(name);
        reopen();
        m_window->takeScreenshot(m_folder->filePath(QStringLiteral("work/window.png")),
                                 std::chrono::milliseconds(0));
        m_window->start();
        m_window->model()->clear();
        QTRY_VERIFY(!m_window->isVisible());
        QCOMPARE(m_window->failure(), QString());
    }
    m_window.reset();
    QCOMPARE(files(), before);
    m_settings.keepsProfile = true;
    m_settings.deckName.clear();
}

QTEST_MAIN(tst_DeckWindow)
#include "tst_DeckWindow.moc"
