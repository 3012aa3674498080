#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/deck/DeckProfile.h"
#include "deck_simulator/deck/ProfileStore.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_ProfileStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void beginsWithKeysOfThePlugin();
    void comesBackAsItWasSaved();
    void keepsADeckWithoutKeys();
    void readsASingleKey();
    void makesItsFolder();
    void readsAProfileWithoutGauges();
    void keepsGauges();
    void writesOnlyChanges();
    void startsWithADeckThatCanBeRead();
    void setsABrokenFileAside_data();
    void setsABrokenFileAside();
    void keepsWhatIsGoodOfAFile();
    void losesNoFileThatWasSetAside();
    void savesNothingOverWhatItCannotSetAside();
    void tellsWhenItCannotSave();
    void worksOnACopyOfAnothersProfile();
    void onlyReadsWhereToldSo();
    void beginsWithAnotherDeck();

private:
    void write(const QByteArray &text);
    [[nodiscard]] QByteArray content(const char *suffix = "") const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_ProfileStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_file = m_folder->filePath(QStringLiteral("deck.json"));
}

void tst_ProfileStore::write(const QByteArray &text)
{
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

QByteArray tst_ProfileStore::content(const char *suffix) const
{
    QFile file(m_file + QLatin1String(suffix));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ProfileStore::beginsWithKeysOfThePlugin()
{
    ProfileStore store(m_file);
    const StoredProfile profile = store.load();
    QCOMPARE(store.message(), QString());
    QVERIFY(!profile.entries.isEmpty());
    for (const DeckEntry &entry : profile.entries)
        QVERIFY2(findAction(entry.action) != nullptr, qPrintable(entry.action));
    DeckModel model;
    model.restore(profile.grid, profile.dials, profile.entries);
    QCOMPARE(model.entries().size(), profile.entries.size());
}

void tst_ProfileStore::comesBackAsItWasSaved()
{
    auto store = std::make_unique<ProfileStore>(m_file);
    StoredProfile profile = store->load();
    profile.grid = {6, 2};
    profile.dials = 1;
    profile.entries[0].settings.text = QStringLiteral("温度");
    profile.entries[0].settings.fillsKey = true;
    DeckEntry dial = profile.entries.takeLast();
    dial.place = {0, 0, true};
    profile.entries.append(dial);
    profile.launch = {QStringLiteral("zh_CN"), true, QStringLiteral("/tmp/a recording.json")};
    profile.windowGeometry = QByteArray("\x00\xff geometry", 11);
    profile.windowState = "state";
    QVERIFY(store->save(profile));
    store.reset();

    ProfileStore again(m_file);
    const StoredProfile read = again.load();
    QCOMPARE(again.message(), QString());
    QCOMPARE(read.grid, profile.grid);
    QCOMPARE(read.dials, profile.dials);
    QVERIFY(read.launch == profile.launch);
    QCOMPARE(read.windowGeometry, profile.windowGeometry);
    QCOMPARE(read.windowState, profile.windowState);
    QCOMPARE(read.entries.size(), profile.entries.size());
    for (int index = 0; index < read.entries.size(); ++index) {
        QCOMPARE(read.entries.at(index).action, profile.entries.at(index).action);
        QVERIFY(read.entries.at(index).place == profile.entries.at(index).place);
        QVERIFY(read.entries.at(index).settings == profile.entries.at(index).settings);
        QVERIFY(!read.entries.at(index).context.isEmpty());
    }
}

void tst_ProfileStore::keepsADeckWithoutKeys()
{
    ProfileStore store(m_file);
    QVERIFY(store.save({}));
    QVERIFY(ProfileStore(m_file).load().entries.isEmpty());
}

void tst_ProfileStore::readsASingleKey()
{
    DeckEntry entry;
    entry.context = QStringLiteral("context");
    entry.action = QStringLiteral("com.example");
    entry.place = {2, 1};
    entry.settings.text = QStringLiteral("中");
    entry.settings.fillsKey = true;
    entry.settings.display.style = QStringLiteral("ring");
    const std::optional<DeckEntry> copy = readKey(keyText(entry));
    QVERIFY(copy.has_value());
    QCOMPARE(copy->action, entry.action);
    QVERIFY(copy->settings == entry.settings);
    QVERIFY(copy->context != entry.context);
    for (const char *text : {"", "{", "[]", "7", "{}", "{\"action\": 7}", "{\"action\": \"\"}"})
        QVERIFY2(!readKey(text).has_value(), text);
    QVERIFY(readKey("{\"action\": \"x\", \"settings\": [1]}").has_value());
    QVERIFY(!readKey(keyText(entry) + QByteArray(2 << 20, ' ')).has_value());
}

void tst_ProfileStore::makesItsFolder()
{
    m_file = m_folder->filePath(QStringLiteral("some/new/deck.json"));
    ProfileStore store(m_file);
    QVERIFY(store.save(firstProfile()));
    QVERIFY(QJsonDocument::fromJson(content()).isObject());
}

void tst_ProfileStore::startsWithADeckThatCanBeRead()
{
    const StoredProfile profile = firstProfile();
    QSet<QString> styles;
    for (const DeckEntry &entry : profile.entries) {
        const DisplaySettings &display = entry.settings.display;
        styles.insert(display.style);
        // Its text is too long for a key, and so is a wide gauge.
        const bool isDrive = entry.action.endsWith(QLatin1String("system.PhysicalDisk"));
        const bool isWide = display.shape == QLatin1String("wide");
        QCOMPARE(entry.place.dial, isDrive || isWide);
        QCOMPARE(entry.settings.showTitle, !isDrive);
        QCOMPARE(entry.settings.text.isEmpty(), isDrive);
    }
    QCOMPARE(styles.size(), 5);
}

// A profile of a simulator that knew no gauges.
void tst_ProfileStore::readsAProfileWithoutGauges()
{
    write(R"({"keys": [{"action": "com.quellor.stream.system.cpu", "column": 1, "row": 0,
        "settings": {"titleParameters": {"text": "Load", "fontSize": 40}}}]})");
    ProfileStore store(m_file);
    const StoredProfile profile = store.load();
    QCOMPARE(store.message(), QString());
    QCOMPARE(profile.entries.size(), 1);
    QCOMPARE(profile.entries.at(0).settings.text, QStringLiteral("Load"));
    QVERIFY(profile.entries.at(0).settings.display == DisplaySettings());
    QVERIFY(store.save(profile));
    QVERIFY(!content().contains("display"));
}

