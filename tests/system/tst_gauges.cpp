#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QColor>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdlib>
#include <memory>

/// Keys with display settings on a recorded machine that gets hot, as a host sees them.
class tst_Gauges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void keepsTheSettings();
    void goesThroughTheLevels();
    void showsNoValueForAMissingReading();
    void showsExtremesAfterAPress();
    void resetsThemWhenHeld();
    void keepsOtherKeysUnpressed();

private:
    void record(const QByteArray &trees);
    void heatTo(int degrees);
    QJsonObject appear(const QString &uuid, const QString &context, const char *display);
    QString nextImage(const QString &context);
    QString imageAt(const QString &context, const QString &title);
    void press(const QString &event, const QString &context, int milliseconds = 0);

    QTemporaryDir m_folder;
    std::unique_ptr<RunningPlugin> m_plugin;
    FakeHost *m_host = nullptr;
};

namespace {

const QString heat = keyuuid::cpuTemperature;
const char *const ring = R"({"style":"ring","size":72,"press":"extremes"})";

/// How many pixels are opaque and close to \a color.
int pixelsOf(const QString &image, const QColor &color)
{
    constexpr int near = 12;
    const QImage picture = FakeHost::picture(image).convertToFormat(QImage::Format_ARGB32);
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (pixel.alpha() > 200 && std::abs(pixel.red() - color.red()) < near &&
                std::abs(pixel.green() - color.green()) < near &&
                std::abs(pixel.blue() - color.blue()) < near)
                ++count;
        }
    }
    return count;
}

/// Which of the three colours there is most of.
QString levelOf(const QString &image)
{
    constexpr int enough = 5;
    const QVector<QPair<QString, QColor>> colors{{QStringLiteral("normal"), 0x56B4E9},
                                                 {QStringLiteral("warning"), 0xF0E442},
                                                 {QStringLiteral("critical"), 0xFF7043}};
    QString level = QStringLiteral("none");
    int most = enough;
    for (const auto &[name, color] : colors) {
        const int count = pixelsOf(image, color);
        if (count > most) {
            level = name;
            most = count;
        }
    }
    return level;
}

} // namespace

void tst_Gauges::initTestCase()
{
    m_plugin = std::make_unique<RunningPlugin>();
    m_host = &m_plugin->host;
    heatTo(45);
    m_plugin->process.setVariable(QStringLiteral("SYSTEM_MONITOR_RECORDING"),
                                  m_folder.filePath(QStringLiteral("recording.json")));
    QVERIFY(m_plugin->start());
}

void tst_Gauges::cleanupTestCase()
{
    QVERIFY(m_plugin->process.isRunning());
    m_plugin.reset();
}

void tst_Gauges::record(const QByteArray &trees)
{
    const QString path = m_folder.filePath(QStringLiteral("recording.json"));
    QFile file(path + QStringLiteral(".new"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(trees), qint64(trees.size()));
    file.close();
    QFile::remove(path);
    QVERIFY(file.rename(path));
}

void tst_Gauges::heatTo(int degrees)
{
    record(R"({"getCPUDTSInfo":{"CPU Package":[{"value":)" + QByteArray::number(degrees) +
           R"(,"units":"C"}]}})");
}

/// Returns the settings that were sent.
QJsonObject tst_Gauges::appear(const QString &uuid, const QString &context, const char *display)
{
    QJsonObject settings = FakeHost::keySettings(json(R"({"text":"T"})"));
    settings.insert(QStringLiteral("display"), json(display));
    m_host->appear(uuid, context, settings);
    return settings;
}

QString tst_Gauges::nextImage(const QString &context)
{
    return m_host->waitForUpdate(context) ? m_host->images(context).constLast() : QString();
}

/// The last picture, as soon as it has that title.
QString tst_Gauges::imageAt(const QString &context, const QString &title)
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(patience)) {
        const QStringList titles = m_host->titles(context);
        if (!titles.isEmpty() && titles.constLast() == title)
            return m_host->images(context).constLast();
        nextImage(context);
    }
    return {};
}

void tst_Gauges::press(const QString &event, const QString &context, int milliseconds)
{
    const bool isDial = event == QLatin1String("dialPress");
    m_host->sendEvent(isDial ? event : QStringLiteral("keyDown"), heat, context,
                      {{QStringLiteral("pressed"), true}});
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(timer.hasExpired(milliseconds));
    m_host->sendEvent(isDial ? event : QStringLiteral("keyUp"), heat, context,
                      {{QStringLiteral("pressed"), false}});
}

void tst_Gauges::keepsTheSettings()
{
    const QString context = QStringLiteral("settings");
    const QJsonObject sent =
        appear(heat, context, R"({"style":"graph","size":"large","unheardOf":[1,{"a":null}]})");
    QVERIFY(m_host->waitForMessages(QStringLiteral("setSettings"), context, 1));
    const QString display = QStringLiteral("display");
    QCOMPARE(m_host->settings(context).constFirst().value(display), sent.value(display));
    QCOMPARE(FakeHost::picture(nextImage(context)).size(), QSize(144, 144));
    QCOMPARE(m_host->titles(context).constLast(), QStringLiteral("T: 45°"));
    QCOMPARE(m_host->events(context).mid(0, 3),
             (QStringList{QStringLiteral("setSettings"), QStringLiteral("setImage"),
                          QStringLiteral("setTitle")}));
    m_host->disappear(heat, context);
}

