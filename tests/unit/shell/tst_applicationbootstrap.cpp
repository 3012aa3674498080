#include "SDK/LanguageUtilities.h"
#include "shell/ApplicationBootstrap.h"
#include "shell/processes.h"
#include "tests/support/MessageCapture.h"

#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QWebSocketServer>
#include <QtTest>

#include <vector>

/// The guard is tested with copies of an idle program that have this test's own name.
class tst_ApplicationBootstrap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picksTheLanguage_data();
    void picksTheLanguage();
    void logsTheArgumentsAndLoadsTheLanguage();
    void endsLeftoversWhenNobodyServes();
    void leavesEveryoneAloneWhenAnInstanceServes();

private:
    static QString quoted(const QString &text) { return MessageCapture::quoted(text); }
    static bool guardPortIsFree();
    static void bootstrap(const QList<QByteArray> &arguments);
};

namespace {

constexpr quint16 guardPort = 24509;

class SleepingProgram
{
public:
    explicit SleepingProgram(const QString &name)
    {
        const QString path = m_folder.filePath(name);
        if (!QFile::copy(QStringLiteral(IDLE_EXECUTABLE), path))
            qFatal("No program to play with");
        m_process.start(path, QStringList());
        m_process.waitForStarted();
        m_id = m_process.processId();
    }
    ~SleepingProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY(SleepingProgram)

    QString id() const { return QString::number(m_id); }
    bool waitForEnd() { return m_process.waitForFinished(); }
    bool isRunning()
    {
        // A process that was ended is noticed within the first of these.
        return !m_process.waitForFinished(100);
    }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    qint64 m_id = 0;
};

} // namespace

bool tst_ApplicationBootstrap::guardPortIsFree()
{
    return QTcpServer().listen(QHostAddress::Any, guardPort);
}

void tst_ApplicationBootstrap::bootstrap(const QList<QByteArray> &arguments)
{
    QList<QByteArray> copies = arguments;
    std::vector<char *> argv;
    for (QByteArray &argument : copies)
        argv.push_back(argument.data());
    const ApplicationBootstrap instance(static_cast<int>(argv.size()), argv.data());
}

void tst_ApplicationBootstrap::picksTheLanguage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("language");
    const auto row = [](const char *name, const QStringList &arguments, const char *language) {
        QTest::newRow(name) << arguments << QString::fromLatin1(language);
    };
    row("none", {}, "en");
    row("not named", {QStringLiteral("-port"), QStringLiteral("1")}, "en");
    row("before a comma", {QStringLiteral("{application:{language:zh_CN,version:6.4},fonts:[]}")},
        "zh_CN");
    row("last member keeps the braces", {QStringLiteral("{application:{language:en}}")}, "en}}");
    row("white space", {QStringLiteral("{application:{language: \tzh_CN ,x:1}}")}, "zh_CN");
    row("quotes left in", {QStringLiteral(R"({"application":{"language":"zh_CN"}})")}, "en");
    row("other letters", {QStringLiteral("Language:zh_CN,")}, "en");
    row("empty value", {QStringLiteral("language:,x")}, "");
    row("at the very end", {QStringLiteral("language:")}, "");
    row("the first of an argument", {QStringLiteral("language:de,language:fr,")}, "de");
    row("the last argument",
        {QStringLiteral("language:de,"), QStringLiteral("language:fr,"), QStringLiteral("-x")},
        "fr");
}

void tst_ApplicationBootstrap::picksTheLanguage()
{
    QFETCH(QStringList, arguments);
    QTEST(ApplicationBootstrap::languageFromArguments(arguments), "language");
}

void tst_ApplicationBootstrap::logsTheArgumentsAndLoadsTheLanguage()
{
    const MessageCapture capture;
    bootstrap({"/opt/x", "-info", "{application:{language:zh_CN,v:1}}", "%1"});
    QCOMPARE(MessageCapture::messages().mid(0, 6),
             (QStringList{
                 quoted(QStringLiteral("args0: /opt/x")), quoted(QStringLiteral("args1: -info")),
                 quoted(QStringLiteral("args2: {application:{language:zh_CN,v:1}}")),
                 quoted(QStringLiteral("args3: %1")), quoted(QStringLiteral("Language:zh_CN")),
                 quoted(QStringLiteral("初始化翻译"))}));
    QCOMPARE(LanguageUtilities::instance()->currentLanguage(), QStringLiteral("zh_CN"));
    QCOMPARE(MessageCapture::criticalMessages().size(), 11);
}

void tst_ApplicationBootstrap::endsLeftoversWhenNobodyServes()
{
    if (!guardPortIsFree())
        QSKIP("A program of this machine serves port 24509");
    const QString name = processes::ownExecutableName();
    SleepingProgram leftover(name);
    SleepingProgram inOtherLetters(name.toUpper());
    SleepingProgram longerName(name + QLatin1Char('2'));

    const MessageCapture capture;
    bootstrap({"x"});
    QVERIFY(leftover.waitForEnd());
    QVERIFY(inOtherLetters.waitForEnd());
    QVERIFY(longerName.isRunning());

    const QStringList messages = MessageCapture::messages();
    const auto start = messages.indexOf(
        quoted(QStringLiteral("Connect to PROT: 24509 Failed, try to killProcess and Running..")));
    QVERIFY(start > 0);
    QCOMPARE(messages.at(start - 1), quoted(QStringLiteral("Connection failed or timed out.")));
    QCOMPARE(messages.at(start + 1), quoted(QStringLiteral("当前进程名:") + name));
    QCOMPARE(messages.constLast(), quoted(QStringLiteral("已终止所有同名进程。")));
    const auto ended = [](const SleepingProgram &program) {
        return quoted(QStringLiteral("已终止进程 ID:") + program.id());
    };
    QCOMPARE(MessageCapture::count(ended(leftover)), 1);
    QCOMPARE(MessageCapture::count(ended(inOtherLetters)), 1);
    QCOMPARE(messages.size(), start + 5);
}

void tst_ApplicationBootstrap::leavesEveryoneAloneWhenAnInstanceServes()
{
    if (!guardPortIsFree())
        QSKIP("A program of this machine serves port 24509");
    QWebSocketServer instance(QStringLiteral("Echo Server"), QWebSocketServer::NonSecureMode);
    QVERIFY(instance.listen(QHostAddress::Any, guardPort));
    SleepingProgram other(processes::ownExecutableName());

    const MessageCapture capture;
    bootstrap({"x"});
    QVERIFY(other.isRunning());
    QCOMPARE(MessageCapture::count(quoted(QStringLiteral(
                 "Connect to PROT: 24509 Success(SystemMonitorIsAlearyRunning), Exit"))),
             1);
    QCOMPARE(MessageCapture::count(quoted(QStringLiteral("已终止所有同名进程。"))), 0);
}

QTEST_GUILESS_MAIN(tst_ApplicationBootstrap)
#include "tst_applicationbootstrap.moc"
