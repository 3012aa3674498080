#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MachineMemory.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>
#include <memory>

class tst_Keys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void showsReadings_data();
    void showsReadings();
    void showsThisMachinesMemory();
    void answersAnAppearingKeyWithItsSettings();
    void answersNewSettings();
    void takesAbsentValues_data();
    void takesAbsentValues();
    void sizesPicturesByTheText();
    void scalesTheFontByTheLastPicture();
    void updatesEachSecond();
    void keepsKeysOfOneKindApart();
    void forgetsDisappearedKeys();
    void sendsUnknownKeysTitlesOnly_data();
    void sendsUnknownKeysTitlesOnly();
    void sendsAnEmptyImageForAnUnknownLayout_data();
    void sendsAnEmptyImageForAnUnknownLayout();

private:
    /// The title of a key's next update.
    QString nextTitle(const QString &context);

    /// The picture of a key's last update.
    QImage lastPicture(const QString &context) const;

    std::unique_ptr<RunningPlugin> m_plugin;
    FakeHost *m_host = nullptr;
};

namespace {

const QString cpu = keyuuid::cpu;
const QString netWork = keyuuid::netWork;
const QString setTitle = QStringLiteral("setTitle");
const QString setImage = QStringLiteral("setImage");
const QString setSettings = QStringLiteral("setSettings");
const QString oneLine = QStringLiteral("单行显示");

/// A key, the settings in which it differs from the usual ones, and the form of its title.
struct ReadingRow
{
    const char *name;
    QString uuid;
    const char *settings;
    const char *title;
};

const char *const titled = R"({"text": "My 标题"})";

const ReadingRow readingRows[] = {
    {"cpu", keyuuid::cpu, titled, R"(My 标题: (\d|[1-9]\d|100)%)"},
    {"memory", keyuuid::memory, titled, R"(My 标题: (\d|[1-9]\d|100)%)"},
    {"network on one line", keyuuid::netWork, titled,
     R"(My 标题: \d+\.\d(Kb|MB|GB)/s  \d+\.\d(Kb|MB|GB)/s)"},
    {"network on two lines", keyuuid::netWork, R"({"text": "Up/Down", "titleLines": "双行显示"})",
     R"(Up: \d+\.\d(Kb|MB|GB)/s\nDown: \d+\.\d(Kb|MB|GB)/s)"},
    {"network on two lines, no slash", keyuuid::netWork,
     R"({"text": "网速", "titleLines": "双行显示"})",
     R"(上传: \d+\.\d(Kb|MB|GB)/s\n下载: \d+\.\d(Kb|MB|GB)/s)"},
    {"network on two lines, a slash alone", keyuuid::netWork,
     R"({"text": "/", "titleLines": "双行显示"})",
     R"(: \d+\.\d(Kb|MB|GB)/s\n: \d+\.\d(Kb|MB|GB)/s)"},
    {"network on two lines, no title", keyuuid::netWork,
     R"({"showTitle": false, "titleLines": "双行显示"})",
     R"(\d+\.\d(Kb|MB|GB)/s\n\d+\.\d(Kb|MB|GB)/s)"},
    {"upload", keyuuid::upload, titled, R"(My 标题: \d+\.\d(Kb|MB|GB)/s)"},
    {"download", keyuuid::download, titled, R"(My 标题: \d+\.\d(Kb|MB|GB)/s)"},
    {"free MB", keyuuid::memoryFreeMB, titled, R"(My 标题: \d+MB)"},
    {"used MB", keyuuid::memoryUsedMB, titled, R"(My 标题: \d+MB)"},
    {"total MB", keyuuid::memoryTotalMB, titled, R"(My 标题: \d+MB)"},
    {"free GB", keyuuid::memoryFreeGB, titled, R"(My 标题: \d+\.\dGB)"},
    {"used GB", keyuuid::memoryUsedGB, titled, R"(My 标题: \d+\.\dGB)"},
    {"total GB", keyuuid::memoryTotalGB, titled, R"(My 标题: \d+\.\dGB)"},
    {"installed memory", keyuuid::memoryModel, titled, R"(My 标题: \d+G)"},
    {"no title wanted", keyuuid::cpu, R"({"showTitle": false})", R"((\d|[1-9]\d|100)%)"},
    {"no title given", keyuuid::cpu, R"({"text": ""})", R"((\d|[1-9]\d|100)%)"},
};

QJsonObject titleParameters(const QJsonObject &settings)
{
    return settings.value(QLatin1String("titleParameters")).toObject();
}

QJsonObject geometry(const QJsonObject &settings)
{
    return settings.value(QLatin1String("ActionGeometry")).toObject();
}

} // namespace

