#include "deck_simulator/gui/ActionPalette.h"
#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckWindow.h"
#include "deck_simulator/gui/LogView.h"
#include "deck_simulator/gui/MessageBar.h"
#include "deck_simulator/gui/PluginBar.h"
#include "deck_simulator/gui/ScreenRoom.h"
#include "deck_simulator/gui/SettingsForm.h"
#include "deck_simulator/gui/SettingsPanel.h"
#include "deck_simulator/gui/WindowStyle.h"
#include "tests/support/Waits.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QSlider>
#include <QTabBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using namespace deck;

// The window with large texts on small screens: whatever can be used can be reached.
class tst_SmallScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void fits_data();
    void fits();
    void arrangesDocksThatDoNotFit();
    void reachesEveryControl_data() { fits_data(); }
    void reachesEveryControl();
    void reachesEveryKey_data() { fits_data(); }
    void reachesEveryKey();

    void fitsDialogs_data() { fits_data(); }
    void fitsDialogs();
    void growsWithTheText();

private:
    void open(const QSize &size, int percent);
    void show(QDockWidget *dock);
    void reach(QWidget *widget);
    void reachInBar(QWidget *widget);

    QFont m_usual;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DeckWindow> m_window;
};

namespace {

constexpr qreal usualPoints = 10; // of desktops
constexpr int frame = 28;         // pixels that the title of the window takes

bool isInteractive(const QWidget *widget)
{
    // Parts of other controls, such as the buttons that scroll tabs.
    const QWidget *parent = widget->parentWidget();
    if (qobject_cast<const QAbstractSpinBox *>(parent) != nullptr ||
        qobject_cast<const QLineEdit *>(parent) != nullptr ||
        qobject_cast<const QTabBar *>(parent) != nullptr ||
        qobject_cast<const QComboBox *>(parent) != nullptr ||
        widget->objectName() == QLatin1String("qt_toolbar_ext_button") ||
        widget->objectName() == QLatin1String("qt_menubar_ext_button"))
        return false;
    return qobject_cast<const QAbstractButton *>(widget) != nullptr ||
           qobject_cast<const QComboBox *>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox *>(widget) != nullptr ||
           qobject_cast<const QLineEdit *>(widget) != nullptr ||
           qobject_cast<const QSlider *>(widget) != nullptr ||
           qobject_cast<const QTreeView *>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit *>(widget) != nullptr ||
           qobject_cast<const QTabBar *>(widget) != nullptr;
}

QString description(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    return QStringLiteral("%1 \"%2\" %3, %4 x %5, at least %6 x %7")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
             button == nullptr ? QString() : button->text())
        .arg(widget->width())
        .arg(widget->height())
        .arg(widget->minimumSizeHint().width())
        .arg(widget->minimumSizeHint().height());
}

// Whether a dock other than \a shown has the widget.
bool isInAnother(const QWidget *widget, const QList<QDockWidget *> &docks, const QDockWidget *shown)
{
    return std::any_of(docks.begin(), docks.end(), [widget, shown](const QDockWidget *dock) {
        return dock != shown && dock->isAncestorOf(widget);
    });
}

// A change goes from layout to layout with an event each.
void layOut()
{
    constexpr int deepest = 10;
    for (int level = 0; level < deepest; ++level)
        QCoreApplication::processEvents();
}

void scrollTo(QWidget *widget, const QPoint &point)
{
    for (QWidget *above = widget->parentWidget(); above != nullptr; above = above->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(above)) {
            const QPoint inside = widget->mapTo(area->widget(), point);
            area->ensureVisible(inside.x(), inside.y(), 1, 1);
        }
    }
}

} // namespace

void tst_SmallScreens::initTestCase()
{
    m_usual = QApplication::font();
    applyColors(QStringLiteral("light"));
}

void tst_SmallScreens::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_SmallScreens::cleanup()
{
    m_window.reset();
    QApplication::setFont(m_usual);
}

void tst_SmallScreens::open(const QSize &size, int percent)
{
    QFont font = m_usual;
    font.setPointSizeF(usualPoints);
    QApplication::setFont(font);
    applyTextSize(percent);
    WindowSettings settings;
    settings.profileFile = m_folder->filePath(QStringLiteral("deck.json"));
    m_window = std::make_unique<DeckWindow>(settings);
    if (!size.isEmpty())
        m_window->resize(size);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    // Everything that a key can have.
    const QList<QToolButton *> headings = m_window->panel()->findChildren<QToolButton *>();
    for (QToolButton *heading : headings) {
        if (heading->objectName().endsWith(QLatin1String("Section")))
            heading->setChecked(true);
    }
    layOut();
}

