#include "deck_simulator/deck/DeckProfile.h"
#include "tests/support/KeyUuids.h"

#include <QJsonDocument>
#include <QMap>
#include <QSet>
#include <QtTest>

using namespace deck;

class tst_DeckProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesEveryKeyCompleteSettings();
    void showsEveryKind();
    void showsSettingsAndFonts();
    void hasBothNetworkLayouts();
    void showsEveryStyleBesideText();
    void paintsGaugesForTheKeysSize();
    void fillsTheGridByColumns_data();
    void fillsTheGridByColumns();
};

namespace {

QJsonObject titleParameters(const DeckKey &key)
{
    return key.settings().value(QLatin1String("titleParameters")).toObject();
}

QJsonObject displayOf(const DeckKey &key)
{
    return key.settings().value(QLatin1String("display")).toObject();
}

} // namespace

void tst_DeckProfile::givesEveryKeyCompleteSettings()
{
    const DeckProfile deck = defaultDeck(5);
    QCOMPARE(deck.keys.size(), 14);
    QSet<QString> contexts;
    for (const DeckKey &key : deck.keys) {
        contexts.insert(key.context());
        QVERIFY(key.action().startsWith(keyuuid::prefix + QStringLiteral("system.")));
        const QJsonObject parameters = titleParameters(key);
        QCOMPARE(parameters.size(), 12);
        QVERIFY(!parameters.value(QLatin1String("text")).toString().isEmpty());
        QCOMPARE(parameters.value(QLatin1String("showTitle")), QJsonValue(true));
        QCOMPARE(parameters.value(QLatin1String("fontFamily")).toString(),
                 QStringLiteral("Roboto|Bold"));
        QVERIFY(parameters.value(QLatin1String("fontSize")).toInt() > 0);
        QCOMPARE(parameters.value(QLatin1String("color")).toString(), QStringLiteral("#ffffff"));
        QCOMPARE(parameters.value(QLatin1String("opacity")).toDouble(-1), 0.0);
        QCOMPARE(parameters.value(QLatin1String("temperatureType")).toString(),
                 QStringLiteral("摄氏度"));
        const QJsonObject geometry =
            key.settings().value(QLatin1String("ActionGeometry")).toObject();
        QCOMPARE(geometry.value(QLatin1String("width")).toInt(), 144);
        QCOMPARE(geometry.value(QLatin1String("height")).toInt(), 144);
    }
    QCOMPARE(contexts.size(), deck.keys.size());
}

void tst_DeckProfile::showsEveryKind()
{
    const DeckProfile deck = kindsDeck(8);
    QCOMPARE(deck.grid, QSize(8, 4));
    QSet<QString> actions;
    QSet<QString> contexts;
    for (const DeckKey &key : deck.keys) {
        actions.insert(key.action());
        contexts.insert(key.context());
        QCOMPARE(titleParameters(key).size(), 12);
    }
    QCOMPARE(actions.size(), 32);
    QCOMPARE(contexts.size(), 32);
}

void tst_DeckProfile::showsSettingsAndFonts()
{
    const QStringList specs{QStringLiteral("Foo|Bold"), QStringLiteral("Foo|Italic")};
    const DeckProfile deck = settingsDeck(4, specs);
    const auto others = deck.keys.size() - specs.size();
    QCOMPARE(deck.grid, QSize(4, static_cast<int>(deck.keys.size() + 3) / 4));
    QSet<QString> contexts;
    QSet<QString> distinct;
    for (const DeckKey &key : deck.keys) {
        QCOMPARE(titleParameters(key).size(), 12);
        contexts.insert(key.context());
        distinct.insert(QString::fromUtf8(QJsonDocument(key.settings()).toJson()));
    }
    QCOMPARE(contexts.size(), deck.keys.size());
    QCOMPARE(distinct.size(), deck.keys.size());
    for (int i = 0; i < specs.size(); ++i) {
        QCOMPARE(deck.keys.at(others + i).name(), specs.at(i));
        QCOMPARE(
            titleParameters(deck.keys.at(others + i)).value(QLatin1String("fontFamily")).toString(),
            specs.at(i));
    }
}

void tst_DeckProfile::hasBothNetworkLayouts()
{
    QStringList layouts;
    for (const DeckKey &key : defaultDeck(5).keys) {
        if (key.action() == keyuuid::netWork && displayOf(key).isEmpty())
            layouts.append(titleParameters(key).value(QLatin1String("titleLines")).toString());
    }
    const QStringList expected{QStringLiteral("单行显示"), QStringLiteral("双行显示")};
    QCOMPARE(layouts, expected);
}

void tst_DeckProfile::showsEveryStyleBesideText()
{
    QMap<QString, int> styles;
    int wide = 0;
    int thresholds = 0;
    for (const DeckKey &key : defaultDeck(5).keys) {
        const QJsonObject display = displayOf(key);
        ++styles[display.value(QLatin1String("style")).toString(QStringLiteral("text"))];
        wide += display.value(QLatin1String("shape")) == QStringLiteral("wide") ? 1 : 0;
        thresholds += display.contains(QLatin1String("warning")) ? 1 : 0;
        QCOMPARE(key.settings().contains(QLatin1String("display")), !display.isEmpty());
    }
    for (const char *style : {"text", "bar", "ring", "graph", "pair"})
        QVERIFY2(styles.value(QString::fromLatin1(style)) > 0, style);
    QVERIFY(styles.value(QStringLiteral("text")) >= 3);
    QVERIFY(wide > 0);
    QVERIFY(thresholds >= 2); // a gauge and a text
}

void tst_DeckProfile::paintsGaugesForTheKeysSize()
{
    const auto sizeOf = [](int keyPixels) {
        return displayOf(defaultDeck(5, keyPixels).keys.constFirst()).value(QLatin1String("size"));
    };
    QCOMPARE(sizeOf(144), QJsonValue(QJsonValue::Undefined));
    QCOMPARE(sizeOf(96), QJsonValue(96));
    QCOMPARE(sizeOf(32), QJsonValue(72));
    QCOMPARE(sizeOf(512), QJsonValue(288));
    for (const DeckKey &key : defaultDeck(5, 72).keys) {
        const QJsonObject display = displayOf(key);
        QCOMPARE(display.contains(QLatin1String("size")), display.contains(QLatin1String("style")));
    }
}

void tst_DeckProfile::fillsTheGridByColumns_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::newRow("usual") << 5 << 3;
    QTest::newRow("one column") << 1 << 14;
    QTest::newRow("one row") << 16 << 1;
}

void tst_DeckProfile::fillsTheGridByColumns()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    QCOMPARE(defaultDeck(columns).grid, QSize(columns, rows));
}

QTEST_GUILESS_MAIN(tst_DeckProfile)
#include "tst_DeckProfile.moc"