void tst_Keys::initTestCase()
{
    m_plugin = std::make_unique<RunningPlugin>();
    m_host = &m_plugin->host;
    QVERIFY(m_plugin->start());
    // All together, so that one update serves them all.
    for (const ReadingRow &row : readingRows)
        m_host->appear(row.uuid, QString::fromUtf8(row.name),
                       FakeHost::keySettings(json(row.settings)));
}

void tst_Keys::cleanupTestCase()
{
    QVERIFY(m_plugin->process.isRunning());
    m_plugin.reset();
}

QString tst_Keys::nextTitle(const QString &context)
{
    return m_host->waitForUpdate(context) ? m_host->titles(context).constLast() : QString();
}

QImage tst_Keys::lastPicture(const QString &context) const
{
    const QStringList images = m_host->images(context);
    return images.isEmpty() ? QImage() : FakeHost::picture(images.constLast());
}

void tst_Keys::showsReadings_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("title");
    for (const ReadingRow &row : readingRows)
        QTest::newRow(row.name) << row.uuid << QString::fromUtf8(row.title);
}

void tst_Keys::showsReadings()
{
    QFETCH(QString, uuid);
    QFETCH(QString, title);

    const QString context = QString::fromUtf8(QTest::currentDataTag());
    QVERIFY(m_host->waitForMessages(setTitle, context, 1));
    const QString shown = m_host->titles(context).constFirst();
    QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(title)).match(shown).hasMatch(),
             qPrintable(shown));
    QCOMPARE(m_host->events(context).mid(0, 3), (QStringList{setSettings, setImage, setTitle}));

    const QImage picture = FakeHost::picture(m_host->images(context).constFirst());
    QVERIFY(!picture.isNull());
    QVERIFY(picture.hasAlphaChannel());

    const QJsonObject titleMessage = m_host->messages(setTitle, context).constFirst();
    QCOMPARE(titleMessage, (QJsonObject{{QStringLiteral("event"), setTitle},
                                        {QStringLiteral("context"), context},
                                        {QStringLiteral("payload"),
                                         QJsonObject{{QStringLiteral("title"), shown},
                                                     {QStringLiteral("target"), 0}}}}));
    const QJsonObject imageMessage = m_host->messages(setImage, context).constFirst();
    QCOMPARE(
        imageMessage,
        (QJsonObject{{QStringLiteral("event"), setImage},
                     {QStringLiteral("context"), context},
                     {QStringLiteral("payload"),
                      QJsonObject{{QStringLiteral("image"), m_host->images(context).constLast()},
                                  {QStringLiteral("target"), 0}}}}));
    m_host->disappear(uuid, context);
}

