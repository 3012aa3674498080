#include "system_monitor_lib/live/system/SystemText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

namespace {

/// Stands for "nothing".
constexpr double none = -1;

void addMalformedRows()
{
    QTest::newRow("empty") << QByteArray() << none;
    QTest::newRow("newline") << QByteArray("\n") << none;
    QTest::newRow("letters") << QByteArray("some avg10=much avg60=0\n") << none;
    QTest::newRow("not a number") << QByteArray("nan nan\n") << none;
    QTest::newRow("endless") << QByteArray("inf inf\n") << none;
    QTest::newRow("zero bytes") << QByteArray(100, '\0') << none;
    QTest::newRow("huge") << QByteArray(100'000, '9') + '\n' << none;
}

} // namespace

class SystemTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parsesUptime_data();
    void parsesUptime();
    void parsesLoads_data();
    void parsesLoads();
    void parsesPressure_data();
    void parsesPressure();
    void knowsUserSessions_data();
    void knowsUserSessions();
};

void SystemTextTest::parsesUptime_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("seconds");
    QTest::newRow("usual") << QByteArray("350735.47 234388.90\n") << 350735.47;
    QTest::newRow("just started") << QByteArray("0.00 0.00\n") << 0.0;
    QTest::newRow("negative") << QByteArray("-1 5\n") << none;
    QTest::newRow("cut") << QByteArray("3507") << none;
    addMalformedRows();
}

void SystemTextTest::parsesUptime()
{
    QFETCH(const QByteArray, text);
    QTEST(parseUptime(view(text)).value_or(none), "seconds");
}

void SystemTextTest::parsesLoads_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("loads");
    QTest::newRow("usual") << QByteArray("0.50 1.25 12.75 2/613 4711\n")
                           << QStringLiteral("0.5 1.25 12.75");
    QTest::newRow("two") << QByteArray("0.50 1.25\n") << QStringLiteral("0.5 1.25 -1");
    QTest::newRow("a malformed one") << QByteArray("0.50 x 12.75\n") << QStringLiteral("0.5 -1 -1");
    QTest::newRow("cut") << QByteArray("0.50 1.25 12.") << QStringLiteral("-1 -1 -1");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("-1 -1 -1");
}

void SystemTextTest::parsesLoads()
{
    QFETCH(const QByteArray, text);
    SystemState state;
    state.load15 = 99;
    parseLoadAverages(view(text), state);
    QTEST(QStringLiteral("%1 %2 %3")
              .arg(state.load1.value_or(none))
              .arg(state.load5.value_or(none))
              .arg(state.load15.value_or(none)),
          "loads");
}

void SystemTextTest::parsesPressure_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("percent");
    QTest::newRow("usual") << QByteArray("some avg10=3.25 avg60=1.00 avg300=0.50 total=8\n"
                                         "full avg10=1.00 avg60=1.00 avg300=0.50 total=4\n")
                           << 3.25;
    QTest::newRow("all the time") << QByteArray("some avg10=100.00\n") << 100.0;
    QTest::newRow("more than that") << QByteArray("some avg10=100.01\n") << none;
    QTest::newRow("full alone") << QByteArray("full avg10=3.25 avg60=1.00\n") << none;
    QTest::newRow("cut") << QByteArray("some avg10=3.") << none;
    addMalformedRows();
}

void SystemTextTest::parsesPressure()
{
    QFETCH(const QByteArray, text);
    QTEST(parsePressure(view(text)).value_or(none), "percent");
}

void SystemTextTest::knowsUserSessions_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isOne");
    QTest::newRow("a user's")
        << QByteArray("# This is private data.\nUID=1000\nACTIVE=1\nSTATE=active\nCLASS=user\n")
        << true;
    QTest::newRow("an administrator's, early")
        << QByteArray("STATE=online\nCLASS=user-early\n") << true;
    QTest::newRow("logged out") << QByteArray("STATE=closing\nCLASS=user\n") << false;
    QTest::newRow("of the log-in screen") << QByteArray("STATE=active\nCLASS=greeter\n") << false;
    QTest::newRow("a user's services") << QByteArray("STATE=active\nCLASS=manager\n") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void SystemTextTest::knowsUserSessions()
{
    QFETCH(const QByteArray, text);
    QTEST(isUserSession(view(text)), "isOne");
}

QTEST_APPLESS_MAIN(SystemTextTest)
#include "tst_systemtext.moc"