void tst_ProfileStore::keepsGauges()
{
    StoredProfile profile = firstProfile();
    profile.entries[0].settings.display = {};
    profile.entries[0].settings.display.style = QStringLiteral("graph");
    profile.entries[0].settings.display.minimum = -1.5;
    QVERIFY(ProfileStore(m_file).save(profile));
    ProfileStore again(m_file);
    QVERIFY(again.load().entries.at(0).settings == profile.entries.at(0).settings);
}

void tst_ProfileStore::writesOnlyChanges()
{
    ProfileStore store(m_file);
    const StoredProfile profile = firstProfile();
    QVERIFY(store.save(profile));
    write("somebody else's");
    QVERIFY(store.save(profile));
    QCOMPARE(content(), QByteArray("somebody else's"));
    QVERIFY(store.save({}));
    QVERIFY(QJsonDocument::fromJson(content()).isObject());
}

void tst_ProfileStore::setsABrokenFileAside_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << profileText(firstProfile()).left(300);
    QTest::newRow("an array") << QByteArray("[]");
    QTest::newRow("without keys") << QByteArray("{\"grid\": {}}");
    QTest::newRow("keys of another type") << QByteArray("{\"keys\": 7}");
    QTest::newRow("binary") << QByteArray(5000, '\xfe');
    QTest::newRow("huge") << QByteArray(int(ProfileStore::maximumSize) + 1, ' ');
    QTest::newRow("nested deeply") << QByteArray(100000, '[');
}

void tst_ProfileStore::setsABrokenFileAside()
{
    QFETCH(const QByteArray, text);
    write(text);
    ProfileStore store(m_file);
    const StoredProfile profile = store.load();
    QCOMPARE(profile.entries.size(), firstProfile().entries.size());
    QVERIFY2(store.message().contains(QLatin1String("deck.json.broken")),
             qPrintable(store.message()));
    QVERIFY(!QFile::exists(m_file));
    QCOMPARE(content(".broken"), text);
    QVERIFY(store.save(profile));
    QCOMPARE(store.message(), QString());
}

void tst_ProfileStore::keepsWhatIsGoodOfAFile()
{
    const QByteArray text =
        "{\"keys\": [7, {\"column\": 2, \"row\": 1, \"action\": \"an.action\"}, {\"column\": 400, "
        "\"row\": 0, \"action\": \"far\"}], \"grid\": {\"columns\": 3, \"rows\": \"x\"}}";
    write(text);
    ProfileStore store(m_file);
    const StoredProfile profile = store.load();
    QCOMPARE(profile.entries.size(), 1);
    QCOMPARE(profile.entries.at(0).action, QStringLiteral("an.action"));
    QVERIFY(profile.entries.at(0).settings == EntrySettings());
    QCOMPARE(profile.grid, QSize(3, 4));
    QVERIFY(store.message().contains(QLatin1String("key 1")));
    QVERIFY(store.message().contains(QLatin1String("key 3")));
    QCOMPARE(content(".broken"), text);
}

