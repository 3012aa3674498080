#include "render/Gauge.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/SampleGauges.h"
#include "tests/support/TestFonts.h"

#include <QtMath>
#include <QtTest>

#include <ctime>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>

using gauge::Content;
using gauge::Extreme;
using gauge::Level;
using gauge::Look;
using gauge::Style;

Q_DECLARE_METATYPE(gauge::Content)
Q_DECLARE_METATYPE(gauge::Look)

/// What the pictures of gauges have in common, whatever they show, and what they cost.
class tst_Gauge : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void initTestCase();
    void barIsAsLongAsItsShare_data();
    void barIsAsLongAsItsShare();
    void ringEndsAtItsAngle_data();
    void ringEndsAtItsAngle();
    void graphIsAsHighAsItsSamples();
    void graphHasGaps();
    void missingReadingsHaveAnEmptyGauge_data();
    void missingReadingsHaveAnEmptyGauge();
    void levelsColorTheGauge_data();
    void levelsColorTheGauge();
    void unitsStayWhereTheyAre_data();
    void unitsStayWhereTheyAre();
    void theWidestTextChoosesTheSize();
    void titlesLeaveRoomForMarks_data();
    void titlesLeaveRoomForMarks();
    void titlesStayInside_data();
    void titlesStayInside();
    void valuesTakeTheTitlesRoom();
    void opacityIsAppliedOnce_data();
    void opacityIsAppliedOnce();
    void groundIsBehindEverything_data();
    void groundIsBehindEverything();
    void wideOnesHaveTheGaugeAtTheRight_data();
    void wideOnesHaveTheGaugeAtTheRight();
    void nothingIsKept();
    void paintsAnySize_data();
    void paintsAnySize();
    void paintsAnythingSoon_data();
    void paintsAnythingSoon();
};

