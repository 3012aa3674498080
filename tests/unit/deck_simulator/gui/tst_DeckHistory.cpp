#include "deck_simulator/gui/DeckHistory.h"
#include "tests/support/KeyUuids.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>

using namespace deck;

class tst_DeckHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void takesEveryChangeBack_data();
    void takesEveryChangeBack();
    void namesItsSteps();
    void mergesEditsOfAField();
    void keepsOtherEditsApart();
    void mergesSizes();
    void forgetsWhatCameToNothing();
    void leavesOtherKeysAlone();
    void groupsChanges();
    void tellsWhichSettingsChange();
    void beginsAnewWithADeck();

private:
    void setText(const char *text, const DeckPlace &place = {0, 0});
    [[nodiscard]] QString text(const DeckPlace &place = {0, 0}) const
    {
        return m_model->at(place)->settings.text;
    }
    [[nodiscard]] QUndoStack &stack() { return *m_history->stack(); }

    std::unique_ptr<DeckModel> m_model;
    std::unique_ptr<DeckHistory> m_history;
};

using Deed = std::function<void(DeckModel &)>;
Q_DECLARE_METATYPE(Deed)

namespace {

// Whatever the order of the entries.
QString description(const DeckModel &model)
{
    QStringList keys;
    for (const DeckEntry &entry : model.entries()) {
        keys.append(QStringLiteral("%1 %2 %3 %4 %5 %6")
                        .arg(entry.context, entry.action)
                        .arg(entry.place.column)
                        .arg(entry.place.row)
                        .arg(entry.place.dial)
                        .arg(entry.settings.text));
    }
    keys.sort();
    return QStringLiteral("%1 %2 %3 ")
               .arg(model.grid().width())
               .arg(model.grid().height())
               .arg(model.dials()) +
           keys.join(QLatin1Char(';'));
}

} // namespace

void tst_DeckHistory::init()
{
    m_model = std::make_unique<DeckModel>();
    m_model->put({0, 0}, keyuuid::cpu);
    m_model->put({1, 0}, keyuuid::memory);
    m_history = std::make_unique<DeckHistory>(m_model.get());
}

void tst_DeckHistory::cleanup()
{
    m_history.reset();
    m_model.reset();
}

void tst_DeckHistory::setText(const char *text, const DeckPlace &place)
{
    EntrySettings settings = m_model->at(place)->settings;
    settings.text = QString::fromLatin1(text);
    m_model->changeSettings(m_model->at(place)->context, settings);
}

void tst_DeckHistory::takesEveryChangeBack_data()
{
    QTest::addColumn<Deed>("deed");
    const auto row = [](const char *name, const Deed &deed) { QTest::newRow(name) << deed; };
    row("add", [](DeckModel &model) { model.put({5, 2}, keyuuid::volume); });
    row("add to a dial", [](DeckModel &model) { model.put({1, 0, true}, keyuuid::volume); });
    row("remove", [](DeckModel &model) { model.remove({0, 0}); });
    row("move", [](DeckModel &model) { model.move({0, 0}, {3, 3}); });
    row("exchange", [](DeckModel &model) { model.move({0, 0}, {1, 0}); });
    row("replace", [](DeckModel &model) { model.replace({0, 0}, keyuuid::volume); });
    row("settings", [](DeckModel &model) {
        EntrySettings settings;
        settings.text = QStringLiteral("other");
        model.changeSettings(model.at({1, 0})->context, settings);
    });
    row("columns and rows", [](DeckModel &model) { model.setGrid({3, 2}); });
    row("dials", [](DeckModel &model) { model.setDials(0); });
    row("clear", [](DeckModel &model) { model.clear(); });
}

void tst_DeckHistory::takesEveryChangeBack()
{
    QFETCH(const Deed, deed);
    const QString before = description(*m_model);
    deed(*m_model);
    const QString after = description(*m_model);
    QVERIFY(before != after);
    QCOMPARE(stack().count(), 1);
    QSignalSpy changes(m_model.get(), &DeckModel::changed);
    for (int time = 0; time < 2; ++time) {
        stack().undo();
        QCOMPARE(description(*m_model), before);
        stack().redo();
        QCOMPARE(description(*m_model), after);
    }
    QCOMPARE(changes.count(), 4); // saved each time
    QCOMPARE(stack().count(), 1);
}

void tst_DeckHistory::namesItsSteps()
{
    m_model->put({5, 2}, keyuuid::volume);
    QCOMPARE(stack().undoText(), QStringLiteral("adding a key"));
    m_model->replace({5, 2}, keyuuid::cpu);
    QCOMPARE(stack().undoText(), QStringLiteral("replacing a key"));
    m_model->move({5, 2}, {0, 0});
    QCOMPARE(stack().undoText(), QStringLiteral("moving a key"));
    m_model->remove({0, 0});
    QCOMPARE(stack().undoText(), QStringLiteral("removing a key"));
    setText("x", {5, 2});
    QCOMPARE(stack().undoText(), QStringLiteral("settings"));
    m_model->setDials(1);
    QCOMPARE(stack().undoText(), QStringLiteral("size of the deck"));
}