void tst_ProfileStore::losesNoFileThatWasSetAside()
{
    write("first");
    (void)ProfileStore(m_file).load();
    write("second");
    (void)ProfileStore(m_file).load();
    write("third");
    (void)ProfileStore(m_file).load();
    QCOMPARE(content(".broken"), QByteArray("first"));
    QCOMPARE(content(".broken-2"), QByteArray("second"));
    QCOMPARE(content(".broken-3"), QByteArray("third"));
}

void tst_ProfileStore::savesNothingOverWhatItCannotSetAside()
{
    // A folder with the name of the profile can neither be read nor be replaced.
    m_file = m_folder->filePath(QStringLiteral("no/deck.json"));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("no")));
    write("{");
    QFile::Permissions usual = QFile::permissions(m_folder->filePath(QStringLiteral("no")));
    QVERIFY(QFile::setPermissions(m_folder->filePath(QStringLiteral("no")),
                                  QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    ProfileStore store(m_file);
    (void)store.load();
    const bool isLocked = store.message().contains(QLatin1String("cannot be set aside"));
    const bool saved = store.save(firstProfile());
    QVERIFY(QFile::setPermissions(m_folder->filePath(QStringLiteral("no")), usual));
    if (!isLocked)
        QSKIP("This user may write into a folder without the permission to do so");
    QVERIFY(!saved);
    QCOMPARE(content(), QByteArray("{"));
}

void tst_ProfileStore::tellsWhenItCannotSave()
{
    write("a file");
    m_file += QStringLiteral("/deck.json");
    ProfileStore store(m_file);
    QVERIFY(!store.save(firstProfile()));
    QVERIFY(store.message().contains(QLatin1String("cannot be saved")));
}

void tst_ProfileStore::worksOnACopyOfAnothersProfile()
{
    auto first = std::make_unique<ProfileStore>(m_file);
    StoredProfile profile = first->load();
    QCOMPARE(first->message(), QString());
    profile.grid = {3, 2};
    QVERIFY(first->save(profile));
    const QByteArray saved = content();
    {
        ProfileStore second(m_file);
        StoredProfile copy = second.load();
        QCOMPARE(copy.grid, QSize(3, 2));
        QVERIFY2(second.message().contains(QLatin1String("works on a copy")),
                 qPrintable(second.message()));
        copy.grid = {5, 5};
        QVERIFY(second.save(copy));
        QCOMPARE(content(), saved);
    }
    profile.grid = {4, 4};
    QVERIFY(first->save(profile));
    first.reset();
    ProfileStore third(m_file);
    QCOMPARE(third.load().grid, QSize(4, 4));
    QCOMPARE(third.message(), QString());
}

void tst_ProfileStore::onlyReadsWhereToldSo()
{
    write("{broken");
    {
        ProfileStore store(m_file, ProfileStore::Access::ReadOnly);
        const StoredProfile profile = store.load();
        QVERIFY(!profile.entries.isEmpty());
        QVERIFY2(store.message().contains(QLatin1String("is broken")), qPrintable(store.message()));
        QVERIFY(store.save(profile));
    }
    QCOMPARE(content(), QByteArray("{broken"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void tst_ProfileStore::beginsWithAnotherDeck()
{
    const StoredProfile fresh = profileWith(kindsDeck(8));
    QCOMPARE(fresh.entries.size(), deckActions().size());
    QCOMPARE(fresh.grid, QSize(8, (static_cast<int>(deckActions().size()) + 7) / 8));
    QCOMPARE(fresh.entries.at(9).action, deckActions().at(9).uuid);
    QVERIFY(fresh.entries.at(9).place == (DeckPlace{1, 1}));
    QCOMPARE(fresh.entries.at(9).settings.text, deckActions().at(9).caption);
    QVERIFY(fresh.entries.at(9).context != profileWith(kindsDeck(8)).entries.at(9).context);
    {
        ProfileStore store(m_file);
        QCOMPARE(store.load(fresh).entries.size(), fresh.entries.size());
        QVERIFY(store.keeps());
        QVERIFY(store.save({}));
    }
    QVERIFY(ProfileStore(m_file).load(fresh).entries.isEmpty());
    QVERIFY(profileWith(emptyDeck(8)).entries.isEmpty());
}

QTEST_GUILESS_MAIN(tst_ProfileStore)
#include "tst_ProfileStore.moc"
