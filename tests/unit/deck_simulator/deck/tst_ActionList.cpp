#include "deck_simulator/deck/ActionList.h"
#include "render/ActionCatalogue.h"
#include "tests/support/KeyUuids.h"

#include <QSet>
#include <QtTest>

using namespace deck;

class tst_ActionList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsEveryActionOnce();
    void hasTheChineseTitlesOfThePlugin();
    void givesTitlesToNewKeys();
    void fitsTitlesToTheNumberOfLines();
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

void tst_ActionList::hasTheChineseTitlesOfThePlugin()
{
    QVERIFY(!actionCatalogue().isEmpty());
    for (const ActionCatalogueRow &row : actionCatalogue())
        QCOMPARE(actionCaption(row.uuid, QStringLiteral("zh_CN")), row.chineseTitle);
    for (const DeckAction &action : deckActions())
        QVERIFY2(!action.chineseCaption.isEmpty(), qPrintable(action.uuid));
    QCOMPARE(groupCaption(ActionGroup::Drives, QStringLiteral("zh_CN")), QStringLiteral("硬盘"));
}

void tst_ActionList::givesTitlesToNewKeys()
{
    const QString chinese = QStringLiteral("zh_CN");
    QCOMPARE(newTitle(cpuAction(), QStringLiteral("en")), QStringLiteral("CPU"));
    QCOMPARE(newTitle(cpuAction(), chinese), QStringLiteral("CPU使用率"));
    QCOMPARE(newTitle(cpuAction(), QStringLiteral("fr")), QStringLiteral("CPU"));
    QCOMPARE(newTitle(keyuuid::cpuModel, chinese), QString()); // nor in English
    QCOMPARE(newTitle(QStringLiteral("no.such"), chinese), QString());
}

void tst_ActionList::fitsTitlesToTheNumberOfLines()
{
    const QString chinese = QStringLiteral("zh_CN");
    const QString english = QStringLiteral("en");
    const QString own = QStringLiteral("Net");
    const QString both = QStringLiteral("In/Out");
    const auto fitted = [](const QString &title, bool twoLines, const QString &language) {
        return titleForLines(keyuuid::netWork, title, twoLines, language);
    };
    QCOMPARE(fitted(newTitle(keyuuid::netWork, chinese), true, chinese),
             QStringLiteral("上传/下载"));
    QCOMPARE(fitted(QStringLiteral("上传/下载"), false, chinese), QStringLiteral("网速"));
    QCOMPARE(fitted(own, true, english), QStringLiteral("Up/Down"));
    QCOMPARE(fitted(own, false, english), own);
    QCOMPARE(fitted(both, true, chinese), both);
    QCOMPARE(fitted(both, false, chinese), both);
    QCOMPARE(titleForLines(cpuAction(), own, true, english), own);
}

QTEST_GUILESS_MAIN(tst_ActionList)
#include "tst_ActionList.moc"