/// On the way back a level is left 2 % of 80 °C later.
void tst_Gauges::goesThroughTheLevels()
{
    const QMap<QString, const char *> displays{
        {QStringLiteral("ring"), ring},
        {QStringLiteral("bar"), R"({"style":"bar"})"},
        {QStringLiteral("graph"), R"({"style":"graph"})"},
        {QStringLiteral("text"), R"({"warning":80,"critical":95})"}};
    heatTo(45);
    for (auto display = displays.begin(); display != displays.end(); ++display)
        appear(heat, display.key(), display.value());
    // A graph needs two samples to be seen.
    for (const QString &context : displays.keys())
        QVERIFY(m_host->waitForMessages(QStringLiteral("setTitle"), context, 3));
    QMap<QString, QStringList> levels;
    for (const int degrees : {45, 80, 95, 94, 93, 79, 78}) {
        heatTo(degrees);
        for (const QString &context : displays.keys())
            levels[context] << levelOf(imageAt(context, QStringLiteral("T: %1°").arg(degrees)));
    }
    for (const QString &context : displays.keys()) {
        const QString normal =
            context == QLatin1String("text") ? QStringLiteral("none") : QStringLiteral("normal");
        QCOMPARE(levels.value(context).join(QLatin1Char(' ')),
                 normal + QStringLiteral(" warning critical critical warning warning ") + normal);
        m_host->disappear(heat, context);
    }
}

void tst_Gauges::showsNoValueForAMissingReading()
{
    const QString context = QStringLiteral("missing");
    heatTo(100);
    appear(heat, context, R"({"style":"bar"})");
    QCOMPARE(levelOf(imageAt(context, QStringLiteral("T: 100°"))), QStringLiteral("critical"));
    record("{}");
    QCOMPARE(levelOf(imageAt(context, QStringLiteral("T: 0°"))), QStringLiteral("none"));
    m_host->disappear(heat, context);
}

/// Minimum, maximum and mean for three passes each.
void tst_Gauges::showsExtremesAfterAPress()
{
    const QString context = QStringLiteral("pressed");
    const QString event = QStringLiteral("keyDown");
    appear(heat, context, ring);
    // Begins the extremes anew.
    press(event, context, 1200);
    for (const int degrees : {60, 30, 45}) {
        heatTo(degrees);
        QVERIFY(!imageAt(context, QStringLiteral("T: %1°").arg(degrees)).isEmpty());
    }
    const QString present = nextImage(context);
    const auto before = m_host->images(context).size();
    press(event, context);
    // The first may have been on its way, and the present comes last.
    constexpr int passes = 11;
    QVERIFY(m_host->waitForMessages(QStringLiteral("setImage"), context, before + passes));
    QStringList shown = m_host->images(context).mid(before, passes);
    QCOMPARE(shown.constLast(), present);
    shown.removeAll(present);
    QCOMPARE(shown.size(), 9);
    QCOMPARE(shown.count(shown.at(0)), 3);
    QCOMPARE(shown.count(shown.at(3)), 3);
    QVERIFY(shown.at(0) != shown.at(3) && shown.at(3) != shown.at(6));
    QCOMPARE(m_host->titles(context).constLast(), QStringLiteral("T: 45°"));
    m_host->disappear(heat, context);
}

void tst_Gauges::resetsThemWhenHeld()
{
    const QString context = QStringLiteral("held");
    const QString dialPress = QStringLiteral("dialPress");
    appear(heat, context, ring);
    heatTo(45);
    const QString present = imageAt(context, QStringLiteral("T: 45°"));
    press(dialPress, context);
    QString minimum = nextImage(context);
    QTRY_VERIFY((minimum = nextImage(context)) != present);
    // Other settings show the present again.
    appear(heat, context, ring);
    QTRY_VERIFY(nextImage(context) == present);
    press(dialPress, context, 1200);
    QCOMPARE(nextImage(context), present);
    press(dialPress, context);
    QString anew;
    QTRY_VERIFY((anew = nextImage(context)) != present);
    QVERIFY(anew != minimum);
    m_host->disappear(heat, context);
}

void tst_Gauges::keepsOtherKeysUnpressed()
{
    const QString context = QStringLiteral("unpressed");
    heatTo(45);
    appear(heat, context, R"({"style":"ring","size":72})");
    const QString present = imageAt(context, QStringLiteral("T: 45°"));
    press(QStringLiteral("keyDown"), context);
    press(QStringLiteral("dialPress"), context);
    QCOMPARE(nextImage(context), present);
    QCOMPARE(nextImage(context), present);
    m_host->disappear(heat, context);
}

QTEST_GUILESS_MAIN(tst_Gauges)
#include "tst_gauges.moc"
