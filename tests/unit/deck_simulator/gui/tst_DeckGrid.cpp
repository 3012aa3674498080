#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckMime.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/Waits.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>

using namespace deck;

// A grid on the offscreen platform, driven by mouse, keyboard and drops.
class tst_DeckGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void movesWithTheArrows();
    void pressesWithTheKeyboard();
    void pressesNoEmptyKey();
    void releasesWhenTheFocusGoes();
    void pressesWithTheMouse();
    void keepsTheTimeOfAPress_data();
    void keepsTheTimeOfAPress();
    void releasesBeforeTheNextPress();
    void removes();
    void asksForSettings();
    void asksForAnAction();
    void takesADroppedAction();
    void replacesTheActionOfATakenKey();
    void takesADroppedKey();
    void dragsAKeyWithTheMouse_data();
    void dragsAKeyWithTheMouse();
    void refusesStrangeDrops();
    void turnsDials();
    void pressesDials();
    void showsPicturesAsTheyCome();
    void showsGaugesAsLargeAsTheirKeys();
    void showsTheTitleAsToolTip();
    void dimsPictures();
    void forgetsPictures();
    void followsTheSizeOfTheDeck();
    void keepsKeysInsideOfItsBody_data();
    void keepsKeysInsideOfItsBody();
    void offersAMenu();

private:
    [[nodiscard]] bool drag(QMimeData *data, const DeckPlace &to);
    void press(Qt::Key key) { QTest::keyClick(m_grid.get(), key); }

    std::unique_ptr<DeckModel> m_model;
    std::unique_ptr<DeckGrid> m_grid;
};

namespace {

QString cpuAction()
{
    return keyuuid::cpu;
}

} // namespace

void tst_DeckGrid::init()
{
    m_model = std::make_unique<DeckModel>();
    m_model->put({0, 0}, cpuAction());
    m_model->put({1, 0, true}, keyuuid::volume);
    m_grid = std::make_unique<DeckGrid>(m_model.get());
    m_grid->resize(900, 560);
    m_grid->show();
    m_grid->activateWindow();
    m_grid->setFocus();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
}

void tst_DeckGrid::cleanup()
{
    m_grid.reset();
    m_model.reset();
}

