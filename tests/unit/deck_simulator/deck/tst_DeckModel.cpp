#include "deck_simulator/deck/DeckModel.h"
#include "tests/support/KeyUuids.h"

#include <QSet>
#include <QSignalSpy>
#include <QtTest>

using namespace deck;

namespace {

QString cpuAction()
{
    return keyuuid::cpu;
}

QString memoryAction()
{
    return keyuuid::memory;
}

} // namespace

class tst_DeckModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsEmpty();
    void putsOnEmptyPlacesOnly();
    void givesANewKeyItsTitle();
    void replaces();
    void finds();
    void moves();
    void exchanges();
    void takesPartsOfItsOwnEntries();
    void removes();
    void keepsKeysOutsideOfASmallerGrid();
    void boundsTheDeck();
    void tellsSettingsApart();
    void restores();
};

void tst_DeckModel::beginsEmpty()
{
    const DeckModel model;
    QCOMPARE(model.grid(), QSize(8, 4));
    QVERIFY(model.entries().isEmpty());
    QVERIFY(model.firstEmptyKey() == (DeckPlace{0, 0}));
    QVERIFY(model.contains({7, 3}));
    QVERIFY(!model.contains({8, 3}));
    QVERIFY(!model.contains({-1, 0}));
    QVERIFY(model.contains({3, 0, true}));
    QVERIFY(!model.contains({4, 0, true}));
    QVERIFY(!model.contains({0, 1, true}));
}

void tst_DeckModel::putsOnEmptyPlacesOnly()
{
    DeckModel model;
    QSignalSpy layout(&model, &DeckModel::layoutChanged);
    QSignalSpy changes(&model, &DeckModel::changed);
    QVERIFY(model.put({1, 2}, cpuAction()));
    QCOMPARE(layout.count(), 1);
    QCOMPARE(changes.count(), 1);
    QVERIFY(!model.put({1, 2}, memoryAction()));
    QVERIFY(!model.put({8, 0}, memoryAction()));
    QVERIFY(!model.put({0, 0}, QString()));
    QCOMPARE(layout.count(), 1);
    QCOMPARE(model.at({1, 2})->action, cpuAction());

    // A dial is a different place from the key with the same numbers.
    QVERIFY(model.put({1, 0}, cpuAction()));
    QVERIFY(model.put({1, 0, true}, memoryAction()));
    QCOMPARE(model.at({1, 0, true})->action, memoryAction());
}

void tst_DeckModel::givesANewKeyItsTitle()
{
    DeckModel model;
    model.put({0, 0}, memoryAction());
    QCOMPARE(model.at({0, 0})->settings.text, QStringLiteral("Mem"));
    QVERIFY(model.at({0, 0})->settings.showTitle);
    model.put({1, 0}, keyuuid::cpuModel);
    QVERIFY(!model.at({1, 0})->settings.showTitle);

    QSignalSpy languages(&model, &DeckModel::languageChanged);
    model.setLanguage(QStringLiteral("zh_CN"));
    model.setLanguage(QStringLiteral("zh_CN"));
    QCOMPARE(languages.count(), 1);
    model.put({2, 0}, memoryAction());
    QCOMPARE(model.at({2, 0})->settings.text, QStringLiteral("内存"));
    QCOMPARE(model.at({0, 0})->settings.text, QStringLiteral("Mem")); // stays
}

void tst_DeckModel::replaces()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    model.put({1, 0}, cpuAction());
    const QString before = model.at({0, 0})->context;
    QSignalSpy layout(&model, &DeckModel::layoutChanged);
    QVERIFY(model.replace({0, 0}, memoryAction()));
    QCOMPARE(layout.count(), 1);
    QCOMPARE(model.entries().size(), 2);
    QVERIFY(model.at({0, 0})->context != before);
    QCOMPARE(model.at({0, 0})->settings.text, QStringLiteral("Mem"));
    QVERIFY(model.replace({5, 3}, memoryAction())); // nothing was there
    QVERIFY(!model.replace({8, 0}, memoryAction()));
    QVERIFY(!model.replace({0, 0}, QString()));
    QCOMPARE(layout.count(), 2);
}

void tst_DeckModel::finds()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    const QString context = model.at({0, 0})->context;
    QVERIFY(!context.isEmpty());
    QCOMPARE(model.find(context), model.at({0, 0}));
    QCOMPARE(model.find(QStringLiteral("nobody")), nullptr);
    QCOMPARE(model.at({1, 0}), nullptr);
    model.put({1, 0}, cpuAction());
    QVERIFY(model.at({1, 0})->context != model.at({0, 0})->context);
}

void tst_DeckModel::moves()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    const QString context = model.at({0, 0})->context;
    QVERIFY(model.move({0, 0}, {5, 3}));
    QCOMPARE(model.at({0, 0}), nullptr);
    QCOMPARE(model.at({5, 3})->context, context);
    QVERIFY(model.move({5, 3}, {0, 0, true}));
    QCOMPARE(model.at({0, 0, true})->context, context);

    QSignalSpy changes(&model, &DeckModel::changed);
    QVERIFY(!model.move({5, 3}, {0, 0}));                            // nothing there
    QVERIFY(!model.move({0, 0, true}, {0, 0, true}));                // already there
    QVERIFY(!model.move({0, 0, true}, {DeckModel::mostColumns, 0})); // no such key
    QCOMPARE(changes.count(), 0);
}

