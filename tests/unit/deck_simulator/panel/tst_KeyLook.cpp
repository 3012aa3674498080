#include "deck_simulator/panel/KeyLook.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

using namespace deck;

class tst_KeyLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheLook();
    void keepsWhatDependsOnTheReading();
    void keepsTheShapeOfAnotherPlace();
    void takesOnlyStylesOfTheKind_data();
    void takesOnlyStylesOfTheKind();
};

namespace {

DeckEntry entryOf(const QString &action, const DeckPlace &place = {})
{
    return {QStringLiteral("context"), action, place, {}};
}

} // namespace

void tst_KeyLook::takesTheLook()
{
    DeckEntry model = entryOf(keyuuid::cpu);
    EntrySettings &look = model.settings;
    look.text = QStringLiteral("Processor");
    look.fontFamily = QStringLiteral("Other|Light");
    look.fontSize = 44;
    look.fillsKey = true;
    look.color = QStringLiteral("red");
    look.opacity = 0.5;
    look.display.style = QStringLiteral("ring");
    look.display.shape = QStringLiteral("wide");
    look.display.size = 200;
    look.display.normalColor = QStringLiteral("#111111");
    look.display.warningColor = QStringLiteral("#222222");
    look.display.criticalColor = QStringLiteral("#333333");
    look.display.ground = QStringLiteral("#444444");
    DeckEntry key = entryOf(keyuuid::memory);
    key.settings.text = QStringLiteral("Mem");
    EntrySettings expected = look;
    expected.text = QStringLiteral("Mem");
    QVERIFY(withLook(key, model) == expected);
    QVERIFY(withLook(model, model) == model.settings);
}

void tst_KeyLook::keepsWhatDependsOnTheReading()
{
    DeckEntry model = entryOf(keyuuid::cpuClock);
    DisplaySettings &display = model.settings.display;
    display.minimum = 400;
    display.maximum = 5000;
    display.warning = 4000;
    display.critical = 4500;
    display.worse = QStringLiteral("below");
    display.span = 300;
    display.average = 7;
    display.decimals = 2;
    display.rates = QStringLiteral("bits");
    display.press = QStringLiteral("extremes");
    model.settings.titleLines = QStringLiteral("双行显示");
    model.settings.selectValue = QStringLiteral("Core 1");
    const DeckEntry key = entryOf(keyuuid::cpu);
    QVERIFY(withLook(key, model) == key.settings);
}

void tst_KeyLook::keepsTheShapeOfAnotherPlace()
{
    DeckEntry model = entryOf(keyuuid::cpu, {0, 0, true});
    model.settings.display.style = QStringLiteral("bar");
    model.settings.display.shape = QStringLiteral("wide");
    QCOMPARE(withLook(entryOf(keyuuid::memory, {0, 0}), model).display.shape,
             QStringLiteral("square"));
    QCOMPARE(withLook(entryOf(keyuuid::memory, {1, 0, true}), model).display.shape,
             QStringLiteral("wide"));
}

void tst_KeyLook::takesOnlyStylesOfTheKind_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("look");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const QString &action, const char *before,
                        const char *look, const char *after) {
        QTest::newRow(name) << action << QString::fromLatin1(before) << QString::fromLatin1(look)
                            << QString::fromLatin1(after);
    };
    row("ring", keyuuid::memory, "bar", "ring", "ring");
    row("text", keyuuid::memory, "bar", "text", "text");
    row("a pair of one", keyuuid::memory, "bar", "pair", "bar");
    row("both rates", keyuuid::netWork, "text", "pair", "pair");
    row("both rates in a ring", keyuuid::netWork, "text", "ring", "ring"); // shown as a pair
    row("no gauges", keyuuid::cpuModel, "text", "ring", "text");
}

void tst_KeyLook::takesOnlyStylesOfTheKind()
{
    QFETCH(const QString, action);
    QFETCH(const QString, before);
    QFETCH(const QString, look);
    DeckEntry key = entryOf(action);
    key.settings.display.style = before;
    DeckEntry model = entryOf(keyuuid::cpu);
    model.settings.display.style = look;
    QTEST(withLook(key, model).display.style, "after");
}

QTEST_GUILESS_MAIN(tst_KeyLook)
#include "tst_KeyLook.moc"
