#include "SDK/Backlog.h"

#include "tests/support/TemporaryWorkingDirectory.h"

#include <QtTest>

class tst_Backlog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dropsFromTheLimitUntilAlmostAllIsRead();
    void complainsEachTimeThatDroppingBegins();
};

namespace {

constexpr qint64 limit = 10 * Backlog::caughtUp;

} // namespace

void tst_Backlog::dropsFromTheLimitUntilAlmostAllIsRead()
{
    const TemporaryWorkingDirectory directory;
    Backlog backlog(limit, "behind");
    QVERIFY(!backlog.isDropping());
    backlog.setUnread(limit - 1);
    QVERIFY(!backlog.isDropping());
    backlog.setUnread(limit);
    QVERIFY(backlog.isDropping());
    backlog.setUnread(Backlog::caughtUp + 1);
    QVERIFY(backlog.isDropping());
    backlog.setUnread(Backlog::caughtUp);
    QVERIFY(!backlog.isDropping());
    backlog.setUnread(limit - 1);
    QVERIFY(!backlog.isDropping());
}

void tst_Backlog::complainsEachTimeThatDroppingBegins()
{
    const TemporaryWorkingDirectory directory;
    const auto complaints = [&directory] {
        return directory.content(QStringLiteral("log.txt")).count("the host is behind\r\n");
    };
    Backlog backlog(limit, "the host is behind");
    backlog.setUnread(limit - 1);
    QCOMPARE(complaints(), 0);
    backlog.setUnread(limit);
    backlog.setUnread(limit + 1);
    QCOMPARE(complaints(), 1);
    backlog.setUnread(0);
    QCOMPARE(complaints(), 1);
    backlog.setUnread(limit);
    QCOMPARE(complaints(), 2);
}

QTEST_GUILESS_MAIN(tst_Backlog)
#include "tst_backlog.moc"