void tst_DeckModel::exchanges()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    model.put({1, 1}, memoryAction());
    QVERIFY(model.move({0, 0}, {1, 1}));
    QCOMPARE(model.at({0, 0})->action, memoryAction());
    QCOMPARE(model.at({1, 1})->action, cpuAction());
}

// Callers hand on what at() has given them.
void tst_DeckModel::takesPartsOfItsOwnEntries()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    model.put({1, 0}, memoryAction());
    DeckState seen = model.state();
    connect(&model, &DeckModel::changed, &model, [&] { seen = model.state(); });

    EntrySettings settings;
    settings.fontSize = 31;
    QVERIFY(model.changeSettings(model.at({0, 0})->context, settings));
    settings.fontSize = 32;
    QVERIFY(model.adoptSettings(model.at({0, 0})->context, settings));
    QVERIFY(model.move(model.at({0, 0})->place, model.at({1, 0})->place));
    QCOMPARE(model.at({0, 0})->action, memoryAction());
    QCOMPARE(model.at({1, 0})->action, cpuAction());

    seen = {};
    const DeckEntry &replaced = *model.at({0, 0});
    QVERIFY(model.replace(replaced.place, replaced.action, replaced.settings));
    QCOMPARE(model.at({0, 0})->action, memoryAction());
    QCOMPARE(model.at({1, 0})->settings.fontSize, 32);
}

void tst_DeckModel::removes()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    QVERIFY(model.remove({0, 0}));
    QVERIFY(!model.remove({0, 0}));
    QVERIFY(model.entries().isEmpty());
    model.put({0, 0}, cpuAction());
    model.put({1, 0}, cpuAction());
    QSignalSpy changes(&model, &DeckModel::changed);
    model.clear();
    model.clear();
    QCOMPARE(changes.count(), 1);
    QVERIFY(model.entries().isEmpty());
}

void tst_DeckModel::keepsKeysOutsideOfASmallerGrid()
{
    DeckModel model;
    model.put({7, 3}, cpuAction());
    model.setGrid({3, 2});
    QVERIFY(!model.contains({7, 3}));
    QCOMPARE(model.entries().size(), 1);
    model.setGrid({8, 4});
    QCOMPARE(model.at({7, 3})->action, cpuAction());
}

void tst_DeckModel::boundsTheDeck()
{
    DeckModel model;
    QSignalSpy changes(&model, &DeckModel::changed);
    model.setGrid({0, 1000});
    QCOMPARE(model.grid(), QSize(1, DeckModel::mostRows));
    model.setGrid({0, 1000});
    QCOMPARE(changes.count(), 1);
    model.setDials(-1);
    QCOMPARE(model.dials(), 0);
    model.setDials(99);
    QCOMPARE(model.dials(), DeckModel::mostDials);
    for (int row = 0; row < DeckModel::mostRows; ++row)
        model.put({0, row}, cpuAction());
    QCOMPARE(model.firstEmptyKey().column, -1);
}

void tst_DeckModel::tellsSettingsApart()
{
    DeckModel model;
    model.put({0, 0}, cpuAction());
    const QString context = model.at({0, 0})->context;
    QSignalSpy changed(&model, &DeckModel::settingsChanged);
    QSignalSpy adopted(&model, &DeckModel::settingsAdopted);
    QSignalSpy any(&model, &DeckModel::changed);
    EntrySettings settings = model.at({0, 0})->settings;
    QVERIFY(model.changeSettings(context, settings));
    QCOMPARE(any.count(), 0); // nothing is new
    settings.fontSize = 40;
    QVERIFY(model.changeSettings(context, settings));
    QCOMPARE(changed.count(), 1);
    settings.fontSize = 50;
    QVERIFY(model.adoptSettings(context, settings));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(adopted.count(), 1);
    QCOMPARE(any.count(), 2);
    QCOMPARE(model.at({0, 0})->settings.fontSize, 50);
    QVERIFY(!model.changeSettings(QStringLiteral("nobody"), settings));
}

void tst_DeckModel::restores()
{
    DeckModel model;
    model.put({3, 3}, memoryAction());
    DeckEntry first;
    first.context = QStringLiteral("one");
    first.action = cpuAction();
    first.place = {6, 5};
    DeckEntry twice = first;
    twice.context = QStringLiteral("two");
    DeckEntry nowhere = first;
    nowhere.place = {-3, 400};
    DeckEntry nothing = first;
    nothing.place = {0, 0};
    nothing.action.clear();
    QSignalSpy layout(&model, &DeckModel::layoutChanged);
    model.restore({5, 5}, 2, {first, twice, nowhere, nothing});
    QCOMPARE(layout.count(), 1);
    QCOMPARE(model.grid(), QSize(5, 5));
    QCOMPARE(model.dials(), 2);
    QCOMPARE(model.entries().size(), 1);
    QCOMPARE(model.at({6, 5})->context, QStringLiteral("one"));
}

QTEST_GUILESS_MAIN(tst_DeckModel)
#include "tst_DeckModel.moc"