void tst_Keys::showsThisMachinesMemory()
{
    const QMap<QString, QString> units{{keyuuid::memoryTotalMB, QStringLiteral("MB")},
                                       {keyuuid::memoryUsedMB, QStringLiteral("MB")},
                                       {keyuuid::memoryFreeMB, QStringLiteral("MB")},
                                       {keyuuid::memoryTotalGB, QStringLiteral("GB")},
                                       {keyuuid::memoryModel, QStringLiteral("G")},
                                       {keyuuid::memory, QStringLiteral("%")}};
    for (auto unit = units.begin(); unit != units.end(); ++unit) {
        m_host->appear(unit.key(), unit.key(),
                       FakeHost::keySettings(json(R"({"showTitle": false})")));
    }
    QMap<QString, double> shown;
    for (auto unit = units.begin(); unit != units.end(); ++unit) {
        QVERIFY(m_host->waitForMessages(setTitle, unit.key(), 1));
        const QString text = m_host->titles(unit.key()).constLast();
        QVERIFY2(text.endsWith(unit.value()), qPrintable(text));
        shown.insert(unit.key(), text.left(text.size() - unit.value().size()).toDouble());
        m_host->disappear(unit.key(), unit.key());
    }
    const double total = shown.value(keyuuid::memoryTotalMB);
    const double used = shown.value(keyuuid::memoryUsedMB);
    const double free = shown.value(keyuuid::memoryFreeMB);
    const double totalGB = shown.value(keyuuid::memoryTotalGB);
    const double load = shown.value(keyuuid::memory);
    const double rounded = shown.value(keyuuid::memoryModel);

    const MachineMemory machine = machineMemory();
    const int installed = machine.total;
    QVERIFY(installed > 0);
    QVERIFY2(std::abs(total - installed) <= 2, qPrintable(QString::number(total)));
    // The values of the machine change between the two readings.
    const double drift = 0.1 * installed;
    QVERIFY2(used > 0 && std::abs(used + free - installed) <= drift,
             qPrintable(QString::number(used)));
    QVERIFY2(std::abs(free - machine.available) <= drift, qPrintable(QString::number(free)));
    QVERIFY2(std::abs(load - 100 * used / total) <= 10, qPrintable(QString::number(load)));
    QVERIFY2(std::abs(totalGB - total / 1024) <= 0.051, qPrintable(QString::number(totalGB)));
    QCOMPARE(rounded, std::floor(total / 1024 + 0.5));
}

void tst_Keys::answersAnAppearingKeyWithItsSettings()
{
    const QString context = QStringLiteral("appearing");
    QJsonObject settings =
        FakeHost::keySettings(json(R"({"text": "T", "color": "#102030", "opacity": 0.25,
                                       "temperatureType": "华氏度", "diskMode": "Disk_Loop",
                                       "unheardOf": 1})"));
    settings.insert(QStringLiteral("select"), QStringLiteral("speakers"));
    settings.insert(QStringLiteral("nested"), json(R"({"a": [1, {"b": null}]})"));
    m_host->appear(cpu, context, settings);
    QVERIFY(m_host->waitForMessages(setSettings, context, 1));

    const QJsonObject message = m_host->messages(setSettings, context).constFirst();
    QCOMPARE(message.keys(), (QStringList{QStringLiteral("context"), QStringLiteral("event"),
                                          QStringLiteral("payload")}));
    QJsonObject expected = settings;
    expected.insert(QStringLiteral("titleParameters"),
                    json(R"({"text": "T", "showTitle": true, "fontFamily": "DejaVu Sans",
                             "fontSize": 20, "color": "#102030", "opacity": 0.25,
                             "temperatureType": "华氏度", "titleLines": "单行显示",
                             "FontList": []})"));
    expected.insert(QStringLiteral("ActionGeometry"), json(R"({"width": 0, "height": 0})"));
    QCOMPARE(m_host->settings(context).constFirst(), expected);

    // The same key again, whose last picture is known by now.
    QVERIFY(!nextTitle(context).isEmpty());
    m_host->appear(cpu, context, settings);
    QVERIFY(m_host->waitForMessages(setSettings, context, 2));
    QTRY_VERIFY(m_plugin->process.hasLogged(QStringLiteral("已存在的动作")));
    const QImage picture = FakeHost::picture(m_host->images(context).constFirst());
    const QJsonObject size = geometry(m_host->settings(context).constLast());
    QCOMPARE(size.value(QLatin1String("height")).toInt(), picture.height());
    m_host->disappear(cpu, context);
}

