#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/ActionPalette.h"
#include "deck_simulator/gui/ActionTreeModel.h"
#include "deck_simulator/gui/DeckMime.h"
#include "tests/support/KeyUuids.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest>

using namespace deck;

class tst_ActionPalette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsAllActionsInGroups();
    void searches_data();
    void searches();
    void choosesWithTheMouse();
    void choosesFromTheKeyboard();
    void choosesNothing();
    void choosesNothingWithAClick();
    void isLeftWithEscape();
    void carriesTheActionInADrag();
    void drawsIconsThatCanBeSeen();
};

namespace {

QStringList shownActions(const ActionPalette &palette)
{
    QStringList captions;
    const QAbstractItemModel &model = *palette.view()->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex group = model.index(row, 0);
        for (int child = 0; child < model.rowCount(group); ++child)
            captions.append(model.index(child, 0, group).data().toString());
    }
    return captions;
}

} // namespace

void tst_ActionPalette::showsAllActionsInGroups()
{
    const ActionPalette palette;
    const QAbstractItemModel &model = *palette.view()->model();
    QStringList groups;
    for (int row = 0; row < model.rowCount(); ++row)
        groups.append(model.index(row, 0).data().toString());
    QCOMPARE(groups.join(QLatin1Char(' ')), QStringLiteral("CPU GPU Memory Network Drives Other"));
    QCOMPARE(shownActions(palette).size(), 32);
}

void tst_ActionPalette::searches_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("part of a caption")
        << QStringLiteral("voltage")
        << QStringList{QStringLiteral("CPU voltage"), QStringLiteral("GPU voltage")};
    QTest::newRow("another case, with blanks")
        << QStringLiteral(" PUMP ") << QStringList{QStringLiteral("Pump speed")};
    QTest::newRow("a group") << QStringLiteral("drives")
                             << QStringList{QStringLiteral("Drive space"),
                                            QStringLiteral("Drive temperature")};
    QTest::newRow("a uuid") << QStringLiteral("NetWork.Up")
                            << QStringList{QStringLiteral("Upload speed")};
    QTest::newRow("nothing") << QStringLiteral("zzz") << QStringList();
    QTest::newRow("no pattern") << QStringLiteral(".*") << QStringList();
}

void tst_ActionPalette::searches()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, found);
    ActionPalette palette;
    palette.show();
    palette.startSearch();
    QTest::keyClicks(palette.searchField(), text);
    QCOMPARE(shownActions(palette), found);
    palette.searchField()->clear();
    QCOMPARE(shownActions(palette).size(), 32);
}

void tst_ActionPalette::choosesWithTheMouse()
{
    ActionPalette palette;
    palette.resize(300, 600);
    palette.show();
    QSignalSpy chosen(&palette, &ActionPalette::actionChosen);
    QTreeView *view = palette.view();
    const QModelIndex action = view->model()->index(1, 0, view->model()->index(0, 0));
    const QPoint point = view->visualRect(action).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, point);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.at(0).at(0).toString(), keyuuid::cpuTemperature);
}

void tst_ActionPalette::choosesFromTheKeyboard()
{
    ActionPalette palette;
    palette.show();
    QSignalSpy chosen(&palette, &ActionPalette::actionChosen);
    QTest::keyClicks(palette.searchField(), QStringLiteral("voltage"));
    QTest::keyClick(palette.searchField(), Qt::Key_Return);
    QCOMPARE(chosen.at(0).at(0).toString(), keyuuid::cpuVoltage);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(palette.searchField()->text(), QString()); // for the next search
    QTest::keyClicks(palette.searchField(), QStringLiteral("voltage"));
    QTest::keyClick(palette.searchField(), Qt::Key_Down);
    QTest::keyClick(palette.searchField(), Qt::Key_Down);
    QTest::keyClick(palette.searchField(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.at(1).at(0).toString(), keyuuid::gpuVoltage);
    QTest::keyClick(palette.view(), Qt::Key_Enter);
    QCOMPARE(chosen.count(), 3);
}

void tst_ActionPalette::choosesNothingWithAClick()
{
    ActionPalette palette;
    palette.resize(300, 600);
    palette.show();
    QSignalSpy chosen(&palette, &ActionPalette::actionChosen);
    // As on a desktop where a single click activates.
    Q_EMIT palette.view()->activated(
        palette.view()->model()->index(1, 0, palette.view()->model()->index(0, 0)));
    QCOMPARE(chosen.count(), 0);
}

void tst_ActionPalette::isLeftWithEscape()
{
    ActionPalette palette;
    palette.show();
    QSignalSpy left(&palette, &ActionPalette::left);
    QTest::keyClicks(palette.searchField(), QStringLiteral("voltage"));
    QTest::keyClick(palette.searchField(), Qt::Key_Escape);
    QCOMPARE(left.count(), 1);
    QCOMPARE(shownActions(palette).size(), 32);
    QTest::keyClick(palette.view(), Qt::Key_Escape);
    QCOMPARE(left.count(), 2);
}

void tst_ActionPalette::choosesNothing()
{
    ActionPalette palette;
    palette.show();
    QSignalSpy chosen(&palette, &ActionPalette::actionChosen);
    QTest::keyClicks(palette.searchField(), QStringLiteral("zzz"));
    QTest::keyClick(palette.searchField(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 0);
}

void tst_ActionPalette::carriesTheActionInADrag()
{
    const ActionTreeModel model;
    const QModelIndex group = model.index(0, 0);
    const QModelIndex action = model.index(0, 0, group);
    QVERIFY((model.flags(action) & Qt::ItemIsDragEnabled) != 0);
    QVERIFY((model.flags(group) & Qt::ItemIsDragEnabled) == 0);
    const std::unique_ptr<QMimeData> data(model.mimeData({action}));
    QCOMPARE(actionFrom(*data), deckActions().at(0).uuid);
    QVERIFY(!placeFrom(*data));
    QCOMPARE(model.mimeData({group}), nullptr);
}

void tst_ActionPalette::drawsIconsThatCanBeSeen()
{
    ActionTreeModel model;
    for (const QColor &color : {QColor(Qt::black), QColor(Qt::white)}) {
        model.setIconColor(color);
        for (int row = 0; row < model.rowCount(); ++row) {
            const QVariant icon = model.index(0, 0, model.index(row, 0)).data(Qt::DecorationRole);
            const QImage image = icon.value<QIcon>().pixmap(72, 72).toImage();
            QCOMPARE(image.size(), QSize(72, 72));
            int solid = 0;
            for (int y = 0; y < 72; ++y) {
                for (int x = 0; x < 72; ++x) {
                    if (qAlpha(image.pixel(x, y)) < 255)
                        continue;
                    ++solid;
                    QCOMPARE(image.pixel(x, y), color.rgb());
                }
            }
            QVERIFY2(solid > 300 && solid < 3500, qPrintable(QString::number(solid)));
        }
    }
}

QTEST_MAIN(tst_ActionPalette)
#include "tst_ActionPalette.moc"