namespace {

constexpr int side = 144;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

void addStyles()
{
    QTest::addColumn<Style>("style");
    for (const samplegauges::StyleName &each : samplegauges::styles)
        QTest::newRow(each.name) << each.style;
}

/// Whether a pixel has the colour of a gauge, and not faintly.
bool isGauge(const QColor &pixel, const QColor &color)
{
    return pixel.alpha() > 128 && std::abs(pixel.red() - color.red()) < 24 &&
           std::abs(pixel.green() - color.green()) < 24 &&
           std::abs(pixel.blue() - color.blue()) < 24;
}

/// The smallest rectangle around all pixels that \a is true for.
QRect boundsOf(const QImage &picture, const std::function<bool(const QColor &)> &is)
{
    QRect bounds;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (is(picture.pixelColor(x, y)))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

QRect gaugeBounds(const QImage &picture, const QColor &color)
{
    return boundsOf(picture, [&color](const QColor &pixel) { return isGauge(pixel, color); });
}

/// Those of what is in the key's own colour, but for faint things such as tracks.
QRect letterBounds(const QImage &picture)
{
    return boundsOf(picture, [](const QColor &pixel) {
        return pixel.alpha() > 64 && pixel.red() == 255 && pixel.blue() == 255;
    });
}

Content content(Style style, double share)
{
    Content made = samplegauges::contentOf(style);
    made.first.share = share;
    return made;
}

QString described(const QRect &rect)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

} // namespace

Q_DECLARE_METATYPE(gauge::Style)

void tst_Gauge::initTestCase()
{
    // Those that are there do for the tests that look at no letter.
    testfonts::missing({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("Roboto-Medium.ttf"),
                        QStringLiteral("DejaVuSans.ttf"), QStringLiteral("wqy-microhei.ttc")});
}

void tst_Gauge::barIsAsLongAsItsShare_data()
{
    QTest::addColumn<double>("share");
    QTest::addColumn<int>("length");
    // At 144 pixels the bar is 120 long, 16 high.
    QTest::newRow("start") << 0.0 << 0;
    QTest::newRow("below the start") << -0.1 << 0;
    QTest::newRow("least") << 1e-9 << 16;
    QTest::newRow("a tenth") << 0.1 << 16;
    QTest::newRow("half") << 0.5 << 60;
    QTest::newRow("end") << 1.0 << 120;
    QTest::newRow("beyond the end") << 1e300 << 120;
    QTest::newRow("infinite") << infinite << 120;
    QTest::newRow("no number") << notANumber << 0;
}

void tst_Gauge::barIsAsLongAsItsShare()
{
    QFETCH(double, share);
    QFETCH(int, length);
    const Look look = samplegauges::look(side);
    const QRect bar = gaugeBounds(paintGauge(content(Style::Bar, share), look), look.normal);
    QVERIFY2(std::abs(bar.width() - length) <= 1, qPrintable(described(bar)));
    QVERIFY(length == 0 || (bar.left() == 12 && bar.top() == 107 && bar.height() == 16));
}

void tst_Gauge::ringEndsAtItsAngle_data()
{
    QTest::addColumn<double>("share");
    for (const double share : {0.0, 0.1, 0.25, 1.0 / 3, 0.5, 0.75, 0.9, 1.0})
        QTest::addRow("%g", share) << share;
}

void tst_Gauge::ringEndsAtItsAngle()
{
    QFETCH(double, share);
    const Look look = samplegauges::look(side);
    Content ring = content(Style::Ring, share);
    ring.title.clear();
    const QImage picture = paintGauge(ring, look);
    // The middle of the ring's width.
    constexpr double radius = (0.5 - 0.06 - 0.09 / 2) * side;
    constexpr double cap = 0.09 / 2 * side;
    const double capAngle = qRadiansToDegrees(cap / radius);
    for (int angle = 0; angle <= 270; ++angle) {
        const double turn = qDegreesToRadians(225.0 - angle);
        const QColor pixel =
            picture.pixelColor(static_cast<int>(side / 2.0 + radius * std::cos(turn)),
                               static_cast<int>(side / 2.0 - radius * std::sin(turn)));
        const double end = share > 0 ? share * 270 + capAngle : -10;
        if (std::abs(angle - end) < 2)
            continue;
        QVERIFY2(isGauge(pixel, look.normal) == (angle < end), qPrintable(QString::number(angle)));
        QVERIFY2(pixel.alpha() > 20, qPrintable(QString::number(angle)));
    }
    // Open at the bottom, where the title stands.
    QCOMPARE(picture.pixelColor(side / 2, static_cast<int>(side / 2 + radius * 0.9)).alpha(), 0);
}

void tst_Gauge::graphIsAsHighAsItsSamples()
{
    const Look look = samplegauges::look(side);
    Content graph = content(Style::Graph, 0.5);
    QVector<gauge::Point> run;
    for (int age = 60; age >= 0; --age)
        run.append({double(age), age > 30 ? 0.25 : 0.75});
    graph.first.trace = {run};
    const QImage picture = paintGauge(graph, look);
    // The graph takes the lower 63 pixels, the line is two of them wide.
    const auto isLine = [&](int x, int y) {
        return isGauge(picture.pixelColor(x, y), look.normal) &&
               picture.pixelColor(x, y).alpha() > 200;
    };
    for (const int x : {5, 40, 60})
        QVERIFY(isLine(x, qRound(144 - 1 - 0.25 * 61)));
    for (const int x : {85, 100, 143})
        QVERIFY(isLine(x, qRound(144 - 1 - 0.75 * 61)));
    // Below it 35 %, above it nothing.
    QVERIFY(std::abs(picture.pixelColor(40, 140).alpha() - 89) <= 4);
    QVERIFY(std::abs(picture.pixelColor(100, 110).alpha() - 89) <= 4);
    QCOMPARE(picture.pixelColor(40, 100).alpha(), 0);
    QCOMPARE(picture.pixelColor(100, 85).alpha(), 0);
}

void tst_Gauge::graphHasGaps()
{
    const Look look = samplegauges::look(side);
    Content graph = content(Style::Graph, 0.5);
    graph.first.trace = {{{60, 0.5}, {40, 0.5}}, {{20, 0.5}, {0, 0.5}}};
    const QImage picture = paintGauge(graph, look);
    for (int y = 81; y < side; ++y) {
        for (int x = 52; x < 92; ++x)
            QCOMPARE(picture.pixel(x, y), 0U);
    }
    QVERIFY(picture.pixelColor(20, 140).alpha() > 0);
    QVERIFY(picture.pixelColor(120, 140).alpha() > 0);
}

void tst_Gauge::missingReadingsHaveAnEmptyGauge_data()
{
    addStyles();
}

void tst_Gauge::missingReadingsHaveAnEmptyGauge()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf")});
    QFETCH(Style, style);
    const Look look = samplegauges::look(side);
    Content missing = samplegauges::contentOf(style);
    for (gauge::Reading *reading : {&missing.first, &missing.second}) {
        reading->value = QStringLiteral("–");
        reading->share.reset();
        reading->trace.clear();
    }
    const QImage picture = paintGauge(missing, look);
    QVERIFY(!letterBounds(picture).isEmpty());
    // A pair's arrow stands at the left.
    const int left = style == Style::Pair ? side / 4 : 0;
    QCOMPARE(gaugeBounds(picture.copy(left, 0, side - left, side), look.normal), QRect());
}