void tst_Keys::answersNewSettings()
{
    const QString context = QStringLiteral("changing");
    const QString didReceive = QStringLiteral("didReceiveSettings");
    const QJsonObject changed{
        {QStringLiteral("settings"), FakeHost::keySettings(json(R"({"text": "After"})"))}};
    m_host->sendEvent(didReceive, cpu, context, changed);
    m_host->appear(cpu, context, FakeHost::keySettings(json(R"({"text": "Before"})")));
    QVERIFY(nextTitle(context).startsWith(QStringLiteral("Before: ")));
    QCOMPARE(m_host->settings(context).size(), 1);
    QTRY_VERIFY(m_plugin->process.hasLogged(QStringLiteral("action 操作句柄无效..")));

    m_host->sendEvent(didReceive, cpu, context, changed);
    QVERIFY(m_host->waitForMessages(setSettings, context, 2));
    QCOMPARE(titleParameters(m_host->settings(context).constLast()).keys(),
             (QStringList{QStringLiteral("FontList"), QStringLiteral("color"),
                          QStringLiteral("fontFamily"), QStringLiteral("fontSize"),
                          QStringLiteral("opacity"), QStringLiteral("showTitle"),
                          QStringLiteral("text")}));
    QVERIFY(nextTitle(context).startsWith(QStringLiteral("After: ")));
    m_host->disappear(cpu, context);

    const QString network = QStringLiteral("changing network");
    m_host->appear(netWork, network);
    m_host->sendEvent(didReceive, netWork, network, changed);
    QVERIFY(m_host->waitForMessages(setSettings, network, 2));
    const QJsonObject parameters = titleParameters(m_host->settings(network).constLast());
    QCOMPARE(parameters.value(QLatin1String("titleLines")).toString(), oneLine);
    QVERIFY(!parameters.contains(QLatin1String("temperatureType")));
    m_host->disappear(netWork, network);
}

void tst_Keys::takesAbsentValues_data()
{
    QTest::addColumn<QString>("payload");
    const auto row = [](const char *name, const char *payload) {
        QTest::newRow(name) << QString::fromUtf8(payload);
    };
    row("no settings", R"({})");
    row("settings are a text", R"({"settings": "text"})");
    row("settings are a list", R"({"settings": [1]})");
    row("no title parameters", R"({"settings": {}})");
    row("title parameters are a number", R"({"settings": {"titleParameters": 5}})");
    row("members of other types",
        R"({"settings": {"titleParameters": {"text": 1, "showTitle": "true", "fontFamily": {},
            "fontSize": "20", "color": [], "opacity": "1", "temperatureType": 3,
            "titleLines": false, "diskMode": 1, "volumeNameItem": 2, "switchFrequency": "x",
            "showVolumeName": 1}, "ActionGeometry": {"width": [], "height": {}}}})");
    row("numbers out of range",
        R"({"settings": {"titleParameters": {"fontSize": -1e300, "switchFrequency": 1e300},
            "ActionGeometry": {"width": 1e300, "height": -1e300}}})");
}

void tst_Keys::takesAbsentValues()
{
    QFETCH(QString, payload);
    const QString context = QString::fromUtf8(QTest::currentDataTag());
    m_host->sendEvent(QStringLiteral("willAppear"), cpu, context, json(payload.toUtf8()));
    QVERIFY(m_host->waitForMessages(setSettings, context, 1));
    QCOMPARE(titleParameters(m_host->settings(context).constFirst()),
             json(R"({"text": "", "showTitle": false, "fontFamily": "", "fontSize": 1, "color": "",
                      "opacity": 0, "temperatureType": "", "titleLines": "", "FontList": []})"));
    const QString title = nextTitle(context);
    QVERIFY2(title.endsWith(QLatin1Char('%')), qPrintable(title));
    QVERIFY(!lastPicture(context).isNull());
    m_host->disappear(cpu, context);
}

