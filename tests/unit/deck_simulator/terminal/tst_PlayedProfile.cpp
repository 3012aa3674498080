#include "deck_simulator/terminal/PlayedProfile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace deck;

class tst_PlayedProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void hasTheKeysRowByRow();
    void tellsKeysAndDialsTheirScreens();
    void hasTheLaunchChoices();
    void reportsWhatCannotBePlayed_data();
    void reportsWhatCannotBePlayed();

private:
    [[nodiscard]] QString file() const { return m_folder->filePath(QStringLiteral("deck.json")); }
    void write(const QByteArray &text) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

const QByteArray severalKeys = R"({
    "grid": {"columns": 2, "rows": 2, "dials": 1},
    "keys": [
        {"action": "on.dial", "dial": 0},
        {"action": "fourth", "column": 1, "row": 1},
        {"action": "outside", "column": 2, "row": 0},
        {"action": "no.such.dial", "dial": 1},
        {"action": "second", "column": 1, "row": 0},
        {"action": "first", "column": 0, "row": 0, "settings": {"titleParameters": {"text": "Title"}}}
    ],
    "plugin": {"language": "zh_CN", "quoteStripped": true, "recording": "r.json"}
})";

QSize geometryOf(const DeckKey &key)
{
    const QJsonObject geometry = key.settings().value(QLatin1String("ActionGeometry")).toObject();
    return {geometry.value(QLatin1String("width")).toInt(),
            geometry.value(QLatin1String("height")).toInt()};
}

} // namespace

void tst_PlayedProfile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_PlayedProfile::write(const QByteArray &text) const
{
    QFile profile(file());
    QVERIFY(profile.open(QIODevice::WriteOnly));
    QCOMPARE(profile.write(text), text.size());
}

void tst_PlayedProfile::hasTheKeysRowByRow()
{
    write(severalKeys);
    const PlayedProfile profile = readPlayedProfile(file());
    QCOMPARE(profile.error, QString());
    QCOMPARE(profile.deck.grid, QSize(2, 2));
    QStringList actions;
    QSet<QString> contexts;
    for (const DeckKey &key : profile.deck.keys) {
        actions.append(key.action());
        contexts.insert(key.context());
    }
    QCOMPARE(actions, QStringList({QStringLiteral("first"), QStringLiteral("second"),
                                   QStringLiteral("fourth"), QStringLiteral("on.dial")}));
    QCOMPARE(contexts.size(), 4);
    QVERIFY(profile.deck.keys.at(2).place() == DeckPlace({1, 1, false}));
    const QJsonObject settings = profile.deck.keys.first().settings();
    QCOMPARE(
        settings.value(QLatin1String("titleParameters")).toObject().value(QLatin1String("text")),
        QJsonValue(QStringLiteral("Title")));
}

void tst_PlayedProfile::tellsKeysAndDialsTheirScreens()
{
    write(severalKeys);
    const PlayedProfile profile = readPlayedProfile(file());
    QCOMPARE(geometryOf(profile.deck.keys.first()), QSize(144, 144));
    QCOMPARE(geometryOf(profile.deck.keys.last()), QSize(288, 144));
}

void tst_PlayedProfile::hasTheLaunchChoices()
{
    write(severalKeys);
    const PlayedProfile profile = readPlayedProfile(file());
    QVERIFY(profile.launch ==
            LaunchChoices({QStringLiteral("zh_CN"), true, QStringLiteral("r.json")}));
}

void tst_PlayedProfile::reportsWhatCannotBePlayed_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QByteArray() << QStringLiteral("is broken: ");
    QTest::newRow("no JSON") << QByteArray("deck") << QStringLiteral("is broken: ");
    QTest::newRow("a key without an action") << QByteArray(R"({"keys": [{"column": 0, "row": 0}]})")
                                             << QStringLiteral("key 1 has no action or no place");
    QTest::newRow("no file") << QByteArray("missing") << QStringLiteral("There is no profile");
}

void tst_PlayedProfile::reportsWhatCannotBePlayed()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, reason);
    const bool missing = text == "missing";
    if (!missing)
        write(text);
    const QString error = readPlayedProfile(file()).error;
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY2(error.contains(QLatin1String("deck.json")), qPrintable(error));
    // Reading it leaves the folder as it is.
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files),
             missing ? QStringList() : QStringList(QStringLiteral("deck.json")));
}

QTEST_GUILESS_MAIN(tst_PlayedProfile)
#include "tst_PlayedProfile.moc"
