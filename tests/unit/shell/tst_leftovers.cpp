#include "shell/leftovers.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

using processes::Process;

/// The guard on a simulated system.
class tst_Leftovers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void endsTheOthersOfItsName();
    void tellsOfAProcessThatCannotBeOpened();
    void tellsOfALackOfASnapshot();
    void tellsOfALackOfItsOwnName();

private:
    static QStringList messagesOf(const leftovers::System &system);

    leftovers::System m_system;
    QVector<qint64> m_ended;
};

void tst_Leftovers::init()
{
    m_ended.clear();
    m_system.ownExecutableName = [] { return QStringLiteral("Program"); };
    m_system.ownId = [] { return 10; };
    m_system.snapshot = [] {
        return QVector<Process>{{9, QStringLiteral("Program")},
                                {10, QStringLiteral("Program")},
                                {11, QStringLiteral("Program2")},
                                {12, QStringLiteral("pROGRAM")}};
    };
    m_system.terminate = [this](const Process &process) {
        m_ended.append(process.id);
        return true;
    };
}

QStringList tst_Leftovers::messagesOf(const leftovers::System &system)
{
    const MessageCapture capture;
    leftovers::end(system);
    return MessageCapture::messages();
}

void tst_Leftovers::endsTheOthersOfItsName()
{
    QCOMPARE(messagesOf(m_system), (QStringList{QStringLiteral("\"当前进程名:Program\""),
                                                QStringLiteral("\"已终止进程 ID:9\""),
                                                QStringLiteral("\"已终止进程 ID:12\""),
                                                QStringLiteral("\"已终止所有同名进程。\"")}));
    QCOMPARE(m_ended, (QVector<qint64>{9, 12}));
}

void tst_Leftovers::tellsOfAProcessThatCannotBeOpened()
{
    m_system.terminate = [](const Process &process) { return process.id == 12; };
    QCOMPARE(messagesOf(m_system), (QStringList{QStringLiteral("\"当前进程名:Program\""),
                                                QStringLiteral("\"无法打开进程 ID:9\""),
                                                QStringLiteral("\"已终止进程 ID:12\""),
                                                QStringLiteral("\"已终止所有同名进程。\"")}));
}

void tst_Leftovers::tellsOfALackOfASnapshot()
{
    m_system.snapshot = [] { return std::nullopt; };
    QCOMPARE(messagesOf(m_system), (QStringList{QStringLiteral("\"当前进程名:Program\""),
                                                QStringLiteral("\"无法创建进程快照！\""),
                                                QStringLiteral("\"已终止所有同名进程。\"")}));
}

void tst_Leftovers::tellsOfALackOfItsOwnName()
{
    m_system.ownExecutableName = [] { return QString(); };
    QCOMPARE(messagesOf(m_system),
             (QStringList{QStringLiteral("\"无法获取当前进程名。\""),
                          QStringLiteral("\"Get currentProcessName Failed, Exit\"")}));
    QVERIFY(m_ended.isEmpty());
}

QTEST_APPLESS_MAIN(tst_Leftovers)
#include "tst_leftovers.moc"