void tst_Keys::sizesPicturesByTheText()
{
    // A key whose text does not change from one second to the next.
    const QString uuid = keyuuid::memoryModel;
    const QString bare = QStringLiteral("bare");
    const QString withTitle = QStringLiteral("titled");
    const QString twice = QStringLiteral("twice");
    const QString network = QStringLiteral("network");
    const QString networkTwoLines = QStringLiteral("network two lines");
    m_host->appear(uuid, bare, FakeHost::keySettings(json(R"({"showTitle": false})")));
    m_host->appear(uuid, withTitle);
    m_host->appear(uuid, twice, FakeHost::keySettings(json(R"({"text": "TitleTitle"})")));
    m_host->appear(netWork, network);
    m_host->appear(netWork, networkTwoLines,
                   FakeHost::keySettings(json(R"({"text": "a/b", "titleLines": "双行显示"})")));
    QVERIFY(!nextTitle(networkTwoLines).isEmpty());

    const int lineHeight = lastPicture(bare).height();
    QVERIFY(lineHeight > 0);
    QCOMPARE(lastPicture(withTitle).height(), lineHeight);
    QCOMPARE(lastPicture(network).height(), lineHeight);
    QCOMPARE(lastPicture(networkTwoLines).height(), 2 * lineHeight);
    QVERIFY(lastPicture(bare).width() > 0);
    QVERIFY(lastPicture(withTitle).width() > lastPicture(bare).width());
    QVERIFY(lastPicture(twice).width() > lastPicture(withTitle).width());
    QVERIFY(lastPicture(network).width() > lastPicture(networkTwoLines).width());

    for (const QString &context : {bare, withTitle, twice})
        m_host->disappear(uuid, context);
    for (const QString &context : {network, networkTwoLines})
        m_host->disappear(netWork, context);
}

void tst_Keys::scalesTheFontByTheLastPicture()
{
    const QString uuid = keyuuid::memoryModel;
    const QString context = QStringLiteral("scaled");
    m_host->appear(uuid, context);
    QVERIFY(!nextTitle(context).isEmpty());
    const QImage picture = lastPicture(context);

    m_host->appear(uuid, context);
    QVERIFY(m_host->waitForMessages(setSettings, context, 2));
    const QJsonObject reply = m_host->settings(context).constLast();
    QCOMPARE(geometry(reply), (QJsonObject{{QStringLiteral("width"), picture.width()},
                                           {QStringLiteral("height"), picture.height()}}));
    const int size = static_cast<int>(144.0 / picture.width() * 20);
    QCOMPARE(titleParameters(reply).value(QLatin1String("fontSize")).toInt(), size);
    QVERIFY(!nextTitle(context).isEmpty());
    QCOMPARE(lastPicture(context).height() > picture.height(), size > 20);
    m_host->disappear(uuid, context);
}

void tst_Keys::updatesEachSecond()
{
    const QString context = QStringLiteral("steady");
    constexpr int updates = 4;
    m_host->appear(cpu, context);
    QVERIFY(m_host->waitForMessages(setTitle, context, updates));
    QCOMPARE(m_host->events(context).mid(0, 1 + 2 * updates),
             (QStringList{setSettings, setImage, setTitle, setImage, setTitle, setImage, setTitle,
                          setImage, setTitle}));
    const QVector<qint64> arrivals = m_host->arrivals(setImage, context);
    const qint64 taken = arrivals.at(updates - 1) - arrivals.constFirst();
    QVERIFY2(taken > 2500 && taken < 4500, qPrintable(QString::number(taken)));
    m_host->disappear(cpu, context);
}