void tst_Gauge::levelsColorTheGauge_data()
{
    addStyles();
}

void tst_Gauge::levelsColorTheGauge()
{
    QFETCH(Style, style);
    const Look look = samplegauges::look(side);
    const QRect corner(side * 3 / 4, 0, side / 4, side / 5);
    const auto painted = [&](Level level) {
        Content changed = samplegauges::contentOf(style);
        changed.level = level;
        return paintGauge(changed, look);
    };
    const auto has = [](const QImage &picture, const QColor &color) {
        return gaugeBounds(picture, color).width() > side / 10;
    };
    const QImage normal = painted(Level::Normal);
    QVERIFY(has(normal, look.normal) && !has(normal, look.warning) && !has(normal, look.critical));
    QCOMPARE(has(normal, QColor(0xCC, 0x79, 0xA7)), style == Style::Pair);
    const QImage warning = painted(Level::Warning);
    QVERIFY(!has(warning, look.normal) && has(warning, look.warning));
    QVERIFY(!has(warning.copy(corner), look.warning) || style == Style::Ring);
    const QImage critical = painted(Level::Critical);
    QVERIFY(!has(critical, look.normal) && has(critical, look.critical));
    // The triangle: wide at its bottom, narrow at its top.
    const QImage mark = critical.copy(118, 4, 24, 24);
    const QRect triangle = gaugeBounds(mark, look.critical);
    QVERIFY2(triangle.width() >= 17 && triangle.height() >= 17, qPrintable(described(triangle)));
    QVERIFY(gaugeBounds(mark.copy(0, triangle.top(), 24, 4), look.critical).width() < 8);
    QVERIFY(gaugeBounds(mark.copy(0, triangle.bottom() - 3, 24, 4), look.critical).width() > 14);
}

void tst_Gauge::unitsStayWhereTheyAre_data()
{
    QTest::addColumn<Style>("style");
    QTest::addColumn<int>("size");
    for (const samplegauges::StyleName &each : samplegauges::styles) {
        for (const int size : {72, 100, 144})
            QTest::addRow("%s, %d px", each.name, size) << each.style << size;
    }
}

void tst_Gauge::unitsStayWhereTheyAre()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf")});
    QFETCH(Style, style);
    QFETCH(int, size);
    const Look look = samplegauges::look(size);
    const auto painted = [&](const char *value) {
        Content changed = samplegauges::contentOf(style);
        changed.first.value = QString::fromLatin1(value);
        changed.first.widest = QStringLiteral("88");
        changed.first.unit = QStringLiteral("W");
        changed.first.trace.clear();
        changed.first.share = 0.5;
        changed.title.clear();
        return paintGauge(changed, look);
    };
    const QImage reference = painted("11");
    for (const char *value : {"88", "47", "20"}) {
        const QImage other = painted(value);
        QVERIFY(other != reference);
        const QRect differences = [&] {
            QRect bounds;
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x) {
                    if (other.pixel(x, y) != reference.pixel(x, y))
                        bounds |= QRect(x, y, 1, 1);
                }
            }
            return bounds;
        }();
        // The unit stands to the right of all differences.
        const QImage behind = other.copy(differences.right() + 1, differences.top(),
                                         size - differences.right() - 1, differences.height());
        QVERIFY2(letterBounds(behind).width() > size / 12, qPrintable(described(differences)));
    }
}