void tst_DeckHistory::mergesEditsOfAField()
{
    const QString before = text();
    for (const char *typed : {"P", "Pr", "Pro"})
        setText(typed);
    QCOMPARE(stack().count(), 1);
    stack().undo();
    QCOMPARE(text(), before);
    stack().redo();
    QCOMPARE(text(), QStringLiteral("Pro"));
    setText("after a redo");
    QCOMPARE(stack().count(), 2);
}

void tst_DeckHistory::keepsOtherEditsApart()
{
    setText("one");
    setText("two", {1, 0});
    setText("three");
    QCOMPARE(stack().count(), 3);
    EntrySettings settings = m_model->at({0, 0})->settings;
    settings.color = QStringLiteral("red");
    m_model->changeSettings(m_model->at({0, 0})->context, settings);
    settings.display.ground = QStringLiteral("blue");
    m_model->changeSettings(m_model->at({0, 0})->context, settings);
    settings.fillsKey = !settings.fillsKey;
    m_model->changeSettings(m_model->at({0, 0})->context, settings);
    QCOMPARE(stack().count(), 6);
    m_history->endStep();
    settings.fillsKey = !settings.fillsKey;
    m_model->changeSettings(m_model->at({0, 0})->context, settings);
    QCOMPARE(stack().count(), 7);
}

void tst_DeckHistory::mergesSizes()
{
    m_model->setGrid({7, 4});
    m_model->setGrid({6, 4});
    QCOMPARE(stack().count(), 1);
    m_model->setGrid({6, 3});
    m_model->setDials(3);
    m_model->setDials(2);
    QCOMPARE(stack().count(), 3);
    while (stack().canUndo())
        stack().undo();
    QCOMPARE(m_model->grid(), QSize(8, 4));
    QCOMPARE(m_model->dials(), 4);
}

void tst_DeckHistory::forgetsWhatCameToNothing()
{
    const QByteArray before = text().toLatin1();
    setText("other");
    setText(before.constData());
    QCOMPARE(stack().count(), 0);
    QVERIFY(!stack().canUndo());
}

// What the plugin makes of settings is no step, and no step takes it back.
void tst_DeckHistory::leavesOtherKeysAlone()
{
    EntrySettings settings = m_model->at({1, 0})->settings;
    m_model->remove({0, 0});
    settings.fontSize = 55;
    m_model->adoptSettings(m_model->at({1, 0})->context, settings);
    QCOMPARE(stack().count(), 1);
    stack().undo();
    QCOMPARE(m_model->at({1, 0})->settings.fontSize, 55);
    // Nor does a move.
    m_model->move({1, 0}, {4, 0});
    settings.fontSize = 66;
    m_model->adoptSettings(m_model->at({4, 0})->context, settings);
    stack().undo();
    QCOMPARE(m_model->at({1, 0})->settings.fontSize, 66);
}

void tst_DeckHistory::groupsChanges()
{
    const QString before = description(*m_model);
    m_history->beginGroup(QStringLiteral("both"));
    setText("one");
    setText("two", {1, 0});
    m_history->endGroup();
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), QStringLiteral("both"));
    stack().undo();
    QCOMPARE(description(*m_model), before);
    stack().redo();
    QCOMPARE(text({1, 0}), QStringLiteral("two"));
}

// A host tells the plugin of each key whose settings change, and of no other.
void tst_DeckHistory::tellsWhichSettingsChange()
{
    setText("one");
    QSignalSpy settings(m_model.get(), &DeckModel::settingsChanged);
    QSignalSpy layout(m_model.get(), &DeckModel::layoutChanged);
    stack().undo();
    QCOMPARE(settings.count(), 1);
    QCOMPARE(settings.at(0).at(0).toString(), m_model->at({0, 0})->context);
    QCOMPARE(layout.count(), 0);
    m_model->move({0, 0}, {3, 3});
    stack().undo();
    QCOMPARE(settings.count(), 1);
    QCOMPARE(layout.count(), 2);
}

void tst_DeckHistory::beginsAnewWithADeck()
{
    m_model->remove({0, 0});
    const QVector<DeckEntry> entries = m_model->entries();
    m_model->restore({5, 3}, 2, entries);
    QCOMPARE(stack().count(), 0);
    m_model->put({4, 2}, keyuuid::cpu);
    stack().undo();
    QCOMPARE(m_model->grid(), QSize(5, 3));
    QCOMPARE(m_model->entries().size(), 1);
}

QTEST_MAIN(tst_DeckHistory)
#include "tst_DeckHistory.moc"
