#include "deck_simulator/deck/ActionList.h"
#include "tests/support/KeyUuids.h"

#include <QSet>
#include <QtTest>

using namespace deck;

class tst_ActionList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsEveryActionOnce();
};

namespace {

QString cpuAction()
{
    return keyuuid::cpu;
}

} // namespace

void tst_ActionList::listsEveryActionOnce()
{
    QSet<QString> uuids;
    ActionGroup last = ActionGroup::Cpu;
    for (const DeckAction &action : deckActions()) {
        uuids.insert(action.uuid);
        QVERIFY2(action.uuid.startsWith(keyuuid::prefix), qPrintable(action.uuid));
        QVERIFY(!action.caption.isEmpty());
        QVERIFY(int(action.group) >= int(last)); // group by group
        last = action.group;
        QCOMPARE(findAction(action.uuid), &action);
    }
    QCOMPARE(uuids.size(), 32);
    QCOMPARE(actionCaption(cpuAction()), QStringLiteral("CPU usage"));
    QCOMPARE(actionCaption(QStringLiteral("no.such")), QStringLiteral("no.such"));
    QCOMPARE(findAction(cpuAction().toUpper()), nullptr);
    QCOMPARE(groupIcon(ActionGroup::Cpu), QStringLiteral(":/Type_1.png"));
    QCOMPARE(groupIcon(ActionGroup::Other), QStringLiteral(":/Type_6.png"));
    QCOMPARE(groupCaption(ActionGroup::Drives), QStringLiteral("Drives"));
}

QTEST_GUILESS_MAIN(tst_ActionList)
#include "tst_ActionList.moc"