void tst_Gauge::theWidestTextChoosesTheSize()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf")});
    const Look look = samplegauges::look(side);
    const auto heightWith = [&](const QString &widest) {
        Content bar = content(Style::Bar, 0);
        bar.title.clear();
        bar.first.value = QStringLiteral("5");
        bar.first.unit.clear();
        bar.first.widest = widest;
        return letterBounds(paintGauge(bar, look)).height();
    };
    QVERIFY(heightWith(QStringLiteral("1234567")) < heightWith(QStringLiteral("1")) * 3 / 4);
    QCOMPARE(heightWith(QString()), heightWith(QStringLiteral("1")));
    // One that is too short for the value changes nothing.
    Content bar = content(Style::Bar, 0);
    bar.first.value = QStringLiteral("1234567");
    bar.first.widest = QStringLiteral("1");
    const QRect letters = letterBounds(paintGauge(bar, look));
    QVERIFY2(letters.left() > 2 && letters.right() < side - 3, qPrintable(described(letters)));
}

void tst_Gauge::titlesLeaveRoomForMarks_data()
{
    QTest::addColumn<Style>("style");
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("title");
    for (const samplegauges::StyleName &each : samplegauges::styles) {
        for (const int size : {72, 144, 288}) {
            for (const char *title : {"GPU", "Graphics temp", "Temperature of the graphics card",
                                      "显卡温度显卡温度显卡温度"})
                QTest::addRow("%s, %d px, %s", each.name, size, title)
                    << each.style << size << QString::fromUtf8(title);
        }
    }
}

void tst_Gauge::titlesLeaveRoomForMarks()
{
    QFETCH(Style, style);
    QFETCH(int, size);
    QFETCH(QString, title);
    const Look look = samplegauges::look(size);
    Content titled = content(style, 0.9);
    titled.level = Level::Critical;
    titled.extreme = Extreme::Maximum;
    titled.title = title;
    Content bare = titled;
    bare.title.clear();
    const QImage picture = paintGauge(titled, look);
    const QImage expected = paintGauge(bare, look);
    const int mark = qRound(0.18 * size);
    QCOMPARE(picture.copy(size - mark, 0, mark, mark), expected.copy(size - mark, 0, mark, mark));
    QCOMPARE(picture.copy(0, 0, mark, mark), expected.copy(0, 0, mark, mark));
}

void tst_Gauge::titlesStayInside_data()
{
    QTest::addColumn<Style>("style");
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("title");
    const QString texts[] = {QStringLiteral("GPU"), QString(30, QLatin1Char('W')),
                             QString(100, QLatin1Char('i')), QString(40, QChar(0x9F98)),
                             QStringLiteral("معالج معالج معالج معالج معالج")};
    for (const samplegauges::StyleName &each : samplegauges::styles) {
        for (const int size : {72, 144}) {
            for (const QString &text : texts)
                QTest::addRow("%s, %d px, %s", each.name, size, qPrintable(text))
                    << each.style << size << text;
        }
    }
}

void tst_Gauge::titlesStayInside()
{
    QFETCH(Style, style);
    QFETCH(int, size);
    QFETCH(QString, title);
    const Look look = samplegauges::look(size);
    Content titled = content(style, 0);
    titled.title = title;
    titled.first.trace.clear();
    titled.second.trace.clear();
    const QRect letters = letterBounds(paintGauge(titled, look));
    QVERIFY2(letters.left() >= size / 25 && letters.right() <= size - size / 25,
             qPrintable(described(letters)));
    QVERIFY2(letters.top() > 0 && letters.bottom() < size - 1, qPrintable(described(letters)));
}

void tst_Gauge::valuesTakeTheTitlesRoom()
{
    const Look look = samplegauges::look(side);
    for (const Style style : {Style::Bar, Style::Graph}) {
        Content titled = content(style, 0);
        titled.first.widest.clear();
        titled.first.trace.clear();
        Content bare = titled;
        bare.title.clear();
        const QRect value = letterBounds(paintGauge(bare, look));
        const QRect both = letterBounds(paintGauge(titled, look));
        QVERIFY2(value.width() > both.width() * 9 / 8, qPrintable(described(value)));
        QVERIFY(value.center().y() > both.top());
    }
}