// Like a drag that ends over a key; true when the key accepted it.
bool tst_DeckGrid::drag(QMimeData *data, const DeckPlace &to)
{
    const std::unique_ptr<QMimeData> owned(data);
    KeyCell *cell = m_grid->cell(to);
    const QPoint point = cell->rect().center();
    QDragEnterEvent enter(point, Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(cell, &enter);
    if (!enter.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(cell, &leave);
        return false;
    }
    QDropEvent drop(point, Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(cell, &drop);
    return drop.isAccepted();
}

void tst_DeckGrid::movesWithTheArrows()
{
    QSignalSpy moved(m_grid.get(), &DeckGrid::currentChanged);
    QVERIFY(m_grid->current() == (DeckPlace{0, 0}));
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    QCOMPARE(moved.count(), 0);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    QVERIFY(m_grid->current() == (DeckPlace{1, 1}));
    QCOMPARE(moved.count(), 2);
    for (int step = 0; step < 20; ++step)
        press(Qt::Key_Right);
    QVERIFY(m_grid->current() == (DeckPlace{7, 1}));
    for (int step = 0; step < 20; ++step)
        press(Qt::Key_Down);
    QVERIFY(m_grid->current() == (DeckPlace{3, 0, true}));
    press(Qt::Key_Left);
    QVERIFY(m_grid->current() == (DeckPlace{2, 0, true}));
    press(Qt::Key_Up);
    QVERIFY(m_grid->current() == (DeckPlace{5, 3}));
}

void tst_DeckGrid::pressesWithTheKeyboard()
{
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    const QString context = m_model->at({0, 0})->context;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        pressed.clear();
        QTest::keyPress(m_grid.get(), key);
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(pressed.at(0), (QVariantList{context, true}));
        QVERIFY(m_grid->cell({0, 0})->isDown());
        press(Qt::Key_Right); // a key that is held down stays current
        QVERIFY(m_grid->current() == (DeckPlace{0, 0}));
        QTest::keyRelease(m_grid.get(), key);
        QCOMPARE(pressed.count(), 2);
        QCOMPARE(pressed.at(1), (QVariantList{context, false}));
    }
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    pressed.clear();
    QApplication::sendEvent(m_grid.get(), &repeated);
    QCOMPARE(pressed.count(), 0);
}

void tst_DeckGrid::pressesNoEmptyKey()
{
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    m_grid->setCurrent({3, 3});
    press(Qt::Key_Return);
    QTest::mouseClick(m_grid->cell({3, 3}), Qt::LeftButton);
    QCOMPARE(pressed.count(), 0);
}

void tst_DeckGrid::releasesWhenTheFocusGoes()
{
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    QTest::keyPress(m_grid.get(), Qt::Key_Return);
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(m_grid.get(), &out);
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(pressed.at(1).at(1), QVariant(false));
    QTest::keyRelease(m_grid.get(), Qt::Key_Return);
    QCOMPARE(pressed.count(), 2);
}

void tst_DeckGrid::pressesWithTheMouse()
{
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    m_grid->setCurrent({3, 3});
    KeyCell *cell = m_grid->cell({0, 0});
    QTest::mousePress(cell, Qt::LeftButton);
    QVERIFY(m_grid->current() == (DeckPlace{0, 0}));
    QTRY_COMPARE(pressed.count(), 1); // when it lasts long enough
    QVERIFY(cell->isDown());
    QTest::mouseRelease(cell, Qt::LeftButton);
    QTRY_COMPARE(pressed.count(), 2);
    QTest::mouseClick(cell, Qt::RightButton);
    QCOMPARE(pressed.count(), 2);
    QTest::mouseClick(cell, Qt::LeftButton);
    QTRY_COMPARE(pressed.count(), 4);
    QCOMPARE(pressed.at(2).at(1), QVariant(true));
    QCOMPARE(pressed.at(3).at(1), QVariant(false));
}

// The press is reported late, because it may become a drag; the release is late by the same time.
void tst_DeckGrid::keepsTheTimeOfAPress_data()
{
    QTest::addColumn<bool>("dial");
    QTest::addColumn<int>("time");
    QTest::newRow("click on a key") << false << 60;
    QTest::newRow("held key") << false << 500;
    QTest::newRow("held dial") << true << 500;
}

/// A busy machine may delay every step, so the delay of the press is known only within the times
/// around it, and the release only not to come too early.
void tst_DeckGrid::keepsTheTimeOfAPress()
{
    constexpr qint64 rounding = 1;
    constexpr qint64 apart = 50; // the click before
    QFETCH(const bool, dial);
    QFETCH(const int, time);
    KeyCell *cell = m_grid->cell({dial ? 1 : 0, 0, dial});
    const auto *knob = qobject_cast<DialCell *>(cell);
    const QPoint point = knob == nullptr ? cell->rect().center() : knob->knobRect().center();
    const auto *releaseTimer = cell->findChild<QTimer *>(QStringLiteral("releaseTimer"));
    QVERIFY(releaseTimer);
    QElapsedTimer clock;
    clock.start();
    QVector<qint64> times;
    QVector<bool> downs;
    const auto note = [&](const QString &context, bool down) {
        Q_UNUSED(context)
        times.append(clock.elapsed());
        downs.append(down);
    };
    connect(m_grid.get(), &DeckGrid::keyPressed, this, note);
    connect(m_grid.get(), &DeckGrid::dialPressed, this, note);
    QTest::mouseClick(cell, Qt::LeftButton, {}, point);
    QTRY_COMPARE(times.size(), 2);
    times.clear();
    downs.clear();
    QTRY_VERIFY(clock.hasExpired(apart));
    const qint64 beforePress = clock.elapsed();
    QTest::mousePress(cell, Qt::LeftButton, {}, point);
    const qint64 afterPress = clock.elapsed();
    qint64 notYetReported = afterPress;
    const auto hasBeenHeld = [&] {
        const qint64 now = clock.elapsed();
        if (times.isEmpty())
            notYetReported = now;
        return now - afterPress >= time;
    };
    QTRY_VERIFY(hasBeenHeld());
    const qint64 beforeRelease = clock.elapsed();
    QTest::mouseRelease(cell, Qt::LeftButton, {}, point);
    const qint64 delay = releaseTimer->interval();
    QTRY_COMPARE(times.size(), 2);
    QCOMPARE(downs, (QVector<bool>{true, false}));
    const qint64 shortest = notYetReported - afterPress;
    const qint64 longest = times.at(0) - beforePress;
    QVERIFY2(delay >= shortest - rounding && delay <= longest + rounding,
             qPrintable(QStringLiteral("%1, not %2 to %3").arg(delay).arg(shortest).arg(longest)));
    QVERIFY2(times.at(1) - beforeRelease >= delay - rounding,
             qPrintable(QStringLiteral("%1 after %2").arg(times.at(1)).arg(beforeRelease)));
}

void tst_DeckGrid::releasesBeforeTheNextPress()
{
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    KeyCell *cell = m_grid->cell({0, 0});
    QTest::mousePress(cell, Qt::LeftButton);
    QTRY_COMPARE(pressed.count(), 1);
    QTest::mouseRelease(cell, Qt::LeftButton);
    QTest::mousePress(cell, Qt::LeftButton); // before the release was reported
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(pressed.at(1).at(1), QVariant(false));
    QTRY_COMPARE(pressed.count(), 3);
    QTest::mouseRelease(cell, Qt::LeftButton);
    QTRY_COMPARE(pressed.count(), 4);
}

void tst_DeckGrid::removes()
{
    press(Qt::Key_Delete);
    QCOMPARE(m_model->at({0, 0}), nullptr);
    QVERIFY(!m_grid->cell({0, 0})->isOccupied());
    press(Qt::Key_Delete);
    QCOMPARE(m_model->entries().size(), 1);
}

void tst_DeckGrid::asksForSettings()
{
    QSignalSpy edits(m_grid.get(), &DeckGrid::editRequested);
    QSignalSpy wishes(m_grid.get(), &DeckGrid::actionWanted);
    press(Qt::Key_F2);
    QCOMPARE(edits.count(), 1);
    m_grid->setCurrent({2, 2});
    press(Qt::Key_F2);
    QCOMPARE(edits.count(), 1);
    QCOMPARE(wishes.count(), 1);
}

void tst_DeckGrid::asksForAnAction()
{
    QSignalSpy wishes(m_grid.get(), &DeckGrid::actionWanted);
    QTest::mouseDClick(m_grid->cell({4, 2}), Qt::LeftButton);
    QCOMPARE(wishes.count(), 1);
    QVERIFY(m_grid->current() == (DeckPlace{4, 2}));
    QTest::mouseDClick(m_grid->cell({0, 0}), Qt::LeftButton);
    QCOMPARE(wishes.count(), 1);
}

void tst_DeckGrid::takesADroppedAction()
{
    QVERIFY(drag(actionMime(cpuAction()), {5, 1}));
    QVERIFY(m_model->at({5, 1}) != nullptr);
    QCOMPARE(m_model->at({5, 1})->action, cpuAction());
    QVERIFY(m_grid->current() == (DeckPlace{5, 1}));
    QVERIFY(drag(actionMime(cpuAction()), {0, 0, true}));
    QVERIFY(m_model->at({0, 0, true}) != nullptr);
}

void tst_DeckGrid::replacesTheActionOfATakenKey()
{
    const QString before = m_model->at({0, 0})->context;
    m_grid->setCurrent({3, 3});
    QVERIFY(drag(actionMime(keyuuid::memory), {0, 0}));
    QCOMPARE(m_model->at({0, 0})->action, keyuuid::memory);
    QVERIFY(m_model->at({0, 0})->context != before);
    QCOMPARE(m_model->entries().size(), 2);
    QVERIFY(m_grid->current() == (DeckPlace{0, 0}));
}

void tst_DeckGrid::takesADroppedKey()
{
    const QString context = m_model->at({0, 0})->context;
    QVERIFY(drag(placeMime({0, 0}), {2, 2}));
    QVERIFY(m_model->at({2, 2}) != nullptr);
    QCOMPARE(m_model->at({2, 2})->context, context);
    QVERIFY(!drag(placeMime({2, 2}), {2, 2}));
}

void tst_DeckGrid::dragsAKeyWithTheMouse_data()
{
    QTest::addColumn<bool>("pauses");
    QTest::newRow("at once") << false;
    QTest::newRow("after a pause") << true;
}

// A whole drag: press, move, release. It runs its own event loop until the release.
void tst_DeckGrid::dragsAKeyWithTheMouse()
{
    QFETCH(const bool, pauses);
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QSKIP("The offscreen platform finds no widget to drop on; tst_DeckGrid_x11 does");
    const QString context = m_model->at({0, 0})->context;
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    KeyCell *cell = m_grid->cell({0, 0});
    QWindow *window = m_grid->windowHandle();
    const QPoint target = m_grid->cell({3, 2})->geometry().center();
    QTimer steps;
    int step = 0;
    connect(&steps, &QTimer::timeout, this, [&] {
        ++step;
        if (step <= 3)
            QCursor::setPos(window->mapToGlobal(target + QPoint(step, step)));
        else
            QTest::mouseRelease(window, Qt::LeftButton, {}, target);
    });
    QTest::mousePress(window, Qt::LeftButton, {}, cell->geometry().center());
    if (pauses)
        QTRY_COMPARE(pressed.count(), 1);
    steps.start(20);
    const QPoint away = cell->rect().center() + QPoint(60, 60);
    QMouseEvent move(QEvent::MouseMove, away, cell->mapToGlobal(away), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(cell, &move);
    steps.stop();
    QVERIFY(m_model->at({0, 0}) == nullptr);
    QVERIFY(m_model->at({3, 2}) != nullptr);
    QCOMPARE(m_model->at({3, 2})->context, context);
    // A key that is moved at once is not pressed, and no key stays down.
    QCOMPARE(pressed.count(), pauses ? 2 : 0);
    if (pauses)
        QCOMPARE(pressed.at(1).at(1), QVariant(false));
    QVERIFY(!cell->isDown());
}

void tst_DeckGrid::refusesStrangeDrops()
{
    const auto keys = m_model->entries().size();
    auto *text = new QMimeData;
    text->setText(QStringLiteral("0,0,0"));
    QVERIFY(!drag(text, {2, 2}));
    for (const char *place : {"", "1", "a,b,c", "1,2,3,4"}) {
        auto *broken = new QMimeData;
        broken->setData(QStringLiteral("application/x-deck-place"), place);
        QVERIFY(!drag(broken, {2, 2}));
    }
    (void)drag(placeMime({77, -5}), {2, 2});
    QCOMPARE(m_model->entries().size(), keys);
}

void tst_DeckGrid::turnsDials()
{
    QSignalSpy turned(m_grid.get(), &DeckGrid::dialTurned);
    const QString context = m_model->at({1, 0, true})->context;
    m_grid->setCurrent({1, 0, true});
    press(Qt::Key_PageUp);
    press(Qt::Key_PageDown);
    QCOMPARE(turned.count(), 2);
    QCOMPARE(turned.at(0), (QVariantList{context, 1, false}));
    QCOMPARE(turned.at(1), (QVariantList{context, -1, false}));

    const auto wheel = [this](const DeckPlace &place, int angle) {
        KeyCell *cell = m_grid->cell(place);
        const QPointF point = cell->rect().center();
        QWheelEvent event(point, cell->mapToGlobal(point.toPoint()), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(cell, &event);
    };
    turned.clear();
    wheel({1, 0, true}, 60);
    QCOMPARE(turned.count(), 0); // half a step
    wheel({1, 0, true}, 60);
    wheel({1, 0, true}, -360);
    wheel({2, 0, true}, 120); // nothing is on it
    QCOMPARE(turned.count(), 2);
    QCOMPARE(turned.at(0), (QVariantList{context, 1, false}));
    QCOMPARE(turned.at(1), (QVariantList{context, -3, false}));
    m_grid->setCurrent({0, 0});
    press(Qt::Key_PageUp);
    QCOMPARE(turned.count(), 2);
}

void tst_DeckGrid::pressesDials()
{
    QSignalSpy pressed(m_grid.get(), &DeckGrid::dialPressed);
    QSignalSpy keys(m_grid.get(), &DeckGrid::keyPressed);
    QSignalSpy turned(m_grid.get(), &DeckGrid::dialTurned);
    auto *dial = qobject_cast<DialCell *>(m_grid->cell({1, 0, true}));
    QVERIFY(dial != nullptr);
    QTest::mouseClick(dial, Qt::LeftButton, {}, QPoint(dial->width() / 2, 5)); // on its screen
    QCOMPARE(pressed.count(), 0);
    QTest::mousePress(dial, Qt::LeftButton, {}, dial->knobRect().center());
    QTRY_COMPARE(pressed.count(), 1);
    press(Qt::Key_PageUp);
    QTest::mouseRelease(dial, Qt::LeftButton, {}, dial->knobRect().center());
    const QString context = m_model->at({1, 0, true})->context;
    QTRY_COMPARE(pressed.count(), 2);
    QCOMPARE(pressed.at(0), (QVariantList{context, true}));
    QCOMPARE(pressed.at(1), (QVariantList{context, false}));
    QCOMPARE(turned.count(), 1);
    QCOMPARE(turned.at(0), (QVariantList{context, 1, true}));
    QCOMPARE(keys.count(), 0);
}

void tst_DeckGrid::showsPicturesAsTheyCome()
{
    QImage picture(60, 20, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    m_grid->showLive(m_model->at({0, 0})->context, QStringLiteral("CPU: 3%"), picture);
    const QImage shown = m_grid->cell({0, 0})->grab().toImage();
    const QPoint center = shown.rect().center();
    QCOMPARE(QColor(shown.pixel(center)), QColor(Qt::red));
    // Keeps its proportions: three times as wide as high.
    int width = 0;
    int height = 0;
    for (int x = 0; x < shown.width(); ++x)
        width += QColor(shown.pixel(x, center.y())) == QColor(Qt::red) ? 1 : 0;
    for (int y = 0; y < shown.height(); ++y)
        height += QColor(shown.pixel(center.x(), y)) == QColor(Qt::red) ? 1 : 0;
    QVERIFY2(width > 20 && qAbs(width - 3 * height) <= 4,
             qPrintable(QStringLiteral("%1 x %2").arg(width).arg(height)));
    m_grid->showLive(QStringLiteral("nobody"), QString(), picture);

    // It moves with its key.
    m_model->move({0, 0}, {1, 1});
    QVERIFY(!m_grid->cell({0, 0})->isOccupied());
    QCOMPARE(m_grid->cell({1, 1})->face().picture.size(), QSize(60, 20));
}

void tst_DeckGrid::showsGaugesAsLargeAsTheirKeys()
{
    const auto redBox = [](const QImage &image) {
        QRect box;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (QColor(image.pixel(x, y)) == QColor(Qt::red))
                    box |= QRect(x, y, 1, 1);
            }
        }
        return box;
    };
    EntrySettings settings;
    settings.display.style = QStringLiteral("ring");
    const QString key = m_model->at({0, 0})->context;
    const QString dial = m_model->at({1, 0, true})->context;
    m_model->changeSettings(key, settings);
    m_model->changeSettings(dial, settings);
    QImage picture(144, 144, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    m_grid->setCurrent({3, 3}); // the mark of the current key lies over its edge
    m_grid->showLive(key, QString(), picture);
    const QImage square = m_grid->cell({0, 0})->grab().toImage();
    QCOMPARE(redBox(square).size(), square.size() - QSize(6, 6)); // up to the gap between keys
    QVERIFY(QColor(square.pixel(4, 4)) != QColor(Qt::red));       // the corners are round
    m_grid->showLive(dial, QString(), picture.scaled(288, 144));
    const QRect wide = redBox(m_grid->cell({1, 0, true})->grab().toImage());
    QVERIFY2(qAbs(wide.width() - 2 * wide.height()) <= 2, "not twice as wide as high");
    QVERIFY2(wide.height() > square.height() * 2 / 3, qPrintable(QString::number(wide.height())));
    // A line of text keeps its border.
    m_grid->showLive(key, QString(), picture.scaled(144, 40));
    QVERIFY(redBox(m_grid->cell({0, 0})->grab().toImage()).width() < square.width() - 8);
}

void tst_DeckGrid::showsTheTitleAsToolTip()
{
    KeyCell *cell = m_grid->cell({0, 0});
    QVERIFY(cell->toolTip().contains(QLatin1String("CPU usage")));
    m_grid->showLive(m_model->at({0, 0})->context, QStringLiteral("<b>3</b> %"), {});
    QVERIFY2(cell->toolTip().contains(QLatin1String("&lt;b&gt;3&lt;/b&gt; %")),
             qPrintable(cell->toolTip()));
    QCOMPARE(m_grid->cell({1, 0})->toolTip(), QString());
}

void tst_DeckGrid::dimsPictures()
{
    QImage picture(60, 20, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    m_grid->showLive(m_model->at({0, 0})->context, QStringLiteral("3 %"), picture);
    KeyCell *cell = m_grid->cell({0, 0});
    const auto brightness = [cell] {
        return qRed(cell->grab().toImage().pixel(cell->rect().center()));
    };
    QVERIFY(brightness() > 200);
    m_grid->setDimmed(true);
    QVERIFY(brightness() < 150);
    m_grid->setDimmed(false);
    QVERIFY(brightness() > 200);
}

void tst_DeckGrid::forgetsPictures()
{
    m_grid->showLive(m_model->at({0, 0})->context, QStringLiteral("3 %"),
                     QImage(60, 20, QImage::Format_ARGB32));
    m_grid->clearLive();
    QVERIFY(m_grid->cell({0, 0})->face().picture.isNull());
    QVERIFY(m_grid->cell({0, 0})->isOccupied());
}

void tst_DeckGrid::followsTheSizeOfTheDeck()
{
    m_grid->setCurrent({7, 3});
    m_model->setGrid({3, 2});
    QCOMPARE(m_grid->cell({7, 3}), nullptr);
    QVERIFY(m_grid->current() == (DeckPlace{0, 0}));
    QVERIFY(m_grid->cell({0, 0})->isOccupied());
    m_model->setDials(0);
    QCOMPARE(m_grid->cell({0, 0, true}), nullptr);
    for (int step = 0; step < 5; ++step)
        press(Qt::Key_Down);
    QVERIFY(m_grid->current() == (DeckPlace{0, 1}));
    m_model->setGrid({16, 16});
    m_model->setDials(8);
    QVERIFY(m_grid->cell({15, 15}) != nullptr);
    QVERIFY(m_grid->cell({7, 0, true}) != nullptr);
    m_grid->setCurrent({99, 99});
    QVERIFY(m_grid->current() == (DeckPlace{0, 1}));
}

void tst_DeckGrid::keepsKeysInsideOfItsBody_data()
{
    QTest::addColumn<QSize>("grid");
    QTest::addColumn<int>("dials");
    QTest::newRow("usual") << QSize(8, 4) << 4;
    QTest::newRow("one key") << QSize(1, 1) << 0;
    QTest::newRow("many dials") << QSize(3, 2) << 8;
    QTest::newRow("large") << QSize(16, 16) << 8;
}

void tst_DeckGrid::keepsKeysInsideOfItsBody()
{
    QFETCH(const QSize, grid);
    QFETCH(const int, dials);
    m_model->setGrid(grid);
    m_model->setDials(dials);
    m_grid->resize(m_grid->minimumSizeHint());
    QRegion taken;
    for (int index = 0; index < grid.width() * grid.height() + dials; ++index) {
        const int keys = grid.width() * grid.height();
        const DeckPlace place = index < keys ? DeckPlace{index % grid.width(), index / grid.width()}
                                             : DeckPlace{index - keys, 0, true};
        const QRect rect = m_grid->cell(place)->geometry();
        QVERIFY(m_grid->rect().contains(rect));
        QVERIFY(rect.width() >= 10);
        QVERIFY(!taken.intersects(rect));
        taken += rect;
    }
}

void tst_DeckGrid::offersAMenu()
{
    const auto openMenu = [this](const DeckPlace &place) {
        KeyCell *cell = m_grid->cell(place);
        const QPoint center = cell->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, center, cell->mapToGlobal(center));
        QApplication::sendEvent(cell, &event);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    };
    QSignalSpy pressed(m_grid.get(), &DeckGrid::keyPressed);
    QMenu *menu = openMenu({0, 0});
    QVERIFY(menu != nullptr);
    menu->actions().constFirst()->trigger();
    QCOMPARE(pressed.count(), 2);
    menu->actions().constLast()->trigger();
    QCOMPARE(m_model->at({0, 0}), nullptr);
    menu->close();
    QSignalSpy wishes(m_grid.get(), &DeckGrid::actionWanted);
    menu = openMenu({0, 0});
    QVERIFY(menu != nullptr);
    menu->actions().constFirst()->trigger();
    QCOMPARE(wishes.count(), 1);
    menu->close();
}

QTEST_MAIN(tst_DeckGrid)
#include "tst_DeckGrid.moc"
