#include "system_monitor_lib/live/network/GenericNetlink.h"
#include "tests/unit/system_monitor_lib/bytes.h"
#include "tests/unit/system_monitor_lib/live/network/netlinkmessages.h"

#include <QElapsedTimer>
#include <QtTest>

#include <linux/genetlink.h>

namespace {

QByteArray familyQuestion(const QByteArray &name)
{
    return netlinkMessage(GENL_ID_CTRL, CTRL_CMD_GETFAMILY,
                          attribute(CTRL_ATTR_FAMILY_NAME, name + '\0'), NLM_F_REQUEST | NLM_F_ACK);
}

/// The protocol that describes all others, which every kernel has.
const QByteArray known("nlctrl");

} // namespace

/// Questions to the kernel of this machine.
class GenericNetlinkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void givesTheAnswer();
    void givesAList();
    void asksOnAfterARefusal();
    void waitsForNoAnswerForever();
    void asksNothingThatIsNoQuestion();

private:
    GenericNetlink m_netlink;
};

void GenericNetlinkTest::initTestCase()
{
    if (GenericNetlink().ask(familyQuestion(known)).empty())
        QSKIP("This machine does not let programs ask its kernel by netlink");
}

void GenericNetlinkTest::givesTheAnswer()
{
    for (int time = 0; time < 3; ++time) {
        const std::vector<QByteArray> answers = m_netlink.ask(familyQuestion(known));
        QCOMPARE(answers.size(), std::size_t{1});
        QVERIFY(answers.front().contains(attribute(CTRL_ATTR_FAMILY_NAME, known + '\0')));
        QVERIFY(
            answers.front().contains(attribute(CTRL_ATTR_FAMILY_ID, bytes<quint16>(GENL_ID_CTRL))));
    }
}

void GenericNetlinkTest::givesAList()
{
    const std::vector<QByteArray> answers = m_netlink.ask(
        netlinkMessage(GENL_ID_CTRL, CTRL_CMD_GETFAMILY, {}, NLM_F_REQUEST | NLM_F_DUMP));
    QVERIFY(!answers.empty());
    QVERIFY(std::any_of(answers.begin(), answers.end(), [](const QByteArray &answer) {
        return answer.contains(attribute(CTRL_ATTR_FAMILY_NAME, known + '\0'));
    }));
}

void GenericNetlinkTest::asksOnAfterARefusal()
{
    QVERIFY(m_netlink.ask(familyQuestion("no such")).empty());
    QCOMPARE(m_netlink.ask(familyQuestion(known)).size(), std::size_t{1});
}

void GenericNetlinkTest::waitsForNoAnswerForever()
{
    QElapsedTimer time;
    time.start();
    // Nobody acts on it.
    QVERIFY(m_netlink.ask(netlinkMessage(NLMSG_NOOP, 0, {}, NLM_F_REQUEST)).empty());
    QVERIFY(time.elapsed() >= 200);
    QCOMPARE(m_netlink.ask(familyQuestion(known)).size(), std::size_t{1});
}

void GenericNetlinkTest::asksNothingThatIsNoQuestion()
{
    QVERIFY(m_netlink.ask({}).empty());
    QVERIFY(m_netlink.ask("x").empty());
    QVERIFY(m_netlink.ask(familyQuestion(known).chopped(1)).empty());
    QVERIFY(m_netlink.ask(QByteArray(16, '\0')).empty());
}

QTEST_APPLESS_MAIN(GenericNetlinkTest)
#include "tst_genericnetlink.moc"