void tst_Gauge::opacityIsAppliedOnce_data()
{
    addStyles();
}

void tst_Gauge::opacityIsAppliedOnce()
{
    QFETCH(Style, style);
    for (const QColor &ground : {QColor(), QColor(0x20, 0x24, 0x50)}) {
        Look look = samplegauges::look(side);
        look.ground = ground;
        const QImage opaque = paintGauge(samplegauges::contentOf(style), look);
        look.opacity = 0.5;
        const QImage half = paintGauge(samplegauges::contentOf(style), look);
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QRgb whole = opaque.pixel(x, y);
                const QRgb part = half.pixel(x, y);
                QVERIFY(std::abs(qAlpha(part) - qAlpha(whole) / 2.0) <= 1);
                QVERIFY(qAlpha(part) == 0 || (part | 0xFF000000U) == (whole | 0xFF000000U));
            }
        }
    }
    Look look = samplegauges::look(side);
    const QImage opaque = paintGauge(samplegauges::contentOf(style), look);
    for (const double opacity : {1.0, 2.0, infinite, notANumber}) {
        look.opacity = opacity;
        QCOMPARE(paintGauge(samplegauges::contentOf(style), look), opaque);
    }
    for (const double opacity : {0.0, -1.0, -infinite}) {
        look.opacity = opacity;
        QVERIFY(boundsOf(paintGauge(samplegauges::contentOf(style), look), [](const QColor &pixel) {
                    return pixel.alpha() > 0;
                }).isEmpty());
    }
}

void tst_Gauge::groundIsBehindEverything_data()
{
    addStyles();
}

void tst_Gauge::groundIsBehindEverything()
{
    QFETCH(Style, style);
    Look look = samplegauges::look(side);
    const QImage without = paintGauge(samplegauges::contentOf(style), look);
    look.ground = QColor(0x20, 0x24, 0x50);
    const QImage with = paintGauge(samplegauges::contentOf(style), look);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const QColor over = without.pixelColor(x, y);
            const QColor pixel = with.pixelColor(x, y);
            QCOMPARE(pixel.alpha(), 255);
            const double alpha = over.alphaF();
            const double left = 1 - alpha;
            QVERIFY(std::abs(pixel.red() - (over.red() * alpha + 0x20 * left)) <= 1.5);
            QVERIFY(std::abs(pixel.blue() - (over.blue() * alpha + 0x50 * left)) <= 1.5);
        }
    }
    look.ground = QColor(0, 0, 0, 0);
    QCOMPARE(paintGauge(samplegauges::contentOf(style), look), without);
}

void tst_Gauge::wideOnesHaveTheGaugeAtTheRight_data()
{
    addStyles();
}

void tst_Gauge::wideOnesHaveTheGaugeAtTheRight()
{
    QFETCH(Style, style);
    Look look = samplegauges::look(side);
    look.size = QSize(2 * side, side);
    const QImage picture = paintGauge(samplegauges::contentOf(style), look);
    QCOMPARE(picture.size(), look.size);
    const QImage left = picture.copy(0, 0, side, side);
    const QImage right = picture.copy(side, 0, side, side);
    QVERIFY(letterBounds(left).width() > side / 2);
    QCOMPARE(letterBounds(right), QRect());
    // A pair's arrows have its colours.
    if (style != Style::Pair)
        QCOMPARE(gaugeBounds(left, look.normal), QRect());
    QVERIFY(gaugeBounds(right, look.normal).width() > side / 10);
}

void tst_Gauge::nothingIsKept()
{
    const Look look = samplegauges::look(side);
    QVector<QImage> before;
    for (const samplegauges::StyleName &each : samplegauges::styles)
        before.append(paintGauge(samplegauges::contentOf(each.style), look));
    for (const samplegauges::StyleName &each : samplegauges::styles) {
        Look other = samplegauges::look(72);
        other.color = Qt::red;
        Content changed = samplegauges::contentOf(each.style);
        changed.level = Level::Critical;
        paintGauge(changed, other);
    }
    for (const samplegauges::StyleName &each : samplegauges::styles)
        QCOMPARE(paintGauge(samplegauges::contentOf(each.style), look), before.takeFirst());
}