void tst_Keys::keepsKeysOfOneKindApart()
{
    const QString left = QStringLiteral("left");
    const QString right = QStringLiteral("right");
    m_host->appear(cpu, left, FakeHost::keySettings(json(R"({"text": "Left"})")));
    m_host->appear(cpu, right, FakeHost::keySettings(json(R"({"text": "Right"})")));
    QVERIFY(nextTitle(right).startsWith(QStringLiteral("Right: ")));
    QVERIFY(m_host->titles(left).constLast().startsWith(QStringLiteral("Left: ")));
    QCOMPARE(m_host->settings(left).size(), 1);
    m_host->disappear(cpu, left);
    m_host->disappear(cpu, right);
}

void tst_Keys::forgetsDisappearedKeys()
{
    const QString going = QStringLiteral("going");
    const QString staying = QStringLiteral("staying");
    m_host->appear(cpu, going);
    m_host->appear(cpu, staying);
    QVERIFY(!nextTitle(staying).isEmpty());

    m_host->disappear(netWork, staying);
    m_host->disappear(cpu, QStringLiteral("never seen"));
    m_host->disappear(cpu, going);
    // The reply comes after the messages before it have been handled.
    m_host->appear(cpu, staying);
    QVERIFY(m_host->waitForMessages(setSettings, staying, 2));
    const auto events = m_host->events(going).size();

    QVERIFY(!nextTitle(staying).isEmpty());
    QVERIFY(!nextTitle(staying).isEmpty());
    QCOMPARE(m_host->events(going).size(), events);

    m_host->appear(cpu, going);
    QVERIFY(!nextTitle(going).isEmpty());
    m_host->disappear(cpu, going);
    m_host->disappear(cpu, staying);
}

void tst_Keys::sendsUnknownKeysTitlesOnly_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::newRow("unheard of") << keyuuid::prefix + QStringLiteral("system.nonsense");
    QTest::newRow("in other letter case") << keyuuid::prefix + QStringLiteral("system.CPU");
    QTest::newRow("with a tail") << cpu + QLatin1Char('.');
}

void tst_Keys::sendsUnknownKeysTitlesOnly()
{
    QFETCH(QString, uuid);
    const QString context = QString::fromUtf8(QTest::currentDataTag());
    m_host->appear(uuid, context);
    QVERIFY(m_host->waitForMessages(setTitle, context, 3));
    QCOMPARE(m_host->events(context).mid(0, 4),
             (QStringList{setSettings, setTitle, setTitle, setTitle}));
    QCOMPARE(m_host->titles(context).mid(0, 3), (QStringList{QString(), QString(), QString()}));
    m_host->disappear(uuid, context);
}

void tst_Keys::sendsAnEmptyImageForAnUnknownLayout_data()
{
    QTest::addColumn<QString>("titleLines");
    QTest::newRow("three lines") << QStringLiteral("三行显示");
    QTest::newRow("none") << QString();
}

void tst_Keys::sendsAnEmptyImageForAnUnknownLayout()
{
    QFETCH(QString, titleLines);
    const QString context = QStringLiteral("layout ") + titleLines;
    m_host->appear(netWork, context,
                   FakeHost::keySettings({{QStringLiteral("titleLines"), titleLines}}));
    QVERIFY(m_host->waitForMessages(setTitle, context, 3));
    QCOMPARE(
        m_host->events(context).mid(0, 7),
        (QStringList{setSettings, setImage, setTitle, setImage, setTitle, setImage, setTitle}));
    for (const QJsonObject &message : m_host->messages(setImage, context))
        QCOMPARE(message.value(QLatin1String("payload")).toObject(),
                 json(R"({"image": "", "target": 0})"));
    QCOMPARE(m_host->titles(context).mid(0, 3), (QStringList{QString(), QString(), QString()}));
    m_host->disappear(netWork, context);
}

QTEST_GUILESS_MAIN(tst_Keys)
#include "tst_keys.moc"