void tst_SmallScreens::fits_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("percent");
    for (const QSize &size : {QSize(800, 600 - frame), QSize(1366, 768 - frame)}) {
        for (const int percent : {100, 150, 200, 300})
            QTest::addRow("%d x %d at %d %%", size.width(), size.height(), percent)
                << size << percent;
    }
}

void tst_SmallScreens::fits()
{
    QFETCH(const QSize, size);
    QFETCH(const int, percent);
    open(size, percent);
    QCOMPARE(m_window->size(), size);
    m_window->messages()->showMessage(QStringLiteral("A long message. ").repeated(40));
    layOut();
    QCOMPARE(m_window->size(), size);
    const QSize least = m_window->minimumSizeHint();
    QVERIFY2(least.width() <= size.width() && least.height() <= size.height(),
             qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
}

// What a larger screen, or smaller text, has left.
void tst_SmallScreens::arrangesDocksThatDoNotFit()
{
    open({1920, 1000}, 100);
    const QList<QDockWidget *> docks = m_window->findChildren<QDockWidget *>();
    m_window->addDockWidget(Qt::LeftDockWidgetArea, docks.at(0));
    m_window->addDockWidget(Qt::RightDockWidgetArea, docks.at(1));
    const auto isBesides = [this] {
        const auto *actions = m_window->findChild<QDockWidget *>(QStringLiteral("actions"));
        return m_window->tabifiedDockWidgets(const_cast<QDockWidget *>(actions)).isEmpty();
    };
    QVERIFY(isBesides());
    m_window->close();
    m_window.reset();
    open({}, 300);
    QVERIFY(!isBesides());
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    QVERIFY(m_window->minimumSizeHint().width() <= screen.width());
    QVERIFY2(m_window->width() <= screen.width(), qPrintable(QString::number(m_window->width())));
}

void tst_SmallScreens::show(QDockWidget *dock)
{
    dock->show();
    dock->raise();
    layOut();
}

void tst_SmallScreens::reach(QWidget *widget)
{
    // The buttons in the title of a dock get theirs from Qt.
    const QSize least = widget->objectName().startsWith(QLatin1String("qt_dockwidget"))
                            ? QSize()
                            : widget->minimumSizeHint();
    QVERIFY2(widget->width() >= least.width() && widget->height() >= least.height(),
             qPrintable(description(widget)));
    // A control may be larger than what it is scrolled in.
    for (const QPoint &point : {widget->rect().topLeft(), widget->rect().bottomRight()}) {
        scrollTo(widget, point);
        QVERIFY2(widget->visibleRegion().contains(point), qPrintable(description(widget)));
    }
}

void tst_SmallScreens::reachInBar(QWidget *widget)
{
    if (!widget->isVisible()) {
        auto *extension = m_window->pluginBar()->findChild<QToolButton *>(
            QStringLiteral("qt_toolbar_ext_button"));
        QVERIFY(extension != nullptr && extension->isVisible());
        QVERIFY(extension->visibleRegion().contains(extension->rect().center()));
        QTest::mouseClick(extension, Qt::LeftButton);
        QTRY_VERIFY2(widget->isVisible(), qPrintable(description(widget)));
    }
    QTRY_VERIFY2(widget->visibleRegion().contains(widget->rect().bottomRight()),
                 qPrintable(description(widget)));
    // The whole bar, when it unfolds, may take some of the blank beside a text.
    const QSize least =
        widget->minimumSizeHint() - QSize(widget->fontMetrics().averageCharWidth(), 0);
    QVERIFY2(widget->width() >= least.width() && widget->height() >= least.height(),
             qPrintable(description(widget)));
}

void tst_SmallScreens::reachesEveryControl()
{
    QFETCH(const QSize, size);
    QFETCH(const int, percent);
    open(size, percent);
    int controls = 0;
    const QList<QDockWidget *> docks = m_window->findChildren<QDockWidget *>();
    QCOMPARE(docks.size(), 3);
    for (QDockWidget *dock : docks) {
        show(dock);
        const QList<QWidget *> widgets = m_window->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (!widget->isVisible() || !isInteractive(widget) ||
                m_window->pluginBar()->isAncestorOf(widget) || isInAnother(widget, docks, dock))
                continue;
            ++controls;
            reach(widget);
            if (QTest::currentTestFailed())
                return;
        }
    }
    QVERIFY2(controls > 40, qPrintable(QString::number(controls)));
    const PluginBar *bar = m_window->pluginBar();
    for (QWidget *widget : std::initializer_list<QWidget *>{
             bar->widgetForAction(bar->startAction()), bar->widgetForAction(bar->portAction()),
             bar->languageField(), bar->stripField(), bar->readingsField()}) {
        reachInBar(widget);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_SmallScreens::reachesEveryKey()
{
    QFETCH(const QSize, size);
    QFETCH(const int, percent);
    open(size, percent);
    m_window->model()->setGrid({DeckModel::mostColumns, DeckModel::mostRows});
    m_window->model()->setDials(DeckModel::mostDials);
    layOut();
    DeckGrid *grid = m_window->grid();
    const int least = grid->leastSide();
    QVERIFY(least >= 48 && least >= 2 * QFontMetrics(QApplication::font()).lineSpacing());
    const auto see = [grid](const DeckPlace &place) {
        grid->setCurrent(place);
        const KeyCell *cell = grid->cell(place);
        return cell->visibleRegion().contains(cell->rect().topLeft()) &&
               cell->visibleRegion().contains(cell->rect().bottomRight());
    };
    const auto reachKnob = [grid](int number) {
        grid->setCurrent({number, 0, true});
        auto *dial = static_cast<DialCell *>(grid->cell({number, 0, true}));
        scrollTo(dial, dial->rect().bottomRight());
        return dial->visibleRegion().contains(dial->knobRect());
    };
    for (int column = 0; column < DeckModel::mostColumns; ++column) {
        for (int row = 0; row < DeckModel::mostRows; ++row) {
            QVERIFY2(see({column, row}), qPrintable(QStringLiteral("%1,%2").arg(column).arg(row)));
            QVERIFY(grid->cell({column, row})->width() >= least);
            QVERIFY(grid->cell({column, row})->height() >= least);
        }
    }
    for (int dial = 0; dial < DeckModel::mostDials; ++dial)
        QVERIFY2(reachKnob(dial), qPrintable(QString::number(dial)));
}

void tst_SmallScreens::fitsDialogs()
{
    QFETCH(const QSize, size);
    QFETCH(const int, percent);
    open(size, percent);
    QColorDialog colors;
    const bool wouldFit = colors.sizeHint().boundedTo(size) == colors.sizeHint();
    shrinkTextToFit(&colors, size);
    colors.show();
    QVERIFY(QTest::qWaitForWindowExposed(&colors));
    QVERIFY2(colors.width() <= size.width() && colors.height() <= size.height(),
             qPrintable(QStringLiteral("%1 x %2").arg(colors.width()).arg(colors.height())));
    if (wouldFit)
        QCOMPARE(colors.font(), QApplication::font());
    m_window->pluginBar()->askForRecording();
    const auto *files = m_window->findChild<QFileDialog *>();
    QVERIFY(files != nullptr);
    QVERIFY2(files->width() <= size.width() && files->height() <= size.height(),
             qPrintable(QStringLiteral("%1 x %2").arg(files->width()).arg(files->height())));
}

// Also while the window is open, as when a desktop's settings change.
void tst_SmallScreens::growsWithTheText()
{
    const auto sizes = [this] {
        const QCheckBox *check = m_window->pluginBar()->stripField();
        const QStyle *style = check->style();
        const QTreeView *actions = m_window->actionList()->view();
        return QVector<int>{
            m_window->logView()->view()->fontMetrics().lineSpacing(),
            style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, check),
            style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, check),
            style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, actions),
            actions->visualRect(actions->model()->index(0, 0)).height(),
            m_window->grid()->leastSide(),
            m_window->panel()->findChild<QLabel *>(QStringLiteral("caption"))->height(),
        };
    };
    open({1300, 800}, 100);
    const QVector<int> usual = sizes();
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(font);
    layOut();
    const QVector<int> large = sizes();
    m_window.reset();
    open({1300, 800}, 200);
    for (int index = 0; index < usual.size(); ++index) {
        QVERIFY2(large.at(index) * 10 >= usual.at(index) * 12, qPrintable(QString::number(index)));
        QVERIFY2(large.at(index) * 10 <= usual.at(index) * 24, qPrintable(QString::number(index)));
    }
    QCOMPARE(large, sizes());
}

QTEST_MAIN(tst_SmallScreens)
#include "tst_SmallScreens.moc"