void tst_Gauge::paintsAnySize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("painted");
    for (int each : {1, 2, 3, 5, 8, 16, 71, 73, 111, 288, 1024}) {
        QTest::addRow("%d", each) << QSize(each, each) << true;
        QTest::addRow("%d wide", each) << QSize(2 * each, each) << (each <= 512);
    }
    QTest::newRow("narrow") << QSize(20, 300) << true;
    QTest::newRow("odd") << QSize(301, 150) << true;
    QTest::newRow("very wide") << QSize(1024, 1) << true;
    QTest::newRow("too large") << QSize(1025, 1025) << false;
    QTest::newRow("largest int") << QSize(INT_MAX, INT_MAX) << false;
    QTest::newRow("empty") << QSize(0, 144) << false;
    QTest::newRow("negative") << QSize(-144, -144) << false;
    QTest::newRow("none") << QSize() << false;
}

void tst_Gauge::paintsAnySize()
{
    QFETCH(QSize, size);
    QFETCH(bool, painted);
    const MessageCapture capture;
    for (const samplegauges::StyleName &each : samplegauges::styles) {
        Content content = samplegauges::contentOf(each.style);
        content.level = Level::Critical;
        content.extreme = Extreme::Mean;
        content.thresholds = {0.5};
        Look look = samplegauges::look(side);
        look.size = size;
        const QImage picture = paintGauge(content, look);
        QCOMPARE(picture.size(), painted ? size : QSize(0, 0));
    }
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_Gauge::paintsAnythingSoon_data()
{
    QTest::addColumn<Content>("content");
    const auto row = [](const char *name, const std::function<void(Content &)> &change) {
        for (const samplegauges::StyleName &each : samplegauges::styles) {
            Content content = samplegauges::contentOf(each.style);
            change(content);
            QTest::addRow("%s, %s", name, each.name) << content;
        }
    };
    const QString texts[] = {QString(100000, QLatin1Char('W')),
                             QString(100000, QChar(0x9F98)),
                             QLatin1Char('e') + QString(99999, QChar(0x301)),
                             QString(100000, QChar(0x200B)),
                             QString(100000, QLatin1Char('\n')),
                             QString(100000, QLatin1Char('8')),
                             QString(100000, QChar(0xD800)),
                             QString(100000, QChar(0x202E))};
    int number = 0;
    for (const QString &text : texts) {
        const QByteArray name = "text " + QByteArray::number(++number);
        row(name.constData(), [&text](Content &content) {
            content.title = text;
            for (gauge::Reading *reading : {&content.first, &content.second}) {
                reading->value = text;
                reading->unit = text;
                reading->widest = text;
            }
        });
    }
    row("no text", [](Content &content) {
        content.title.clear();
        content.first = {};
        content.second = {};
    });
    row("million samples", [](Content &content) {
        QVector<gauge::Point> run;
        for (int i = 1000000; i > 0; --i)
            run.append({i * 60e-6, (i % 1000 * 919 % 1000) / 1000.0});
        content.first.trace = {run};
        content.second.trace = {run};
    });
    row("hundred thousand runs", [](Content &content) {
        content.first.trace.clear();
        for (int i = 100000; i > 0; --i)
            content.first.trace.append(
                QVector<gauge::Point>{{i * 60e-5, 0.5}, {(i - 0.5) * 60e-5, 0.6}});
    });
    row("no numbers", [](Content &content) {
        content.span = notANumber;
        content.first.share = notANumber;
        content.first.trace = {
            {{notANumber, 0.5}, {infinite, 0.5}, {3, notANumber}, {1, infinite}}};
        content.thresholds = {notANumber, infinite, -infinite};
    });
    row("hundred thousand thresholds",
        [](Content &content) { content.thresholds = QVector<double>(100000, 0.5); });
}

void tst_Gauge::paintsAnythingSoon()
{
    QFETCH(Content, content);
    for (const int size : {72, 288}) {
        Look look = samplegauges::look(size);
        const std::clock_t before = std::clock();
        const QImage picture = paintGauge(content, look);
        const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
        QCOMPARE(picture.size(), look.size);
        QVERIFY2(seconds < 1.5, qPrintable(QString::number(seconds)));
    }
}

QTEST_MAIN(tst_Gauge)
#include "tst_gauge.moc"
